#pragma once
// Where and how a tile shows, as a layout computes it, in the layout's coordinate space.

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QTransform>

// Identifies the coordinate space a geometry is in; layouts use their own address.
using VXCoordinateSpaceIdentifier = const void *;
using VXTileGroup = quint64;

struct VXTileGeometry {
    QRectF frame;
    QPointF center;
    QSizeF size;
    QTransform transform;
    double alpha = 1.0;
    double zPosition = 0.0;
    bool hidden = false;
    QSizeF contentSize;
    // The part of the tile's content shown, in unit coordinates.
    QRectF contentsRect{0, 0, 1, 1};
    VXCoordinateSpaceIdentifier coordinateSpaceIdentifier = nullptr;
};
