#pragma once
// The roles around a tiling controller: tiles and the objects that hand them out, preheat and
// animate them.

#include "VXTileGeometry.h"
#include "VXTileIdentifier.h"

class QWidget;
class VXTilingLayout;

class VXTile {
public:
    virtual ~VXTile() = default;
};

// An object a VXReusableObjectPool hands out more than once.
class VXReusableObject {
public:
    virtual ~VXReusableObject() = default;
    // Checked out again (or for the first time): about to show something new.
    virtual void prepareForReuse() = 0;
    // Checked back in: no longer shown for anything.
    virtual void becomeReusable() = 0;
};

// A tile that is a view, placed by VXBasicUIViewTileAnimator.
class VXUIViewBasicTile : public VXTile, public VXReusableObject {
public:
    virtual QWidget *view() = 0;
    virtual void didApplyGeometry(const VXTileGeometry &geometry, const void *userData) = 0;
};

class VXTileSource {
public:
    virtual ~VXTileSource() = default;
    // A tile for `identifier`, which stays the caller's until checked in.
    virtual VXTile *checkOutTileForIdentifier(const VXTileIdentifier &identifier, VXTilingLayout *layout) = 0;
    virtual void checkInTile(VXTile *tile, const VXTileIdentifier &identifier) = 0;
};

// Told of tiles coming near the visible area (within the padding it registered with) and of
// those moving away again, so it can load or drop their content ahead of time.
class VXTilingControllerPreheatHandler {
public:
    virtual ~VXTilingControllerPreheatHandler() = default;
    virtual void startPreheatingTilesForIdentifiers(const VXTileIdentifier *identifiers, const VXTileGeometry *geometries,
                                                    qsizetype count, void *context) = 0;
    virtual void stopPreheatingTilesForIdentifiers(const VXTileIdentifier *identifiers, const VXTileGeometry *geometries,
                                                   qsizetype count, void *context) = 0;
};

class VXTileAnimator {
public:
    virtual ~VXTileAnimator() = default;
    virtual void applyGeometry(VXTile *tile, const VXTileGeometry &geometry, const void *userData) = 0;
};
