#include "GestureRecognizer.h"

#include <QHash>
#include <QMouseEvent>
#include <QTouchEvent>
#include <QWheelEvent>
#include <QWidget>

#include <algorithm>

namespace ui {

namespace {

// Watches one view's input and turns it into touches and scrolls for the arena. Mouse, touch
// and wheel events that reach the view (directly or propagated from a child that ignored them)
// are consumed when a recogniser of the view or an ancestor takes them.
class GestureHost : public QObject {
public:
    explicit GestureHost(QWidget *view) : QObject(view), m_view(view)
    {
        view->setAttribute(Qt::WA_AcceptTouchEvents);
        view->installEventFilter(this);
    }
    QList<QPointer<GestureRecognizer>> recognizers;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *m_view;
};

QHash<const QWidget *, GestureHost *> &hosts()
{
    static QHash<const QWidget *, GestureHost *> map;
    return map;
}

// The left mouse button is the touch with this identifier.
constexpr int kMouseTouchId = -1;
bool g_mouseDown = false;

double seconds(const QInputEvent *event)
{
    return double(event->timestamp()) / 1000.0;
}

bool holds(const QList<QPointer<GestureRecognizer>> &list, const GestureRecognizer *r)
{
    return std::any_of(list.begin(), list.end(), [r](const QPointer<GestureRecognizer> &p) { return p.data() == r; });
}

} // namespace

// The recognisers taking part in the current touch sequence, and those still busy from an
// earlier one (a tap waiting for its second tap, a result waiting for another's failure).
class GestureArena {
public:
    static GestureArena &instance()
    {
        static GestureArena arena;
        return arena;
    }

    static QList<QPointer<GestureRecognizer>> recognizersFor(const QWidget *target)
    {
        QList<QPointer<GestureRecognizer>> found;
        for (const QWidget *w = target; w; w = w->parentWidget())
            if (GestureHost *host = hosts().value(w))
                for (const QPointer<GestureRecognizer> &r : std::as_const(host->recognizers))
                    if (r && r->isEnabled())
                        found.append(r);
        return found;
    }

    bool deliverTouches(QWidget *target, TouchPhase phase, const QList<TouchPoint> &points, double timestamp)
    {
        QList<GestureRecognizer::Touch> touches;
        for (const TouchPoint &p : points)
            touches.append({p.id, target->mapToGlobal(p.position)});
        if (phase == TouchPhase::Began && m_down.isEmpty()) {
            for (const QPointer<GestureRecognizer> &r : QList(m_involved))
                if (r)
                    r->sequenceWillBegin(timestamp);
            settle();
        }
        ++m_depth;
        const bool taken = accept(target, phase, touches);
        if (taken) {
            for (const QPointer<GestureRecognizer> &r : QList(m_chain))
                if (r && r->isEnabled())
                    deliver(r, phase, touches, timestamp);
            if (phase == TouchPhase::Ended || phase == TouchPhase::Cancelled)
                for (const auto &t : touches)
                    m_down.remove(t.id);
        }
        --m_depth;
        settle();
        return taken;
    }

    // Starts a sequence or checks that the touches belong to the current one.
    bool accept(QWidget *target, TouchPhase phase, const QList<GestureRecognizer::Touch> &touches)
    {
        if (phase == TouchPhase::Began) {
            if (m_down.isEmpty()) {
                m_chain = recognizersFor(target);
                // A touch elsewhere ends the wait of a recogniser that is not part of it.
                for (const QPointer<GestureRecognizer> &r : QList(m_involved))
                    if (r && !holds(m_chain, r) && r->m_state == GestureRecognizer::State::Possible && r->isWaitingForTouches())
                        r->apply(GestureRecognizer::State::Failed);
                for (const QPointer<GestureRecognizer> &r : std::as_const(m_chain))
                    if (!holds(m_involved, r))
                        m_involved.append(r);
            }
            if (m_chain.isEmpty())
                return false;
            for (const auto &t : touches)
                m_down.insert(t.id, t.globalPosition);
            return true;
        }
        return std::any_of(touches.begin(), touches.end(), [this](const auto &t) { return m_down.contains(t.id); });
    }

