#pragma once
// Spring animations of a VUView's centre, bounds, transform and corner radius, all on one spring
// (VUSpring), stepped once per display frame. The transform moves as its parts: translation,
// scales, and rotation the short way round.
//
// Two ways to give the initial velocity:
// - VUAnimateViewWithSpring, the toolkit's: one number, in distances per second, relative to how
//   far each quantity travels.
// - vu_animateView, the host's: a display velocity, absolute (points per second for the centre,
//   scale per second, relative to the starting size, for whichever of the bounds' size and the
//   transform's scales change, radians per second for the rotation).
// Given velocities that mean the same motion, the two animate a view identically.

#include "VUDisplayVelocity.h"
#include "VUSpring.h"
#include "VUView.h"

#include "ui/Settle.h"

#include <QFlags>
#include <QObject>
#include <QPointer>

#include <array>
#include <functional>

namespace ui {
class DisplayLink;
}

enum class VUViewAnimationOption {
    None = 0,
    // Start from what is shown now, even mid-animation; without it a running animation jumps to
    // its end first.
    BeginFromCurrentState = 1,
};
Q_DECLARE_FLAGS(VUViewAnimationOptions, VUViewAnimationOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(VUViewAnimationOptions)

class VUViewAnimation : public QObject {
    Q_OBJECT
public:
    using Completion = std::function<void(bool finished)>;
    // What an animation moves, each with its own velocity in units per second.
    enum Component { CenterX, CenterY, Width, Height, TranslationX, TranslationY, XScale, YScale, Rotation, CornerRadius, ComponentCount };
    // The initial velocity of one component travelling from `from` to `to`.
    using VelocityRule = std::function<double(Component component, double from, double to)>;

    // Replaces the view's running animation; moves from the next frame, after `delay` seconds.
    static VUViewAnimation *start(VUView *view, const VUViewGeometry &target, const VUSpring &spring, double delay,
                                  const VelocityRule &velocity, VUViewAnimationOptions options, Completion completion);

    const VUViewGeometry &target() const { return m_target; }
    // Stops where it is: the completion hears it did not finish.
    void cancel();

private:
    struct Track {
        double from, to, velocity;
    };
    VUViewAnimation(VUView *view, const VUViewGeometry &from, const VUViewGeometry &target, const VUSpring &spring, double delay,
                    const VelocityRule &velocity, Completion completion);
    void step(double time);
    void end(bool finished);

    QPointer<VUView> m_view;
    VUViewGeometry m_target;
    VUSpring m_spring;
    double m_delay;
    double m_startTime;
    std::array<Track, ComponentCount> m_tracks;
    Completion m_completion;
    ui::DisplayLink *m_link;
    ui::PendingWork m_pending{QStringLiteral("a spring animation")};
};

void VUAnimateViewWithSpring(VUView *view, const VUViewGeometry &target, double duration, double delay, double dampingRatio,
                             double initialSpringVelocity, VUViewAnimationOptions options, VUViewAnimation::Completion completion = {});

void vu_animateView(VUView *view, QPointF center, const QRectF &bounds, const QTransform &transform, double duration, double delay,
                    double dampingRatio, VUDisplayVelocity initialVelocity, VUViewAnimationOptions options,
                    VUViewAnimation::Completion completion = {});
