#include "perf/vexo/VUTesterCrossfadeNavigationTransition.h"

#include "ui/ViewController.h"

VUTesterCrossfadeNavigationTransition::VUTesterCrossfadeNavigationTransition()
    : VUCrossfadeAnimatedTransitioning(ui::ViewController::transitionDuration() / 1000.0, QEasingCurve::InOutQuad)
{
}
