// vistra-tester library info | list [--limit N] | highlights [--subtype KIND] |
//     import FILE [--paired MOVIE] [--move] | verify
// Looks into the shared photo library (or the one given with the global --library) and adds to it.

#include "Commands.h"
#include "commands/MediaOptions.h"

#include <photos/VHAsset.h>
#include <photos/VHAssetChangeRequest.h>
#include <photos/VHAssetCollection.h>
#include <photos/VHLibraryInspector.h>
#include <photos/VHPhotoLibrary.h>

#include <QCommandLineParser>
#include <QFileInfo>
#include <QImageReader>
#include <QLocale>
#include <QTextStream>

#include <cmath>
#include <limits>

namespace app {
namespace {

const char *const kLibrary = "library";

struct Subtype {
    const char *name;
    int subtype;
};
const Subtype kSubtypes[] = {
    {"days", VHAssetCollectionSubtypeHighlightDays},
    {"daygroups", VHAssetCollectionSubtypeHighlightDayGroups},
    {"months", VHAssetCollectionSubtypeHighlightMonths},
    {"years", VHAssetCollectionSubtypeHighlightYears},
};

const char kUsage[] =
    "usage: vistra-tester [--library PATH] library ACTION\n\n"
    "Actions:\n"
    "  info                          location, counts by media, size on disk\n"
    "  list [--limit N]              one line per asset, oldest first\n"
    "  highlights [--subtype KIND]   highlight collections; KIND is days, daygroups, months or years\n"
    "                                (default: all four)\n"
    "  import FILE [--paired MOVIE] [--move]\n"
    "                                add a photo or movie, or a photo with its paired movie; the\n"
    "                                files are copied unless --move is given; prints the new\n"
    "                                asset's identifier\n"
    "  verify                        compare the catalogue with the files; exit status 1 when they\n"
    "                                differ\n";

QString dateText(const QDateTime &date)
{
    return date.toString(Qt::ISODate);
}

int openLibrary(const std::shared_ptr<VHPhotoLibrary> &library)
{
    VHError error;
    if (!library->open(&error))
        return failure(kLibrary, error.debugDescription());
    return ExitOk;
}

// Parses the options of one action; returns -1 to go on, or the exit status to stop with.
int parse(QCommandLineParser &parser, const QString &action, const QStringList &arguments, int maxPositional)
{
    parser.addHelpOption();
    if (!parser.parse(QStringList{action} + arguments))
        return usageError(kLibrary, parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        QTextStream(stdout) << kUsage;
        return ExitOk;
    }
    if (parser.positionalArguments().size() > maxPositional)
        return usageError(kLibrary, QStringLiteral("unexpected argument '%1'").arg(parser.positionalArguments().last()));
    return -1;
}

int info(const std::shared_ptr<VHPhotoLibrary> &library)
{
    VHLibraryStatistics statistics;
    VHError error;
    if (!VHLibraryInspector::statistics(*library, &statistics, &error))
        return failure(kLibrary, error.debugDescription());
    QTextStream out(stdout);
    out << "location: " << library->location() << '\n'
        << "assets: " << statistics.assetCount << '\n'
        << "photos: " << statistics.photoCount - statistics.movingPhotoCount << '\n'
        << "moving photos: " << statistics.movingPhotoCount << '\n'
        << "videos: " << statistics.videoCount << '\n'
        << "highlights: " << statistics.highlightCount << '\n'
        << "size on disk: " << QLocale::c().formattedDataSize(statistics.bytesOnDisk) << " ("
        << statistics.bytesOnDisk << " bytes)\n";
    return ExitOk;
}

int list(const std::shared_ptr<VHPhotoLibrary> &library, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("limit"), QStringLiteral("At most N assets."), QStringLiteral("N")});
    if (const int status = parse(parser, QStringLiteral("list"), arguments, 0); status >= 0)
        return status;
    VHFetchOptions options = library->librarySpecificFetchOptions();
    if (parser.isSet(QStringLiteral("limit"))) {
        double limit = 0;
        QString message;
        if (!parseNumberOption(QStringLiteral("--limit"), parser.value(QStringLiteral("limit")), 1, true, &limit, &message)
            || limit != std::floor(limit) || limit > std::numeric_limits<int>::max())
            return usageError(kLibrary, message.isEmpty() ? QStringLiteral("--limit wants a whole number") : message);
        options.setFetchLimit(int(limit));
    }
    options.setIncludeHiddenAssets(true);
    const VHFetchResult<VHAsset> assets = VHAsset::fetchAssetsWithOptions(options);
    QTextStream out(stdout);
    for (qsizetype i = 0; i < assets.count(); ++i) {
        const VHAsset asset = assets.objectAtIndex(i);
        const auto location = asset.location();
        out << asset.localIdentifier() << '\t'
            << (asset.mediaType() == VHAssetMediaType::Video ? "video" : "photo") << '\t' << asset.pixelWidth() << 'x'
            << asset.pixelHeight() << '\t' << dateText(asset.localCreationDate()) << '\t'
            << (location ? QStringLiteral("%1,%2").arg(location->latitude, 0, 'f', 6).arg(location->longitude, 0, 'f', 6)
                         : QStringLiteral("-"))
            << '\t' << (asset.isMovingPhoto() ? "paired" : "-") << '\n';
    }
    return ExitOk;
}

