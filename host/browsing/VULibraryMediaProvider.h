#pragma once
// The media provider over the photo library: images come from the library's image manager at the
// size asked for (decoded off the main thread, answered on it); videos and Stir Shots are the
// asset's own files. A request is answered on the main thread, after it returns, unless it was
// cancelled first. Assets that are not the library's get an error.

#include "VUMediaProvider.h"

#include <QSet>

class VHImageManager;

class VULibraryMediaProvider : public VUMediaProvider {
public:
    // Null: the application's shared image manager.
    explicit VULibraryMediaProvider(VHImageManager *imageManager = nullptr);
    ~VULibraryMediaProvider() override;

    VUMediaRequestID requestImageForAsset(const VUDisplayAsset &asset, const QSizeF &targetSize, VUImageContentMode contentMode,
                                          const VUMediaRequestOptions &options, ImageResultHandler resultHandler) override;
    VUMediaRequestID requestPlayerItemForVideo(const VUDisplayAsset &asset, const VUMediaRequestOptions &options,
                                               PlayerItemResultHandler resultHandler) override;
    // The still at the size asked for, with the paired movie.
    VUMediaRequestID requestStirShotForAsset(const VUDisplayAsset &asset, const QSizeF &targetSize, VUImageContentMode contentMode,
                                             const VUMediaRequestOptions &options, StirShotResultHandler resultHandler) override;
    void cancelImageRequest(VUMediaRequestID requestID) override;

    VHImageManager *imageManager() const { return m_imageManager; }
    // Requests made and not yet answered or cancelled.
    int pendingRequestCount() const;

private:
    // Answers on the main queue with `answer` unless `requestID` was cancelled meanwhile.
    VUMediaRequestID _answerLater(std::function<void()> answer);

    VHImageManager *m_imageManager;
    // The manager's own identifiers are positive; requests answered from files count downwards.
    std::shared_ptr<QSet<VUMediaRequestID>> m_pending;
    VUMediaRequestID m_nextFileRequestID = -1;
};
