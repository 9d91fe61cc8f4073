#include "LibraryThumbnailModel.h"

#include <views/VUDurationBadgeView.h>

#include <QPointer>

#include <cmath>

namespace {

// Enough for a few screens of large thumbnails.
constexpr int kCachedThumbnails = 2000;

} // namespace

LibraryThumbnailModel::LibraryThumbnailModel(std::shared_ptr<VHPhotoLibrary> library, VHImageManager *imageManager,
                                             QObject *parent)
    : QAbstractListModel(parent)
    , m_library(std::move(library))
    , m_imageManager(imageManager)
    , m_thumbnails(kCachedThumbnails)
{
    reload();
}

LibraryThumbnailModel::~LibraryThumbnailModel()
{
    for (VHImageRequestID id : std::as_const(m_pending))
        m_imageManager->cancelImageRequest(id);
}

int LibraryThumbnailModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_assets.count());
}

QVariant LibraryThumbnailModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const VHAsset asset = m_assets.objectAtIndex(index.row());
    switch (role) {
    case Qt::DecorationRole: {
        if (const QPixmap *pixmap = m_thumbnails.object(asset.rowId()))
            return *pixmap;
        if (!m_pending.contains(index.row())) {
            ++m_requestCount;
            QPointer<const LibraryThumbnailModel> self(this);
            const qint64 assetRow = asset.rowId();
            const int row = index.row();
            m_pending.insert(row, m_imageManager->requestImageForAsset(
                                      asset, m_thumbnailSize, VHImageContentMode::AspectFill,
                                      [self, assetRow, row](const graphics::ImagePtr &image, const QVariantMap &) {
                                          if (self)
                                              const_cast<LibraryThumbnailModel *>(self.data())->_deliver(assetRow, row, image);
                                      }));
        }
        return {};
    }
    case DurationTextRole:
        return asset.mediaType() == VHAssetMediaType::Video ? QVariant(VUDurationBadgeView::textForDuration(asset.duration())) : QVariant();
    case StirShotRole:
        return asset.isMovingPhoto();
    case Qt::ToolTipRole:
        return QStringLiteral("%1\n%2 × %3\n%4%5")
            .arg(asset.localIdentifier())
            .arg(asset.pixelWidth())
            .arg(asset.pixelHeight())
            .arg(asset.localCreationDate().toString(Qt::ISODate), kindText(asset, QStringLiteral("\n")));
    case Qt::AccessibleTextRole:
        return asset.localIdentifier() + kindText(asset, QStringLiteral(", "));
    default:
        return {};
    }
}

QString LibraryThumbnailModel::kindText(const VHAsset &asset, const QString &separator)
{
    if (asset.mediaType() == VHAssetMediaType::Video)
        return separator + tr("Video, %1").arg(VUDurationBadgeView::textForDuration(asset.duration()));
    if (asset.isMovingPhoto())
        return separator + tr("Stir Shot");
    return {};
}

bool LibraryThumbnailModel::hasThumbnail(int row) const
{
    return row >= 0 && row < rowCount() && m_thumbnails.contains(m_assets.objectAtIndex(row).rowId());
}

void LibraryThumbnailModel::setThumbnailSize(const QSize &size)
{
    if (size == m_thumbnailSize)
        return;
    m_thumbnailSize = size;
    cancelRequestsOutside(0, -1);
    m_thumbnails.clear();
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {Qt::DecorationRole});
}

void LibraryThumbnailModel::reload()
{
    beginResetModel();
    cancelRequestsOutside(0, -1);
    VHFetchOptions options = m_library->librarySpecificFetchOptions();
    options.setSortDescriptors({{QStringLiteral("creationDate"), true}});
    m_assets = VHAsset::fetchAssetsWithOptions(options);
    endResetModel();
}

void LibraryThumbnailModel::cancelRequestsOutside(int first, int last)
{
    for (auto it = m_pending.begin(); it != m_pending.end();) {
        if (it.key() < first || it.key() > last) {
            m_imageManager->cancelImageRequest(it.value());
            it = m_pending.erase(it);
        } else {
            ++it;
        }
    }
}

void LibraryThumbnailModel::_deliver(qint64 assetRow, int row, const graphics::ImagePtr &image)
{
    m_pending.remove(row);
    // A picture that cannot be decoded is remembered as empty, so it is not asked for again.
    m_thumbnails.insert(assetRow, new QPixmap(image ? QPixmap::fromImage(image->pixels()) : QPixmap()));
    if (row < rowCount() && m_assets.objectAtIndex(row).rowId() == assetRow)
        Q_EMIT dataChanged(index(row), index(row), {Qt::DecorationRole});
}
