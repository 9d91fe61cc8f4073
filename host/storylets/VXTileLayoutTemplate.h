#pragma once
// Where a tile of a style puts its image and its title for a given size.

#include "VXFeatureSpec.h"

#include <QRectF>

class VXTileLayoutTemplate {
public:
    VXTileLayoutTemplate(const VXFeatureSpec &featureSpec, VXTileStyle style) : m_spec(featureSpec), m_style(style) {}

    VXTileStyle tileStyle() const { return m_style; }
    QRectF bounds() const { return m_bounds; }
    void setBounds(const QRectF &bounds);
    // Works the rectangles out for the bounds; called again after the bounds change.
    void prepare();
    QRectF imageRect() const { return m_imageRect; }
    QRectF titleRect() const { return m_titleRect; }

private:
    const VXFeatureSpec &m_spec;
    VXTileStyle m_style;
    QRectF m_bounds;
    QRectF m_imageRect;
    QRectF m_titleRect;
    bool m_prepared = false;
};
