#pragma once
// A square grid for measuring the tiling machinery alone: every frame, identifier and geometry
// is computed from the item index on demand, nothing is stored per item, and enumeration costs
// the rows asked for plus one padding row, whatever the number of items.

#include "shell/VUTesterExport.h"

#include "tiling/VXTilingLayout.h"

class VUTESTER_EXPORT VUTesterNullGridLayout : public VXTilingLayout {
public:
    qint64 columns() const { return m_columns; }
    void setColumns(qint64 columns) { m_columns = columns; }
    // The content height in points the grid must at least fill.
    qint64 desiredContentLength() const { return m_desiredContentLength; }
    void setDesiredContentLength(qint64 length) { m_desiredContentLength = length; }

    // As of the last prepareLayout.
    QSizeF itemSize() const { return m_itemSize; }
    qint64 numberOfItems() const { return m_numberOfItems; }

    void prepareLayout() override;
    QRectF contentBounds() const override;
    void enumerateTilesInRect(const QRectF &rect, VXTileEnumerationOptions options, const VXTileEnumerationBlock &block) override;
    // True for any identifier, even past the last item: its frame is simply computed.
    bool getGeometry(VXTileGeometry *geometry, VXTileGroup *group, const void **userData, const VXTileIdentifier &identifier) override;

private:
    void _createGeometry(VXTileGeometry *geometry, VXTileGroup *group, const void **userData, const VXTileIdentifier &identifier) const;
    void _createGeometry(VXTileGeometry *geometry, VXTileGroup *group, const void **userData, const VXTileIdentifier &identifier,
                         const QRectF &frame) const;
    QRectF _frameForItem(qint64 item) const;

    qint64 m_columns = 0;
    qint64 m_desiredContentLength = 0;
    QSizeF m_itemSize;
    qint64 m_numberOfItems = 0;
};
