#include "CollectionView.h"

#include "TapGestureRecognizer.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>

namespace ui {

const QString CollectionView::ElementKindSectionHeader = QStringLiteral("ElementKindSectionHeader");

namespace {

QString supplementaryPoolKey(const QString &kind, const QString &identifier)
{
    return kind + QChar(0x1f) + identifier;
}

template <typename Container>
QList<IndexPath> sorted(const Container &paths)
{
    QList<IndexPath> list(paths.begin(), paths.end());
    std::sort(list.begin(), list.end());
    return list;
}

} // namespace

CollectionView::CollectionView(CollectionViewLayout *layout, QWidget *parent)
    : ScrollView(parent), m_tap(new TapGestureRecognizer(this))
{
    setCollectionViewLayout(layout);
    m_tap->setShouldBegin([this](GestureRecognizer &) { return m_allowsSelection && !touchStoppedScrolling(); });
    connect(m_tap, &GestureRecognizer::action, this, [this] { handleTap(); });
}

CollectionView::~CollectionView()
{
    // Cells and views belong to the content view; the delegate may be gone before it.
    ScrollView::setDelegate(nullptr);
}

void CollectionView::setCollectionViewLayout(CollectionViewLayout *layout)
{
    if (layout == m_layout)
        return;
    delete m_layout;
    m_layout = layout;
    if (layout) {
        layout->setParent(this);
        layout->m_collectionView = this;
    }
    setNeedsLayoutPass();
}

void CollectionView::setDataSource(CollectionViewDataSource *dataSource)
{
    m_dataSource = dataSource;
    reloadData();
}

void CollectionView::setDelegate(CollectionViewDelegate *delegate)
{
    m_delegate = delegate;
    ScrollView::setDelegate(delegate);
}

void CollectionView::registerCellFactory(const QString &identifier, CellFactory factory)
{
    m_cellFactories.insert(identifier, std::move(factory));
}

void CollectionView::registerSupplementaryViewFactory(const QString &kind, const QString &identifier, SupplementaryViewFactory factory)
{
    m_supplementaryFactories.insert(supplementaryPoolKey(kind, identifier), std::move(factory));
}

CollectionReusableView *CollectionView::dequeue(const QString &poolKey, const std::function<CollectionReusableView *()> &make)
{
    QList<CollectionReusableView *> &pool = m_pools[poolKey];
    if (!pool.isEmpty()) {
        CollectionReusableView *view = pool.takeLast();
        view->prepareForReuse();
        return view;
    }
    CollectionReusableView *view = make();
    view->setParent(contentView());
    return view;
}

void CollectionView::enqueue(CollectionReusableView *view, const QString &poolKey)
{
    view->hide();
    m_pools[poolKey].append(view);
}

CollectionViewCell *CollectionView::dequeueReusableCellWithReuseIdentifier(const QString &identifier, const IndexPath &)
{
    const CellFactory factory = m_cellFactories.value(identifier);
    if (!factory)
        qFatal("CollectionView: no cell registered for reuse identifier \"%s\"", qPrintable(identifier));
    auto *cell = static_cast<CollectionViewCell *>(dequeue(identifier, [&factory] { return factory(); }));
    cell->m_reuseIdentifier = identifier;
    return cell;
}

CollectionReusableView *CollectionView::dequeueReusableSupplementaryViewOfKind(const QString &kind, const QString &identifier,
                                                                               const IndexPath &)
{
    const QString key = supplementaryPoolKey(kind, identifier);
    const SupplementaryViewFactory factory = m_supplementaryFactories.value(key);
    if (!factory)
        qFatal("CollectionView: no %s view registered for reuse identifier \"%s\"", qPrintable(kind), qPrintable(identifier));
    CollectionReusableView *view = dequeue(key, factory);
    view->m_reuseIdentifier = identifier;
    return view;
}

void CollectionView::reloadData()
{
    for (auto it = m_visibleCells.cbegin(); it != m_visibleCells.cend(); ++it) {
        enqueue(it.value(), it.value()->reuseIdentifier());
        if (m_delegate)
            m_delegate->didEndDisplayingCell(this, it.value(), it.key());
    }
    m_visibleCells.clear();
    for (auto it = m_visibleSupplementaryViews.cbegin(); it != m_visibleSupplementaryViews.cend(); ++it)
        enqueue(it.value(), supplementaryPoolKey(it.key().first, it.value()->reuseIdentifier()));
    m_visibleSupplementaryViews.clear();
    m_selected.clear();
    m_prefetched.clear();
    m_countsValid = false;
    if (m_layout)
        m_layout->invalidateLayout();
    else
        setNeedsLayoutPass();
}

void CollectionView::setNeedsLayoutPass()
{
    m_needsLayoutPass = true;
    if (!m_passPosted) {
        m_passPosted = true;
        QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
    }
}

bool CollectionView::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest) {
        m_passPosted = false;
        layoutIfNeeded();
    }
    return ScrollView::event(event);
}

