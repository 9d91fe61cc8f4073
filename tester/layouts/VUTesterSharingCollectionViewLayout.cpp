#include "VUTesterSharingCollectionViewLayout.h"

#include "ui/CollectionView.h"

#include <algorithm>

VUTesterSharingCollectionViewLayout::VUTesterSharingCollectionViewLayout(QObject *parent)
    : VUTesterContinuousCollectionViewLayout(parent)
{
}

void VUTesterSharingCollectionViewLayout::setVerticalFraction(double fraction)
{
    if (fraction == m_verticalFraction)
        return;
    m_verticalFraction = fraction;
    invalidateLayout();
}

void VUTesterSharingCollectionViewLayout::setInsets(const ui::EdgeInsets &insets)
{
    if (insets == m_insets)
        return;
    m_insets = insets;
    invalidateLayout();
}

void VUTesterSharingCollectionViewLayout::prepareLayout()
{
    VUTesterContinuousCollectionViewLayout::prepareLayout();
    ui::CollectionView *view = collectionView();
    const QSizeF bounds = view ? QSizeF(view->size()) : QSizeF();
    const double W = bounds.width(), H = bounds.height();
    const ui::EdgeInsets insets = m_insets;
    const double fraction = m_verticalFraction;
    const double spacing = m_interItemSpacing.width();
    setScrollDirection(1);
    _setVisibleSize(bounds);
    double runningX = 0;
    prepareAllLayoutAttributesUsingBlock([&](const ui::IndexPath &indexPath, qint64 visualItem) {
        ui::CollectionViewDelegate *delegate = view->delegate();
        const QSizeF size = delegate ? delegate->sizeForItemAtIndexPath(view, this, indexPath).value_or(QSizeF()) : QSizeF();
        const double h = ui::roundToPoint(H * fraction) - insets.top - insets.bottom;
        const double fitted = ui::roundToPoint(size.width() * (h / size.height()));
        // The left and the bottom inset limit the width; so it has always been.
        const double w = std::min(W - insets.left - insets.bottom, fitted);
        // Only the strip's very first item is centred.
        const double x = visualItem == 0 ? ui::roundToPoint((W - w) * 0.5) : runningX;
        runningX = x + w + spacing;
        return ui::CollectionViewLayoutAttributes::forCell(indexPath, QRectF(x, insets.top, w, h));
    });
}

QSizeF VUTesterSharingCollectionViewLayout::collectionViewContentSize()
{
    QSizeF size = VUTesterContinuousCollectionViewLayout::collectionViewContentSize();
    const QList<ui::CollectionViewLayoutAttributes> attributes = allLayoutAttributes();
    if (!attributes.isEmpty())
        size.setWidth(ui::roundToPoint(attributes.last().frame.center().x() + m_visibleSize.width() * 0.5));
    return size;
}

bool VUTesterSharingCollectionViewLayout::shouldInvalidateLayoutForBoundsChange(const QRectF &newBounds)
{
    return newBounds.width() != m_visibleSize.width() || newBounds.height() != m_visibleSize.height();
}
