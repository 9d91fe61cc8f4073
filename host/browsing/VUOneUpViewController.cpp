#include "VUOneUpViewController.h"

#include "VUAssetImageView.h"

#include "ui/CollectionViewFlowLayout.h"
#include "ui/ResizingView.h"
#include "ui/TapGestureRecognizer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

const QString kPageIdentifier = QStringLiteral("VUOneUpPage");

void paintBlack(QWidget *view)
{
    view->setAutoFillBackground(true);
    QPalette black = view->palette();
    black.setColor(QPalette::Window, Qt::black);
    view->setPalette(black);
}

// One page: the asset's image fitted to the page, in a scroll view of its own that zooms it.
class PageCell : public ui::CollectionViewCell, private ui::ScrollViewDelegate {
public:
    PageCell()
        : m_scrollView(new ui::ScrollView(contentView()))
        , m_imageView(new VUAssetImageView(m_scrollView->contentView()))
    {
        paintBlack(this);
        m_scrollView->setDelegate(this);
        m_scrollView->setMaximumZoomScale(VUOneUpViewController::kMaximumZoomScale);
        m_scrollView->setShowsHorizontalScrollIndicator(false);
        m_scrollView->setShowsVerticalScrollIndicator(false);
        auto *doubleTap = new ui::TapGestureRecognizer(m_scrollView);
        doubleTap->setNumberOfTapsRequired(2);
        connect(doubleTap, &ui::GestureRecognizer::action, this, [this, doubleTap] {
            if (doubleTap->state() == ui::GestureRecognizer::State::Ended)
                toggleZoom(doubleTap->locationInView(m_imageView));
        });
    }

    ui::ScrollView *scrollView() const { return m_scrollView; }
    VUAssetImageView *imageView() const { return m_imageView; }
    void prepareForReuse() override
    {
        m_imageView->clear();
        m_scrollView->setZoomScale(1);
    }

protected:
    void resizeEvent(QResizeEvent *event) override
    {
        ui::CollectionViewCell::resizeEvent(event);
        // A new page size starts unzoomed: the image fits the page again.
        m_scrollView->setZoomScale(1);
        m_scrollView->setGeometry(contentView()->rect());
        m_imageView->setGeometry(contentView()->rect());
        m_scrollView->setContentSize(QSizeF(contentView()->size()));
    }

private:
    QWidget *viewForZooming(ui::ScrollView *) override { return m_imageView; }

    // In, centred where the taps were; or back out when zoomed at all.
    void toggleZoom(QPointF location)
    {
        if (m_scrollView->zoomScale() > m_scrollView->minimumZoomScale() + 0.01) {
            m_scrollView->setZoomScale(m_scrollView->minimumZoomScale(), true);
            return;
        }
        const QSizeF size = QSizeF(m_scrollView->size()) / VUOneUpViewController::kDoubleTapZoomScale;
        m_scrollView->zoomToRect(QRectF(location - QPointF(size.width() / 2, size.height() / 2), size), true);
    }

    ui::ScrollView *m_scrollView;
    VUAssetImageView *m_imageView;
};

} // namespace

VUOneUpViewController::VUOneUpViewController(VUBrowsingSessionPtr browsingSession, const ui::IndexPath &initialIndexPath, QObject *parent)
    : ui::ViewController(parent)
    , m_session(std::move(browsingSession))
    , m_current(initialIndexPath)
{
    reloadCounts();
    setCurrentIndexPath(initialIndexPath);
    connect(m_session->dataSourceManager().get(), &VUAssetsDataSourceManager::assetsDataSourceChanged, this, [this] {
        // Stay on the same asset wherever the newer data source has it.
        const VUAssetReferencePtr shown = std::exchange(m_currentReference, nullptr);
        reloadCounts();
        const std::optional<ui::IndexPath> found = m_session->dataSourceManager()->assetsDataSource()->indexPathForAssetReference(shown.get());
        if (m_collectionView)
            m_collectionView->reloadData();
        showItemAtIndexPath(found.value_or(indexPathOfPage(0)), false);
    });
}

VUOneUpViewController::~VUOneUpViewController()
{
    if (m_collectionView) {
        m_collectionView->setDataSource(nullptr);
        m_collectionView->setDelegate(nullptr);
    }
}

QWidget *VUOneUpViewController::loadView()
{
    // Pages follow the view's size.
    auto *view = new ui::ResizingView([this] { pagesResized(); });
    paintBlack(view);
    m_layout = new ui::CollectionViewFlowLayout;
    m_layout->setScrollDirection(ui::CollectionViewFlowLayout::ScrollDirection::Horizontal);
    m_layout->setMinimumInteritemSpacing(0);
    m_layout->setMinimumLineSpacing(0);
    m_collectionView = new ui::CollectionView(m_layout, view);
    paintBlack(m_collectionView);
    m_collectionView->registerCellClass<PageCell>(kPageIdentifier);
    m_collectionView->setPagingEnabled(true);
    m_collectionView->setAllowsSelection(false);
    m_collectionView->setShowsHorizontalScrollIndicator(false);
    m_collectionView->setDelegate(this);
    m_collectionView->setDataSource(this);
    return view;
}

