#pragma once
// The assets of a library as a list model for a thumbnail grid. Thumbnails are asked for only when
// the view asks for a row's picture (that is, when the row is painted), kept in a bounded pixmap
// cache, and cancelled when their rows leave the screen before they arrive.

#include <photos/VHAsset.h>
#include <photos/VHImageManager.h>

#include <QAbstractListModel>
#include <QCache>
#include <QHash>
#include <QPixmap>
#include <QSize>

class LibraryThumbnailModel : public QAbstractListModel {
    Q_OBJECT

public:
    // What a cell shows over its thumbnail, as photo grids do.
    enum Role {
        DurationTextRole = Qt::UserRole + 1, // a video's length ("0:05", "1:02:03"); nothing for stills
        StirShotRole,                        // true for a still paired with its movie
    };

    LibraryThumbnailModel(std::shared_ptr<VHPhotoLibrary> library, VHImageManager *imageManager,
                          QObject *parent = nullptr);
    ~LibraryThumbnailModel() override;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

    // Pixel size the thumbnails are decoded at.
    void setThumbnailSize(const QSize &size);
    QSize thumbnailSize() const { return m_thumbnailSize; }

    // Fetches the assets again (oldest first), keeping the thumbnails already decoded.
    void reload();
    // Cancels the thumbnail requests of rows outside [first, last].
    void cancelRequestsOutside(int first, int last);

    // True once the row's thumbnail arrived (and is still cached); asks for nothing.
    bool hasThumbnail(int row) const;
    int pendingRequestCount() const { return int(m_pending.size()); }
    // Requests made since the model was created: a grid that asks only for what it shows keeps
    // this near the number of visible cells.
    qint64 requestCount() const { return m_requestCount; }

private:
    // "Video, 0:05" or "Stir Shot" after `separator`; nothing for a plain still.
    static QString kindText(const VHAsset &asset, const QString &separator);
    void _deliver(qint64 assetRow, int row, const graphics::ImagePtr &image);

    std::shared_ptr<VHPhotoLibrary> m_library;
    VHImageManager *m_imageManager;
    VHFetchResult<VHAsset> m_assets;
    QSize m_thumbnailSize{160, 160};
    mutable QCache<qint64, QPixmap> m_thumbnails; // by the asset's row in the catalogue
    mutable QHash<int, VHImageRequestID> m_pending; // by model row
    mutable qint64 m_requestCount = 0;
};
