#include "TWUISettingsSectionView.h"

#include "TWUISettingsAppearance.h"
#include "TWUISettingsCell.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

TWUISettingsSectionCard::TWUISettingsSectionCard(QWidget *parent) : QWidget(parent), m_rows(new QVBoxLayout(this))
{
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setSpacing(0);
}

void TWUISettingsSectionCard::addCell(TWUISettingsCell *cell)
{
    m_rows->addWidget(cell);
}

QPainterPath TWUISettingsSectionCard::backgroundPath() const
{
    QPainterPath path;
    path.addRoundedRect(QRectF(rect()), TWUISettingsAppearance::kCornerRadius, TWUISettingsAppearance::kCornerRadius);
    return path;
}

void TWUISettingsSectionCard::paintEvent(QPaintEvent *)
{
    const TWUISettingsAppearance appearance = TWUISettingsAppearance::forWidget(this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(backgroundPath(), appearance.cell);
    // A hairline under every shown row but the last, starting where the titles start.
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(appearance.separator, 0));
    const QWidget *previous = nullptr;
    for (int i = 0; i < m_rows->count(); ++i) {
        const QWidget *row = m_rows->itemAt(i)->widget();
        if (!row || row->isHidden())
            continue;
        if (previous)
            painter.drawLine(TWUISettingsAppearance::kMargin, previous->geometry().bottom(), width(), previous->geometry().bottom());
        previous = row;
    }
}

TWUISettingsSectionView::TWUISettingsSectionView(const QString &title, QWidget *parent) : QWidget(parent), m_card(new TWUISettingsSectionCard)
{
    auto *column = new QVBoxLayout(this);
    const int margin = TWUISettingsAppearance::kMargin;
    column->setContentsMargins(margin, 0, margin, 0);
    column->setSpacing(0);
    m_header = new QLabel(title.toUpper());
    m_header->setObjectName(QStringLiteral("section:%1").arg(title));
    m_header->setTextFormat(Qt::PlainText);
    // Titled sections stand further apart than untitled ones, as on a phone.
    m_header->setContentsMargins(margin, title.isEmpty() ? 0 : 14, margin, title.isEmpty() ? 0 : 6);
    m_header->setFixedHeight(title.isEmpty() ? 22 : m_header->sizeHint().height());
    column->addWidget(m_header);
    column->addWidget(m_card);
    applyAppearance();
}

void TWUISettingsSectionView::addCell(TWUISettingsCell *cell)
{
    m_card->addCell(cell);
}

void TWUISettingsSectionView::applyAppearance()
{
    const TWUISettingsAppearance appearance = TWUISettingsAppearance::forWidget(this);
    m_header->setFont(TWUISettingsAppearance::headerFont(font()));
    QPalette palette = m_header->palette();
    palette.setColor(QPalette::WindowText, appearance.header);
    m_header->setPalette(palette);
}

void TWUISettingsSectionView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        applyAppearance();
}
