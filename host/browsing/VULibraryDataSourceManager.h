#pragma once
// Keeps a browsing session on the photo library current: a new snapshot of the library's assets
// replaces the data source after each change the library announces.

#include "VUAssetsDataSourceManager.h"
#include "VULibraryAssetsDataSource.h"

class VULibraryDataSourceManager : public VUAssetsDataSourceManager {
    Q_OBJECT
public:
    VULibraryDataSourceManager(std::shared_ptr<VHPhotoLibrary> library, VULibraryAssetsDataSource::Sectioning sectioning);

    const std::shared_ptr<VHPhotoLibrary> &photoLibrary() const { return m_library; }
    // Takes a new snapshot now.
    void reload();

private:
    std::shared_ptr<VHPhotoLibrary> m_library;
    VULibraryAssetsDataSource::Sectioning m_sectioning;
};
