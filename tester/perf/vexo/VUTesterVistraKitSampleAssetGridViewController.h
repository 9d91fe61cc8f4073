#pragma once
// A grid of the photo library's assets as the host's grid shows them: square thumbnails from the
// image manager in the columns of the device's grid spec, oldest first. Thumbnails are asked for
// as cells come on screen and the requests of cells that leave are cancelled, so scrolling it
// costs what decoding and drawing real pictures costs.

#include "shell/VUTesterExport.h"

#include "photos/VHAsset.h"
#include "ui/CollectionView.h"
#include "ui/ViewController.h"

#include <memory>

namespace ui {
class CollectionViewFlowLayout;
}

class VHImageManager;
class VHPhotoLibrary;

class VUTESTER_EXPORT VUTesterVistraKitSampleAssetGridViewController : public ui::ViewController, public ui::CollectionViewDataSource {
    Q_OBJECT
public:
    // Null: the shared library and the default image manager.
    explicit VUTesterVistraKitSampleAssetGridViewController(std::shared_ptr<VHPhotoLibrary> library = nullptr,
                                                            VHImageManager *imageManager = nullptr);

    // Made with the view.
    ui::CollectionView *collectionView();
    qsizetype numberOfAssets() const { return m_assets.count(); }

    qint64 numberOfItemsInSection(ui::CollectionView *, qint64) override { return m_assets.count(); }
    ui::CollectionViewCell *cellForItemAtIndexPath(ui::CollectionView *collectionView, const ui::IndexPath &indexPath) override;

protected:
    void viewDidLoad() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void _updateGridMetrics();

    std::shared_ptr<VHPhotoLibrary> m_library;
    VHImageManager *m_imageManager;
    VHFetchResult<VHAsset> m_assets;
    ui::CollectionView *m_collectionView = nullptr;
    ui::CollectionViewFlowLayout *m_layout = nullptr;
    QSize m_thumbnailPixelSize;
};
