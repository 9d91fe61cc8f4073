// vistra-tester library info | list [--limit N] | highlights [--subtype KIND] [--details] |
//     import FILE [--paired MOVIE] [--move] | verify
// Looks into the shared photo library (or the one given with the global --library) and adds to it.
// Every argument is checked before the library is opened, and only import may create one.

#include "Commands.h"
#include "commands/JsonOutput.h"
#include "commands/MediaOptions.h"

#include "diagnostics/VUTesterAssetCollectionDiagnosticsViewController.h"
#include "diagnostics/VUTesterVistraKitObjectDiagnosticsContent.h"

#include <photos/VHAsset.h>
#include <photos/VHAssetChangeRequest.h>
#include <photos/VHAssetCollection.h>
#include <photos/VHLibraryInspector.h>
#include <photos/VHPhotoLibrary.h>

#include <QCommandLineParser>
#include <QFileInfo>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonObject>
#include <QLocale>
#include <QTextStream>

#include <limits>
#include <optional>

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
    "  info [--json]                 location, counts by media, size on disk\n"
    "  list [--limit N] [--json]     one line per asset, oldest first: identifier, media, size, date,\n"
    "                                location, paired\n"
    "  highlights [--subtype KIND] [--details] [--json]\n"
    "                                highlight collections; KIND is days, daygroups, months or years\n"
    "                                (default: all four); --details prints what the Highlights\n"
    "                                diagnostics screens show: each highlight's title, subtitle and\n"
    "                                property lines, and its five sections with their counts\n"
    "  import FILE [--paired MOVIE] [--move]\n"
    "                                add a photo or movie, or a photo with its paired movie; the\n"
    "                                files are copied unless --move is given; prints the new\n"
    "                                asset's identifier\n"
    "  verify                        compare the catalogue with the files; exit status 1 when they\n"
    "                                differ\n\n"
    "Only import creates a library that is not there yet; a library this user may not change can\n"
    "still be read. --json prints JSON instead of text: info an object (location, assets, photos,\n"
    "movingPhotos, videos, highlights, sizeOnDisk in bytes), list an array of objects (identifier,\n"
    "media, width, height, date, location as {latitude, longitude} or null, paired), highlights an\n"
    "array of objects (subtype, title, startDate, endDate, assets, photos, videos, curated, enriched,\n"
    "promotionScore), with --details also cell (title, subtitle, lines) and sections (title, count).\n";

const QString kJson = QStringLiteral("json");

// What an action was asked to do, checked before the library is touched.
struct Request {
    QString action;
    bool json = false;
    bool details = false;
    int limit = 0;
    QList<Subtype> subtypes;
    QString file;
    QString paired;
    bool move = false;
    bool isPhoto = false;
};

QString dateText(const QDateTime &date)
{
    return date.toString(Qt::ISODate);
}

