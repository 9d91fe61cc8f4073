#include "CollectionViewFlowLayout.h"

#include "CollectionView.h"

#include <algorithm>

namespace ui {

CollectionViewFlowLayout::CollectionViewFlowLayout(QObject *parent) : CollectionViewLayout(parent) {}

template <typename T>
void CollectionViewFlowLayout::change(T &member, const T &value)
{
    if (member == value)
        return;
    member = value;
    invalidateLayout();
}

void CollectionViewFlowLayout::setItemSize(QSizeF size) { change(m_itemSize, size); }
void CollectionViewFlowLayout::setMinimumInteritemSpacing(double spacing) { change(m_interitemSpacing, spacing); }
void CollectionViewFlowLayout::setMinimumLineSpacing(double spacing) { change(m_lineSpacing, spacing); }
void CollectionViewFlowLayout::setSectionInset(const EdgeInsets &inset) { change(m_sectionInset, inset); }
void CollectionViewFlowLayout::setScrollDirection(ScrollDirection direction) { change(m_scrollDirection, direction); }
void CollectionViewFlowLayout::setHeaderReferenceSize(QSizeF size) { change(m_headerReferenceSize, size); }

double CollectionViewFlowLayout::across(const QSizeF &size) const
{
    return m_scrollDirection == ScrollDirection::Vertical ? size.width() : size.height();
}

void CollectionViewFlowLayout::prepareLayout()
{
    m_frames.clear();
    m_sectionStarts.clear();
    m_lines.clear();
    m_headers.clear();
    m_contentSize = QSizeF();
    CollectionView *view = collectionView();
    if (!view)
        return;
    const bool vertical = m_scrollDirection == ScrollDirection::Vertical;
    const EdgeInsets contentInset = view->contentInset();
    const double width = across(QSizeF(view->size())) - (vertical ? contentInset.horizontal() : contentInset.vertical());
    m_preparedAcross = across(QSizeF(view->size()));
    // Section insets in scroll terms: lead and trail along the scroll direction, near and far across it.
    const EdgeInsets &in = m_sectionInset;
    const double lead = vertical ? in.top : in.left, trail = vertical ? in.bottom : in.right;
    const double nearSide = vertical ? in.left : in.top, farSide = vertical ? in.right : in.bottom;
    const double available = width - nearSide - farSide;
    const double headerLength = vertical ? m_headerReferenceSize.height() : m_headerReferenceSize.width();
    // Frames are built as (along, across) and turned into (x, y) at the end.
    const auto frameOf = [vertical](double along, double acrossPos, double alongLength, double acrossLength) {
        return vertical ? QRectF(acrossPos, along, acrossLength, alongLength) : QRectF(along, acrossPos, alongLength, acrossLength);
    };

    CollectionViewDelegate *delegate = view->delegate();
    const qint64 sections = view->numberOfSections();
    double position = 0;
    m_sectionStarts.reserve(size_t(sections) + 1);
    std::vector<QSizeF> sizes;
    for (qint64 section = 0; section < sections; ++section) {
        m_sectionStarts.push_back(qint64(m_frames.size()));
        if (headerLength > 0) {
            m_headers.push_back({frameOf(position, 0, headerLength, width), section});
            position += headerLength;
        }
        position += lead;
        const qint64 count = view->numberOfItemsInSection(section);
        sizes.clear();
        for (qint64 item = 0; item < count; ++item) {
            const std::optional<QSizeF> size = delegate ? delegate->sizeForItemAtIndexPath(view, this, IndexPath::forItem(item, section))
                                                        : std::nullopt;
            sizes.push_back(size.value_or(m_itemSize));
        }
        qint64 item = 0;
        while (item < count) {
            // One line: as many items as fit, at least one.
            double used = across(sizes[size_t(item)]);
            double thickness = vertical ? sizes[size_t(item)].height() : sizes[size_t(item)].width();
            qint64 end = item + 1;
            while (end < count && used + m_interitemSpacing + across(sizes[size_t(end)]) <= available + 1e-9) {
                used += m_interitemSpacing + across(sizes[size_t(end)]);
                thickness = std::max(thickness, vertical ? sizes[size_t(end)].height() : sizes[size_t(end)].width());
                ++end;
            }
            const qint64 inLine = end - item;
            const bool lastLine = end == count;
            const double spacing = !lastLine && inLine > 1 ? m_interitemSpacing + (available - used) / double(inLine - 1) : m_interitemSpacing;
            double x = nearSide;
            m_lines.push_back({position, position + thickness, qint64(m_frames.size()), inLine});
            for (qint64 i = item; i < end; ++i) {
                const QSizeF size = sizes[size_t(i)];
                const double alongLength = vertical ? size.height() : size.width();
                m_frames.push_back(frameOf(position + (thickness - alongLength) / 2, x, alongLength, across(size)));
                x += across(size) + spacing;
            }
            position += thickness + (lastLine ? 0 : m_lineSpacing);
            item = end;
        }
        position += trail;
    }
    m_sectionStarts.push_back(qint64(m_frames.size()));
    m_contentSize = vertical ? QSizeF(width, position) : QSizeF(position, width);
}

IndexPath CollectionViewFlowLayout::indexPathOfGlobalItem(qint64 item) const
{
    // The last section whose first item is not after `item`; empty sections share their start.
    const auto it = std::upper_bound(m_sectionStarts.begin(), m_sectionStarts.end() - 1, item);
    const qint64 section = qint64(it - m_sectionStarts.begin()) - 1;
    return IndexPath::forItem(item - m_sectionStarts[size_t(section)], section);
}

QList<CollectionViewLayoutAttributes> CollectionViewFlowLayout::layoutAttributesForElementsInRect(const QRectF &rect)
{
    QList<CollectionViewLayoutAttributes> result;
    const bool vertical = m_scrollDirection == ScrollDirection::Vertical;
    const double from = vertical ? rect.top() : rect.left();
    const double to = vertical ? rect.bottom() : rect.right();
    auto line = std::partition_point(m_lines.begin(), m_lines.end(), [from](const Line &l) { return l.end <= from; });
    for (; line != m_lines.end() && line->start < to; ++line)
        for (qint64 i = line->firstItem; i < line->firstItem + line->count; ++i)
            if (intersects(m_frames[size_t(i)], rect))
                result.append(CollectionViewLayoutAttributes::forCell(indexPathOfGlobalItem(i), m_frames[size_t(i)]));
    auto header = std::partition_point(m_headers.begin(), m_headers.end(), [from, vertical](const Header &h) {
        return (vertical ? h.frame.bottom() : h.frame.right()) <= from;
    });
    for (; header != m_headers.end() && (vertical ? header->frame.top() : header->frame.left()) < to; ++header)
        if (intersects(header->frame, rect))
            result.append(CollectionViewLayoutAttributes::forSupplementaryView(CollectionView::ElementKindSectionHeader,
                                                                               IndexPath::forItem(0, header->section), header->frame));
    return result;
}

std::optional<CollectionViewLayoutAttributes> CollectionViewFlowLayout::layoutAttributesForItemAtIndexPath(const IndexPath &indexPath)
{
    if (indexPath.length() != 2 || indexPath.section() < 0 || indexPath.section() + 1 >= qint64(m_sectionStarts.size()))
        return std::nullopt;
    const qint64 index = m_sectionStarts[size_t(indexPath.section())] + indexPath.item();
    if (indexPath.item() < 0 || index >= m_sectionStarts[size_t(indexPath.section()) + 1])
        return std::nullopt;
    return CollectionViewLayoutAttributes::forCell(indexPath, m_frames[size_t(index)]);
}

std::optional<CollectionViewLayoutAttributes> CollectionViewFlowLayout::layoutAttributesForSupplementaryViewOfKind(const QString &kind,
                                                                                                                   const IndexPath &indexPath)
{
    if (kind != CollectionView::ElementKindSectionHeader || m_headers.empty() || indexPath.length() < 1)
        return std::nullopt;
    const auto it = std::lower_bound(m_headers.begin(), m_headers.end(), indexPath.section(),
                                     [](const Header &h, qint64 section) { return h.section < section; });
    if (it == m_headers.end() || it->section != indexPath.section())
        return std::nullopt;
    return CollectionViewLayoutAttributes::forSupplementaryView(kind, indexPath, it->frame);
}

bool CollectionViewFlowLayout::shouldInvalidateLayoutForBoundsChange(const QRectF &newBounds)
{
    return across(newBounds.size()) != m_preparedAcross;
}

} // namespace ui
