#include "VUTilingView.h"

#include "VUAssetImageView.h"

#include "ui/Autoresizing.h"
#include "ui/CollectionViewFlowLayout.h"

#include <algorithm>
#include <cmath>

namespace {

const QString kCellIdentifier = QStringLiteral("VUTilingViewAssetCell");
constexpr double kTargetCellSide = 90;

// One asset's cell: its image, fitted, over a faint tile while the image is on its way.
class AssetCell : public ui::CollectionViewCell {
public:
    AssetCell() : m_imageView(new VUAssetImageView(contentView()))
    {
        setAutoFillBackground(true);
        QPalette tile = palette();
        tile.setColor(QPalette::Window, QColor(0, 0, 0, 16));
        setPalette(tile);
        m_imageView->setGeometry(contentView()->rect());
        ui::setAutoresizingMask(m_imageView, ui::Autoresizing::FlexibleWidth | ui::Autoresizing::FlexibleHeight);
    }
    VUAssetImageView *imageView() const { return m_imageView; }
    void prepareForReuse() override { m_imageView->clear(); }

private:
    VUAssetImageView *m_imageView;
};

} // namespace

VUTilingView::VUTilingView(VUBrowsingSessionPtr browsingSession, QWidget *parent)
    : QWidget(parent)
    , m_session(std::move(browsingSession))
    , m_layout(new ui::CollectionViewFlowLayout)
    , m_collectionView(new ui::CollectionView(m_layout, this))
{
    m_layout->setMinimumInteritemSpacing(kSpacing);
    m_layout->setMinimumLineSpacing(kSpacing);
    m_layout->setSectionInset({0, 0, kSectionSpacing, 0});
    m_collectionView->registerCellClass<AssetCell>(kCellIdentifier);
    m_collectionView->setAlwaysBounceVertical(true);
    m_collectionView->setDelegate(this);
    m_collectionView->setDataSource(this);
    connect(m_session->dataSourceManager().get(), &VUAssetsDataSourceManager::assetsDataSourceChanged, m_collectionView,
            &ui::CollectionView::reloadData);
    setAutoFillBackground(true);
    QPalette white = palette();
    white.setColor(QPalette::Window, Qt::white);
    setPalette(white);
}

VUTilingView::~VUTilingView()
{
    // The collection view must not call back into a half-destroyed data source.
    m_collectionView->setDataSource(nullptr);
    m_collectionView->setDelegate(nullptr);
}

int VUTilingView::numberOfColumns() const
{
    return std::max(3, int(std::floor((width() + kSpacing) / (kTargetCellSide + kSpacing))));
}

void VUTilingView::updateItemSize()
{
    const int columns = numberOfColumns();
    // Whole points, so the columns line up; the flow layout shares out what is left.
    const double side = std::floor((width() - (columns - 1) * kSpacing) / columns);
    m_layout->setItemSize(QSizeF(side, side));
}

void VUTilingView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_collectionView->setGeometry(rect());
    updateItemSize();
}

qint64 VUTilingView::numberOfSectionsInCollectionView(ui::CollectionView *)
{
    const VUAssetsDataSourcePtr &source = m_session->dataSourceManager()->assetsDataSource();
    return source ? source->numberOfSections() : 0;
}

qint64 VUTilingView::numberOfItemsInSection(ui::CollectionView *, qint64 section)
{
    return m_session->dataSourceManager()->assetsDataSource()->numberOfItemsInSection(section);
}

ui::CollectionViewCell *VUTilingView::cellForItemAtIndexPath(ui::CollectionView *collectionView, const ui::IndexPath &indexPath)
{
    auto *cell = static_cast<AssetCell *>(collectionView->dequeueReusableCellWithReuseIdentifier(kCellIdentifier, indexPath));
    const VUAssetReferencePtr reference = m_session->dataSourceManager()->assetsDataSource()->assetReferenceAtIndexPath(indexPath);
    cell->imageView()->showAsset(m_session->mediaProvider(), *reference->asset(), m_layout->itemSize() * devicePixelRatioF());
    return cell;
}

void VUTilingView::didEndDisplayingCell(ui::CollectionView *, ui::CollectionViewCell *cell, const ui::IndexPath &)
{
    static_cast<AssetCell *>(cell)->imageView()->stopLoading();
}

void VUTilingView::didSelectItemAtIndexPath(ui::CollectionView *collectionView, const ui::IndexPath &indexPath)
{
    collectionView->deselectItemAtIndexPath(indexPath);
    Q_EMIT itemTapped(indexPath);
}
