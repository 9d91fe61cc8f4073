#pragma once
// Affine transforms as a translation, a scale along each axis and a rotation, and the small
// comparisons that go with them. A transform maps p to R(rotation) * S(xScale, yScale) * p +
// translation; with y pointing down a positive rotation turns clockwise on screen.

#include <QPointF>
#include <QTransform>

struct VUTransformComponents {
    QPointF translation;
    double xScale = 1;
    double yScale = 1;
    double rotation = 0; // radians, in (-pi, pi]
};

// Any affine transform; a reflection shows as a negative y scale.
VUTransformComponents VUDecomposeTransform(const QTransform &transform);
// The transform of the components, applied before `base`.
QTransform VUComposeTransform(QPointF translation, double xScale, double yScale, double rotation, const QTransform &base = QTransform());

// Equal within a thousandth of a point on each axis.
bool VUPointIsApproximatelyEqualToPoint(QPointF a, QPointF b);
// The signed turn from `from` to `to` the short way round, in [-pi, pi).
double VUAngleDifference(double from, double to);
