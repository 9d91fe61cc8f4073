// vistra-tester review strings [--language CODE] [-o FILE.tsv]
// vistra-tester review fonts [--record] -o FOLDER
// The Storylet fonts review without a window: the graph strings as a table, a snapshot of the
// sheet the saved settings describe, or a recording over every graph string.

#include "../Commands.h"

#include "review/VUTesterStoryletsFontsReviewViewController.h"
#include "review/VUTesterStoryletsGraphStrings.h"
#include "review/VUTesterStoryletsRelatedSettings.h"
#include "review/VUTesterStoryletsTitleParameter.h"
#include "review/VUTesterStringMatrix.h"
#include "shell/VUTesterRootSettings.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryFile>
#include <QTextStream>
#include <QWidget>

namespace app {
namespace {

constexpr const char *kName = "review";

// The reviewed window's size: wide enough that several fonts show side by side.
const QSize kSheetWindowSize(1280, 1600);

bool parse(QCommandLineParser &parser, const QString &verb, const QStringList &arguments, int *status)
{
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("show this help")});
    if (!parser.parse(QStringList{QStringLiteral("review ") + verb} + arguments)) {
        *status = usageError(kName, parser.errorText());
        return false;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        QTextStream(stdout) << parser.helpText().replace(QRegularExpression(QStringLiteral("^Usage: review \\S+")),
                                                         QStringLiteral("Usage: vistra-tester review ") + verb);
        *status = ExitOk;
        return false;
    }
    if (!parser.positionalArguments().isEmpty()) {
        *status = usageError(kName, QStringLiteral("unexpected argument '%1'").arg(parser.positionalArguments().first()));
        return false;
    }
    return true;
}

// A folder that exists (made if need be) and takes new files.
bool writableFolder(const QString &folder, QString *error)
{
    if (!QDir().mkpath(folder)) {
        *error = QStringLiteral("cannot create the folder %1").arg(folder);
        return false;
    }
    QTemporaryFile probe(QDir(folder).filePath(QStringLiteral(".vistra-tester-XXXXXX")));
    if (!probe.open()) {
        *error = QStringLiteral("cannot write into %1: %2").arg(folder, probe.errorString());
        return false;
    }
    return true;
}

int runStrings(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Prints every Storylet title format (columns, by key) in every language (rows), tab-separated, with "
        "\"%lu\" filled with 3 and line breaks shown as \" ⏎\", as a review records them."));
    parser.addOptions({{QStringLiteral("language"), QStringLiteral("only this language"), QStringLiteral("CODE")},
                       {QStringLiteral("o"), QStringLiteral("write to FILE.tsv instead of printing"), QStringLiteral("FILE.tsv")}});
    int status = ExitOk;
    if (!parse(parser, QStringLiteral("strings"), arguments, &status))
        return status;
    const VUTesterStoryletsGraphStrings *strings = VUTesterStoryletsGraphStrings::sharedInstance();
    QStringList languages = strings->languages();
    if (parser.isSet(QStringLiteral("language"))) {
        const QString language = parser.value(QStringLiteral("language"));
        if (!languages.contains(language))
            return usageError(kName, QStringLiteral("unknown language '%1'; the languages are %2").arg(language, languages.join(QStringLiteral(", "))));
        languages = {language};
    }
    VUTesterStringMatrix matrix;
    for (const QString &language : languages)
        for (const QString &key : VUTesterStoryletsGraphStrings::keys())
            matrix.setString(strings->localizedStringForKey(key, language).replace(QLatin1Char('\n'), QStringLiteral(" ⏎")), key, language);
    if (!parser.isSet(QStringLiteral("o"))) {
        QTextStream(stdout) << matrix.tabSeparatedText();
        return ExitOk;
    }
    const QString output = parser.value(QStringLiteral("o"));
    QString error;
    if (!writableFolder(QFileInfo(output).absolutePath(), &error))
        return usageError(kName, error);
    if (!matrix.writeToFile(output, &error))
        return failure(kName, error);
    QTextStream(stdout) << output << '\n';
    return ExitOk;
}

