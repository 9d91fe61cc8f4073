#pragma once
// Gesture recognisers with states, fed from mouse, touch, wheel and synthetic input alike.
//
// A recogniser belongs to a view (it is the view's child). A touch that goes down on a view is
// offered to the recognisers of that view and of all its ancestors, deepest first, for the whole
// touch sequence; a left mouse button is one touch. Recognisers compete: the first that
// recognises fails every other one still possible, unless the two were allowed to recognise
// simultaneously, and a recogniser that must wait for another to fail (a single tap waiting for
// a double tap) holds its result until that one fails, or fails itself when that one succeeds.
//
// Continuous recognisers go Possible -> Began -> Changed... -> Ended or Cancelled; discrete
// ones go Possible -> Ended (recognised). Either may go to Failed instead. The action signal is
// emitted on each of Began, Changed, Ended and Cancelled; once the touches have lifted, a
// recogniser in a final state returns to Possible.
//
// The synthetic entry points sendTouches and sendScroll take the same path as real events, so a
// test drives recognisers exactly as a user does, with time stamps of its choosing.

#include <QList>
#include <QObject>
#include <QPointF>
#include <QPointer>

#include <functional>

class QWidget;

namespace ui {

enum class TouchPhase { Began, Moved, Ended, Cancelled };
enum class ScrollPhase {
    None,      // a notched wheel: each event is a step of its own
    Began,     // a touchpad scroll starts
    Changed,
    Ended,     // fingers lifted from the touchpad
    Momentum,  // the platform's own inertia, ignored: scroll views decelerate by themselves
};

// One touch of a synthetic event: an identifier stable over the touch's life, and a position in
// the coordinates of the view the event is sent to.
struct TouchPoint {
    int id = 0;
    QPointF position;
};

// Feeds one phase of touches to the recognisers of `target` and its ancestors. `timestamp` is in
// seconds; real events use their own time stamps, a test any clock that only moves forward.
// Returns false when no recogniser took the touches.
bool sendTouches(QWidget *target, TouchPhase phase, const QList<TouchPoint> &touches, double timestamp);
// Feeds a scroll (wheel or touchpad) of `delta` points, positive when the content should move
// right or down, at `position` in `target`'s coordinates. Returns false when nothing took it.
bool sendScroll(QWidget *target, QPointF position, QPointF delta, ScrollPhase phase, double timestamp,
                Qt::KeyboardModifiers modifiers = Qt::NoModifier);

class GestureRecognizer : public QObject {
    Q_OBJECT
public:
    enum class State { Possible = 0, Began = 1, Changed = 2, Ended = 3, Cancelled = 4, Failed = 5 };
    static constexpr State Recognized = State::Ended;

    // The recogniser becomes a child of `view` and watches its input.
    explicit GestureRecognizer(QWidget *view);
    ~GestureRecognizer() override;

    QWidget *view() const { return m_view; }
    State state() const { return m_state; }
    bool isEnabled() const { return m_enabled; }
    // Disabling ends a gesture in progress: cancelled when it had begun, failed otherwise.
    void setEnabled(bool enabled);

    // This recogniser does not recognise until `other` has failed, and fails when it succeeds.
    void requireGestureRecognizerToFail(GestureRecognizer *other);
    // Both may recognise in the same sequence (a pan and a pinch on one scroll view).
    void recognizeSimultaneouslyWith(GestureRecognizer *other);
    // Asked when the recogniser is about to leave Possible; false makes it fail instead.
    void setShouldBegin(std::function<bool(GestureRecognizer &)> predicate) { m_shouldBegin = std::move(predicate); }

    // Where the gesture is: the centroid of its touches (the last known one after they lift),
    // in `view`'s coordinates (this recogniser's view when null).
    QPointF locationInView(const QWidget *view = nullptr) const;
    int numberOfTouches() const { return int(m_touches.size()); }
    QPointF locationOfTouch(int index, const QWidget *view = nullptr) const;

Q_SIGNALS:
    void action(ui::GestureRecognizer *recognizer);
    // A touch went down on the view (before the recognisers judge it): a scroll view stops
    // decelerating here.
    void touchDown(ui::GestureRecognizer *recognizer);
    // The last touch of this recogniser's sequence lifted (after the recognisers judged it).
    void touchUp(ui::GestureRecognizer *recognizer);

protected:
    struct Touch {
        int id;
        QPointF globalPosition;
    };
    // Touches of this recogniser's sequence, in global coordinates; the base keeps the list of
    // touches down before calling these.
    virtual void touchesBegan(const QList<Touch> &touches, double timestamp) {}
    virtual void touchesMoved(const QList<Touch> &touches, double timestamp) {}
    virtual void touchesEnded(const QList<Touch> &touches, double timestamp) {}
    virtual void touchesCancelled(const QList<Touch> &touches, double timestamp);
    // A scroll; true when this recogniser takes it (it then gets the whole scroll sequence).
    virtual bool scrolled(QPointF globalPosition, QPointF delta, ScrollPhase phase, double timestamp,
                          Qt::KeyboardModifiers modifiers) { return false; }
    // Back to the initial state, after a final state or when the sequence is abandoned.
    virtual void reset() {}
    // True while the recogniser, with no touches down, still expects more (between two taps).
    virtual bool isWaitingForTouches() const { return false; }
    // A new touch sequence starts at `timestamp`; a waiting recogniser may find it came too late.
    virtual void sequenceWillBegin(double timestamp) {}

    // Moves the state machine; arbitration may turn Began or Recognized into Failed or defer it.
    void setState(State state);
    QPointF centroid() const;
    const QList<Touch> &touches() const { return m_touches; }
    // Sets the location reported when no touch is down (a scroll's pointer position).
    void setLastLocation(QPointF globalPosition) { m_lastLocation = globalPosition; }

private:
    friend class GestureArena;
    void apply(State state);
    bool blockedByActiveRecognizer() const;
    bool waitsForFailure() const;
    bool allowsSimultaneous(const GestureRecognizer *other) const;
    bool isActive() const { return m_state == State::Began || m_state == State::Changed; }
    bool isFinal() const { return m_state == State::Ended || m_state == State::Cancelled || m_state == State::Failed; }
    bool isAtRest() const;
    void resetToPossible();

    QWidget *m_view;
    State m_state = State::Possible;
    bool m_enabled = true;
    bool m_pending = false;   // recognised, waiting for others to fail
    State m_pendingState = State::Possible;
    QList<Touch> m_touches;
    QPointF m_lastLocation;
    QList<QPointer<GestureRecognizer>> m_requiredToFail;
    QList<QPointer<GestureRecognizer>> m_simultaneous;
    std::function<bool(GestureRecognizer &)> m_shouldBegin;
};

} // namespace ui
