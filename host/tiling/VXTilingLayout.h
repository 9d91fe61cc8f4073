#pragma once
// The base of tiling layouts: given a reference size (the scrolling view's size), a layout
// knows its content bounds and, for any rectangle, the tiles in it with their geometry.

#include "VXTileGeometry.h"
#include "VXTileIdentifier.h"

#include <QRectF>
#include <QSizeF>

#include <functional>

class VXTilingController;

using VXTileEnumerationOptions = quint64;
// Called once per tile; setting *stop ends the enumeration.
using VXTileEnumerationBlock =
    std::function<void(const VXTileIdentifier &identifier, const VXTileGeometry &geometry, VXTileGroup group, const void *userData, bool *stop)>;

class VXTilingLayout {
public:
    VXTilingLayout();
    virtual ~VXTilingLayout();
    VXTilingLayout(const VXTilingLayout &) = delete;
    VXTilingLayout &operator=(const VXTilingLayout &) = delete;

    QSizeF referenceSize() const { return m_referenceSize; }
    // A new size invalidates the layout.
    void setReferenceSize(QSizeF size);
    // The space this layout's geometries are in: unique to the layout.
    VXCoordinateSpaceIdentifier coordinateSpaceIdentifier() const { return this; }

    // Recomputes what the layout needs; subclasses call the base first.
    virtual void prepareLayout();
    // The controller prepares the layout again before its next update.
    void invalidateLayout();
    bool isPrepared() const { return m_prepared; }

    virtual QRectF contentBounds() const = 0;
    virtual void enumerateTilesInRect(const QRectF &rect, VXTileEnumerationOptions options, const VXTileEnumerationBlock &block) = 0;
    // Fills whichever outputs are given; false when the layout has no such tile.
    virtual bool getGeometry(VXTileGeometry *geometry, VXTileGroup *group, const void **userData, const VXTileIdentifier &identifier) = 0;

private:
    friend class VXTilingController;
    QSizeF m_referenceSize;
    bool m_prepared = false;
    VXTilingController *m_controller = nullptr;
};