    bool deliverScroll(QWidget *target, QPointF position, QPointF delta, ScrollPhase phase, double timestamp,
                       Qt::KeyboardModifiers modifiers)
    {
        const QPointF global = target->mapToGlobal(position);
        const QList<QPointer<GestureRecognizer>> candidates = recognizersFor(target);
        if (phase == ScrollPhase::Momentum)
            return m_scrollOwner || !candidates.isEmpty();
        ++m_depth;
        bool taken = m_scrollOwner && m_scrollOwner->isEnabled()
                     && m_scrollOwner->scrolled(global, delta, phase, timestamp, modifiers);
        if (!taken) {
            m_scrollOwner = nullptr;
            for (const QPointer<GestureRecognizer> &r : candidates) {
                if (!holds(m_involved, r))
                    m_involved.append(r);
                if (r && r->scrolled(global, delta, phase, timestamp, modifiers)) {
                    m_scrollOwner = r;
                    taken = true;
                    break;
                }
            }
        }
        --m_depth;
        settle();
        return taken;
    }

    // Returns recognisers in a final state to Possible and lets go of those at rest, once no
    // touch is down.
    void settle()
    {
        if (m_depth > 0 || !m_down.isEmpty())
            return;
        m_chain.clear();
        for (const QPointer<GestureRecognizer> &r : QList(m_involved)) {
            if (!r) {
                m_involved.removeAll(r);
            } else if (r->isFinal()) {
                m_involved.removeAll(r);
                r->resetToPossible();
            } else if (r->isAtRest()) {
                m_involved.removeAll(r);
            }
        }
        if (m_scrollOwner && !holds(m_involved, m_scrollOwner))
            m_scrollOwner = nullptr;
    }

    void forget(GestureRecognizer *r)
    {
        m_involved.removeAll(r);
        m_chain.removeAll(r);
        if (m_scrollOwner == r)
            m_scrollOwner = nullptr;
    }

    bool isInvolved(const GestureRecognizer *r) const { return holds(m_involved, r); }
    const QList<QPointer<GestureRecognizer>> &involved() const { return m_involved; }
    int m_depth = 0;

private:
    // Keeps the recogniser's list of touches and tells it of them, unless it is done with this
    // sequence (failed, recognised or holding a result).
    static void deliver(GestureRecognizer *r, TouchPhase phase, const QList<GestureRecognizer::Touch> &touches, double timestamp)
    {
        QList<GestureRecognizer::Touch> &own = r->m_touches;
        const bool judging = !r->m_pending && !r->isFinal();
        for (const auto &t : touches)
            for (auto &o : own)
                if (o.id == t.id)
                    o.globalPosition = t.globalPosition;
        switch (phase) {
        case TouchPhase::Began:
            own.append(touches);
            Q_EMIT r->touchDown(r);
            if (judging)
                r->touchesBegan(touches, timestamp);
            break;
        case TouchPhase::Moved:
            if (judging)
                r->touchesMoved(touches, timestamp);
            break;
        case TouchPhase::Ended:
        case TouchPhase::Cancelled:
            r->m_lastLocation = r->centroid();
            if (judging && phase == TouchPhase::Ended)
                r->touchesEnded(touches, timestamp);
            else if (judging)
                r->touchesCancelled(touches, timestamp);
            own.removeIf([&touches](const GestureRecognizer::Touch &o) {
                return std::any_of(touches.begin(), touches.end(), [&o](const auto &t) { return t.id == o.id; });
            });
            if (own.isEmpty())
                Q_EMIT r->touchUp(r);
            break;
        }
    }

