#include "VXGadgetCollectionViewLayout.h"

#include "ui/CollectionView.h"

#include <algorithm>

VXGadgetCollectionViewLayout::VXGadgetCollectionViewLayout(QObject *parent) : ui::CollectionViewLayout(parent) {}

void VXGadgetCollectionViewLayout::setSizing(VXGadgetLayoutSizing *sizing)
{
    m_sizing = sizing;
    invalidateLayout();
}

void VXGadgetCollectionViewLayout::prepareLayout()
{
    m_frames.clear();
    m_indexPaths.clear();
    m_sectionStarts.clear();
    m_contentSize = QSizeF();
    ui::CollectionView *view = collectionView();
    if (!view)
        return;
    m_preparedWidth = view->width();
    const double width = std::max(0.0, m_preparedWidth - Margins.horizontal());
    double y = Margins.top;
    const qint64 sections = view->numberOfSections();
    for (qint64 section = 0; section < sections; ++section) {
        m_sectionStarts.push_back(qint64(m_frames.size()));
        const qint64 items = view->numberOfItemsInSection(section);
        if (section > 0 && items > 0)
            y += SectionSpacing - CardSpacing;
        for (qint64 item = 0; item < items; ++item) {
            const ui::IndexPath path = ui::IndexPath::forItem(item, section);
            const double height = m_sizing ? m_sizing->heightForGadgetAtIndexPath(path, width) : 44;
            m_frames.emplace_back(Margins.left, y, width, height);
            m_indexPaths.push_back(path);
            y += height + CardSpacing;
        }
    }
    if (!m_frames.empty())
        y -= CardSpacing;
    m_contentSize = QSizeF(m_preparedWidth, y + Margins.bottom);
}

QList<ui::CollectionViewLayoutAttributes> VXGadgetCollectionViewLayout::layoutAttributesForElementsInRect(const QRectF &rect)
{
    QList<ui::CollectionViewLayoutAttributes> result;
    auto it = std::lower_bound(m_frames.begin(), m_frames.end(), rect.top(), [](const QRectF &frame, double top) { return frame.bottom() <= top; });
    for (; it != m_frames.end() && it->top() < rect.bottom(); ++it)
        if (ui::intersects(*it, rect))
            result << ui::CollectionViewLayoutAttributes::forCell(m_indexPaths[size_t(it - m_frames.begin())], *it);
    return result;
}

std::optional<ui::CollectionViewLayoutAttributes> VXGadgetCollectionViewLayout::layoutAttributesForItemAtIndexPath(const ui::IndexPath &indexPath)
{
    if (indexPath.section() < 0 || indexPath.section() >= qint64(m_sectionStarts.size()))
        return std::nullopt;
    const qint64 start = m_sectionStarts[size_t(indexPath.section())];
    const qint64 end = indexPath.section() + 1 < qint64(m_sectionStarts.size()) ? m_sectionStarts[size_t(indexPath.section() + 1)] : qint64(m_frames.size());
    const qint64 index = start + indexPath.item();
    if (indexPath.item() < 0 || index >= end)
        return std::nullopt;
    return ui::CollectionViewLayoutAttributes::forCell(indexPath, m_frames[size_t(index)]);
}

bool VXGadgetCollectionViewLayout::shouldInvalidateLayoutForBoundsChange(const QRectF &newBounds)
{
    return newBounds.width() != m_preparedWidth;
}