// Parses and checks the action's arguments; -1 to go on, or the exit status to stop with.
int parse(const QString &action, const QStringList &arguments, Request *request)
{
    QCommandLineParser parser;
    parser.addHelpOption();
    if (action != QLatin1String("import") && action != QLatin1String("verify"))
        parser.addOption({kJson, QStringLiteral("Print JSON.")});
    if (action == QLatin1String("list"))
        parser.addOption({QStringLiteral("limit"), QStringLiteral("At most N assets."), QStringLiteral("N")});
    if (action == QLatin1String("highlights")) {
        parser.addOption({QStringLiteral("subtype"), QStringLiteral("days, daygroups, months or years."), QStringLiteral("KIND")});
        parser.addOption({QStringLiteral("details"), QStringLiteral("What the diagnostics screens show.")});
    }
    if (action == QLatin1String("import")) {
        parser.addOptions({
            {QStringLiteral("paired"), QStringLiteral("The movie paired with the photo."), QStringLiteral("MOVIE")},
            {QStringLiteral("move"), QStringLiteral("Move the files into the library instead of copying them.")},
        });
    }
    if (!parser.parse(QStringList{action} + arguments))
        return usageError(kLibrary, parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        QTextStream(stdout) << kUsage;
        return ExitOk;
    }
    const QStringList positional = parser.positionalArguments();
    const qsizetype allowed = action == QLatin1String("import") ? 1 : 0;
    if (positional.size() > allowed)
        return usageError(kLibrary, QStringLiteral("unexpected argument '%1'").arg(positional.last()));
    request->action = action;
    request->json = parser.optionNames().contains(kJson);
    request->details = action == QLatin1String("highlights") && parser.isSet(QStringLiteral("details"));

    if (action == QLatin1String("list") && parser.isSet(QStringLiteral("limit"))) {
        double limit = 0;
        QString message;
        if (!parseNumberOption(QStringLiteral("limit"), parser.value(QStringLiteral("limit")),
                               NumberRange{1, double(std::numeric_limits<int>::max()), false, true}, &limit, &message))
            return usageError(kLibrary, message);
        request->limit = int(limit);
    }
    if (action == QLatin1String("highlights")) {
        for (const Subtype &subtype : kSubtypes)
            if (!parser.isSet(QStringLiteral("subtype")) || parser.value(QStringLiteral("subtype")) == QLatin1String(subtype.name))
                request->subtypes.append(subtype);
        if (request->subtypes.isEmpty())
            return usageError(kLibrary, QStringLiteral("--subtype must be days, daygroups, months or years (got '%1')")
                                            .arg(parser.value(QStringLiteral("subtype"))));
    }
    if (action == QLatin1String("import")) {
        if (positional.isEmpty())
            return usageError(kLibrary, QStringLiteral("import needs a file"));
        request->file = positional.first();
        request->paired = parser.value(QStringLiteral("paired"));
        request->move = parser.isSet(QStringLiteral("move"));
        for (const QString &path : {request->file, request->paired})
            if (!path.isEmpty() && !QFileInfo(path).isFile())
                return usageError(kLibrary, QStringLiteral("no such file: %1").arg(path));
        // A picture is a photo; anything else is offered as a movie and refused if it is not one.
        request->isPhoto = !QImageReader::imageFormat(request->file).isEmpty();
        if (!request->paired.isEmpty() && !request->isPhoto)
            return usageError(kLibrary, QStringLiteral("--paired needs a photo to pair with, and %1 is not one").arg(request->file));
    }
    return -1;
}

int info(VHPhotoLibrary &library, const Request &request)
{
    VHLibraryStatistics statistics;
    VHError error;
    if (!VHLibraryInspector::statistics(library, &statistics, &error))
        return failure(kLibrary, error.debugDescription());
    QTextStream out(stdout);
    const qint64 stillPhotos = statistics.photoCount - statistics.movingPhotoCount;
    if (request.json) {
        writeJsonObject(out, {{QStringLiteral("location"), library.location()},
                              {QStringLiteral("assets"), statistics.assetCount},
                              {QStringLiteral("photos"), stillPhotos},
                              {QStringLiteral("movingPhotos"), statistics.movingPhotoCount},
                              {QStringLiteral("videos"), statistics.videoCount},
                              {QStringLiteral("highlights"), statistics.highlightCount},
                              {QStringLiteral("sizeOnDisk"), statistics.bytesOnDisk}});
        return ExitOk;
    }
    out << "location: " << library.location() << '\n'
        << "assets: " << statistics.assetCount << '\n'
        << "photos: " << stillPhotos << '\n'
        << "moving photos: " << statistics.movingPhotoCount << '\n'
        << "videos: " << statistics.videoCount << '\n'
        << "highlights: " << statistics.highlightCount << '\n'
        << "size on disk: " << QLocale::c().formattedDataSize(statistics.bytesOnDisk) << " ("
        << countText(statistics.bytesOnDisk, "byte", "bytes") << ")\n";
    return ExitOk;
}

