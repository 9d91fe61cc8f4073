// Speed of the photo library: importing many small photos, fetching a large library sorted by
// date, rebuilding its highlights, and a thumbnail of a 3200 x 2400 photo, cold and cached.
//
//   build/bench/photos/bench-photos [--benchmark_filter=REGEX]

#include "TestMedia.h"

#include "photos/Catalogue.h"
#include "photos/HighlightStore.h"
#include "photos/LibraryFolder.h"
#include "photos/VHAsset.h"
#include "photos/VHAssetChangeRequest.h"
#include "photos/VHImageManager.h"
#include "photos/VHPhotoLibrary.h"

#include <QCoreApplication>
#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QUuid>

#include <benchmark/benchmark.h>

#include <unistd.h>

using namespace photos::testing;

namespace {

QTemporaryDir &scratch()
{
    static QTemporaryDir dir;
    return dir;
}

// Photos made once and hard-linked for each run, so a run can move them into its library.
QStringList smallPhotos(int count)
{
    static QStringList made;
    const QString folder = scratch().filePath(QStringLiteral("small"));
    QDir().mkpath(folder);
    for (int i = int(made.size()); i < count; ++i) {
        made << folder + QStringLiteral("/%1.jpg").arg(i);
        writePhoto(made.last(), {QSize(64, 48), QDateTime::currentDateTime().addSecs(-i * 97), {}, {}});
    }
    return made.mid(0, count);
}

void BM_ImportSmallPhotos(benchmark::State &state)
{
    const QStringList photos = smallPhotos(int(state.range(0)));
    int run = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const QString root = scratch().filePath(QStringLiteral("import-%1").arg(run++));
        QDir().mkpath(root + QStringLiteral("/in"));
        QStringList links;
        for (const QString &photo : photos) {
            links << root + QStringLiteral("/in/") + QFileInfo(photo).fileName();
            ::link(QFile::encodeName(photo).constData(), QFile::encodeName(links.last()).constData());
        }
        auto library = VHPhotoLibrary::create(root + QStringLiteral("/Library"));
        library->open();
        state.ResumeTiming();
        // One change per asset, as the library filler saves them.
        for (const QString &file : std::as_const(links)) {
            VHError error;
            const bool saved = library->performChangesAndWait(
                [&] {
                    VHAssetResourceCreationOptions move;
                    move.setShouldMoveFile(true);
                    VHAssetCreationRequest::creationRequestForAsset()->addResourceWithType(VHAssetResourceType::Photo,
                                                                                           file, move);
                },
                &error);
            if (!saved)
                state.SkipWithError(qPrintable(error.debugDescription()));
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ImportSmallPhotos)->Arg(10000)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime();

// A library of `count` catalogue rows spread over three years, written straight into the catalogue:
// what is measured here is reading, not importing.
std::shared_ptr<VHPhotoLibrary> largeLibrary(int count)
{
    static std::shared_ptr<VHPhotoLibrary> library;
    if (library)
        return library;
    const QString root = scratch().filePath(QStringLiteral("large"));
    {
        photos::detail::LibraryFolder folder(root);
        QString error;
        folder.create(&error);
        photos::detail::Catalogue catalogue(folder.databasePath());
        catalogue.open();
        photos::detail::Transaction transaction(catalogue.writer());
        QRandomGenerator random(42);
        const qint64 start = QDateTime(QDate(2021, 1, 1), QTime(0, 0), Qt::UTC).toMSecsSinceEpoch();
        for (int i = 0; i < count; ++i) {
            photos::detail::AssetRecord record;
            record.uuid = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
            record.mediaType = i % 10 == 0 ? VHAssetMediaType::Video : VHAssetMediaType::Image;
            record.pixelWidth = 4032;
            record.pixelHeight = 3024;
            record.creationMs = start + qint64(random.bounded(3 * 365 * 86400)) * 1000;
            record.localSeconds = record.creationMs / 1000 + 3600;
            if (i % 3 == 0)
                record.location = VHLocation{48.85, 2.35};
            record.favorite = i % 50 == 0;
            record.addedMs = record.creationMs;
            catalogue.insertAsset(record, {{VHAssetResourceType::Photo, photos::detail::LibraryFolder::originalPathFor(
                                                                             record.uuid, QStringLiteral("jpg")),
                                            1000, QStringLiteral("IMG.jpg")}});
        }
        transaction.commit();
    }
    library = VHPhotoLibrary::create(root);
    library->rebuildHighlights();
    return library;
}

void BM_FetchSortedByDate(benchmark::State &state)
{
    const auto library = largeLibrary(int(state.range(0)));
    VHFetchOptions options = library->librarySpecificFetchOptions();
    options.setSortDescriptors({{QStringLiteral("creationDate"), false}});
    for (auto _ : state) {
        const auto assets = VHAsset::fetchAssetsWithOptions(options);
        // What a grid shows first: the count and the first screen of objects.
        benchmark::DoNotOptimize(assets.count());
        for (int i = 0; i < 60; ++i)
            benchmark::DoNotOptimize(assets.objectAtIndex(i).creationDate());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_FetchSortedByDate)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_RecomputeHighlights(benchmark::State &state)
{
    const auto library = largeLibrary(int(state.range(0)));
    for (auto _ : state)
        library->rebuildHighlights();
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_RecomputeHighlights)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();

VHAsset largePhoto()
{
    static VHAsset asset;
    if (asset.isValid())
        return asset;
    const QString path = scratch().filePath(QStringLiteral("large.jpg"));
    writePhoto(path, {QSize(3200, 2400), QDateTime::currentDateTime(), {}, {}});
    auto library = VHPhotoLibrary::create(scratch().filePath(QStringLiteral("thumbnails")));
    library->performChangesAndWait(
        [&] { VHAssetCreationRequest::creationRequestForAsset()->addResourceWithType(VHAssetResourceType::Photo, path); },
        nullptr);
    asset = VHAsset::fetchAssetsWithOptions(library->librarySpecificFetchOptions()).firstObject();
    return asset;
}

void requestThumbnail(VHImageManager &manager, const VHAsset &asset)
{
    bool delivered = false;
    manager.requestImageForAsset(asset, QSize(256, 256), VHImageContentMode::AspectFill,
                                 [&](const graphics::ImagePtr &, const QVariantMap &) { delivered = true; });
    while (!delivered)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void BM_Thumbnail3200x2400(benchmark::State &state)
{
    const VHAsset asset = largePhoto();
    const bool cached = state.range(0) != 0;
    VHImageManager manager;
    requestThumbnail(manager, asset);
    for (auto _ : state) {
        if (!cached)
            manager.clearCache();
        requestThumbnail(manager, asset);
    }
    state.SetLabel(cached ? "cached" : "cold");
}
BENCHMARK(BM_Thumbnail3200x2400)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace
