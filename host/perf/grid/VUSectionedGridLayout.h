#pragma once
// The metrics of the host's photo grid: square items in columns, the spacing between items of a
// row (width) and between rows (height), and the inset of each section's content. A grid spec
// sets them for a width.

#include "ui/Geometry.h"

#include <QSizeF>

class VUSectionedGridLayout {
public:
    int numberOfColumns() const { return m_columns; }
    void setNumberOfColumns(int columns) { m_columns = columns; }
    QSizeF itemSize() const { return m_itemSize; }
    void setItemSize(QSizeF size) { m_itemSize = size; }
    QSizeF interItemSpacing() const { return m_interItemSpacing; }
    void setInterItemSpacing(QSizeF spacing) { m_interItemSpacing = spacing; }
    ui::EdgeInsets sectionContentInset() const { return m_sectionContentInset; }
    void setSectionContentInset(const ui::EdgeInsets &inset) { m_sectionContentInset = inset; }

private:
    int m_columns = 1;
    QSizeF m_itemSize;
    QSizeF m_interItemSpacing;
    ui::EdgeInsets m_sectionContentInset;
};