int record(VUTesterStoryletsFontsReviewViewController &review, QTextStream &out)
{
    VUTesterStoryletsRelatedSettings *settings = review.reviewSettings();
    // The saved language when the saved title walks the graph strings; else every language.
    const QString title = settings->valueForKey(QStringLiteral("titleText")).toString();
    const QString language = title.contains(QLatin1String("Graph Strings")) ? title.split(QLatin1Char('/')).value(1) : QString();
    if (!language.isEmpty() && !VUTesterStoryletsGraphStrings::sharedInstance()->languages().contains(language))
        return usageError(kName, QStringLiteral("the saved title names an unknown language '%1'").arg(language));
    const QStringList keys = VUTesterStoryletsGraphStrings::keys();
    const auto showKey = [&](const QString &key) {
        settings->setValueForKey(QStringLiteral("Graph Strings/%1/%2").arg(language, key), QStringLiteral("titleText"));
    };
    // One pass per key, as a reviewer steps "String ▶" through them while recording.
    showKey(keys.first());
    review.startRecording();
    const QImage first = review._snapshot();
    const qint64 collage = (qint64(first.width()) + 10) * keys.size() * first.height();
    if (collage > VUTesterStoryletsFontsReviewViewController::kMaximumCollagePixels) {
        return usageError(kName, QStringLiteral("a recording of %1 sheets of %2 × %3 pixels would make a collage of %4 megapixels, more than %5; "
                                                "review fewer fonts, tile kinds, form factors or languages "
                                                "(for example: vistra-tester settings set storyletsRelatedSettings.tileKind 3)")
                                     .arg(keys.size()).arg(first.width()).arg(first.height()).arg(collage / 1000000)
                                     .arg(VUTesterStoryletsFontsReviewViewController::kMaximumCollagePixels / 1000000));
    }
    for (qsizetype i = 1; i < keys.size(); ++i)
        showKey(keys[i]);
    QString error;
    if (!review.stopRecording(&error))
        return failure(kName, error);
    const QDir folder(review._capturedDataFolder());
    out << folder.filePath(VUTesterStoryletsFontsReviewViewController::kRecordingImageFileName) << '\n'
        << folder.filePath(VUTesterStoryletsFontsReviewViewController::kRecordingTextFileName) << '\n';
    return ExitOk;
}

int runFonts(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Builds the fonts review sheet from the saved settings (see 'vistra-tester settings list') and writes the next "
        "numbered snapshot, VUTesterStoryletsFontsReview-NNN.png, into FOLDER. With --record, walks every graph-string key "
        "(in the saved title's language, or in all) and writes VUTesterStoryletsFontsReview.png, the sheets side by side, "
        "and VUTesterStoryletsFontsReview.txt, the lines each title broke into by key and language."));
    parser.addOptions({{QStringLiteral("record"), QStringLiteral("record every graph string instead of taking a snapshot")},
                       {QStringLiteral("o"), QStringLiteral("the folder to write into (made if missing)"), QStringLiteral("FOLDER")}});
    int status = ExitOk;
    if (!parse(parser, QStringLiteral("fonts"), arguments, &status))
        return status;
    if (!parser.isSet(QStringLiteral("o")))
        return usageError(kName, QStringLiteral("say where to write with -o FOLDER"));
    const QString folder = QFileInfo(parser.value(QStringLiteral("o"))).absoluteFilePath();
    QString error;
    if (!writableFolder(folder, &error))
        return usageError(kName, error);

    VUTesterRootSettings::sharedInstance();
    // For this run only: nothing is saved.
    VUTesterStoryletsRelatedSettings::sharedInstance()->setCapturedDataFolder(folder);
    VUTesterStoryletsFontsReviewViewController review;
    // Shown as far as Qt knows, though never on a screen, so it is laid out at this size.
    review.view()->setAttribute(Qt::WA_DontShowOnScreen);
    review.view()->resize(kSheetWindowSize);
    review.view()->show();
    QTextStream out(stdout);
    if (parser.isSet(QStringLiteral("record")))
        return record(review, out);
    QString path;
    if (!review.writeSnapshot(&path, &error))
        return failure(kName, error);
    out << path << '\n';
    return ExitOk;
}

} // namespace

int runReviewCommand(const QStringList &arguments)
{
    const QString verb = arguments.value(0);
    if (verb == QLatin1String("strings"))
        return runStrings(arguments.mid(1));
    if (verb == QLatin1String("fonts"))
        return runFonts(arguments.mid(1));
    if (verb == QLatin1String("--help") || verb == QLatin1String("-h")) {
        QTextStream(stdout) << "usage: vistra-tester review strings [--language CODE] [-o FILE.tsv]\n"
                               "       vistra-tester review fonts [--record] -o FOLDER\n\n"
                               "'vistra-tester review strings --help' and 'review fonts --help' describe each.\n";
        return ExitOk;
    }
    return usageError(kName, verb.isEmpty() ? QStringLiteral("say strings or fonts (see --help)")
                                            : QStringLiteral("unknown review '%1'; say strings or fonts").arg(verb));
}

} // namespace app
