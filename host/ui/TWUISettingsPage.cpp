#include "TWUISettingsPage.h"

#include "TWUISettingsAppearance.h"
#include "TWUISettingsSectionView.h"

#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

class GroupedBackground : public QWidget {
protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(rect(), TWUISettingsAppearance::forWidget(this).background); }
};

} // namespace

TWUISettingsPage::TWUISettingsPage(QWidget *parent) : QScrollArea(parent)
{
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // A slim grey scroll indicator that suits light and dark backgrounds alike.
    verticalScrollBar()->setStyleSheet(QStringLiteral(
        "QScrollBar:vertical { background: transparent; width: 7px; margin: 2px 1px 2px 0; }"
        "QScrollBar::handle:vertical { background: rgba(128, 128, 128, 0.55); border-radius: 3px; min-height: 36px; }"
        "QScrollBar::add-line:vertical, QScrollBar::sub-line:vertical { height: 0; }"
        "QScrollBar::add-page:vertical, QScrollBar::sub-page:vertical { background: transparent; }"));
    auto *content = new GroupedBackground;
    m_column = new QVBoxLayout(content);
    m_column->setContentsMargins(0, 6, 0, 0);
    m_column->setSpacing(0);
    // Room under the last section, then whatever the window has to spare.
    m_column->addSpacing(32);
    m_column->addStretch(1);
    setWidget(content);
    // The indicator floats over the page's right margin, as on a phone, rather than narrowing it.
    verticalScrollBar()->parentWidget()->raise();
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, [this](int, int maximum) {
        setViewportMargins(0, 0, maximum > 0 ? -verticalScrollBar()->sizeHint().width() : 0, 0);
    });
}

void TWUISettingsPage::addSection(TWUISettingsSectionView *section)
{
    m_column->insertWidget(m_column->count() - 2, section);
}
