#pragma once
// The base of the playgrounds' strip layouts: every item of every section gets one continuous
// visual index, and one attributes record per item is kept in that order, so a rectangle query
// is a binary search along the scroll axis plus a walk over what it returns. The content size is
// the union of the origin with every frame, cached until the next pass.
//
// Subclasses compute their frames in prepareLayout through prepareAllLayoutAttributesUsingBlock,
// with leading edges that never decrease along the scroll axis. The query looks one record back
// from where the rectangle starts, no further: an item that starts two or more records before it
// is not returned even if it reaches into it, which costs nothing for single-row strips.

#include "shell/VUTesterExport.h"

#include "ui/CollectionViewLayout.h"

#include <QList>
#include <QSizeF>

#include <functional>

class VUTESTER_EXPORT VUTesterContinuousCollectionViewLayout : public ui::CollectionViewLayout {
    Q_OBJECT
public:
    using AttributesBlock = std::function<ui::CollectionViewLayoutAttributes(const ui::IndexPath &indexPath, qint64 visualItem)>;

    using ui::CollectionViewLayout::CollectionViewLayout;

    QList<ui::CollectionViewLayoutAttributes> allLayoutAttributes() const { return m_allLayoutAttributes; }
    // 1 is horizontal, any other value vertical.
    qint64 scrollDirection() const { return m_scrollDirection; }
    void setScrollDirection(qint64 direction) { m_scrollDirection = direction; }
    // Entry s is the visual index of item 0 of section s.
    QList<qint64> firstVisualItemBySection() const { return m_firstVisualItemBySection; }
    qint64 numberOfVisualItems() const { return m_numberOfVisualItems; }

    // Rebuilds the section table; subclasses then build the attributes.
    void prepareLayout() override;
    // Calls `block` for every item, sections in order and items in order within them.
    void prepareAllLayoutAttributesUsingBlock(const AttributesBlock &block);
    QSizeF collectionViewContentSize() override;

    qint64 visualItemForIndexPath(const ui::IndexPath &indexPath) const;
    ui::IndexPath indexPathForVisualItem(qint64 visualItem) const;
    std::optional<ui::CollectionViewLayoutAttributes> layoutAttributesForItemAtIndexPath(const ui::IndexPath &indexPath) override;
    QList<ui::CollectionViewLayoutAttributes> layoutAttributesForElementsInRect(const QRectF &rect) override;

    // The cached content size; the zero size means not computed yet.
    QSizeF _contentSize() const { return m_contentSize; }
    void _setContentSize(QSizeF size) { m_contentSize = size; }
    void _invalidateContentSize() { m_contentSize = QSizeF(0, 0); }

private:
    QList<ui::CollectionViewLayoutAttributes> m_allLayoutAttributes;
    qint64 m_scrollDirection = 0;
    QList<qint64> m_firstVisualItemBySection;
    qint64 m_numberOfVisualItems = 0;
    QSizeF m_contentSize{0, 0};
};
