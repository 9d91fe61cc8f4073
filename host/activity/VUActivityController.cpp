#include "activity/VUActivityController.h"

#include "activity/VUActivityProgressView.h"

#include <QEvent>
#include <QGraphicsDropShadowEffect>
#include <QTimer>
#include <QVBoxLayout>
#include <QWidget>

#include <algorithm>

namespace {
constexpr int kTrayMargin = 12;
}

VUActivityController::VUActivityController(QWidget *hostView, QObject *parent)
    : QObject(parent)
    , m_hostView(hostView)
    , m_tray(new QWidget(hostView))
    , m_trayLayout(new QVBoxLayout(m_tray))
{
    m_trayLayout->setContentsMargins(0, 0, 0, 0);
    m_trayLayout->setSpacing(8);
    m_tray->hide();
    hostView->installEventFilter(this);
}

VUActivityController::~VUActivityController()
{
    if (m_hostView) {
        m_hostView->removeEventFilter(this);
        delete m_tray;
    }
}

VUActivity *VUActivityController::beginActivity(const QString &title, bool cancellable)
{
    auto *activity = new VUActivity(title, this);
    activity->setCancellable(cancellable);
    auto *card = new VUActivityProgressView(activity, m_tray);
    // The tray floats over the host's content.
    auto *shadow = new QGraphicsDropShadowEffect(card);
    shadow->setBlurRadius(18);
    shadow->setOffset(0, 3);
    shadow->setColor(QColor(0, 0, 0, 90));
    card->setGraphicsEffect(shadow);
    m_cards.append(card);
    m_trayLayout->addWidget(card);
    connect(card, &VUActivityProgressView::dismissRequested, this, [this, activity] { _remove(activity); });
    connect(activity, &VUActivity::ended, this, [this, activity](VUActivity::State state) {
        Q_EMIT activityEnded(activity, state);
        if (state == VUActivity::State::Failed)
            return;
        if (m_endedCardLifetime <= 0)
            _remove(activity);
        else
            QTimer::singleShot(int(m_endedCardLifetime * 1000), activity, [this, activity] { _remove(activity); });
    });
    _layoutTray();
    return activity;
}

QList<VUActivity *> VUActivityController::activities() const
{
    QList<VUActivity *> list;
    for (const VUActivityProgressView *card : m_cards)
        list.append(card->activity());
    return list;
}

VUActivityProgressView *VUActivityController::progressViewForActivity(const VUActivity *activity) const
{
    for (VUActivityProgressView *card : m_cards)
        if (card->activity() == activity)
            return card;
    return nullptr;
}

void VUActivityController::_remove(VUActivity *activity)
{
    VUActivityProgressView *card = progressViewForActivity(activity);
    if (!card)
        return;
    m_cards.removeOne(card);
    m_trayLayout->removeWidget(card);
    card->hide();
    card->deleteLater();
    activity->deleteLater();
    _layoutTray();
}

bool VUActivityController::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_hostView && event->type() == QEvent::Resize)
        _layoutTray();
    return QObject::eventFilter(watched, event);
}

void VUActivityController::_layoutTray()
{
    if (!m_hostView)
        return;
    m_tray->setVisible(!m_cards.isEmpty());
    if (m_cards.isEmpty())
        return;
    const int width = std::max(0, m_hostView->width() - 2 * kTrayMargin);
    int height = 0;
    for (VUActivityProgressView *card : m_cards)
        height += card->heightForWidth(width) > 0 ? card->heightForWidth(width) : card->sizeHint().height();
    height += m_trayLayout->spacing() * int(m_cards.size() - 1);
    m_tray->setGeometry(kTrayMargin, m_hostView->height() - kTrayMargin - height, width, height);
    m_tray->raise();
}
