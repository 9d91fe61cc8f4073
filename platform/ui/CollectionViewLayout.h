#pragma once
// What a collection view asks of its layout, and the record a layout answers with.
//
// The collection view calls prepareLayout before it first needs the layout and again after each
// invalidateLayout; then collectionViewContentSize, and layoutAttributesForElementsInRect for
// every visible rectangle (on every scroll). On every change of its bounds (scrolling included)
// it asks shouldInvalidateLayoutForBoundsChange whether a new pass is needed.

#include "IndexPath.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QRectF>
#include <QString>

#include <optional>

namespace ui {

class CollectionView;

// Where one element goes: a cell for an item, or a supplementary view (a section header) of
// some kind.
struct CollectionViewLayoutAttributes {
    enum class Category { Cell, SupplementaryView };

    Category category = Category::Cell;
    QString elementKind; // supplementary views only
    IndexPath indexPath;
    QRectF frame;
    bool hidden = false;

    static CollectionViewLayoutAttributes forCell(const IndexPath &indexPath, const QRectF &frame = {})
    {
        return {Category::Cell, QString(), indexPath, frame};
    }
    static CollectionViewLayoutAttributes forSupplementaryView(const QString &kind, const IndexPath &indexPath, const QRectF &frame = {})
    {
        return {Category::SupplementaryView, kind, indexPath, frame};
    }
    QPointF center() const { return frame.center(); }
    QSizeF size() const { return frame.size(); }
    friend bool operator==(const CollectionViewLayoutAttributes &, const CollectionViewLayoutAttributes &) = default;
};

class CollectionViewLayout : public QObject {
    Q_OBJECT
public:
    explicit CollectionViewLayout(QObject *parent = nullptr);
    ~CollectionViewLayout() override;

    // The collection view this layout is installed in, if any.
    CollectionView *collectionView() const;

    virtual void prepareLayout() {}
    // Every element whose frame intersects `rect` (ui::intersects), in any order.
    virtual QList<CollectionViewLayoutAttributes> layoutAttributesForElementsInRect(const QRectF &rect) = 0;
    virtual std::optional<CollectionViewLayoutAttributes> layoutAttributesForItemAtIndexPath(const IndexPath &indexPath) = 0;
    virtual std::optional<CollectionViewLayoutAttributes> layoutAttributesForSupplementaryViewOfKind(const QString &kind,
                                                                                                     const IndexPath &indexPath);
    virtual QSizeF collectionViewContentSize() = 0;
    // `newBounds` is the visible rectangle in content coordinates.
    virtual bool shouldInvalidateLayoutForBoundsChange(const QRectF &newBounds) { return false; }
    // Asks for a new pass: prepareLayout runs again before the collection view next lays out.
    virtual void invalidateLayout();

private:
    friend class CollectionView;
    QPointer<CollectionView> m_collectionView;
};

} // namespace ui