    QHash<int, QPointF> m_down;
    QList<QPointer<GestureRecognizer>> m_chain;
    QList<QPointer<GestureRecognizer>> m_involved;
    QPointer<GestureRecognizer> m_scrollOwner;
};

namespace {

bool GestureHost::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_view)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        // A double click arrives instead of the second press.
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() != Qt::LeftButton)
            return false;
        if (g_mouseDown) // the double click that follows the second press
            return event->type() == QEvent::MouseButtonDblClick;
        if (!sendTouches(m_view, TouchPhase::Began, {{kMouseTouchId, mouse->position()}}, seconds(mouse)))
            return false;
        g_mouseDown = true;
        return true;
    }
    case QEvent::MouseMove: {
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (!g_mouseDown || !(mouse->buttons() & Qt::LeftButton))
            return false;
        sendTouches(m_view, TouchPhase::Moved, {{kMouseTouchId, mouse->position()}}, seconds(mouse));
        return true;
    }
    case QEvent::MouseButtonRelease: {
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (!g_mouseDown || mouse->button() != Qt::LeftButton)
            return false;
        g_mouseDown = false;
        sendTouches(m_view, TouchPhase::Ended, {{kMouseTouchId, mouse->position()}}, seconds(mouse));
        return true;
    }
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel: {
        auto *touch = static_cast<QTouchEvent *>(event);
        QList<TouchPoint> began, moved, ended;
        for (const QEventPoint &p : touch->points()) {
            const TouchPoint point{p.id(), p.position()};
            if (event->type() == QEvent::TouchCancel || p.state() == QEventPoint::Released)
                ended.append(point);
            else if (p.state() == QEventPoint::Pressed)
                began.append(point);
            else if (p.state() == QEventPoint::Updated)
                moved.append(point);
        }
        const double t = seconds(touch);
        bool taken = false;
        if (!began.isEmpty())
            taken = sendTouches(m_view, TouchPhase::Began, began, t);
        if (!moved.isEmpty())
            taken = sendTouches(m_view, TouchPhase::Moved, moved, t) || taken;
        if (!ended.isEmpty())
            taken = sendTouches(m_view, event->type() == QEvent::TouchCancel ? TouchPhase::Cancelled : TouchPhase::Ended, ended, t)
                    || taken;
        event->setAccepted(taken);
        return taken;
    }
    case QEvent::Wheel: {
        auto *wheel = static_cast<QWheelEvent *>(event);
        ScrollPhase phase = ScrollPhase::None;
        switch (wheel->phase()) {
        case Qt::NoScrollPhase: phase = ScrollPhase::None; break;
        case Qt::ScrollBegin: phase = ScrollPhase::Began; break;
        case Qt::ScrollUpdate: phase = ScrollPhase::Changed; break;
        case Qt::ScrollEnd: phase = ScrollPhase::Ended; break;
        case Qt::ScrollMomentum: phase = ScrollPhase::Momentum; break;
        }
        // Touchpads report pixels; a wheel notch (120 eighths of a degree) scrolls three lines of
        // 20 points, as Qt's own scroll areas do.
        QPointF delta = wheel->pixelDelta();
        if (delta.isNull())
            delta = QPointF(wheel->angleDelta()) / 120.0 * 60.0;
        if (wheel->inverted())
            delta = -delta;
        return sendScroll(m_view, wheel->position(), delta, phase, seconds(wheel), wheel->modifiers());
    }
    default:
        return false;
    }
}

} // namespace

bool sendTouches(QWidget *target, TouchPhase phase, const QList<TouchPoint> &touches, double timestamp)
{
    return GestureArena::instance().deliverTouches(target, phase, touches, timestamp);
}

bool sendScroll(QWidget *target, QPointF position, QPointF delta, ScrollPhase phase, double timestamp,
                Qt::KeyboardModifiers modifiers)
{
    return GestureArena::instance().deliverScroll(target, position, delta, phase, timestamp, modifiers);
}

GestureRecognizer::GestureRecognizer(QWidget *view) : QObject(view), m_view(view)
{
    GestureHost *&host = hosts()[view];
    if (!host) {
        host = new GestureHost(view);
        QObject::connect(host, &QObject::destroyed, [view] { hosts().remove(view); });
    }
    host->recognizers.append(this);
}

GestureRecognizer::~GestureRecognizer()
{
    GestureArena::instance().forget(this);
    if (GestureHost *host = hosts().value(m_view))
        host->recognizers.removeAll(this);
}

void GestureRecognizer::setEnabled(bool enabled)
{
    if (enabled == m_enabled)
        return;
    if (!enabled && GestureArena::instance().isInvolved(this)) {
        ++GestureArena::instance().m_depth;
        apply(isActive() ? State::Cancelled : State::Failed);
        --GestureArena::instance().m_depth;
        m_touches.clear();
        GestureArena::instance().forget(this);
        resetToPossible();
    }
    m_enabled = enabled;
}

