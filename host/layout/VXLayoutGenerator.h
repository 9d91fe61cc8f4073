#pragma once
// The host's layout generators: each places a number of items, known by their size and weight, in
// the width of a reference size, and reports one geometry (centre and size) per item, in item
// order, plus the size of the whole content and the items at its four corners.
//
// A generator lays out lazily: the first question after a change of item count, key item or
// item-info block does the work, once; later questions read the result.

#include "VXLayoutItem.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <array>
#include <functional>
#include <limits>
#include <memory>
#include <vector>

// The index meaning "no item", as in "no key item".
inline constexpr qint64 VXNotFound = std::numeric_limits<qint64>::max();
// A corner of the layout that no geometry takes.
inline constexpr quint32 VXNoCornerSprite = 0xFFFFFFFF;
// Geometries of the items themselves; generators here make no other kind.
inline constexpr qint64 VXLayoutGeometryKindItem = 0;

struct VXLayoutGeometry {
    QPointF center;
    QSizeF size;

    QRectF frame() const { return {center.x() - size.width() * 0.5, center.y() - size.height() * 0.5, size.width(), size.height()}; }
    static VXLayoutGeometry withFrame(const QRectF &frame) { return {frame.center(), frame.size()}; }
};

struct VXLayoutRange {
    qint64 location = 0;
    qint64 length = 0;
};

struct VXLayoutMetrics {
    // The size the layout is made for: its width is the width every generator fills.
    QSizeF referenceSize;
    // The gap between neighbouring items, in points.
    double interitemSpacing = 2.0;
};

class VXLayoutGenerator {
public:
    using ItemLayoutInfoBlock = std::function<VXLayoutItem(qint64 index)>;
    enum Corner { TopLeft, TopRight, BottomLeft, BottomRight };
    // One geometry index per corner, in the order of Corner; VXNoCornerSprite for an empty corner.
    using CornerSpriteIndexes = std::array<quint32, 4>;

    explicit VXLayoutGenerator(const VXLayoutMetrics &metrics);
    virtual ~VXLayoutGenerator();

    const VXLayoutMetrics &metrics() const { return m_metrics; }

    qint64 itemCount() const { return m_itemCount; }
    // A negative count is taken as 0.
    void setItemCount(qint64 count);
    qint64 keyItemIndex() const { return m_keyItemIndex; }
    // VXNotFound, or any index outside the items, means no key item.
    void setKeyItemIndex(qint64 index);
    // Answers the size and weight of item i; asked once per item and layout pass. Without a block
    // every item is a square of weight 0.
    void setItemLayoutInfoBlock(ItemLayoutInfoBlock block);

    qint64 numberOfGeometriesWithKind(qint64 kind);
    // Copies `range.length` geometries from `range.location` into `geometries`. A range outside
    // the geometries of that kind is a programming error and ends the process.
    void getGeometries(VXLayoutGeometry *geometries, VXLayoutRange range, qint64 kind);
    CornerSpriteIndexes cornerSpriteIndexes();
    // The size of the whole content: the reference width, and the height the items take.
    QSizeF size();

protected:
    struct Result {
        std::vector<VXLayoutGeometry> geometries;
        CornerSpriteIndexes corners{VXNoCornerSprite, VXNoCornerSprite, VXNoCornerSprite, VXNoCornerSprite};
        double height = 0;
    };
    // Lays out `items`: sets result->geometries[i] (the vector comes sized) for every item i, the
    // corners and the content height. `keyItemIndex` is a valid index or VXNotFound.
    virtual void layout(const std::vector<VXLayoutItem> &items, qint64 keyItemIndex, Result *result) const = 0;

    // The width to fill: the reference width, or 0 when that is not a positive number.
    double width() const;
    // The spacing between `columns` columns across the width, reduced where the width is too
    // narrow for it, so the gaps never take more than half of the width.
    double spacingForColumns(int columns) const;

private:
    void layoutIfNeeded();
    void invalidate() { m_valid = false; }

    VXLayoutMetrics m_metrics;
    qint64 m_itemCount = 0;
    qint64 m_keyItemIndex = VXNotFound;
    ItemLayoutInfoBlock m_itemLayoutInfo;
    bool m_valid = false;
    Result m_result;
};

// Makes a generator for a reference size.
using VXLayoutGeneratorFactory = std::function<std::unique_ptr<VXLayoutGenerator>(QSizeF size)>;
