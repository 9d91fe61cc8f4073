#include "VUTesterOneUpCollectionViewLayout.h"

#include "ui/CollectionView.h"

void VUTesterOneUpCollectionViewLayout::setInterpageSpacing(QSizeF spacing)
{
    if (spacing.width() == m_interpageSpacing.width() && spacing.height() == m_interpageSpacing.height())
        return;
    m_interpageSpacing = spacing;
    invalidateLayout();
}

void VUTesterOneUpCollectionViewLayout::prepareLayout()
{
    VUTesterContinuousCollectionViewLayout::prepareLayout();
    ui::CollectionView *view = collectionView();
    const QSizeF page = view ? QSizeF(view->size()) : QSizeF();
    const double stride = page.width() + m_interpageSpacing.width();
    setScrollDirection(1);
    _setPageSize(page);
    prepareAllLayoutAttributesUsingBlock([&](const ui::IndexPath &indexPath, qint64 visualItem) {
        return ui::CollectionViewLayoutAttributes::forCell(indexPath, QRectF(stride * double(visualItem), 0, page.width(), page.height()));
    });
}

bool VUTesterOneUpCollectionViewLayout::shouldInvalidateLayoutForBoundsChange(const QRectF &newBounds)
{
    return newBounds.width() != m_pageSize.width() || newBounds.height() != m_pageSize.height();
}
