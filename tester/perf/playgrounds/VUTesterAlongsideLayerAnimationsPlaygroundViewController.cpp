#include "perf/playgrounds/VUTesterAlongsideLayerAnimationsPlaygroundViewController.h"

#include "perf/VUTesterAnimationsSettings.h"

#include "perf/animation/VUView.h"
#include "perf/animation/VUViewAnimation.h"

VUTesterAlongsideLayerAnimationsPlaygroundViewController::VUTesterAlongsideLayerAnimationsPlaygroundViewController()
{
    setTitle(QStringLiteral("Alongside Layer"));
}

void VUTesterAlongsideLayerAnimationsPlaygroundViewController::viewDidLoad()
{
    m_view = new VUView(QSizeF(ViewSide, ViewSide));
    m_view->setBackgroundColor(QColor(0, 122, 255));
    m_view->setCenter(QPointF(ViewSide / 2, ViewSide / 2));
    addView(m_view);
}

void VUTesterAlongsideLayerAnimationsPlaygroundViewController::animateViewsToCenter(QPointF center)
{
    const VUTesterAnimationsSettings *settings = VUTesterAnimationsSettings::sharedInstance();
    VUViewGeometry target = m_view->geometry();
    target.center = center;
    // Where the last move was going decides the shape: each tap flips it.
    const double goingTo = m_view->animation() ? m_view->animation()->target().cornerRadius : m_view->cornerRadius();
    target.cornerRadius = goingTo > 0 ? 0 : ViewSide / 2;
    VUAnimateViewWithSpring(m_view, target, settings->duration(), settings->delay(), settings->springDampingRatio(),
                            settings->initialSpringVelocity(), VUViewAnimationOption::BeginFromCurrentState);
}

void VUTesterAlongsideLayerAnimationsPlaygroundViewController::resetViewsToCenter(QPointF center)
{
    m_view->removeAllAnimations();
    m_view->setCenter(center);
    m_view->setCornerRadius(0);
}
