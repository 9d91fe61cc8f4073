#pragma once
// A library in a fresh temporary folder, with helpers that make real media files beside it.

#include "TestMedia.h"

#include "photos/VHAsset.h"
#include "photos/VHAssetChangeRequest.h"
#include "photos/VHPhotoLibrary.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace photos::testing {

class PhotoLibraryFixture : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    QString libraryPath() const { return m_dir.filePath(QStringLiteral("Library")); }
    // A file path in the folder outside the library where test media are made.
    QString inputPath(const QString &name) const;
    QString photo(const QString &name, const MediaSpec &spec = {});
    QString movieFile(const QString &name, const MediaSpec &spec = {});

    // Imports through one change; the error text on failure.
    bool import(const QString &photoPath, const QString &videoPath, bool move, QString *error = nullptr,
                movie::MediaTime displayTime = {});
    VHFetchResult<VHAsset> allAssets();
    // Every file under the library's originals folder.
    QStringList originals() const;
    void reopen();

    QTemporaryDir m_dir;
    std::shared_ptr<VHPhotoLibrary> m_library;
};

} // namespace photos::testing
