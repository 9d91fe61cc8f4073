#include "VUTransforms.h"

#include <cmath>

VUTransformComponents VUDecomposeTransform(const QTransform &transform)
{
    VUTransformComponents components;
    components.translation = QPointF(transform.dx(), transform.dy());
    components.xScale = std::hypot(transform.m11(), transform.m12());
    components.rotation = std::atan2(transform.m12(), transform.m11());
    components.yScale = components.xScale > 0 ? transform.determinant() / components.xScale : std::hypot(transform.m21(), transform.m22());
    return components;
}

QTransform VUComposeTransform(QPointF translation, double xScale, double yScale, double rotation, const QTransform &base)
{
    const double c = std::cos(rotation), s = std::sin(rotation);
    // Qt maps row vectors: x' = m11 x + m21 y + dx, y' = m12 x + m22 y + dy.
    const QTransform composed(xScale * c, xScale * s, -yScale * s, yScale * c, translation.x(), translation.y());
    return composed * base;
}

bool VUPointIsApproximatelyEqualToPoint(QPointF a, QPointF b)
{
    constexpr double tolerance = 0.001;
    return std::abs(a.x() - b.x()) < tolerance && std::abs(a.y() - b.y()) < tolerance;
}

double VUAngleDifference(double from, double to)
{
    const double turn = 2 * M_PI;
    double difference = std::fmod(to - from + M_PI, turn);
    if (difference < 0)
        difference += turn;
    return difference - M_PI;
}