int highlights(const std::shared_ptr<VHPhotoLibrary> &library, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("subtype"), QStringLiteral("days, daygroups, months or years."), QStringLiteral("KIND")});
    if (const int status = parse(parser, QStringLiteral("highlights"), arguments, 0); status >= 0)
        return status;
    QList<Subtype> chosen;
    for (const Subtype &subtype : kSubtypes)
        if (!parser.isSet(QStringLiteral("subtype")) || parser.value(QStringLiteral("subtype")) == QLatin1String(subtype.name))
            chosen.append(subtype);
    if (chosen.isEmpty())
        return usageError(kLibrary, QStringLiteral("--subtype must be days, daygroups, months or years (got '%1')")
                                        .arg(parser.value(QStringLiteral("subtype"))));
    VHFetchOptions options = library->librarySpecificFetchOptions();
    options.setSortDescriptors({{QStringLiteral("startDate"), true}});
    QTextStream out(stdout);
    for (const Subtype &subtype : std::as_const(chosen)) {
        const auto collections =
            VHAssetCollection::fetchAssetCollectionsWithType(VHAssetCollectionType::Highlight, subtype.subtype, options);
        for (qsizetype i = 0; i < collections.count(); ++i) {
            const VHAssetCollection highlight = collections.objectAtIndex(i);
            out << subtype.name << '\t' << highlight.localizedTitle() << '\t' << dateText(highlight.startDate()) << '\t'
                << dateText(highlight.endDate()) << '\t' << highlight.estimatedAssetCount() << " assets ("
                << highlight.estimatedPhotosCount() << " photos, " << highlight.estimatedVideosCount() << " videos)\t"
                << (highlight.isCurated() ? "curated" : "not curated") << '\t'
                << (highlight.isEnriched() ? "enriched" : "not enriched") << '\t'
                << QString::number(highlight.promotionScore(), 'f', 3) << '\n';
        }
    }
    return ExitOk;
}

int import(const std::shared_ptr<VHPhotoLibrary> &library, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions({
        {QStringLiteral("paired"), QStringLiteral("The movie paired with the photo."), QStringLiteral("MOVIE")},
        {QStringLiteral("move"), QStringLiteral("Move the files into the library instead of copying them.")},
    });
    if (const int status = parse(parser, QStringLiteral("import"), arguments, 1); status >= 0)
        return status;
    if (parser.positionalArguments().isEmpty())
        return usageError(kLibrary, QStringLiteral("import needs a file"));
    const QString file = parser.positionalArguments().first();
    const QString paired = parser.value(QStringLiteral("paired"));
    for (const QString &path : {file, paired})
        if (!path.isEmpty() && !QFileInfo(path).isFile())
            return usageError(kLibrary, QStringLiteral("no such file: %1").arg(path));
    // A picture is a photo; anything else is offered as a movie and refused if it is not one.
    const bool isPhoto = !QImageReader::imageFormat(file).isEmpty();
    if (!paired.isEmpty() && !isPhoto)
        return usageError(kLibrary, QStringLiteral("--paired needs a photo to pair with, and %1 is not one").arg(file));

    VHError error;
    QString identifier;
    const bool success = library->performChangesAndWait(
        [&] {
            VHAssetResourceCreationOptions options;
            options.setShouldMoveFile(parser.isSet(QStringLiteral("move")));
            auto *request = VHAssetCreationRequest::creationRequestForAsset();
            request->addResourceWithType(isPhoto ? VHAssetResourceType::Photo : VHAssetResourceType::Video, file, options);
            if (!paired.isEmpty())
                request->addResourceWithType(VHAssetResourceType::PairedVideo, paired, options);
            identifier = request->localIdentifierForCreatedAsset();
        },
        &error);
    if (!success)
        return failure(kLibrary, QStringLiteral("cannot import %1: %2").arg(file, error.debugDescription()));
    QTextStream(stdout) << identifier << '\n';
    return ExitOk;
}

int verify(const std::shared_ptr<VHPhotoLibrary> &library)
{
    QStringList differences;
    VHError error;
    if (!VHLibraryInspector::verify(*library, &differences, &error))
        return failure(kLibrary, error.debugDescription());
    QTextStream out(stdout);
    for (const QString &line : std::as_const(differences))
        out << line << '\n';
    if (!differences.isEmpty()) {
        QTextStream(stderr) << "vistra-tester library: " << differences.size() << " difference(s) between the catalogue and the files" << Qt::endl;
        return ExitFailure;
    }
    out << "the catalogue and the files agree\n";
    return ExitOk;
}

} // namespace

int runLibraryCommand(const QStringList &arguments)
{
    if (arguments.isEmpty())
        return usageError(kLibrary, QStringLiteral("an action is needed: info, list, highlights, import or verify (see --help)"));
    const QString action = arguments.first();
    const QStringList rest = arguments.mid(1);
    if (action == QLatin1String("--help") || action == QLatin1String("-h")) {
        QTextStream(stdout) << kUsage;
        return ExitOk;
    }
    const bool known = action == QLatin1String("info") || action == QLatin1String("list")
        || action == QLatin1String("highlights") || action == QLatin1String("import") || action == QLatin1String("verify");
    if (!known)
        return usageError(kLibrary, QStringLiteral("unknown action '%1' (see --help)").arg(action));
    if ((action == QLatin1String("info") || action == QLatin1String("verify")) && !rest.isEmpty()) {
        if (rest.first() == QLatin1String("--help")) {
            QTextStream(stdout) << kUsage;
            return ExitOk;
        }
        return usageError(kLibrary, QStringLiteral("unexpected argument '%1'").arg(rest.first()));
    }

    const auto library = VHPhotoLibrary::sharedPhotoLibrary();
    if (const int status = openLibrary(library); status != ExitOk)
        return status;
    if (action == QLatin1String("info"))
        return info(library);
    if (action == QLatin1String("list"))
        return list(library, rest);
    if (action == QLatin1String("highlights"))
        return highlights(library, rest);
    if (action == QLatin1String("import"))
        return import(library, rest);
    return verify(library);
}

} // namespace app
