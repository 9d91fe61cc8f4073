#pragma once
// The host's crossfade for navigation: the screen on top (the incoming one of a push, the
// outgoing one of a pop) fades over the other, which stays opaque beneath it, so the background
// never shows through. Being a function of the transition's progress, it follows a finger as
// well as it runs by itself, and a cancelled transition fades back.

#include "ui/AnimatedTransitioning.h"

class VUCrossfadeAnimatedTransitioning : public ui::AnimatedTransitioning {
public:
    static constexpr double kDuration = 0.3;

    // `duration` in seconds; `curve` shapes the fade over the transition's progress.
    explicit VUCrossfadeAnimatedTransitioning(double duration = kDuration, QEasingCurve curve = QEasingCurve::Linear)
        : m_duration(duration), m_curve(curve)
    {
    }

    double transitionDuration(const ui::TransitionContext &) const override { return m_duration; }
    void animateTransition(ui::TransitionContext &context) override;

private:
    double m_duration;
    QEasingCurve m_curve;
};
