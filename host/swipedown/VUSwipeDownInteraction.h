#pragma once
// Swipe down to dismiss: a pan that starts downward on a presented view drags its content with
// the finger, the background behind it fading as it goes down; on release the content either
// flies off the bottom (dismissed) or springs back to rest (kept).
//
// Released far enough down, or flicked down fast enough, it dismisses; a fast flick back up
// keeps it even past the distance. Dragging up, and sideways, meets growing resistance (rubber
// banding) or none is allowed at all.
//
// The interaction only computes: it reports where the content is (an offset from rest) and how
// opaque the background is, and its owner moves and paints them.

#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QSizeF>

class QWidget;
class VUSpringDriver;
namespace ui {
class PanGestureRecognizer;
}

struct VUSwipeDownParameters {
    // Points below rest at release from which the content is dismissed.
    double dismissalDistance = 100;
    // Points per second downward at release from which the content is dismissed.
    double dismissalVelocity = 500;
    // Resistance when dragged up or sideways; without it, it does not move up at all.
    bool rubberBanding = true;
    // How much of the finger's travel the content follows at first (0 to 1).
    double rubberBandCoefficient = 0.55;
    bool followsHorizontally = true;
    bool dimsBackground = true;
    // Points down over which the background fades from opaque to its least opacity.
    double dimmingDistance = 300;
    double minimumBackgroundAlpha = 0;
    // The spring the content settles back with, and flies off with.
    double springDuration = 0.45;
    double springDampingRatio = 0.85;
};

// Where content dragged by `translation` shows in a view of `size`.
QPointF VUSwipeDownDisplayedOffset(QPointF translation, QSizeF size, const VUSwipeDownParameters &parameters);
// The opacity of the background with the content `offsetY` points below rest.
double VUSwipeDownBackgroundAlpha(double offsetY, const VUSwipeDownParameters &parameters);
// Whether a release at `offsetY` points below rest moving `velocityY` points per second (down
// positive) dismisses.
bool VUSwipeDownShouldDismiss(double offsetY, double velocityY, const VUSwipeDownParameters &parameters);
// The travel shown for `offset` points of travel against resistance in a view `dimension`
// points long: the same sign, at first `coefficient` of it, never reaching `dimension`.
double VURubberBandOffset(double offset, double dimension, double coefficient);

class VUSwipeDownInteraction : public QObject {
    Q_OBJECT
public:
    enum class State { Idle, Dragging, Returning, Dismissing, Dismissed };
    Q_ENUM(State)

    // Watches pans on `view`, which the content fills.
    VUSwipeDownInteraction(QWidget *view, const VUSwipeDownParameters &parameters);
    ~VUSwipeDownInteraction() override;

    const VUSwipeDownParameters &parameters() const { return m_parameters; }
    State state() const { return m_state; }
    QPointF offset() const { return m_offset; }
    double backgroundAlpha() const { return m_backgroundAlpha; }
    ui::PanGestureRecognizer *panGestureRecognizer() const { return m_pan; }
    // The last release: where it was and how fast it went.
    QPointF releaseOffset() const { return m_releaseOffset; }
    QPointF releaseVelocity() const { return m_releaseVelocity; }

Q_SIGNALS:
    void offsetChanged(QPointF offset, double backgroundAlpha);
    void stateChanged(VUSwipeDownInteraction::State state);
    // The content has left: the owner dismisses its screen.
    void dismissed();

private:
    void _handlePan();
    void _release(QPointF velocity);
    void _setOffset(QPointF offset);
    void _setState(State state);

    QWidget *m_view;
    VUSwipeDownParameters m_parameters;
    ui::PanGestureRecognizer *m_pan;
    QPointer<VUSpringDriver> m_spring;
    State m_state = State::Idle;
    QPointF m_offset;
    double m_backgroundAlpha = 1;
    QPointF m_releaseOffset;
    QPointF m_releaseVelocity;
};
