#include "PhotoLibraryFixture.h"

#include <QDirIterator>

namespace photos::testing {

void PhotoLibraryFixture::SetUp()
{
    ASSERT_TRUE(m_dir.isValid());
    QDir(m_dir.path()).mkpath(QStringLiteral("in"));
    m_library = VHPhotoLibrary::create(libraryPath());
    VHError error;
    ASSERT_TRUE(m_library->open(&error)) << error.debugDescription().toStdString();
}

void PhotoLibraryFixture::TearDown()
{
    m_library.reset();
}

QString PhotoLibraryFixture::inputPath(const QString &name) const
{
    return m_dir.filePath(QStringLiteral("in/") + name);
}

QString PhotoLibraryFixture::photo(const QString &name, const MediaSpec &spec)
{
    QString error;
    const QString path = inputPath(name);
    EXPECT_TRUE(writePhoto(path, spec, &error)) << error.toStdString();
    return path;
}

QString PhotoLibraryFixture::movieFile(const QString &name, const MediaSpec &spec)
{
    QString error;
    const QString path = inputPath(name);
    EXPECT_TRUE(writeMovie(path, spec, &error)) << error.toStdString();
    return path;
}

bool PhotoLibraryFixture::import(const QString &photoPath, const QString &videoPath, bool move, QString *error,
                                 movie::MediaTime displayTime)
{
    VHError failure;
    const bool success = m_library->performChangesAndWait(
        [&] {
            VHAssetResourceCreationOptions options;
            options.setShouldMoveFile(move);
            auto *request = VHAssetCreationRequest::creationRequestForAsset();
            if (!photoPath.isEmpty()) {
                request->addResourceWithType(VHAssetResourceType::Photo, photoPath, options);
                if (!videoPath.isEmpty()) {
                    request->addResourceWithType(VHAssetResourceType::PairedVideo, videoPath, options);
                    request->setImageDisplayTime(displayTime);
                }
            } else {
                request->addResourceWithType(VHAssetResourceType::Video, videoPath, options);
            }
        },
        &failure);
    if (error)
        *error = failure.debugDescription();
    return success;
}

VHFetchResult<VHAsset> PhotoLibraryFixture::allAssets()
{
    return VHAsset::fetchAssetsWithOptions(m_library->librarySpecificFetchOptions());
}

QStringList PhotoLibraryFixture::originals() const
{
    QStringList files;
    QDirIterator it(libraryPath() + QStringLiteral("/originals"), QDir::Files | QDir::Hidden,
                    QDirIterator::Subdirectories);
    while (it.hasNext())
        files << it.next();
    return files;
}

void PhotoLibraryFixture::reopen()
{
    m_library = VHPhotoLibrary::create(libraryPath());
    VHError error;
    ASSERT_TRUE(m_library->open(&error)) << error.debugDescription().toStdString();
}

} // namespace photos::testing