void CollectionView::ensureCounts()
{
    if (m_countsValid)
        return;
    m_countsValid = true;
    m_itemCounts.clear();
    if (!m_dataSource)
        return;
    const qint64 sections = m_dataSource->numberOfSectionsInCollectionView(this);
    m_itemCounts.reserve(size_t(std::max<qint64>(0, sections)));
    for (qint64 s = 0; s < sections; ++s)
        m_itemCounts.push_back(m_dataSource->numberOfItemsInSection(this, s));
}

qint64 CollectionView::numberOfSections()
{
    ensureCounts();
    return qint64(m_itemCounts.size());
}

qint64 CollectionView::numberOfItemsInSection(qint64 section)
{
    ensureCounts();
    if (section < 0 || section >= qint64(m_itemCounts.size()))
        qFatal("CollectionView: section %lld of %lld", section, qint64(m_itemCounts.size()));
    return m_itemCounts[size_t(section)];
}

bool CollectionView::isValidItem(const IndexPath &indexPath)
{
    ensureCounts();
    return indexPath.length() == 2 && indexPath.section() >= 0 && indexPath.section() < qint64(m_itemCounts.size())
           && indexPath.item() >= 0 && indexPath.item() < m_itemCounts[size_t(indexPath.section())];
}

void CollectionView::layoutIfNeeded()
{
    if (m_inLayout || !m_layout)
        return;
    m_inLayout = true;
    ensureCounts();
    // Asked here as well as on every bounds change: a hidden view is resized without events.
    const QRectF visible = bounds();
    if (visible != m_askedBounds) {
        m_askedBounds = visible;
        if (!m_needsLayoutPass && m_layout->shouldInvalidateLayoutForBoundsChange(visible))
            m_needsLayoutPass = true;
    }
    if (m_needsLayoutPass) {
        m_needsLayoutPass = false;
        m_layout->prepareLayout();
        setContentSize(m_layout->collectionViewContentSize());
    }
    updateVisibleElements();
    m_inLayout = false;
}

void CollectionView::boundsDidChange()
{
    layoutIfNeeded();
}