int list(VHPhotoLibrary &library, const Request &request)
{
    VHFetchOptions options = library.librarySpecificFetchOptions();
    options.setFetchLimit(request.limit);
    options.setIncludeHiddenAssets(true);
    const VHFetchResult<VHAsset> assets = VHAsset::fetchAssetsWithOptions(options);
    QTextStream out(stdout);
    std::optional<JsonArrayWriter> objects;
    if (request.json)
        objects.emplace(out);
    for (qsizetype i = 0; i < assets.count(); ++i) {
        const VHAsset asset = assets.objectAtIndex(i);
        const auto location = asset.location();
        const char *media = asset.mediaType() == VHAssetMediaType::Video ? "video" : "photo";
        if (objects) {
            objects->append({{QStringLiteral("identifier"), asset.localIdentifier()},
                             {QStringLiteral("media"), QString::fromLatin1(media)},
                             {QStringLiteral("width"), asset.pixelWidth()},
                             {QStringLiteral("height"), asset.pixelHeight()},
                             {QStringLiteral("date"), dateText(asset.localCreationDate())},
                             {QStringLiteral("location"), location ? QJsonValue(QJsonObject{{QStringLiteral("latitude"), location->latitude},
                                                                                             {QStringLiteral("longitude"), location->longitude}})
                                                                   : QJsonValue()},
                             {QStringLiteral("paired"), asset.isMovingPhoto()}});
            continue;
        }
        out << asset.localIdentifier() << '\t' << media << '\t' << asset.pixelWidth() << 'x' << asset.pixelHeight() << '\t'
            << dateText(asset.localCreationDate()) << '\t'
            << (location ? QStringLiteral("%1,%2").arg(location->latitude, 0, 'f', 6).arg(location->longitude, 0, 'f', 6)
                         : QStringLiteral("-"))
            << '\t' << (asset.isMovingPhoto() ? "paired" : "-") << '\n';
    }
    return ExitOk;
}

// The diagnostics of one highlight: its cell as the fetch-result screen numbers it, and the
// sections of its own screen.
struct HighlightDetails {
    VUTesterVistraKitObjectDiagnosticsContent cell;
    std::vector<detail::VUTesterAssetCollectionDiagnosticsSection> sections;
};

HighlightDetails detailsOf(const VHAssetCollection &highlight, qsizetype index, qsizetype count, const VUTesterDateFormatter &formatter)
{
    return {VUTesterVistraKitObjectDiagnosticsContent::contentForObject(highlight, index, count, formatter),
            VUTesterAssetCollectionDiagnosticsViewController::sectionsForAssetCollection(highlight)};
}

void printDetails(QTextStream &out, const HighlightDetails &details)
{
    out << details.cell.title << '\n';
    for (const QString &line : QStringList{details.cell.subtitle} + details.cell.propertyLines)
        out << "  " << line << '\n';
    for (const auto &section : details.sections)
        out << "  " << section.title() << '\n';
}

QJsonObject detailsJson(const HighlightDetails &details)
{
    QJsonArray sections;
    for (const auto &section : details.sections)
        sections.append(QJsonObject{{QStringLiteral("title"), section.title()}, {QStringLiteral("count"), section.assets().count()}});
    return {{QStringLiteral("cell"), QJsonObject{{QStringLiteral("title"), details.cell.title},
                                                 {QStringLiteral("subtitle"), details.cell.subtitle},
                                                 {QStringLiteral("lines"), QJsonArray::fromStringList(details.cell.propertyLines)}}},
            {QStringLiteral("sections"), sections}};
}

