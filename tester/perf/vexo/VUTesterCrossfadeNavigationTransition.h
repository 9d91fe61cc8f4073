#pragma once
// A navigation transition that cross-fades the two screens: the screen on top (the incoming one
// of a push, the outgoing one of a pop) fades over the other, which stays opaque beneath it, so
// the background never shows through. As long as the container's own transitions.

#include "shell/VUTesterExport.h"

#include "ui/AnimatedTransitioning.h"

class VUTESTER_EXPORT VUTesterCrossfadeNavigationTransition : public ui::AnimatedTransitioning {
public:
    double transitionDuration(const ui::TransitionContext &context) const override;
    void animateTransition(ui::TransitionContext &context) override;
};
