#include "CollectionViewLayout.h"

#include "CollectionView.h"

namespace ui {

CollectionViewLayout::CollectionViewLayout(QObject *parent) : QObject(parent) {}

CollectionViewLayout::~CollectionViewLayout() = default;

CollectionView *CollectionViewLayout::collectionView() const
{
    return m_collectionView;
}

std::optional<CollectionViewLayoutAttributes> CollectionViewLayout::layoutAttributesForSupplementaryViewOfKind(const QString &, const IndexPath &)
{
    return std::nullopt;
}

void CollectionViewLayout::invalidateLayout()
{
    if (m_collectionView)
        m_collectionView->setNeedsLayoutPass();
}

} // namespace ui
