#include "VULibraryBrowsingSession.h"

#include "VULibraryDataSourceManager.h"
#include "VULibraryMediaProvider.h"

#include <photos/VHPhotoLibrary.h>

std::shared_ptr<VULibraryBrowsingSession> VULibraryBrowsingSession::newBrowsingSession(std::shared_ptr<VHPhotoLibrary> library,
                                                                                     VULibraryAssetsDataSource::Sectioning sectioning,
                                                                                     VHImageManager *imageManager)
{
    auto manager = std::make_shared<VULibraryDataSourceManager>(library ? std::move(library) : VHPhotoLibrary::sharedPhotoLibrary(), sectioning);
    return std::make_shared<VULibraryBrowsingSession>(std::move(manager), nullptr, std::make_shared<VULibraryMediaProvider>(imageManager));
}