int highlights(VHPhotoLibrary &library, const Request &request)
{
    VHFetchOptions options = library.librarySpecificFetchOptions();
    options.setSortDescriptors({{QStringLiteral("startDate"), true}});
    const VUTesterDateFormatter formatter = VUTesterVistraKitObjectDiagnosticsContent::defaultDateFormatter();
    QTextStream out(stdout);
    std::optional<JsonArrayWriter> objects;
    if (request.json)
        objects.emplace(out);
    for (const Subtype &subtype : request.subtypes) {
        const auto collections =
            VHAssetCollection::fetchAssetCollectionsWithType(VHAssetCollectionType::Highlight, subtype.subtype, options);
        for (qsizetype i = 0; i < collections.count(); ++i) {
            const VHAssetCollection highlight = collections.objectAtIndex(i);
            std::optional<HighlightDetails> details;
            if (request.details)
                details = detailsOf(highlight, i, collections.count(), formatter);
            if (objects) {
                QJsonObject object{{QStringLiteral("subtype"), QString::fromLatin1(subtype.name)},
                                   {QStringLiteral("title"), highlight.localizedTitle()},
                                   {QStringLiteral("startDate"), dateText(highlight.startDate())},
                                   {QStringLiteral("endDate"), dateText(highlight.endDate())},
                                   {QStringLiteral("assets"), highlight.estimatedAssetCount()},
                                   {QStringLiteral("photos"), highlight.estimatedPhotosCount()},
                                   {QStringLiteral("videos"), highlight.estimatedVideosCount()},
                                   {QStringLiteral("curated"), highlight.isCurated()},
                                   {QStringLiteral("enriched"), highlight.isEnriched()},
                                   {QStringLiteral("promotionScore"), highlight.promotionScore()}};
                if (details) {
                    const QJsonObject extra = detailsJson(*details);
                    for (auto it = extra.begin(); it != extra.end(); ++it)
                        object.insert(it.key(), it.value());
                }
                objects->append(object);
                continue;
            }
            if (details) {
                out << subtype.name << ' ';
                printDetails(out, *details);
                continue;
            }
            out << subtype.name << '\t' << highlight.localizedTitle() << '\t' << dateText(highlight.startDate()) << '\t'
                << dateText(highlight.endDate()) << '\t' << countText(highlight.estimatedAssetCount(), "asset", "assets") << " ("
                << countText(highlight.estimatedPhotosCount(), "photo", "photos") << ", "
                << countText(highlight.estimatedVideosCount(), "video", "videos") << ")\t"
                << (highlight.isCurated() ? "curated" : "not curated") << '\t'
                << (highlight.isEnriched() ? "enriched" : "not enriched") << '\t'
                << QString::number(highlight.promotionScore(), 'f', 3) << '\n';
        }
    }
    return ExitOk;
}

int import(VHPhotoLibrary &library, const Request &request)
{
    VHError error;
    QString identifier;
    const bool success = library.performChangesAndWait(
        [&] {
            VHAssetResourceCreationOptions options;
            options.setShouldMoveFile(request.move);
            auto *created = VHAssetCreationRequest::creationRequestForAsset();
            created->addResourceWithType(request.isPhoto ? VHAssetResourceType::Photo : VHAssetResourceType::Video, request.file, options);
            if (!request.paired.isEmpty())
                created->addResourceWithType(VHAssetResourceType::PairedVideo, request.paired, options);
            identifier = created->localIdentifierForCreatedAsset();
        },
        &error);
    if (!success)
        return failure(kLibrary, QStringLiteral("cannot import %1: %2").arg(request.file, error.debugDescription()));
    QTextStream(stdout) << identifier << '\n';
    return ExitOk;
}

int verify(VHPhotoLibrary &library)
{
    QStringList differences;
    VHError error;
    if (!VHLibraryInspector::verify(library, &differences, &error))
        return failure(kLibrary, error.debugDescription());
    QTextStream out(stdout);
    for (const QString &line : std::as_const(differences))
        out << line << '\n';
    if (!differences.isEmpty()) {
        QTextStream(stderr) << "vistra-tester library: " << countText(differences.size(), "difference", "differences")
                            << " between the catalogue and the files" << Qt::endl;
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
    if (action == QLatin1String("--help") || action == QLatin1String("-h")) {
        QTextStream(stdout) << kUsage;
        return ExitOk;
    }
    const QStringList actions{QStringLiteral("info"), QStringLiteral("list"), QStringLiteral("highlights"), QStringLiteral("import"),
                              QStringLiteral("verify")};
    if (!actions.contains(action))
        return usageError(kLibrary, QStringLiteral("unknown action '%1' (see --help)").arg(action));
    Request request;
    if (const int status = parse(action, arguments.mid(1), &request); status >= 0)
        return status;

    // Nothing is created on disk before the request is known to be good, and only to write.
    const auto library = VHPhotoLibrary::sharedPhotoLibrary();
    VHError error;
    const bool writes = action == QLatin1String("import");
    if (!(writes ? library->open(&error) : library->openExisting(&error)))
        return failure(kLibrary, error.debugDescription());
    if (action == QLatin1String("info"))
        return info(*library, request);
    if (action == QLatin1String("list"))
        return list(*library, request);
    if (action == QLatin1String("highlights"))
        return highlights(*library, request);
    if (writes)
        return import(*library, request);
    return verify(*library);
}

} // namespace app
