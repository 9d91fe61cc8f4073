#pragma once
// A collection view: a scroll view that shows the items of a sectioned data source where a
// pluggable layout puts them. Only the elements in the visible rectangle have widgets; a cell
// that scrolls out goes back to a pool under its reuse identifier and comes out again, told
// prepareForReuse, for the next item the data source dequeues it for.
//
// The visible cells follow every change of the content offset at once. invalidateLayout and
// reloadData take effect at the next layout pass: when control returns to the event loop, or
// earlier through layoutIfNeeded.
//
// Tapping an item selects it (through the view's tap recogniser); a tap that catches scrolling
// content only stops it. A prefetch data source hears of items within one screen of the visible
// rectangle along the scroll axis, and of those it was told about that scrolled away unseen.

#include "CollectionViewCell.h"
#include "CollectionViewLayout.h"
#include "IndexPath.h"
#include "ScrollView.h"

#include <QHash>
#include <QSet>

#include <functional>
#include <optional>
#include <vector>

namespace ui {

class CollectionView;
class TapGestureRecognizer;

class CollectionViewDataSource {
public:
    virtual ~CollectionViewDataSource() = default;
    virtual qint64 numberOfSectionsInCollectionView(CollectionView *collectionView) { return 1; }
    virtual qint64 numberOfItemsInSection(CollectionView *collectionView, qint64 section) = 0;
    // Returns a cell from dequeueReusableCellWithReuseIdentifier, configured for the item.
    virtual CollectionViewCell *cellForItemAtIndexPath(CollectionView *collectionView, const IndexPath &indexPath) = 0;
    // A view from dequeueReusableSupplementaryViewOfKind; null shows nothing there.
    virtual CollectionReusableView *viewForSupplementaryElementOfKind(CollectionView *collectionView, const QString &kind,
                                                                      const IndexPath &indexPath)
    {
        return nullptr;
    }
};

class CollectionViewDelegate : public ScrollViewDelegate {
public:
    // The size of one item, for layouts that ask (the flow layout); none keeps the layout's own.
    virtual std::optional<QSizeF> sizeForItemAtIndexPath(CollectionView *collectionView, CollectionViewLayout *layout,
                                                         const IndexPath &indexPath)
    {
        return std::nullopt;
    }
    virtual bool shouldSelectItemAtIndexPath(CollectionView *collectionView, const IndexPath &indexPath) { return true; }
    virtual void didSelectItemAtIndexPath(CollectionView *collectionView, const IndexPath &indexPath) {}
    virtual void didDeselectItemAtIndexPath(CollectionView *collectionView, const IndexPath &indexPath) {}
    virtual void willDisplayCell(CollectionView *collectionView, CollectionViewCell *cell, const IndexPath &indexPath) {}
    virtual void didEndDisplayingCell(CollectionView *collectionView, CollectionViewCell *cell, const IndexPath &indexPath) {}
};

class CollectionViewDataSourcePrefetching {
public:
    virtual ~CollectionViewDataSourcePrefetching() = default;
    virtual void prefetchItemsAtIndexPaths(CollectionView *collectionView, const QList<IndexPath> &indexPaths) = 0;
    virtual void cancelPrefetchingForItemsAtIndexPaths(CollectionView *collectionView, const QList<IndexPath> &indexPaths) {}
};

class CollectionView : public ScrollView {
    Q_OBJECT
public:
    // None: selecting does not scroll; scrollToItemAtIndexPath scrolls the least that shows the item.
    enum class ScrollPosition { None, Top, CenteredVertically, Bottom, Left, CenteredHorizontally, Right };
    using CellFactory = std::function<CollectionViewCell *()>;
    using SupplementaryViewFactory = std::function<CollectionReusableView *()>;
    static const QString ElementKindSectionHeader;

    // The collection view owns its layout.
    explicit CollectionView(CollectionViewLayout *layout, QWidget *parent = nullptr);
    ~CollectionView() override;

    CollectionViewLayout *collectionViewLayout() const { return m_layout; }
    // Replaces (and deletes) the layout.
    void setCollectionViewLayout(CollectionViewLayout *layout);
    CollectionViewDataSource *dataSource() const { return m_dataSource; }
    void setDataSource(CollectionViewDataSource *dataSource);
    CollectionViewDelegate *delegate() const { return m_delegate; }
    // Also the scroll view's delegate.
    void setDelegate(CollectionViewDelegate *delegate);
    CollectionViewDataSourcePrefetching *prefetchDataSource() const { return m_prefetchDataSource; }
    void setPrefetchDataSource(CollectionViewDataSourcePrefetching *prefetchDataSource) { m_prefetchDataSource = prefetchDataSource; }
    bool isPrefetchingEnabled() const { return m_prefetchingEnabled; }
    void setPrefetchingEnabled(bool enabled) { m_prefetchingEnabled = enabled; }