void CollectionView::updateVisibleElements()
{
    const QRectF visible = bounds();
    const QList<CollectionViewLayoutAttributes> attributes =
        visible.isEmpty() ? QList<CollectionViewLayoutAttributes>() : m_layout->layoutAttributesForElementsInRect(visible);
    QHash<IndexPath, qsizetype> cells;
    QHash<SupplementaryKey, qsizetype> supplementary;
    for (qsizetype i = 0; i < attributes.size(); ++i) {
        const CollectionViewLayoutAttributes &a = attributes[i];
        if (a.category == CollectionViewLayoutAttributes::Category::Cell) {
            if (isValidItem(a.indexPath))
                cells.insert(a.indexPath, i);
        } else {
            supplementary.insert({a.elementKind, a.indexPath}, i);
        }
    }

    // Views leave first, so the ones that enter can reuse them.
    bool changed = false;
    for (auto it = m_visibleCells.begin(); it != m_visibleCells.end();) {
        if (cells.contains(it.key())) {
            ++it;
            continue;
        }
        CollectionViewCell *cell = it.value();
        const IndexPath path = it.key();
        it = m_visibleCells.erase(it);
        enqueue(cell, cell->reuseIdentifier());
        if (m_delegate)
            m_delegate->didEndDisplayingCell(this, cell, path);
        changed = true;
    }
    for (auto it = m_visibleSupplementaryViews.begin(); it != m_visibleSupplementaryViews.end();) {
        if (supplementary.contains(it.key())) {
            ++it;
            continue;
        }
        enqueue(it.value(), supplementaryPoolKey(it.key().first, it.value()->reuseIdentifier()));
        it = m_visibleSupplementaryViews.erase(it);
    }

    for (auto it = cells.cbegin(); it != cells.cend(); ++it) {
        CollectionViewCell *cell = m_visibleCells.value(it.key());
        if (!cell) {
            cell = m_dataSource ? m_dataSource->cellForItemAtIndexPath(this, it.key()) : nullptr;
            if (!cell)
                continue;
            cell->setSelected(m_selected.contains(it.key()));
            m_visibleCells.insert(it.key(), cell);
            if (m_delegate)
                m_delegate->willDisplayCell(this, cell, it.key());
            changed = true;
        }
        cell->applyLayoutAttributes(attributes[it.value()]);
    }
    for (auto it = supplementary.cbegin(); it != supplementary.cend(); ++it) {
        CollectionReusableView *view = m_visibleSupplementaryViews.value(it.key());
        if (!view) {
            view = m_dataSource ? m_dataSource->viewForSupplementaryElementOfKind(this, it.key().first, it.key().second) : nullptr;
            if (!view)
                continue;
            m_visibleSupplementaryViews.insert(it.key(), view);
        }
        view->applyLayoutAttributes(attributes[it.value()]);
        view->raise();
    }
    if (changed)
        updatePrefetching();
}

void CollectionView::updatePrefetching()
{
    if (!m_prefetchingEnabled || !m_prefetchDataSource)
        return;
    const bool horizontal = contentSize().width() > width() && contentSize().height() <= height();
    const QRectF area = horizontal ? bounds().adjusted(-width(), 0, width(), 0) : bounds().adjusted(0, -height(), 0, height());
    QSet<IndexPath> near;
    for (const CollectionViewLayoutAttributes &a : m_layout->layoutAttributesForElementsInRect(area))
        if (a.category == CollectionViewLayoutAttributes::Category::Cell && !m_visibleCells.contains(a.indexPath) && isValidItem(a.indexPath))
            near.insert(a.indexPath);
    QList<IndexPath> start, cancel;
    for (const IndexPath &path : std::as_const(near))
        if (!m_prefetched.contains(path))
            start.append(path);
    // Prefetched items that became visible were used; the others scrolled away unseen.
    for (const IndexPath &path : std::as_const(m_prefetched))
        if (!near.contains(path) && !m_visibleCells.contains(path))
            cancel.append(path);
    m_prefetched = near;
    if (!cancel.isEmpty())
        m_prefetchDataSource->cancelPrefetchingForItemsAtIndexPaths(this, sorted(cancel));
    if (!start.isEmpty())
        m_prefetchDataSource->prefetchItemsAtIndexPaths(this, sorted(start));
}

QList<CollectionViewCell *> CollectionView::visibleCells() const
{
    return m_visibleCells.values();
}

QList<IndexPath> CollectionView::indexPathsForVisibleItems() const
{
    return sorted(m_visibleCells.keys());
}

CollectionViewCell *CollectionView::cellForItemAtIndexPath(const IndexPath &indexPath) const
{
    return m_visibleCells.value(indexPath);
}

