#pragma once
// The stock flow layout: items in lines across the scroll direction, section after section,
// each section optionally headed by a header (ElementKindSectionHeader) and inset by
// `sectionInset`. Items take the delegate's size for them, or `itemSize`.
//
// Within a line items keep at least `minimumInteritemSpacing` between them; the spare room of a
// full line is shared out between its items, so a grid's columns line up, while the last line
// of a section keeps the minimum spacing from its leading edge. Items are centred across the
// line's thickness; lines are `minimumLineSpacing` apart.
//
// A pass computes every frame once; a rectangle query finds the first line it reaches by binary
// search and walks only the lines it covers, so its cost is log n plus what it returns.

#include "CollectionViewLayout.h"
#include "Geometry.h"

#include <vector>

namespace ui {

class CollectionViewFlowLayout : public CollectionViewLayout {
    Q_OBJECT
public:
    enum class ScrollDirection { Vertical, Horizontal };

    explicit CollectionViewFlowLayout(QObject *parent = nullptr);

    // Each setter invalidates the layout when the value changes.
    QSizeF itemSize() const { return m_itemSize; }
    void setItemSize(QSizeF size);
    double minimumInteritemSpacing() const { return m_interitemSpacing; }
    void setMinimumInteritemSpacing(double spacing);
    double minimumLineSpacing() const { return m_lineSpacing; }
    void setMinimumLineSpacing(double spacing);
    EdgeInsets sectionInset() const { return m_sectionInset; }
    void setSectionInset(const EdgeInsets &inset);
    ScrollDirection scrollDirection() const { return m_scrollDirection; }
    void setScrollDirection(ScrollDirection direction);
    // Headers are as tall (vertical) or as wide (horizontal) as this; zero means no headers.
    QSizeF headerReferenceSize() const { return m_headerReferenceSize; }
    void setHeaderReferenceSize(QSizeF size);

    void prepareLayout() override;
    QList<CollectionViewLayoutAttributes> layoutAttributesForElementsInRect(const QRectF &rect) override;
    std::optional<CollectionViewLayoutAttributes> layoutAttributesForItemAtIndexPath(const IndexPath &indexPath) override;
    std::optional<CollectionViewLayoutAttributes> layoutAttributesForSupplementaryViewOfKind(const QString &kind,
                                                                                             const IndexPath &indexPath) override;
    QSizeF collectionViewContentSize() override { return m_contentSize; }
    // A new pass when the size across the scroll direction changes.
    bool shouldInvalidateLayoutForBoundsChange(const QRectF &newBounds) override;

private:
    struct Line {
        double start, end; // along the scroll direction
        qint64 firstItem;  // global index
        qint64 count;
    };
    struct Header {
        QRectF frame;
        qint64 section;
    };
    template <typename T>
    void change(T &member, const T &value);
    IndexPath indexPathOfGlobalItem(qint64 item) const;
    double across(const QSizeF &size) const;

    QSizeF m_itemSize{50, 50};
    double m_interitemSpacing = 10;
    double m_lineSpacing = 10;
    EdgeInsets m_sectionInset;
    ScrollDirection m_scrollDirection = ScrollDirection::Vertical;
    QSizeF m_headerReferenceSize;

    // From the last pass: every frame by global item index, the global index of each section's
    // first item (plus one past the end), the lines and the headers in scroll order.
    std::vector<QRectF> m_frames;
    std::vector<qint64> m_sectionStarts;
    std::vector<Line> m_lines;
    std::vector<Header> m_headers;
    QSizeF m_contentSize;
    double m_preparedAcross = -1;
};

} // namespace ui
