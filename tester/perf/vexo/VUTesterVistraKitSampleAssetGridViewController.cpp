#include "perf/vexo/VUTesterVistraKitSampleAssetGridViewController.h"

#include "perf/vexo/VUTesterGridMetrics.h"

#include "perf/grid/VXExtendedTraitCollection.h"
#include "photos/VHImageManager.h"
#include "photos/VHPhotoLibrary.h"
#include "ui/Autoresizing.h"
#include "ui/BackgroundColor.h"
#include "ui/CollectionViewFlowLayout.h"

#include <QEvent>
#include <QPainter>
#include <QPointer>

namespace {

const QString kCellIdentifier = QStringLiteral("Thumbnail");

// A thumbnail filling its square, cropped to it; grey until the picture comes.
class ThumbnailCell : public ui::CollectionViewCell {
public:
    // `target` in pixels; the cell may not have its size yet when it is configured.
    void show(VHImageManager *manager, const VHAsset &asset, QSize target)
    {
        m_manager = manager;
        QPointer<ThumbnailCell> self(this);
        m_request = manager->requestImageForAsset(asset, target, VHImageContentMode::AspectFill,
                                                  [self](const graphics::ImagePtr &image, const QVariantMap &) {
                                                      if (!self || !image)
                                                          return;
                                                      self->m_picture = image->uprightPixels();
                                                      self->m_request = VHInvalidImageRequestID;
                                                      self->update();
                                                  });
    }
    void prepareForReuse() override
    {
        if (m_manager && m_request != VHInvalidImageRequestID)
            m_manager->cancelImageRequest(m_request);
        m_request = VHInvalidImageRequestID;
        m_picture = QImage();
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        if (m_picture.isNull()) {
            painter.fillRect(rect(), QColor(230, 230, 232));
            return;
        }
        // Aspect fill: the middle of the picture, scaled to cover the cell.
        const double factor = std::max(double(width()) / m_picture.width(), double(height()) / m_picture.height());
        const QSizeF crop(width() / factor, height() / factor);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(QRectF(rect()), m_picture,
                          QRectF((m_picture.width() - crop.width()) / 2, (m_picture.height() - crop.height()) / 2, crop.width(), crop.height()));
    }

private:
    VHImageManager *m_manager = nullptr;
    VHImageRequestID m_request = VHInvalidImageRequestID;
    QImage m_picture;
};

} // namespace

VUTesterVistraKitSampleAssetGridViewController::VUTesterVistraKitSampleAssetGridViewController(std::shared_ptr<VHPhotoLibrary> library,
                                                                                               VHImageManager *imageManager)
    : m_library(library ? std::move(library) : VHPhotoLibrary::sharedPhotoLibrary()),
      m_imageManager(imageManager ? imageManager : VHImageManager::defaultManager())
{
    setTitle(QStringLiteral("Library"));
    vx_enableExtendedTraitCollection(this);
}

ui::CollectionView *VUTesterVistraKitSampleAssetGridViewController::collectionView()
{
    view();
    return m_collectionView;
}

void VUTesterVistraKitSampleAssetGridViewController::viewDidLoad()
{
    QWidget *root = view();
    ui::setBackgroundColor(root, Qt::white);
    VHFetchOptions options;
    options.setPhotoLibrary(m_library);
    options.setSortDescriptors({{QStringLiteral("creationDate"), true}});
    m_assets = VHAsset::fetchAssetsWithOptions(options);

    m_layout = new ui::CollectionViewFlowLayout;
    m_collectionView = new ui::CollectionView(m_layout, root);
    m_collectionView->setGeometry(root->rect());
    ui::setAutoresizingMask(m_collectionView, ui::Autoresizing::FlexibleWidth | ui::Autoresizing::FlexibleHeight);
    ui::setBackgroundColor(m_collectionView, Qt::white);
    m_collectionView->registerCellClass<ThumbnailCell>(kCellIdentifier);
    m_collectionView->setDataSource(this);
    _updateGridMetrics();
    root->installEventFilter(this);
}

bool VUTesterVistraKitSampleAssetGridViewController::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && isViewLoaded() && watched == view())
        _updateGridMetrics();
    return ui::ViewController::eventFilter(watched, event);
}

void VUTesterVistraKitSampleAssetGridViewController::_updateGridMetrics()
{
    // The view is made before it is given its size, and may be resized: the columns follow.
    const VUSectionedGridLayout grid = VUTesterGridLayoutForController(this, view()->width());
    VUTesterApplyGridLayout(m_layout, grid);
    m_thumbnailPixelSize = (grid.itemSize() * view()->devicePixelRatioF()).toSize();
}

ui::CollectionViewCell *VUTesterVistraKitSampleAssetGridViewController::cellForItemAtIndexPath(ui::CollectionView *collectionView,
                                                                                              const ui::IndexPath &indexPath)
{
    auto *cell = static_cast<ThumbnailCell *>(collectionView->dequeueReusableCellWithReuseIdentifier(kCellIdentifier, indexPath));
    cell->show(m_imageManager, m_assets.objectAtIndex(indexPath.item()), m_thumbnailPixelSize);
    return cell;
}
