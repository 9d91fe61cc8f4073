#include "VULibraryDataSourceManager.h"

#include <photos/VHPhotoLibrary.h>

VULibraryDataSourceManager::VULibraryDataSourceManager(std::shared_ptr<VHPhotoLibrary> library,
                                                       VULibraryAssetsDataSource::Sectioning sectioning)
    : m_library(std::move(library))
    , m_sectioning(sectioning)
{
    reload();
    if (m_library)
        connect(m_library.get(), &VHPhotoLibrary::photoLibraryDidChange, this, &VULibraryDataSourceManager::reload);
}

void VULibraryDataSourceManager::reload()
{
    setAssetsDataSource(std::make_shared<VULibraryAssetsDataSource>(m_library, m_sectioning));
}