void GestureRecognizer::requireGestureRecognizerToFail(GestureRecognizer *other)
{
    if (other && other != this && !holds(m_requiredToFail, other))
        m_requiredToFail.append(other);
}

void GestureRecognizer::recognizeSimultaneouslyWith(GestureRecognizer *other)
{
    if (other && other != this && !holds(m_simultaneous, other))
        m_simultaneous.append(other);
}

QPointF GestureRecognizer::centroid() const
{
    if (m_touches.isEmpty())
        return m_lastLocation;
    QPointF sum;
    for (const Touch &t : m_touches)
        sum += t.globalPosition;
    return sum / qreal(m_touches.size());
}

QPointF GestureRecognizer::locationInView(const QWidget *view) const
{
    return (view ? view : m_view)->mapFromGlobal(centroid());
}

QPointF GestureRecognizer::locationOfTouch(int index, const QWidget *view) const
{
    return (view ? view : m_view)->mapFromGlobal(m_touches.value(index).globalPosition);
}

void GestureRecognizer::touchesCancelled(const QList<Touch> &, double)
{
    setState(isActive() ? State::Cancelled : State::Failed);
}

void GestureRecognizer::setState(State state)
{
    if (!m_enabled)
        return;
    if (m_state == State::Possible && (state == State::Began || state == State::Ended)) {
        if (m_pending)
            return;
        if ((m_shouldBegin && !m_shouldBegin(*this)) || blockedByActiveRecognizer()) {
            apply(State::Failed);
            return;
        }
        if (waitsForFailure()) {
            m_pending = true;
            m_pendingState = state;
            return;
        }
    }
    apply(state);
}

void GestureRecognizer::apply(State state)
{
    if (state == m_state && state != State::Changed)
        return;
    GestureArena &arena = GestureArena::instance();
    const bool recognized = m_state == State::Possible && (state == State::Began || state == State::Ended);
    m_state = state;
    m_pending = false;
    ++arena.m_depth;
    const QList<QPointer<GestureRecognizer>> others = arena.involved();
    if (recognized) {
        for (const QPointer<GestureRecognizer> &other : others)
            if (other && other != this && other->m_state == State::Possible
                && (!allowsSimultaneous(other) || holds(other->m_requiredToFail, this)))
                other->apply(State::Failed);
    } else if (state == State::Failed) {
        // Results held back for this recogniser's failure may go now.
        for (const QPointer<GestureRecognizer> &other : others)
            if (other && other->m_pending && holds(other->m_requiredToFail, this) && !other->waitsForFailure()) {
                if (other->blockedByActiveRecognizer())
                    other->apply(State::Failed);
                else
                    other->apply(other->m_pendingState);
            }
    }
    if (state != State::Possible && state != State::Failed)
        Q_EMIT action(this);
    --arena.m_depth;
    arena.settle();
}

bool GestureRecognizer::blockedByActiveRecognizer() const
{
    for (const QPointer<GestureRecognizer> &other : GestureArena::instance().involved())
        if (other && other != this && !allowsSimultaneous(other) && (other->isActive() || other->m_state == State::Ended))
            return true;
    return false;
}

bool GestureRecognizer::waitsForFailure() const
{
    const GestureArena &arena = GestureArena::instance();
    for (const QPointer<GestureRecognizer> &other : m_requiredToFail)
        if (other && other->m_state != State::Failed && arena.isInvolved(other) && !other->isAtRest())
            return true;
    return false;
}

bool GestureRecognizer::allowsSimultaneous(const GestureRecognizer *other) const
{
    return holds(m_simultaneous, other) || holds(other->m_simultaneous, this);
}

bool GestureRecognizer::isAtRest() const
{
    return m_state == State::Possible && !m_pending && m_touches.isEmpty() && !isWaitingForTouches();
}

void GestureRecognizer::resetToPossible()
{
    m_state = State::Possible;
    m_pending = false;
    reset();
}

} // namespace ui
