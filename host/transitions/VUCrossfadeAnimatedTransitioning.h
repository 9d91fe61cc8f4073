#pragma once
// The host's crossfade for navigation: the screen on top (the incoming one of a push, the
// outgoing one of a pop) fades over the other, which stays opaque beneath it. Being a function of
// the transition's progress, it follows a finger as well as it runs by itself, and a cancelled
// transition fades back.

#include "ui/AnimatedTransitioning.h"

class VUCrossfadeAnimatedTransitioning : public ui::AnimatedTransitioning {
public:
    static constexpr double kDuration = 0.3;

    double transitionDuration(const ui::TransitionContext &context) const override { return kDuration; }
    void animateTransition(ui::TransitionContext &context) override;
};
