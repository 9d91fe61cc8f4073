#include "perf/playgrounds/VUTesterInitialVelocitiesPlaygroundViewController.h"

#include "perf/VUTesterAnimationsSettings.h"

#include "perf/animation/VUTransforms.h"
#include "perf/animation/VUView.h"
#include "perf/animation/VUViewAnimation.h"
#include "ui/BarButtonItem.h"

#include <QLoggingCategory>
#include <QRandomGenerator>

#include <cmath>

Q_LOGGING_CATEGORY(lcAnimations, "vistra.perf.animations")

namespace {

// The single-precision tolerance, widened as it is.
const double kTolerance = double(0.00001f);
const QSizeF kTestViewSize(80, 60);

QString transformText(const QTransform &t)
{
    return QStringLiteral("[%1, %2, %3, %4, %5, %6]").arg(t.m11()).arg(t.m12()).arg(t.m21()).arg(t.m22()).arg(t.dx()).arg(t.dy());
}

} // namespace

VUTesterInitialVelocitiesPlaygroundViewController::VUTesterInitialVelocitiesPlaygroundViewController()
    : m_random([] { return QRandomGenerator::global()->generate(); })
{
    setTitle(QStringLiteral("Velocities"));
    QList<ui::BarButtonItem *> items = navigationItem()->rightBarButtonItems();
    items << new ui::BarButtonItem(QStringLiteral("Scale"), [this](ui::BarButtonItem *) { _scaleViewsRandomly(); })
          << new ui::BarButtonItem(QStringLiteral("Resize"), [this](ui::BarButtonItem *) { _resizeViewsRandomly(); })
          << new ui::BarButtonItem(QStringLiteral("Rotate"), [this](ui::BarButtonItem *) { _rotateViewsRandomly(); });
    navigationItem()->setRightBarButtonItems(items);
}

void VUTesterInitialVelocitiesPlaygroundViewController::viewDidLoad()
{
    _testViewA = new VUView(kTestViewSize);
    _testViewA->setBackgroundColor(QColor(255, 128, 0));
    _testViewB = new VUView(kTestViewSize);
    _testViewB->setBorder(5, Qt::red);
    for (VUView *view : {_testViewA, _testViewB}) {
        // At the origin: the frame's corner, not the centre.
        view->setCenter(QPointF(kTestViewSize.width() / 2, kTestViewSize.height() / 2));
        addView(view);
        _testViews << view;
    }
}

VUTesterInitialVelocitiesPlaygroundViewController::Parameters VUTesterInitialVelocitiesPlaygroundViewController::parameters() const
{
    const VUTesterAnimationsSettings *settings = VUTesterAnimationsSettings::sharedInstance();
    return {settings->duration(), settings->delay(), settings->springDampingRatio(), settings->initialSpringVelocity()};
}

double VUTesterInitialVelocitiesPlaygroundViewController::randomFraction() const
{
    return double(m_random()) / 4294967295.0;
}

void VUTesterInitialVelocitiesPlaygroundViewController::animate(QPointF center, const QRectF &bounds, const QTransform &transform,
                                                                VUDisplayVelocity velocity)
{
    const Parameters p = parameters();
    VUViewGeometry target = _testViewA->geometry();
    target.center = center;
    target.bounds = bounds;
    target.transform = transform;
    VUAnimateViewWithSpring(_testViewA, target, p.duration, p.delay, p.damping, p.velocity, VUViewAnimationOption::BeginFromCurrentState);
    vu_animateView(_testViewB, center, bounds, transform, p.duration, p.delay, p.damping, velocity, VUViewAnimationOption::BeginFromCurrentState);
    m_lastVelocity = velocity;
}

void VUTesterInitialVelocitiesPlaygroundViewController::animateViewsToCenter(QPointF center)
{
    const double v = parameters().velocity;
    const QPointF d = center - _testViewA->center();
    const double distance = std::hypot(d.x(), d.y());
    const double angle = std::atan2(d.y(), d.x());
    animate(center, _testViewA->bounds(), _testViewA->transform(), {v * distance * std::cos(angle), v * distance * std::sin(angle), 0, 0});
}

void VUTesterInitialVelocitiesPlaygroundViewController::resetViewsToCenter(QPointF center)
{
    for (VUView *view : std::as_const(_testViews)) {
        view->removeAllAnimations();
        view->setCenter(center);
    }
}

void VUTesterInitialVelocitiesPlaygroundViewController::_resizeViewsRandomly()
{
    const double v = parameters().velocity;
    const QRectF bounds = _testViewA->bounds();
    const double width = 50 + 250 * randomFraction();
    const double height = bounds.height() * width / bounds.width();
    animate(_testViewA->center(), QRectF(bounds.topLeft(), QSizeF(width, height)), _testViewA->transform(),
            {0, 0, v * (width / bounds.width() - 1), 0});
}

void VUTesterInitialVelocitiesPlaygroundViewController::_scaleViewsRandomly()
{
    const double v = parameters().velocity;
    const VUTransformComponents c = VUDecomposeTransform(_testViewA->transform());
    if (!VUPointIsApproximatelyEqualToPoint(c.translation, QPointF()) || std::abs(c.xScale - c.yScale) > kTolerance || std::abs(c.rotation) > kTolerance)
        qCInfo(lcAnimations).noquote() << QStringLiteral("current transform isn't a pure uniform scale: %1").arg(transformText(_testViewA->transform()));
    const double scale = 0.5 + 2.5 * randomFraction();
    animate(_testViewA->center(), _testViewA->bounds(), VUComposeTransform(c.translation, scale, scale, c.rotation),
            {0, 0, v * (scale / c.xScale - 1), 0});
}

void VUTesterInitialVelocitiesPlaygroundViewController::_rotateViewsRandomly()
{
    const double v = parameters().velocity;
    const VUTransformComponents c = VUDecomposeTransform(_testViewA->transform());
    if (!VUPointIsApproximatelyEqualToPoint(c.translation, QPointF()) || std::abs(c.xScale - 1) > kTolerance || std::abs(c.yScale - 1) > kTolerance)
        qCInfo(lcAnimations).noquote() << QStringLiteral("current transform isn't a pure rotation: %1").arg(transformText(_testViewA->transform()));
    const double angle = M_PI * randomFraction() - M_PI / 2;
    animate(_testViewA->center(), _testViewA->bounds(), VUComposeTransform(c.translation, c.xScale, c.yScale, angle),
            {0, 0, 0, v * VUAngleDifference(c.rotation, angle)});
}