CollectionReusableView *CollectionView::supplementaryViewForElementKind(const QString &kind, const IndexPath &indexPath) const
{
    return m_visibleSupplementaryViews.value({kind, indexPath});
}

std::optional<IndexPath> CollectionView::indexPathForItemAtPoint(QPointF point)
{
    if (!m_layout)
        return std::nullopt;
    layoutIfNeeded();
    for (const CollectionViewLayoutAttributes &a : m_layout->layoutAttributesForElementsInRect(QRectF(point - QPointF(0.5, 0.5), QSizeF(1, 1))))
        if (a.category == CollectionViewLayoutAttributes::Category::Cell && a.frame.contains(point) && isValidItem(a.indexPath))
            return a.indexPath;
    return std::nullopt;
}

void CollectionView::scrollToItemAtIndexPath(const IndexPath &indexPath, ScrollPosition position, bool animated)
{
    if (!m_layout)
        return;
    layoutIfNeeded();
    const std::optional<CollectionViewLayoutAttributes> a = m_layout->layoutAttributesForItemAtIndexPath(indexPath);
    if (!a)
        return;
    const QRectF frame = a->frame;
    QPointF target = contentOffset();
    switch (position) {
    case ScrollPosition::None:
        scrollRectToVisible(frame, animated);
        return;
    case ScrollPosition::Top: target.setY(frame.top()); break;
    case ScrollPosition::CenteredVertically: target.setY(frame.center().y() - height() / 2.0); break;
    case ScrollPosition::Bottom: target.setY(frame.bottom() - height()); break;
    case ScrollPosition::Left: target.setX(frame.left()); break;
    case ScrollPosition::CenteredHorizontally: target.setX(frame.center().x() - width() / 2.0); break;
    case ScrollPosition::Right: target.setX(frame.right() - width()); break;
    }
    const QPointF low = minimumContentOffset(), high = maximumContentOffset();
    setContentOffset(QPointF(std::clamp(target.x(), low.x(), high.x()), std::clamp(target.y(), low.y(), high.y())), animated);
}

QList<IndexPath> CollectionView::indexPathsForSelectedItems() const
{
    return sorted(m_selected);
}

void CollectionView::selectItemAtIndexPath(const IndexPath &indexPath, bool animated, ScrollPosition position)
{
    select(indexPath, false);
    if (position != ScrollPosition::None)
        scrollToItemAtIndexPath(indexPath, position, animated);
}

void CollectionView::deselectItemAtIndexPath(const IndexPath &indexPath)
{
    deselect(indexPath, false);
}

void CollectionView::select(const IndexPath &indexPath, bool notify)
{
    if (notify && m_delegate && !m_delegate->shouldSelectItemAtIndexPath(this, indexPath))
        return;
    if (!m_allowsMultipleSelection)
        for (const IndexPath &other : sorted(m_selected))
            if (other != indexPath)
                deselect(other, notify);
    m_selected.insert(indexPath);
    if (CollectionViewCell *cell = m_visibleCells.value(indexPath))
        cell->setSelected(true);
    if (notify && m_delegate)
        m_delegate->didSelectItemAtIndexPath(this, indexPath);
}

void CollectionView::deselect(const IndexPath &indexPath, bool notify)
{
    if (!m_selected.remove(indexPath))
        return;
    if (CollectionViewCell *cell = m_visibleCells.value(indexPath))
        cell->setSelected(false);
    if (notify && m_delegate)
        m_delegate->didDeselectItemAtIndexPath(this, indexPath);
}

void CollectionView::handleTap()
{
    if (m_tap->state() != GestureRecognizer::State::Ended)
        return;
    const std::optional<IndexPath> path = indexPathForItemAtPoint(m_tap->locationInView(contentView()));
    if (!path)
        return;
    if (m_allowsMultipleSelection && m_selected.contains(*path))
        deselect(*path, true);
    else if (!m_selected.contains(*path))
        select(*path, true);
}

} // namespace ui