void VUOneUpViewController::pagesResized()
{
    const QSize size = view()->size();
    if (size.isEmpty())
        return;
    const ui::IndexPath current = m_current;
    m_collectionView->setGeometry(QRect(QPoint(), size));
    m_layout->setItemSize(QSizeF(size));
    showItemAtIndexPath(current, false);
}

void VUOneUpViewController::reloadCounts()
{
    const VUAssetsDataSourcePtr &source = m_session->dataSourceManager()->assetsDataSource();
    const qint64 sections = source ? source->numberOfSections() : 0;
    m_sectionStarts.assign(1, 0);
    for (qint64 s = 0; s < sections; ++s)
        m_sectionStarts.push_back(m_sectionStarts.back() + source->numberOfItemsInSection(s));
}

qint64 VUOneUpViewController::pageOfIndexPath(const ui::IndexPath &indexPath) const
{
    return m_sectionStarts[size_t(indexPath.section())] + indexPath.item();
}

ui::IndexPath VUOneUpViewController::indexPathOfPage(qint64 page) const
{
    // The last section starting at or before the page; empty sections start where the next does.
    const auto after = std::upper_bound(m_sectionStarts.begin(), m_sectionStarts.end() - 1, page);
    const qint64 section = qint64(after - m_sectionStarts.begin()) - 1;
    return ui::IndexPath::forItem(page - m_sectionStarts[size_t(section)], section);
}

void VUOneUpViewController::setCurrentIndexPath(const ui::IndexPath &indexPath)
{
    const qint64 total = m_sectionStarts.back();
    if (total == 0) {
        setTitle(QString());
        m_currentReference.reset();
        return;
    }
    if (indexPath == m_current && m_currentReference)
        return;
    m_current = indexPath;
    m_currentReference = m_session->dataSourceManager()->assetsDataSource()->assetReferenceAtIndexPath(indexPath);
    setTitle(tr("%1 of %2").arg(pageOfIndexPath(indexPath) + 1).arg(total));
}

void VUOneUpViewController::showItemAtIndexPath(const ui::IndexPath &indexPath, bool animated)
{
    if (m_sectionStarts.back() == 0)
        return;
    setCurrentIndexPath(indexPath);
    if (!m_collectionView || m_collectionView->width() <= 0)
        return;
    m_collectionView->layoutIfNeeded();
    m_collectionView->setContentOffset(QPointF(double(pageOfIndexPath(indexPath)) * m_collectionView->width(), 0), animated);
}

ui::ScrollView *VUOneUpViewController::currentPageScrollView() const
{
    auto *cell = m_collectionView ? static_cast<PageCell *>(m_collectionView->cellForItemAtIndexPath(m_current)) : nullptr;
    return cell ? cell->scrollView() : nullptr;
}

qint64 VUOneUpViewController::numberOfSectionsInCollectionView(ui::CollectionView *)
{
    return qint64(m_sectionStarts.size()) - 1;
}

qint64 VUOneUpViewController::numberOfItemsInSection(ui::CollectionView *, qint64 section)
{
    return m_sectionStarts[size_t(section) + 1] - m_sectionStarts[size_t(section)];
}

ui::CollectionViewCell *VUOneUpViewController::cellForItemAtIndexPath(ui::CollectionView *collectionView, const ui::IndexPath &indexPath)
{
    auto *cell = static_cast<PageCell *>(collectionView->dequeueReusableCellWithReuseIdentifier(kPageIdentifier, indexPath));
    const VUAssetReferencePtr reference = m_session->dataSourceManager()->assetsDataSource()->assetReferenceAtIndexPath(indexPath);
    cell->imageView()->showAsset(m_session->mediaProvider(), *reference->asset(), m_layout->itemSize() * collectionView->devicePixelRatioF());
    return cell;
}

void VUOneUpViewController::didEndDisplayingCell(ui::CollectionView *, ui::CollectionViewCell *cell, const ui::IndexPath &)
{
    static_cast<PageCell *>(cell)->imageView()->stopLoading();
}

void VUOneUpViewController::didScroll(ui::ScrollView *scrollView)
{
    const qint64 total = m_sectionStarts.back();
    if (total == 0 || scrollView->width() <= 0)
        return;
    const qint64 page = std::clamp<qint64>(std::llround(scrollView->contentOffset().x() / scrollView->width()), 0, total - 1);
    setCurrentIndexPath(indexPathOfPage(page));
}
