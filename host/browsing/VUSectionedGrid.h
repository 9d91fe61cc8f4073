#pragma once
// Where the items of a sectioned grid stand: square cells in rows of a fixed number of columns,
// each section starting on a row of its own below a gap. Frames are computed from the item's
// index; only one offset per section is stored, so thousands of sections cost little and a
// rectangle query costs a binary search over sections plus the cells it returns.

#include <QRectF>

#include <functional>
#include <vector>

class VUSectionedGrid {
public:
    struct Metrics {
        double width = 0;
        // Cells across; at least 1.
        int columns = 4;
        // Between cells, across and down.
        double spacing = 2;
        // Above every section but the first.
        double sectionSpacing = 24;
    };

    // `itemCounts[s]` items in section s.
    void layout(const Metrics &metrics, std::vector<qint64> itemCounts);

    const Metrics &metrics() const { return m_metrics; }
    double cellSide() const { return m_side; }
    qint64 numberOfSections() const { return qint64(m_counts.size()); }
    qint64 numberOfItemsInSection(qint64 section) const { return m_counts[size_t(section)]; }
    double contentHeight() const { return m_contentHeight; }

    // Section and item in range are the caller's promise.
    QRectF frameForItem(qint64 section, qint64 item) const;
    // The rows of the section, without the gap above it; empty sections have zero height.
    QRectF frameForSection(qint64 section) const;

    // Calls `visit` for every cell that overlaps `rect` by a positive area, in section and item
    // order, until it returns false.
    void enumerateItemsInRect(const QRectF &rect, const std::function<bool(qint64 section, qint64 item, const QRectF &frame)> &visit) const;

private:
    qint64 rowsInSection(qint64 section) const;

    Metrics m_metrics;
    double m_side = 0;
    double m_contentHeight = 0;
    std::vector<qint64> m_counts;
    std::vector<double> m_tops; // of each section's first row
};
