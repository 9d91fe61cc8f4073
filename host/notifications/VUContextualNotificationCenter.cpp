#include "notifications/VUContextualNotificationCenter.h"

#include "notifications/VUContextualNotificationBanner.h"

#include "ui/DisplayLink.h"
#include "ui/PanGestureRecognizer.h"

#include <QEvent>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kMargin = 8;
// A banner pulled down moves this share of the finger's travel: it is not meant to go there.
constexpr double kPullResistance = 0.2;

double easeOut(double progress)
{
    const double p = std::clamp(progress, 0.0, 1.0);
    return 1 - (1 - p) * (1 - p) * (1 - p);
}

} // namespace

VUContextualNotificationCenter::VUContextualNotificationCenter(QWidget *hostView, QObject *parent)
    : QObject(parent)
    , m_hostView(hostView)
    , m_link(new ui::DisplayLink([this](ui::DisplayLink &link) { _tick(link.timestamp()); }, this))
{
    hostView->installEventFilter(this);
    m_link->setPaused(true);
    m_link->schedule(hostView);
}

VUContextualNotificationCenter::~VUContextualNotificationCenter()
{
    if (m_hostView) {
        m_hostView->removeEventFilter(this);
        delete m_banner;
    }
}

int VUContextualNotificationCenter::post(const VUContextualNotification &notification)
{
    const int identifier = m_nextIdentifier++;
    m_queue.push_back({identifier, notification});
    if (!m_current)
        _showNext();
    return identifier;
}

void VUContextualNotificationCenter::dismissCurrent()
{
    if (m_current && m_phase != Phase::SlidingOut)
        _dismiss(DismissalReason::Programmatic);
}

void VUContextualNotificationCenter::removeAllQueued()
{
    m_queue.clear();
}

double VUContextualNotificationCenter::_shownY() const
{
    return kMargin;
}

double VUContextualNotificationCenter::_hiddenY() const
{
    return -(m_banner ? m_banner->height() : 0) - kMargin;
}

void VUContextualNotificationCenter::_showNext()
{
    if (m_queue.empty() || !m_hostView)
        return;
    m_current = std::make_unique<Entry>(std::move(m_queue.front()));
    m_queue.pop_front();
    m_remaining = m_current->notification.dismissalDelay;
    m_banner = new VUContextualNotificationBanner(m_current->notification, m_hostView);
    connect(m_banner, &VUContextualNotificationBanner::actionTriggered, this, [this](int index) {
        if (m_phase == Phase::SlidingOut)
            return;
        const std::function<void()> handler = m_current->notification.actions.value(index).handler;
        _dismiss(DismissalReason::Action, index);
        if (handler)
            handler();
    });
    m_pan = new ui::PanGestureRecognizer(m_banner);
    connect(m_pan, &ui::GestureRecognizer::action, this, &VUContextualNotificationCenter::_pan);
    _layoutBanner();
    _setY(_hiddenY());
    m_banner->show();
    m_banner->raise();
    _slide(Phase::SlidingIn, _shownY());
    Q_EMIT didShow(m_current->identifier);
}

void VUContextualNotificationCenter::_slide(Phase phase, double to)
{
    m_phase = phase;
    m_slideFrom = m_y;
    m_slideTo = to;
    m_slideStart = ui::DisplayLink::currentTime();
    m_lastTimestamp = m_slideStart;
    if (!m_sliding.isActive())
        m_sliding = ui::PendingWork(QStringLiteral("a notification banner sliding"));
    m_link->setPaused(false);
}

void VUContextualNotificationCenter::_dismiss(DismissalReason reason, int actionIndex)
{
    m_reason = reason;
    m_actionIndex = actionIndex;
    if (m_pan)
        m_pan->setEnabled(false);
    _slide(Phase::SlidingOut, _hiddenY());
}

void VUContextualNotificationCenter::_tick(double timestamp)
{
    const double elapsed = std::max(0.0, timestamp - m_lastTimestamp);
    m_lastTimestamp = timestamp;
    switch (m_phase) {
    case Phase::SlidingIn:
    case Phase::Returning:
    case Phase::SlidingOut: {
        // Frame times are sums of intervals: a slide of whole frames may fall short by a hair.
        const double progress = (timestamp - m_slideStart) / kSlideDuration + 1e-9;
        _setY(m_slideFrom + (m_slideTo - m_slideFrom) * easeOut(progress));
        if (progress < 1)
            return;
        m_sliding.end();
        if (m_phase != Phase::SlidingOut) {
            m_phase = Phase::Shown;
            // A banner that stays until dismissed needs no frames while it rests.
            m_link->setPaused(m_current->notification.dismissalDelay <= 0);
            return;
        }
        const Entry ended = std::move(*m_current);
        m_current.reset();
        m_phase = Phase::None;
        m_pan = nullptr;
        delete std::exchange(m_banner, nullptr);
        m_link->setPaused(true);
        Q_EMIT didDismiss(ended.identifier, m_reason, m_actionIndex);
        _showNext();
        return;
    }
    case Phase::Shown:
        if (m_current->notification.dismissalDelay <= 0)
            return;
        m_remaining -= elapsed;
        if (m_remaining <= 1e-9)
            _dismiss(DismissalReason::Timeout);
        return;
    case Phase::Dragging:
    case Phase::None:
        return;
    }
}

void VUContextualNotificationCenter::_pan()
{
    switch (m_pan->state()) {
    case ui::GestureRecognizer::State::Began:
        if (m_phase == Phase::SlidingOut)
            return;
        m_phase = Phase::Dragging;
        m_sliding.end();
        m_dragStartY = m_y;
        break;
    case ui::GestureRecognizer::State::Changed: {
        if (m_phase != Phase::Dragging)
            return;
        const double travel = m_pan->translation().y();
        _setY(m_dragStartY + (travel < 0 ? travel : travel * kPullResistance));
        break;
    }
    case ui::GestureRecognizer::State::Ended:
    case ui::GestureRecognizer::State::Cancelled: {
        if (m_phase != Phase::Dragging)
            return;
        const double raised = _shownY() - m_y;
        if (m_pan->state() == ui::GestureRecognizer::State::Ended
            && (raised > m_banner->height() * kDismissShare || m_pan->velocity().y() < -kDismissVelocity))
            _dismiss(DismissalReason::Swipe);
        else
            _slide(Phase::Returning, _shownY());
        break;
    }
    default:
        break;
    }
}

bool VUContextualNotificationCenter::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_hostView && event->type() == QEvent::Resize)
        _layoutBanner();
    return QObject::eventFilter(watched, event);
}

void VUContextualNotificationCenter::_layoutBanner()
{
    if (!m_banner || !m_hostView)
        return;
    const int width = std::max(0, m_hostView->width() - 2 * int(kMargin));
    m_banner->setGeometry(int(kMargin), int(std::lround(m_y)), width, m_banner->heightForWidth(width));
}

void VUContextualNotificationCenter::_setY(double y)
{
    m_y = y;
    if (m_banner)
        m_banner->move(m_banner->x(), int(std::lround(y)));
}
