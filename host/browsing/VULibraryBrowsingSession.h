#pragma once
// A browsing session over the photo library: its visible assets by day or in one section, kept
// current as the library changes, with images from the library's image manager. It offers no
// actions.

#include "VUBrowsingSession.h"
#include "VULibraryAssetsDataSource.h"

class VHImageManager;

class VULibraryBrowsingSession : public VUBrowsingSession {
public:
    using VUBrowsingSession::VUBrowsingSession;
    // Null `library`: the shared library; null `imageManager`: the shared image manager.
    static std::shared_ptr<VULibraryBrowsingSession> newBrowsingSession(std::shared_ptr<VHPhotoLibrary> library,
                                                                        VULibraryAssetsDataSource::Sectioning sectioning,
                                                                        VHImageManager *imageManager = nullptr);
};
