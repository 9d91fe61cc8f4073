#pragma once
// Places view tiles at once: frame and visibility from the geometry, then tells the tile.
// Transforms, alpha and z-position are not animated by this basic animator.

#include "VXTilingProtocols.h"

class VXBasicUIViewTileAnimator : public VXTileAnimator {
public:
    // `tile` must be a VXUIViewBasicTile.
    void applyGeometry(VXTile *tile, const VXTileGeometry &geometry, const void *userData) override;
};
