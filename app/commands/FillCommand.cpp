// vistra-tester fill: one fill operation from the saved filler settings, with flags that override
// them for this run only. Shows a progress bar on a terminal, one line per asset otherwise (or a
// JSON object per asset with --json); Ctrl-C cancels like "Cancel Operation(s)": the asset in
// progress is finished and saved. --delete-file-backed is the "Delete File Backed" row.

#include "Commands.h"
#include "commands/JsonOutput.h"
#include "commands/MediaOptions.h"

#include "dispatch/Dispatch.h"
#include "filler/VUTesterLibraryFillOperation.h"
#include "photos/VHPhotoLibrary.h"
#include "photos/VHSystemLibraryPathManager.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonArray>
#include <QTextStream>
#include <QTimer>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <optional>
#include <unistd.h>

namespace app {
namespace {

const char *const kFill = "fill";
// The row's range: "Photo Long Side" is a slider from 100 to 15000.
constexpr NumberRange kLongSide{100, 15000, false, true};
std::atomic<int> g_interrupts{0};

void onInterrupt(int)
{
    // A second Ctrl-C stops at once, as the shell expects.
    if (g_interrupts.fetch_add(1) > 0) {
        std::signal(SIGINT, SIG_DFL);
        std::raise(SIGINT);
    }
}

QString durationText(double seconds)
{
    const qint64 s = qint64(seconds + 0.5);
    return s >= 3600 ? QString::asprintf("%lld:%02lld:%02lld", s / 3600, s / 60 % 60, s % 60) : QString::asprintf("%lld:%02lld", s / 60, s % 60);
}

QString normalised(QString text)
{
    return text.remove(QLatin1Char(' ')).remove(QLatin1Char('-')).remove(QLatin1Char('_')).toLower();
}

// A choice flag: a value's title, its number, or (for enumerable settings) enumerate or random.
bool parseChoice(const QString &option, const QString &key, const QString &text, bool enumerable, QVariant *value, QString *message)
{
    QVariantList values;
    QStringList titles;
    VUTesterLibraryFillerSettings::getPossibleValues(&values, &titles, key);
    if (key == QLatin1String("content"))
        VUTesterLibraryFillerSettings::getContentChoices(&values, &titles);
    const QString wanted = normalised(text);
    if (enumerable && wanted == QLatin1String("enumerate")) {
        *value = key == QLatin1String("aspectRatio") ? QVariant(double(VUTesterLibraryFillerSettings::kEnumerate)) : QVariant(VUTesterLibraryFillerSettings::kEnumerate);
        return true;
    }
    if (enumerable && wanted == QLatin1String("random")) {
        *value = key == QLatin1String("aspectRatio") ? QVariant(double(VUTesterLibraryFillerSettings::kRandom)) : QVariant(VUTesterLibraryFillerSettings::kRandom);
        return true;
    }
    // Titles match without spaces, dashes or case ("4 × 3" as 4x3); an exact match wins, else a
    // part of exactly one title ("solid", "radial").
    QStringList keys;
    for (const QString &title : std::as_const(titles))
        keys << normalised(title).replace(QStringLiteral("×"), QStringLiteral("x"));
    int match = int(keys.indexOf(wanted));
    if (match < 0 && !wanted.isEmpty()) {
        for (int i = 0; i < keys.size(); ++i) {
            if (!keys[i].contains(wanted))
                continue;
            match = match < 0 ? i : -2;
            if (match == -2)
                break;
        }
    }
    if (match >= 0) {
        *value = values[match];
        return true;
    }
    bool ok = false;
    const double number = text.toDouble(&ok);
    if (ok) {
        for (const QVariant &v : std::as_const(values)) {
            if (std::abs(v.toDouble() - number) < 1e-6 || (key == QLatin1String("aspectRatio") && double(float(number)) == v.toDouble())) {
                *value = v;
                return true;
            }
        }
    }
    QStringList accepted = titles;
    if (enumerable)
        accepted << QStringLiteral("enumerate") << QStringLiteral("random");
    *message = QStringLiteral("--%1: '%2' is not one of: %3").arg(option, text, accepted.join(QStringLiteral(", ")));
    return false;
}

struct FillFlags {
    const char *option;
    const char *key;
    bool enumerable;
    const char *help;
};

const FillFlags kChoiceFlags[] = {
    {"destination", "fillDestination", false, "library or file-backed"},
    {"media", "media", true, "photo, video, stir-shot, enumerate or random"},
    {"orientation", "orientation", true, "landscape, portrait, enumerate or random"},
    {"aspect-ratio", "aspectRatio", true, "square, 4x3, 16x9, ... (or the ratio), enumerate or random"},
    {"image-orientation", "imageOrientation", true, "up, down, left, right, up-mirrored, ..., enumerate or random"},
    {"content", "content", false, "solid-color, 1px-concentric-rects or radial-patterns (or 0, 1, 2)"},
    {"radius", "locationRadius", false, "scatter assets around the location: constant (0), 50m, 500m, 1km, 10km or 25km (or the metres)"},
};

// A preset by its title, without regard to case, spaces or dashes ("panos", "random-assets").
std::optional<QString> presetTitle(const QString &text)
{
    for (const QString &title : VUTesterLibraryFillerSettings::presetTitles())
        if (normalised(title) == normalised(text))
            return title;
    return std::nullopt;
}

// Applies the flags to the run's settings; a usage error message otherwise.
bool applyFlags(const QCommandLineParser &parser, VUTesterLibraryFillerSettings *settings, QString *message)
{
    if (parser.isSet(QStringLiteral("preset"))) {
        const std::optional<QString> preset = presetTitle(parser.value(QStringLiteral("preset")));
        if (!preset) {
            *message = QStringLiteral("--preset: unknown preset '%1' (one of: %2)")
                           .arg(parser.value(QStringLiteral("preset")), VUTesterLibraryFillerSettings::presetTitles().join(QStringLiteral(", ")));
            return false;
        }
        settings->applyPreset(*preset);
    }
    if (parser.isSet(QStringLiteral("count"))) {
        const QString text = parser.value(QStringLiteral("count"));
        bool ok = false;
        const qint64 count = text.toLongLong(&ok);
        if (text == QLatin1String("auto"))
            settings->setNumberOfAssetsToAdd(VUTesterLibraryFillerSettings::kAutomaticNumberOfAssets);
        else if (ok && count >= 0)
            settings->setNumberOfAssetsToAdd(count);
        else {
            *message = QStringLiteral("--count: expected a whole number or auto, not '%1'").arg(text);
            return false;
        }
    }
    for (const FillFlags &flag : kChoiceFlags) {
        const QString option = QString::fromLatin1(flag.option);
        if (!parser.isSet(option))
            continue;
        QVariant value;
        if (!parseChoice(option, QString::fromLatin1(flag.key), parser.value(option), flag.enumerable, &value, message))
            return false;
        settings->setValueForKey(value, QString::fromLatin1(flag.key));
    }
    if (parser.isSet(QStringLiteral("long-side"))) {
        double longSide = 0;
        if (!parseNumberOption(QStringLiteral("long-side"), parser.value(QStringLiteral("long-side")), kLongSide, &longSide, message))
            return false;
        settings->setLongSide(qint64(longSide));
    }
    if (parser.isSet(QStringLiteral("location"))) {
        QVariant location;
        if (!TWParseSettingValue(TWSettings::Kind::Location, parser.value(QStringLiteral("location")), &location, message)) {
            *message = QStringLiteral("--location: ") + *message;
            return false;
        }
        settings->locationDidChange(nullptr, location);
    }
    return true;
}

const char *mediaName(qint64 media)
{
    static const char *const names[] = {"photo", "video", "Stir Shot"};
    return media >= 0 && media < 3 ? names[media] : "asset";
}

QJsonObject assetObject(const VUTesterLibraryFillOperation::AssetReport &report)
{
    QJsonObject object{{QStringLiteral("asset"), report.index},
                       {QStringLiteral("of"), report.count},
                       {QStringLiteral("media"), QString::fromUtf8(mediaName(report.media))},
                       {QStringLiteral("width"), report.size.width()},
                       {QStringLiteral("height"), report.size.height()}};
    if (!report.success)
        object.insert(QStringLiteral("error"), report.error);
    else if (!report.identifier.isEmpty())
        object.insert(QStringLiteral("identifier"), report.identifier);
    else
        object.insert(QStringLiteral("files"), QJsonArray::fromStringList(report.files));
    return object;
}

// The "Delete File Backed" row, headless.
int deleteFileBacked()
{
    const QString path = VHSystemLibraryPathManager::sharedInstance().temporaryFileBackedDebugDirectory(false);
    const QFileInfo info(path);
    if (!info.exists() && !info.isSymLink()) {
        QTextStream(stdout) << "nothing to remove at " << path << Qt::endl;
        return ExitOk;
    }
    QString error;
    if (!VUTesterLibraryFillerSettings::_clearFileBacked(&error))
        return failure(kFill, QStringLiteral("cannot remove %1: %2").arg(path, error));
    QTextStream(stdout) << "removed " << path << (info.isSymLink() ? " (the link only)" : "") << Qt::endl;
    return ExitOk;
}

} // namespace

int runFillCommand(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Fills the photo library (or the file-backed directory) with synthetic photos, movies and Stir Shots, "
        "using the saved filler settings; flags override them for this run only."));
    parser.addHelpOption();
    parser.addOption({QStringLiteral("preset"), QStringLiteral("start from a preset: %1").arg(VUTesterLibraryFillerSettings::presetTitles().join(QStringLiteral(", "))), QStringLiteral("NAME")});
    parser.addOption({QStringLiteral("count"), QStringLiteral("number of assets, or auto (one of each combination)"), QStringLiteral("N|auto")});
    for (const FillFlags &flag : kChoiceFlags)
        parser.addOption({QString::fromLatin1(flag.option), QString::fromLatin1(flag.help), QStringLiteral("VALUE")});
    parser.addOption({QStringLiteral("long-side"), QStringLiteral("pixels of a photo's longer side, 100 to 15000"), QStringLiteral("N")});
    parser.addOption({QStringLiteral("location"), QStringLiteral("where assets are placed, or none"), QStringLiteral("LAT,LON")});
    parser.addOption({QStringLiteral("json"), QStringLiteral("print a JSON array instead: an object per asset as it is made (asset, of, media, width, "
                                                             "height, then identifier, files or error), then a summary (made, of, photos, "
                                                             "videos, stirShots, seconds, into, cancelled)")});
    parser.addOption({QStringLiteral("delete-file-backed"), QStringLiteral("remove the file-backed directory instead of filling (the \"Delete "
                                                                           "File Backed\" row); a link there is removed, not what it points to")});
    if (const int status = parseCommandArguments(parser, kFill, arguments); status >= 0)
        return status;
    if (parser.isSet(QStringLiteral("delete-file-backed"))) {
        if (parser.optionNames().size() > 1)
            return usageError(kFill, QStringLiteral("--delete-file-backed takes no other option"));
        return deleteFileBacked();
    }

    VUTesterLibraryFillerSettings settings;
    settings.copyValuesFrom(*VUTesterLibraryFillerSettings::sharedInstance());
    QString message;
    if (!applyFlags(parser, &settings, &message))
        return usageError(kFill, message);

    const bool toLibrary = settings.fillDestination() == 0;
    if (toLibrary) {
        VHError error;
        if (!VHPhotoLibrary::sharedPhotoLibrary()->open(&error))
            return failure(kFill, error.debugDescription());
    }

    const auto operation = VUTesterLibraryFillOperation::create(&settings);
    const qint64 total = operation->enumerator().numberOfAssetsToAdd();
    const bool json = parser.isSet(QStringLiteral("json"));
    const bool terminal = !json && isatty(STDOUT_FILENO);
    QTextStream out(stdout);
    QTextStream err(stderr);
    std::optional<JsonArrayWriter> objects;
    if (json)
        objects.emplace(out);
    QElapsedTimer clock;
    clock.start();
    qint64 made[3] = {0, 0, 0};
    qint64 finished = 0;
    QString firstError;

    operation->setAssetObserver([&](const VUTesterLibraryFillOperation::AssetReport &report) {
        dispatch::Queue::main()->async([&, report] {
            finished = report.index;
            if (report.success && report.media >= 0 && report.media < 3)
                ++made[report.media];
            if (!report.success && firstError.isEmpty())
                firstError = report.error;
            const double elapsed = clock.elapsed() / 1000.0;
            const double rate = elapsed > 0 ? report.index / elapsed : 0;
            if (!report.success) {
                if (terminal)
                    out << '\n';
                err << "vistra-tester fill: asset " << report.index << " (" << mediaName(report.media) << ") failed: " << report.error << Qt::endl;
            }
            if (json) {
                objects->append(assetObject(report));
            } else if (report.success && terminal) {
                constexpr int width = 30;
                const int filled = total > 0 ? int(width * report.index / total) : width;
                out << "\r[" << QString(filled, QLatin1Char('#')) << QString(width - filled, QLatin1Char('.')) << "] " << report.index << '/' << total
                    << QString::asprintf("  %.2f assets/s", rate) << "  left " << durationText(rate > 0 ? (total - report.index) / rate : 0) << "   " << Qt::flush;
            } else if (report.success) {
                out << "asset " << report.index << '/' << total << ": " << mediaName(report.media) << ' ' << qint64(report.size.width()) << 'x'
                    << qint64(report.size.height()) << (toLibrary ? " imported " + report.identifier : " -> " + report.files.join(QStringLiteral(" + ")))
                    << Qt::endl;
            }
        });
    });

    g_interrupts = 0;
    std::signal(SIGINT, onInterrupt);
    QTimer interruptWatch;
    QObject::connect(&interruptWatch, &QTimer::timeout, [&] {
        if (g_interrupts > 0 && !operation->_isCanceled()) {
            err << (terminal ? "\n" : "") << "vistra-tester fill: cancelling after the asset in progress (Ctrl-C again to stop at once)" << Qt::endl;
            operation->cancel();
        }
    });
    interruptWatch.start(50);

    dispatch::Queue::global()->async([operation] {
        operation->runWithCompletionHandler([] {
            // Let queued progress lines print before leaving.
            dispatch::Queue::main()->async([] { QCoreApplication::exit(0); });
        });
    });
    QCoreApplication::exec();
    std::signal(SIGINT, SIG_DFL);
    if (terminal)
        out << '\n';

    const QString where = toLibrary ? VHPhotoLibrary::sharedLibraryLocation()
                                    : VHSystemLibraryPathManager::sharedInstance().temporaryFileBackedDebugDirectory(false);
    const qint64 madeCount = made[0] + made[1] + made[2];
    const double seconds = clock.elapsed() / 1000.0;
    const bool cancelled = firstError.isEmpty() && (g_interrupts > 0 || (operation->_isCanceled() && finished < total));
    if (json) {
        objects->append({{QStringLiteral("made"), madeCount},
                         {QStringLiteral("of"), total},
                         {QStringLiteral("photos"), made[0]},
                         {QStringLiteral("videos"), made[1]},
                         {QStringLiteral("stirShots"), made[2]},
                         {QStringLiteral("seconds"), seconds},
                         {QStringLiteral("into"), where},
                         {QStringLiteral("cancelled"), cancelled}});
        objects.reset();
    } else {
        out << "made " << madeCount << " of " << countText(total, "asset", "assets") << " (" << countText(made[0], "photo", "photos") << ", "
            << countText(made[1], "video", "videos") << ", " << countText(made[2], "Stir Shot", "Stir Shots") << ") in " << durationText(seconds)
            << " into " << (toLibrary ? QStringLiteral("the photo library at ") : QString()) << where << Qt::endl;
    }
    if (!firstError.isEmpty())
        return failure(kFill, QStringLiteral("stopped after a failed asset: %1").arg(firstError));
    if (cancelled) {
        err << "vistra-tester fill: cancelled" << Qt::endl;
        return ExitCancelled;
    }
    return ExitOk;
}

} // namespace app