    void registerCellFactory(const QString &identifier, CellFactory factory);
    template <typename Cell>
    void registerCellClass(const QString &identifier)
    {
        registerCellFactory(identifier, [] { return new Cell; });
    }
    void registerSupplementaryViewFactory(const QString &kind, const QString &identifier, SupplementaryViewFactory factory);
    // A cell from the pool of `identifier`, or a new one; an unregistered identifier is a
    // programming error.
    CollectionViewCell *dequeueReusableCellWithReuseIdentifier(const QString &identifier, const IndexPath &indexPath);
    CollectionReusableView *dequeueReusableSupplementaryViewOfKind(const QString &kind, const QString &identifier,
                                                                   const IndexPath &indexPath);

    // Forgets every cell and count; asks the data source again at the next layout pass.
    void reloadData();
    // Runs a pending layout pass now and brings the visible elements up to date.
    void layoutIfNeeded();
    // The counts as of the last reload.
    qint64 numberOfSections();
    qint64 numberOfItemsInSection(qint64 section);

    QList<CollectionViewCell *> visibleCells() const;
    // Sorted.
    QList<IndexPath> indexPathsForVisibleItems() const;
    // The visible cell of an item, or null.
    CollectionViewCell *cellForItemAtIndexPath(const IndexPath &indexPath) const;
    CollectionReusableView *supplementaryViewForElementKind(const QString &kind, const IndexPath &indexPath) const;
    // The item whose cell covers `point`, in content coordinates.
    std::optional<IndexPath> indexPathForItemAtPoint(QPointF point);
    void scrollToItemAtIndexPath(const IndexPath &indexPath, ScrollPosition position, bool animated);

    bool allowsSelection() const { return m_allowsSelection; }
    void setAllowsSelection(bool allows) { m_allowsSelection = allows; }
    bool allowsMultipleSelection() const { return m_allowsMultipleSelection; }
    void setAllowsMultipleSelection(bool allows) { m_allowsMultipleSelection = allows; }
    // Sorted.
    QList<IndexPath> indexPathsForSelectedItems() const;
    // Programmatic selection does not tell the delegate.
    void selectItemAtIndexPath(const IndexPath &indexPath, bool animated, ScrollPosition position);
    void deselectItemAtIndexPath(const IndexPath &indexPath);
    TapGestureRecognizer *selectionGestureRecognizer() const { return m_tap; }

    // For the layout: a new pass is due.
    void setNeedsLayoutPass();

protected:
    void boundsDidChange() override;
    bool event(QEvent *event) override;

private:
    using SupplementaryKey = QPair<QString, IndexPath>;

    void ensureCounts();
    void updateVisibleElements();
    void updatePrefetching();
    void enqueue(CollectionReusableView *view, const QString &poolKey);
    CollectionReusableView *dequeue(const QString &poolKey, const std::function<CollectionReusableView *()> &make);
    bool isValidItem(const IndexPath &indexPath);
    void handleTap();
    void select(const IndexPath &indexPath, bool notify);
    void deselect(const IndexPath &indexPath, bool notify);

    CollectionViewLayout *m_layout = nullptr;
    CollectionViewDataSource *m_dataSource = nullptr;
    CollectionViewDelegate *m_delegate = nullptr;
    CollectionViewDataSourcePrefetching *m_prefetchDataSource = nullptr;
    bool m_prefetchingEnabled = true;
    bool m_allowsSelection = true;
    bool m_allowsMultipleSelection = false;

    bool m_countsValid = false;
    std::vector<qint64> m_itemCounts;
    bool m_needsLayoutPass = true;
    bool m_passPosted = false;
    bool m_inLayout = false;
    QRectF m_askedBounds;

    QHash<QString, CellFactory> m_cellFactories;
    QHash<QString, SupplementaryViewFactory> m_supplementaryFactories;
    QHash<QString, QList<CollectionReusableView *>> m_pools;
    QHash<IndexPath, CollectionViewCell *> m_visibleCells;
    QHash<SupplementaryKey, CollectionReusableView *> m_visibleSupplementaryViews;
    QSet<IndexPath> m_selected;
    QSet<IndexPath> m_prefetched;
    TapGestureRecognizer *m_tap;
};

} // namespace ui
