#include "VHImageManager.h"

#include "PosterFrame.h"

#include <QImageReader>

namespace {

QSize fittedSize(const QSize &original, const QSize &target, VHImageContentMode mode)
{
    if (target.isEmpty())
        return original;
    const QSize fitted = original.scaled(target, mode == VHImageContentMode::AspectFill ? Qt::KeepAspectRatioByExpanding
                                                                                         : Qt::KeepAspectRatio);
    return fitted.width() >= original.width() ? original : fitted.expandedTo(QSize(1, 1));
}

// Decodes at the reduced size straight away: the JPEG reader then scales in its DCT stage.
QImage decodePhoto(const QString &path, const QSize &target, VHImageContentMode mode, QString *error)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    const QSize stored = reader.size();
    if (!stored.isValid()) {
        *error = QStringLiteral("%1: %2").arg(path, reader.errorString());
        return {};
    }
    const bool turned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    const QSize shown = fittedSize(turned ? stored.transposed() : stored, target, mode);
    reader.setScaledSize(turned ? shown.transposed() : shown);
    QImage image = reader.read();
    if (image.isNull())
        *error = QStringLiteral("%1: %2").arg(path, reader.errorString());
    return image;
}

} // namespace

struct VHImageManager::Request {
    VHImageRequestID id;
    VHAsset asset;
    QSize targetSize;
    VHImageContentMode contentMode;
    ResultHandler handler;
    QString cacheKey;
};

VHImageManager::VHImageManager(qint64 cacheBytes)
    : m_state(std::make_shared<State>(cacheBytes / 1024))
    , m_queues{dispatch::Queue::createSerial("vh.imagemanager.decode.1"),
               dispatch::Queue::createSerial("vh.imagemanager.decode.2")}
{
}

VHImageManager::~VHImageManager()
{
    std::lock_guard lock(m_state->mutex);
    m_state->requests.clear();
}

VHImageManager *VHImageManager::defaultManager()
{
    static VHImageManager manager;
    return &manager;
}

VHImageRequestID VHImageManager::requestImageForAsset(const VHAsset &asset, const QSize &targetSize,
                                                      VHImageContentMode contentMode, ResultHandler resultHandler)
{
    VHImageRequestID id = ++m_nextID;
    if (id == VHInvalidImageRequestID)
        id = ++m_nextID;
    auto request = std::make_shared<Request>(Request{
        id, asset, targetSize, contentMode, std::move(resultHandler),
        QStringLiteral("%1/%2x%3/%4")
            .arg(asset.isValid() ? asset.localIdentifier() : QString())
            .arg(targetSize.width())
            .arg(targetSize.height())
            .arg(int(contentMode))});
    graphics::ImagePtr cached;
    {
        std::lock_guard lock(m_state->mutex);
        m_state->requests.emplace(id, request);
        if (graphics::ImagePtr *hit = m_state->cache.object(request->cacheKey))
            cached = *hit;
    }
    if (cached) {
        dispatch::Queue::main()->async([state = m_state, id, cached] {
            _deliver(state, id, cached, {{VHImageResultIsCachedKey, true}});
        });
    } else {
        m_queues[m_nextQueue++ % std::size(m_queues)]->async([state = m_state, request] { _decode(state, request); });
    }
    return id;
}

void VHImageManager::cancelImageRequest(VHImageRequestID requestID)
{
    std::lock_guard lock(m_state->mutex);
    m_state->requests.erase(requestID);
}

void VHImageManager::clearCache()
{
    std::lock_guard lock(m_state->mutex);
    m_state->cache.clear();
}

void VHImageManager::_decode(const std::shared_ptr<State> &state, const std::shared_ptr<Request> &request)
{
    {
        // Cancelled while waiting (a cell scrolled away): skip the work.
        std::lock_guard lock(state->mutex);
        if (!state->requests.count(request->id))
            return;
    }
    QString error;
    QImage pixels;
    if (!request->asset.isValid()) {
        error = QStringLiteral("no asset");
    } else if (request->asset.mediaType() == VHAssetMediaType::Image) {
        const QString path = request->asset.resourcePath(VHAssetResourceType::Photo);
        pixels = path.isEmpty() ? QImage() : decodePhoto(path, request->targetSize, request->contentMode, &error);
        if (path.isEmpty())
            error = QStringLiteral("the asset's photo is missing");
    } else {
        const QString path = request->asset.resourcePath(VHAssetResourceType::Video);
        const QSize bound = request->targetSize.isEmpty()
            ? QSize()
            : fittedSize(QSize(request->asset.pixelWidth(), request->asset.pixelHeight()), request->targetSize,
                         request->contentMode);
        pixels = path.isEmpty() ? QImage() : photos::detail::decodePosterFrame(path, bound, &error);
        if (path.isEmpty())
            error = QStringLiteral("the asset's video is missing");
    }
    graphics::ImagePtr image;
    QVariantMap info;
    if (pixels.isNull()) {
        info.insert(VHImageErrorKey, error);
    } else {
        image = std::make_shared<const graphics::Image>(std::move(pixels));
        std::lock_guard lock(state->mutex);
        const qint64 kilobytes = std::max<qint64>(1, image->pixels().sizeInBytes() / 1024);
        state->cache.insert(request->cacheKey, new graphics::ImagePtr(image), kilobytes);
    }
    const VHImageRequestID id = request->id;
    dispatch::Queue::main()->async([state, id, image, info] { _deliver(state, id, image, info); });
}

void VHImageManager::_deliver(const std::shared_ptr<State> &state, VHImageRequestID id,
                              const graphics::ImagePtr &image, QVariantMap info)
{
    std::shared_ptr<Request> request;
    {
        std::lock_guard lock(state->mutex);
        auto found = state->requests.find(id);
        if (found == state->requests.end())
            return;
        request = found->second;
        state->requests.erase(found);
    }
    info.insert(VHImageResultRequestIDKey, id);
    if (request->handler)
        request->handler(image, info);
}
