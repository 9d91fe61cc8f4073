#pragma once
// What a user may do to a picture with pinch, rotate and pan: scale it between two bounds, turn it
// or not, and move it only so far that it still covers the middle of the view.

#include <perf/animation/VUTransforms.h>

#include <QSizeF>

struct VUUserTransformLimits {
    double minimumScale = 0.5;
    double maximumScale = 4;
    bool allowsRotation = true;
    // Whether the picture must keep covering the view's centre.
    bool limitsTranslation = true;
};

// The nearest transform within `limits` for a picture of `pictureSize` points centred on the
// origin: the scale clamped (and made the same on both axes), the rotation dropped when not
// allowed, and the translation pulled back until the origin falls on the picture.
VUTransformComponents VUClampUserTransform(const VUTransformComponents &components, const VUUserTransformLimits &limits,
                                           QSizeF pictureSize);
