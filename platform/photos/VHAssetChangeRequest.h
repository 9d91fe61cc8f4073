#pragma once
// Change requests: made inside the change block given to VHPhotoLibrary::performChanges(), which
// applies all of them as one transaction once the block returns.

#include "VHTypes.h"

#include "movie/MediaTime.h"

#include <QString>

#include <memory>
#include <vector>

class VHAssetResourceCreationOptions {
public:
    // Move the file into the library instead of copying it (the caller's file is gone afterwards).
    bool shouldMoveFile() const { return m_shouldMoveFile; }
    void setShouldMoveFile(bool move) { m_shouldMoveFile = move; }
    // The name recorded for the original; the file's own name when empty.
    QString originalFilename() const { return m_originalFilename; }
    void setOriginalFilename(const QString &name) { m_originalFilename = name; }

private:
    bool m_shouldMoveFile = false;
    QString m_originalFilename;
};

class VHAssetCreationRequest {
public:
    struct Resource {
        VHAssetResourceType type;
        QString path;
        VHAssetResourceCreationOptions options;
    };

    VHAssetCreationRequest();

    // A new request, part of the change being performed. Calling it outside a change block is a
    // programming error and ends the process.
    static VHAssetCreationRequest *creationRequestForAsset();

    // `fileURL` is a local path or a file: URL.
    void addResourceWithType(VHAssetResourceType type, const QString &fileURL,
                             const VHAssetResourceCreationOptions &options = {});
    // The moment of the paired video that the still shows.
    void setImageDisplayTime(movie::MediaTime time) { m_imageDisplayTime = time; }
    movie::MediaTime imageDisplayTime() const { return m_imageDisplayTime; }
    void setFavorite(bool favorite) { m_favorite = favorite; }
    bool isFavorite() const { return m_favorite; }
    void setHidden(bool hidden) { m_hidden = hidden; }
    bool isHidden() const { return m_hidden; }

    // The identifier the asset will have once the change commits.
    QString localIdentifierForCreatedAsset() const { return m_localIdentifier; }

    const std::vector<Resource> &resources() const { return m_resources; }

private:
    QString m_localIdentifier;
    std::vector<Resource> m_resources;
    movie::MediaTime m_imageDisplayTime;
    bool m_favorite = false;
    bool m_hidden = false;
};

namespace photos::detail {

// The requests made while a change block runs on the calling thread.
class ChangeSet {
public:
    ChangeSet();
    ~ChangeSet();
    ChangeSet(const ChangeSet &) = delete;
    ChangeSet &operator=(const ChangeSet &) = delete;

    static ChangeSet *current();
    VHAssetCreationRequest *addCreationRequest();
    const std::vector<std::unique_ptr<VHAssetCreationRequest>> &creationRequests() const { return m_requests; }

private:
    ChangeSet *m_previous;
    std::vector<std::unique_ptr<VHAssetCreationRequest>> m_requests;
};

} // namespace photos::detail
