#include "VUSectionedGrid.h"

#include <algorithm>
#include <cmath>

void VUSectionedGrid::layout(const Metrics &metrics, std::vector<qint64> itemCounts)
{
    m_metrics = metrics;
    m_metrics.columns = std::max(1, metrics.columns);
    m_counts = std::move(itemCounts);
    const int columns = m_metrics.columns;
    m_side = std::max(0.0, (m_metrics.width - (columns - 1) * m_metrics.spacing) / columns);

    m_tops.resize(m_counts.size());
    double y = 0;
    for (size_t s = 0; s < m_counts.size(); ++s) {
        if (s > 0)
            y += m_metrics.sectionSpacing;
        m_tops[s] = y;
        const qint64 rows = rowsInSection(qint64(s));
        y += rows > 0 ? rows * m_side + (rows - 1) * m_metrics.spacing : 0;
    }
    m_contentHeight = y;
}

qint64 VUSectionedGrid::rowsInSection(qint64 section) const
{
    const qint64 count = std::max<qint64>(0, m_counts[size_t(section)]);
    return (count + m_metrics.columns - 1) / m_metrics.columns;
}

QRectF VUSectionedGrid::frameForItem(qint64 section, qint64 item) const
{
    const qint64 row = item / m_metrics.columns, column = item % m_metrics.columns;
    const double stride = m_side + m_metrics.spacing;
    return QRectF(column * stride, m_tops[size_t(section)] + row * stride, m_side, m_side);
}

QRectF VUSectionedGrid::frameForSection(qint64 section) const
{
    const qint64 rows = rowsInSection(section);
    return QRectF(0, m_tops[size_t(section)], m_metrics.width, rows > 0 ? rows * m_side + (rows - 1) * m_metrics.spacing : 0);
}

void VUSectionedGrid::enumerateItemsInRect(const QRectF &rect, const std::function<bool(qint64, qint64, const QRectF &)> &visit) const
{
    if (rect.isEmpty() || m_side <= 0 || m_tops.empty())
        return;
    const double stride = m_side + m_metrics.spacing;
    // The last section starting above the rectangle's top may still reach into it.
    auto first = std::upper_bound(m_tops.begin(), m_tops.end(), rect.top());
    if (first != m_tops.begin())
        --first;
    for (size_t s = size_t(first - m_tops.begin()); s < m_tops.size() && m_tops[s] < rect.bottom(); ++s) {
        const qint64 count = m_counts[s];
        if (count <= 0)
            continue;
        const qint64 rows = rowsInSection(qint64(s));
        const qint64 firstRow = std::clamp<qint64>(qint64(std::floor((rect.top() - m_tops[s]) / stride)), 0, rows);
        for (qint64 row = firstRow; row < rows && m_tops[s] + row * stride < rect.bottom(); ++row) {
            for (qint64 item = row * m_metrics.columns; item < std::min(count, (row + 1) * m_metrics.columns); ++item) {
                const QRectF frame = frameForItem(qint64(s), item);
                if (frame.intersects(rect) && !visit(qint64(s), item, frame))
                    return;
            }
        }
    }
}
