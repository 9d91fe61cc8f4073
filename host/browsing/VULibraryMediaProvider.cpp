#include "VULibraryMediaProvider.h"

#include "VULibraryDisplayAsset.h"

#include <photos/VHImageManager.h>

#include "dispatch/Dispatch.h"

namespace {

const VULibraryDisplayAsset *libraryAsset(const VUDisplayAsset &asset)
{
    return dynamic_cast<const VULibraryDisplayAsset *>(&asset);
}

QVariantMap errorInfo(const QString &description)
{
    return {{VUMediaErrorKey, description}};
}

QVariantMap mediaInfo(const QVariantMap &info)
{
    QVariantMap result;
    if (info.contains(VHImageErrorKey))
        result.insert(VUMediaErrorKey, info.value(VHImageErrorKey));
    return result;
}

} // namespace

VULibraryMediaProvider::VULibraryMediaProvider(VHImageManager *imageManager)
    : m_imageManager(imageManager ? imageManager : VHImageManager::defaultManager())
    , m_pending(std::make_shared<QSet<VUMediaRequestID>>())
{
}

VULibraryMediaProvider::~VULibraryMediaProvider()
{
    for (VUMediaRequestID id : std::as_const(*m_pending))
        if (id > 0)
            m_imageManager->cancelImageRequest(id);
    m_pending->clear();
}

int VULibraryMediaProvider::pendingRequestCount() const
{
    return int(m_pending->size());
}

VUMediaRequestID VULibraryMediaProvider::_answerLater(std::function<void()> answer)
{
    const VUMediaRequestID id = m_nextFileRequestID--;
    m_pending->insert(id);
    dispatch::Queue::main()->async([pending = std::weak_ptr(m_pending), id, answer = std::move(answer)] {
        const auto requests = pending.lock();
        if (requests && requests->remove(id))
            answer();
    });
    return id;
}

VUMediaRequestID VULibraryMediaProvider::requestImageForAsset(const VUDisplayAsset &asset, const QSizeF &targetSize,
                                                              VUImageContentMode contentMode, const VUMediaRequestOptions &,
                                                              ImageResultHandler resultHandler)
{
    const VULibraryDisplayAsset *library = libraryAsset(asset);
    if (!library)
        return _answerLater([resultHandler] { resultHandler(nullptr, errorInfo(QStringLiteral("not an asset of the photo library"))); });
    const auto mode = contentMode == VUImageContentMode::AspectFill ? VHImageContentMode::AspectFill : VHImageContentMode::AspectFit;
    // The identifier is known only once the request returns; the answer comes later, on the
    // main queue, so it can be forgotten there.
    auto id = std::make_shared<VUMediaRequestID>(VUInvalidMediaRequestID);
    *id = m_imageManager->requestImageForAsset(
        library->libraryAsset(), targetSize.toSize(), mode,
        [pending = std::weak_ptr(m_pending), id, resultHandler](const graphics::ImagePtr &image, const QVariantMap &info) {
            if (const auto requests = pending.lock())
                requests->remove(*id);
            resultHandler(image, mediaInfo(info));
        });
    m_pending->insert(*id);
    return *id;
}

VUMediaRequestID VULibraryMediaProvider::requestPlayerItemForVideo(const VUDisplayAsset &asset, const VUMediaRequestOptions &,
                                                                   PlayerItemResultHandler resultHandler)
{
    const VULibraryDisplayAsset *library = libraryAsset(asset);
    QString path;
    if (library)
        path = library->libraryAsset().resourcePath(library->isStirShot() ? VHAssetResourceType::PairedVideo : VHAssetResourceType::Video);
    return _answerLater([resultHandler, path] {
        if (path.isEmpty())
            resultHandler(nullptr, errorInfo(QStringLiteral("the asset has no movie")));
        else
            resultHandler(std::make_shared<VUPlayerItem>(VUPlayerItem{path}), {});
    });
}

VUMediaRequestID VULibraryMediaProvider::requestStirShotForAsset(const VUDisplayAsset &asset, const QSizeF &targetSize,
                                                                 VUImageContentMode contentMode, const VUMediaRequestOptions &options,
                                                                 StirShotResultHandler resultHandler)
{
    const VULibraryDisplayAsset *library = libraryAsset(asset);
    if (!library || !library->isStirShot())
        return _answerLater([resultHandler] { resultHandler(nullptr, errorInfo(QStringLiteral("the asset is not a Stir Shot"))); });
    const QString moviePath = library->libraryAsset().resourcePath(VHAssetResourceType::PairedVideo);
    const VUMediaTime displayTime = library->photoLumoStillDisplayTime();
    return requestImageForAsset(asset, targetSize, contentMode, options,
                                [resultHandler, moviePath, displayTime](const graphics::ImagePtr &still, const QVariantMap &info) {
                                    if (!still) {
                                        resultHandler(nullptr, info);
                                        return;
                                    }
                                    resultHandler(std::make_shared<VUStirShot>(VUStirShot{still, moviePath, displayTime}), info);
                                });
}

void VULibraryMediaProvider::cancelImageRequest(VUMediaRequestID requestID)
{
    if (!m_pending->remove(requestID))
        return;
    if (requestID > 0)
        m_imageManager->cancelImageRequest(requestID);
}
