#include "VUTesterContinuousCollectionViewLayout.h"

#include "ui/CollectionView.h"
#include "ui/Geometry.h"

#include <algorithm>

void VUTesterContinuousCollectionViewLayout::prepareLayout()
{
    ui::CollectionViewLayout::prepareLayout();
    m_firstVisualItemBySection.clear();
    m_numberOfVisualItems = 0;
    if (ui::CollectionView *view = collectionView()) {
        const qint64 sections = view->numberOfSections();
        m_firstVisualItemBySection.reserve(sections);
        for (qint64 section = 0; section < sections; ++section) {
            m_firstVisualItemBySection.append(m_numberOfVisualItems);
            m_numberOfVisualItems += view->numberOfItemsInSection(section);
        }
    }
}

void VUTesterContinuousCollectionViewLayout::prepareAllLayoutAttributesUsingBlock(const AttributesBlock &block)
{
    QList<ui::CollectionViewLayoutAttributes> attributes;
    attributes.reserve(m_numberOfVisualItems);
    ui::CollectionView *view = collectionView();
    qint64 visualItem = 0;
    for (qint64 section = 0; view && section < m_firstVisualItemBySection.size(); ++section) {
        const qint64 items = view->numberOfItemsInSection(section);
        for (qint64 item = 0; item < items; ++item)
            attributes.append(block(ui::IndexPath::forItem(item, section), visualItem++));
    }
    m_allLayoutAttributes = attributes;
    _invalidateContentSize();
}

QSizeF VUTesterContinuousCollectionViewLayout::collectionViewContentSize()
{
    if (m_contentSize.width() != 0 || m_contentSize.height() != 0)
        return m_contentSize;
    // The union with the zero rectangle at the origin: content starting further out adds its offset.
    double left = 0, top = 0, right = 0, bottom = 0;
    for (const ui::CollectionViewLayoutAttributes &a : std::as_const(m_allLayoutAttributes)) {
        left = std::min(left, a.frame.left());
        top = std::min(top, a.frame.top());
        right = std::max(right, a.frame.right());
        bottom = std::max(bottom, a.frame.bottom());
    }
    m_contentSize = QSizeF(right - left, bottom - top);
    return m_contentSize;
}

qint64 VUTesterContinuousCollectionViewLayout::visualItemForIndexPath(const ui::IndexPath &indexPath) const
{
    return m_firstVisualItemBySection.at(indexPath.section()) + indexPath.item();
}

ui::IndexPath VUTesterContinuousCollectionViewLayout::indexPathForVisualItem(qint64 visualItem) const
{
    const QList<qint64> &first = m_firstVisualItemBySection;
    if (first.isEmpty())
        qFatal("VUTesterContinuousCollectionViewLayout: visual item %lld of an empty layout", visualItem);
    qint64 section = std::lower_bound(first.begin(), first.end(), visualItem) - first.begin();
    if (section > 0)
        --section;
    // Empty sections share their first visual item with the next one: end on the last section
    // that starts at or before the item, the one that holds it.
    while (section < first.size() - 1 && first[section + 1] <= visualItem)
        ++section;
    return ui::IndexPath::forItem(visualItem - first[section], section);
}

std::optional<ui::CollectionViewLayoutAttributes> VUTesterContinuousCollectionViewLayout::layoutAttributesForItemAtIndexPath(const ui::IndexPath &indexPath)
{
    return m_allLayoutAttributes.at(visualItemForIndexPath(indexPath));
}

QList<ui::CollectionViewLayoutAttributes> VUTesterContinuousCollectionViewLayout::layoutAttributesForElementsInRect(const QRectF &rect)
{
    const bool horizontal = m_scrollDirection == 1;
    const auto leading = [horizontal](const QRectF &r) { return horizontal ? r.left() : r.top(); };
    const double trailing = horizontal ? rect.right() : rect.bottom();
    const auto insertion = std::lower_bound(m_allLayoutAttributes.cbegin(), m_allLayoutAttributes.cend(), leading(rect),
                                            [&leading](const ui::CollectionViewLayoutAttributes &a, double edge) { return leading(a.frame) < edge; });
    QList<ui::CollectionViewLayoutAttributes> result;
    for (auto it = insertion == m_allLayoutAttributes.cbegin() ? insertion : insertion - 1; it != m_allLayoutAttributes.cend(); ++it) {
        if (ui::intersects(it->frame, rect))
            result.append(*it);
        if (leading(it->frame) > trailing)
            break;
    }
    return result;
}
