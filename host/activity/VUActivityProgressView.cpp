#include "activity/VUActivityProgressView.h"

#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace {
// The bar's steps: fine enough that a long activity moves visibly.
constexpr int kBarSteps = 1000;
}

VUActivityProgressView::VUActivityProgressView(VUActivity *activity, QWidget *parent)
    : QFrame(parent)
    , m_activity(activity)
    , m_title(new QLabel)
    , m_detail(new QLabel)
    , m_bar(new QProgressBar)
    , m_button(new QPushButton)
{
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    m_detail->setWordWrap(true);
    m_bar->setTextVisible(false);
    m_bar->setMaximumHeight(8);
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(14, 10, 14, 10);
    layout->setVerticalSpacing(6);
    layout->addWidget(m_title, 0, 0);
    layout->addWidget(m_button, 0, 1, 2, 1, Qt::AlignVCenter);
    layout->addWidget(m_detail, 1, 0);
    layout->addWidget(m_bar, 2, 0, 1, 2);
    layout->setColumnStretch(0, 1);

    connect(m_button, &QPushButton::clicked, this, [this] {
        if (m_activity && m_activity->state() == VUActivity::State::Failed)
            Q_EMIT dismissRequested();
        else if (m_activity)
            m_activity->cancel();
    });
    connect(activity, &VUActivity::changed, this, &VUActivityProgressView::_update);
    _update();
}

QString VUActivityProgressView::detailText() const
{
    return m_detail->text();
}

void VUActivityProgressView::_update()
{
    if (!m_activity)
        return;
    m_title->setText(m_activity->title());
    QString detail = m_activity->message();
    QPalette palette = this->palette();
    switch (m_activity->state()) {
    case VUActivity::State::Running:
        if (detail.isEmpty() && !m_activity->isIndeterminate())
            detail = QStringLiteral("%1 %").arg(qRound(m_activity->progress() * 100));
        break;
    case VUActivity::State::Finished:
        detail = QStringLiteral("Done");
        break;
    case VUActivity::State::Cancelled:
        detail = QStringLiteral("Cancelled at %1 %").arg(qRound(m_activity->progress() * 100));
        break;
    case VUActivity::State::Failed:
        detail = m_activity->errorDescription();
        palette.setColor(QPalette::WindowText, QColor(215, 0, 21));
        break;
    }
    m_detail->setPalette(palette);
    m_detail->setText(detail);
    // A range of zero is Qt's busy bar, moving without end.
    const bool busy = m_activity->isRunning() && m_activity->isIndeterminate();
    m_bar->setRange(0, busy ? 0 : kBarSteps);
    if (!busy)
        m_bar->setValue(qRound(m_activity->progress() * kBarSteps));
    const bool running = m_activity->isRunning();
    m_button->setText(running ? QStringLiteral("Cancel") : QStringLiteral("OK"));
    m_button->setVisible((running && m_activity->isCancellable()) || m_activity->state() == VUActivity::State::Failed);
}
