#include "VXTileLayoutTemplate.h"

void VXTileLayoutTemplate::setBounds(const QRectF &bounds)
{
    if (bounds == m_bounds)
        return;
    m_bounds = bounds;
    m_prepared = false;
}

void VXTileLayoutTemplate::prepare()
{
    if (m_prepared)
        return;
    m_prepared = true;
    const QRectF b = m_bounds;
    const double w = b.width(), h = b.height();
    // The image fills the tile; the title sits over it, where each style's picture leaves room.
    m_imageRect = b;
    double side = w * 0.08, top = 0.15, bottom = 0.15;
    switch (m_style) {
    case VXTileStyle::FeedBigSquare: break;
    case VXTileStyle::FeedBigWide: top = 0.12; bottom = 0.12; break;
    case VXTileStyle::Small: side = w * 0.07; top = 0.4; bottom = 0.06; break;
    case VXTileStyle::Header: side = std::max(w * 0.06, m_spec.contentGuideInsetsForScrollAxis(VXScrollAxis::Vertical).left()); top = 0.3; bottom = 0.1; break;
    case VXTileStyle::Widget: side = w * 0.06; top = 0.45; bottom = 0.06; break;
    case VXTileStyle::Default: side = w * 0.1; top = 0.1; bottom = 0.1; break;
    }
    m_titleRect = QRectF(b.left() + side, b.top() + h * top, std::max(0.0, w - 2 * side), std::max(0.0, h * (1 - top - bottom)));
}
