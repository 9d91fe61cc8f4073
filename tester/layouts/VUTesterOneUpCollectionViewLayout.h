#pragma once
// A horizontal pager: every item a page the size of the view, `interpageSpacing` width apart.

#include "VUTesterContinuousCollectionViewLayout.h"

class VUTESTER_EXPORT VUTesterOneUpCollectionViewLayout : public VUTesterContinuousCollectionViewLayout {
    Q_OBJECT
public:
    using VUTesterContinuousCollectionViewLayout::VUTesterContinuousCollectionViewLayout;

    // Only the width counts.
    QSizeF interpageSpacing() const { return m_interpageSpacing; }
    // Invalidates the layout on a change.
    void setInterpageSpacing(QSizeF spacing);

    QSizeF _pageSize() const { return m_pageSize; }
    void _setPageSize(QSizeF size) { m_pageSize = size; }

    void prepareLayout() override;
    bool shouldInvalidateLayoutForBoundsChange(const QRectF &newBounds) override;

private:
    QSizeF m_interpageSpacing{0, 0};
    QSizeF m_pageSize;
};
