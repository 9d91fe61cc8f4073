#include "VUTesterNullGridLayout.h"

#include "ui/Geometry.h"

#include <algorithm>

namespace {

VXTileIdentifier identifierOfItem(qint64 item)
{
    VXTileIdentifier identifier;
    identifier.length = 5;
    identifier.indexes[0] = VXAssetContentTileKind;
    identifier.indexes[1] = 1;
    identifier.indexes[2] = 0;
    identifier.indexes[3] = quint64(item);
    identifier.indexes[4] = VXTileIndexNotFound;
    return identifier;
}

} // namespace

void VUTesterNullGridLayout::prepareLayout()
{
    VXTilingLayout::prepareLayout();
    if (m_columns <= 0) {
        // No columns, no tiles.
        m_itemSize = QSizeF();
        m_numberOfItems = 0;
        return;
    }
    // Whole points: a width that does not divide leaves a strip of up to columns - 1 points.
    const double side = double(qint64(referenceSize().width() / double(m_columns)));
    m_itemSize = QSizeF(side, side);
    const qint64 rows = side > 0 ? qint64(double(m_desiredContentLength) / side + 1.0) : 0;
    m_numberOfItems = m_columns * rows;
}

QRectF VUTesterNullGridLayout::contentBounds() const
{
    const qint64 rows = m_columns != 0 ? m_numberOfItems / m_columns : 0;
    return QRectF(0, 0, referenceSize().width(), m_itemSize.height() * double(rows));
}

QRectF VUTesterNullGridLayout::_frameForItem(qint64 item) const
{
    const qint64 row = m_columns != 0 ? item / m_columns : 0;
    const qint64 column = item - row * m_columns;
    return QRectF(m_itemSize.width() * double(column), m_itemSize.height() * double(row), m_itemSize.width(), m_itemSize.height());
}

void VUTesterNullGridLayout::enumerateTilesInRect(const QRectF &rect, VXTileEnumerationOptions, const VXTileEnumerationBlock &block)
{
    const qint64 count = m_numberOfItems, c = m_columns;
    const double h = m_itemSize.height();
    if (h <= 0)
        return;
    const qint64 firstRow = qint64(rect.top() / h);
    const qint64 lastRowPlusOne = qint64(rect.bottom() / h + 1.0);
    const qint64 first = std::max<qint64>(0, std::min(count, c * firstRow));
    // A whole row past the rectangle on purpose; the intersection test drops what lies outside.
    const qint64 last = std::max<qint64>(0, std::min(count, c * lastRowPlusOne + c));
    if (first > last || first >= count)
        return;
    bool stop = false;
    for (qint64 item = first;; ++item) {
        const QRectF frame = _frameForItem(item);
        if (ui::intersects(frame, rect)) {
            const VXTileIdentifier identifier = identifierOfItem(item);
            VXTileGeometry geometry;
            VXTileGroup group = 0;
            const void *userData = nullptr;
            _createGeometry(&geometry, &group, &userData, identifier, frame);
            block(identifier, geometry, group, userData, &stop);
        }
        if (item >= last || item + 1 >= count || stop)
            break;
    }
}

bool VUTesterNullGridLayout::getGeometry(VXTileGeometry *geometry, VXTileGroup *group, const void **userData, const VXTileIdentifier &identifier)
{
    _createGeometry(geometry, group, userData, identifier);
    return true;
}

void VUTesterNullGridLayout::_createGeometry(VXTileGeometry *geometry, VXTileGroup *group, const void **userData,
                                             const VXTileIdentifier &identifier) const
{
    _createGeometry(geometry, group, userData, identifier, _frameForItem(qint64(identifier.indexes[3])));
}

void VUTesterNullGridLayout::_createGeometry(VXTileGeometry *geometry, VXTileGroup *group, const void **userData,
                                             const VXTileIdentifier &, const QRectF &frame) const
{
    if (geometry) {
        geometry->frame = frame;
        geometry->center = frame.center();
        geometry->size = frame.size();
        geometry->transform = QTransform();
        geometry->alpha = 1.0;
        geometry->zPosition = 0.0;
        geometry->hidden = false;
        geometry->contentSize = frame.size();
        geometry->contentsRect = QRectF(0, 0, 1, 1);
        geometry->coordinateSpaceIdentifier = coordinateSpaceIdentifier();
    }
    if (group)
        *group = 0;
    if (userData)
        *userData = nullptr;
}
