#include "VUUserTransformLimits.h"

#include <algorithm>
#include <cmath>

VUTransformComponents VUClampUserTransform(const VUTransformComponents &components, const VUUserTransformLimits &limits, QSizeF pictureSize)
{
    VUTransformComponents clamped = components;
    const double low = std::min(limits.minimumScale, limits.maximumScale);
    clamped.xScale = clamped.yScale = std::clamp(components.xScale, low, limits.maximumScale);
    if (!limits.allowsRotation)
        clamped.rotation = 0;
    if (!limits.limitsTranslation)
        return clamped;
    // The picture point under the view's centre: the centre taken back through the transform.
    const double c = std::cos(clamped.rotation), s = std::sin(clamped.rotation);
    const QPointF t = clamped.translation;
    const QPointF rotatedBack(c * -t.x() + s * -t.y(), -s * -t.x() + c * -t.y());
    QPointF under = rotatedBack / clamped.xScale;
    const double halfWidth = pictureSize.width() / 2, halfHeight = pictureSize.height() / 2;
    under.setX(std::clamp(under.x(), -halfWidth, halfWidth));
    under.setY(std::clamp(under.y(), -halfHeight, halfHeight));
    // And forward again: that point sits at the centre.
    const QPointF scaled = under * clamped.xScale;
    clamped.translation = -QPointF(c * scaled.x() - s * scaled.y(), s * scaled.x() + c * scaled.y());
    return clamped;
}
