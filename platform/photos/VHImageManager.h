#pragma once
// Thumbnails of assets. Requests decode on the manager's own queues (JPEG decoding at a reduced
// scale, a movie's first picture for videos), keep decoded images in a cache bounded in bytes, and
// deliver on the main queue. A cancelled request is never delivered, even when its image was
// already decoded: delivery checks the request is still wanted on the main thread itself.

#include "VHAsset.h"

#include "dispatch/Dispatch.h"
#include "graphics/Image.h"

#include <QCache>
#include <QString>
#include <QSize>
#include <QVariantMap>

#include <atomic>
#include <functional>
#include <mutex>
#include <unordered_map>

using VHImageRequestID = qint32;
inline constexpr VHImageRequestID VHInvalidImageRequestID = 0;

enum class VHImageContentMode {
    AspectFit = 0,  // the whole picture inside the target size
    AspectFill = 1, // the target size covered; the picture may overflow it
};

// Keys of the info map handed to result handlers.
inline const QString VHImageResultRequestIDKey = QStringLiteral("VHImageResultRequestIDKey");
inline const QString VHImageResultIsCachedKey = QStringLiteral("VHImageResultIsCachedKey");
inline const QString VHImageErrorKey = QStringLiteral("VHImageErrorKey");

class VHImageManager {
public:
    // A null image comes with VHImageErrorKey in the info.
    using ResultHandler = std::function<void(const graphics::ImagePtr &result, const QVariantMap &info)>;

    explicit VHImageManager(qint64 cacheBytes = 96 * 1024 * 1024);
    ~VHImageManager();
    static VHImageManager *defaultManager();

    // `targetSize` in pixels; the result is never larger than the original.
    VHImageRequestID requestImageForAsset(const VHAsset &asset, const QSize &targetSize,
                                          VHImageContentMode contentMode, ResultHandler resultHandler);
    void cancelImageRequest(VHImageRequestID requestID);

    void clearCache();

private:
    struct Request;
    // Shared with the work in flight, so a manager may go away while its queues still decode.
    struct State {
        explicit State(qint64 cacheKilobytes) : cache(cacheKilobytes) {}
        std::mutex mutex;
        std::unordered_map<VHImageRequestID, std::shared_ptr<Request>> requests;
        QCache<QString, graphics::ImagePtr> cache;
    };
    static void _decode(const std::shared_ptr<State> &state, const std::shared_ptr<Request> &request);
    static void _deliver(const std::shared_ptr<State> &state, VHImageRequestID id, const graphics::ImagePtr &image,
                         QVariantMap info);

    std::atomic<VHImageRequestID> m_nextID{0};
    std::shared_ptr<State> m_state;
    dispatch::QueuePtr m_queues[2];
    std::atomic<unsigned> m_nextQueue{0};
};
