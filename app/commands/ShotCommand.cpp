// vistra-tester shot PATH -o FILE.png: opens the window offscreen, walks from the root screen
// through the rows PATH names, tapping each, and writes a picture of the settled window.

#include "../Commands.h"
#include "../TesterWindow.h"
#include "MediaOptions.h"

#include "ui/Settle.h"
#include "ui/TappableRows.h"
#include "ui/ViewController.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTextStream>

#include <cmath>

namespace app {
namespace {

constexpr const char *kName = "shot";
constexpr int kMinimumSide = 100;
constexpr int kMaximumSide = 8000;

// "Title", or "Section/Title" for a row in a titled section.
QString rowName(const ui::TappableRow &row)
{
    return row.section.isEmpty() ? row.title : row.section + QLatin1Char('/') + row.title;
}

QString rowNames(const QList<ui::TappableRow> &rows)
{
    QStringList names;
    for (const ui::TappableRow &row : rows)
        names << QLatin1Char('"') + rowName(row) + QLatin1Char('"');
    return names.isEmpty() ? QStringLiteral("(none: the screen has no rows to tap)") : names.join(QStringLiteral(", "));
}

QString screenName(ui::ViewController *controller)
{
    return controller->title().isEmpty() ? QStringLiteral("the screen") : QStringLiteral("\"%1\"").arg(controller->title());
}

bool settle(std::chrono::milliseconds timeout, const QString &where)
{
    QStringList pending;
    if (ui::Settle::waitUntilSettled(timeout, &pending))
        return true;
    failure(kName, QStringLiteral("%1 did not settle within %2 s; still under way: %3")
                       .arg(where)
                       .arg(timeout.count() / 1000.0)
                       .arg(pending.isEmpty() ? QStringLiteral("work that kept starting anew") : pending.join(QStringLiteral(", "))));
    return false;
}

struct ShotOptions {
    QStringList titles;
    QString output;
    QSize size = TesterWindow::defaultSize();
    std::chrono::milliseconds timeout{10000};
};

// Every refusal happens here, before the window exists. -1 to go on, or the exit status.
int parseOptions(const QStringList &arguments, ShotOptions *options)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Pictures a screen of the tester as a PNG. PATH lists, separated by '/', the titles of the rows to tap\n"
        "from the root screen; a section title may stand before a row to say where it is\n"
        "(\"Playgrounds/Tiling View/Test Tiling View\"). An empty PATH pictures the root screen."));
    parser.addPositionalArgument(QStringLiteral("PATH"), QStringLiteral("row titles separated by '/'"), QStringLiteral("[PATH]"));
    parser.addOptions({
        {{QStringLiteral("o"), QStringLiteral("output")}, QStringLiteral("the PNG file to write"), QStringLiteral("FILE.png")},
        {QStringLiteral("size"), QStringLiteral("window size in pixels (default %1x%2)").arg(options->size.width()).arg(options->size.height()), QStringLiteral("WxH")},
        {QStringLiteral("timeout"), QStringLiteral("seconds each screen may take to settle (default 10)"), QStringLiteral("SECONDS")},
        {QStringLiteral("force"), QStringLiteral("overwrite an existing output file")},
        {QStringLiteral("help"), QStringLiteral("show this help")},
    });
    const QString name = QString::fromLatin1(kName);
    if (!parser.parse(QStringList{name} + arguments))
        return usageError(kName, parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        QTextStream(stdout) << parser.helpText().replace(QRegularExpression(QStringLiteral("^Usage: \\S+")), QStringLiteral("Usage: vistra-tester shot"));
        return ExitOk;
    }
    const QStringList positional = parser.positionalArguments();
    if (positional.size() > 1)
        return usageError(kName, QStringLiteral("give one PATH; quote titles that hold spaces (got %1 arguments)").arg(positional.size()));
    const QString path = positional.value(0);
    if (!path.isEmpty()) {
        options->titles = path.split(QLatin1Char('/'));
        if (options->titles.contains(QString()))
            return usageError(kName, QStringLiteral("PATH '%1' has an empty title; separate titles by one '/'").arg(path));
    }

    QString message;
    if (parser.isSet(QStringLiteral("size"))) {
        QSizeF size;
        if (!parseSizeOption(QStringLiteral("size"), parser.value(QStringLiteral("size")), kMinimumSide, &size, &message))
            return usageError(kName, message);
        if (size.width() > kMaximumSide || size.height() > kMaximumSide)
            return usageError(kName, QStringLiteral("--size: a window of at most %1 x %1 pixels (got %2)")
                                         .arg(kMaximumSide).arg(parser.value(QStringLiteral("size"))));
        options->size = size.toSize();
    }
    if (parser.isSet(QStringLiteral("timeout"))) {
        double seconds = 0;
        if (!parseNumberOption(QStringLiteral("timeout"), parser.value(QStringLiteral("timeout")), {0, 3600, true, false}, &seconds, &message))
            return usageError(kName, message);
        options->timeout = std::chrono::milliseconds(std::llround(seconds * 1000));
    }

    options->output = parser.value(QStringLiteral("o"));
    if (options->output.isEmpty())
        return usageError(kName, QStringLiteral("give the output file with -o FILE.png"));
    if (!checkOutputSuffix(options->output, {QStringLiteral("png")}, &message))
        return usageError(kName, message);
    const QFileInfo output(options->output);
    if (output.exists() && !parser.isSet(QStringLiteral("force")))
        return usageError(kName, QStringLiteral("%1 exists; pass --force to overwrite it").arg(options->output));
    if (output.isDir())
        return usageError(kName, QStringLiteral("%1 is a folder").arg(options->output));
    const QFileInfo folder(output.absolutePath());
    if (!folder.isDir() || !folder.isWritable())
        return usageError(kName, QStringLiteral("%1: no writable folder %2").arg(options->output, QDir::toNativeSeparators(folder.filePath())));
    return -1;
}

bool writePng(const QImage &image, const QString &fileName, QString *error)
{
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly)) {
        *error = file.errorString();
        return false;
    }
    QImageWriter writer(&file, "png");
    if (!writer.write(image)) {
        *error = writer.errorString();
        file.cancelWriting();
        return false;
    }
    if (!file.commit()) {
        *error = file.errorString();
        return false;
    }
    return true;
}

} // namespace

int runShotCommand(const QStringList &arguments)
{
    ShotOptions options;
    if (const int status = parseOptions(arguments, &options); status >= 0)
        return status;

    TesterWindow window;
    window.resize(options.size);
    window.show();
    if (!settle(options.timeout, QStringLiteral("the root screen")))
        return ExitFailure;

    // A section title only narrows where the next title is looked for.
    QString section;
    QStringList walked;
    for (const QString &title : std::as_const(options.titles)) {
        ui::ViewController *front = window.frontViewController();
        auto *screen = dynamic_cast<ui::TappableRows *>(front);
        const QList<ui::TappableRow> rows = screen ? screen->tappableRows() : QList<ui::TappableRow>();
        const ui::TappableRow *match = nullptr;
        bool isSection = false;
        for (const ui::TappableRow &row : rows) {
            if (row.title == title && (section.isNull() || row.section == section)) {
                match = &row;
                break;
            }
            isSection = isSection || (section.isNull() && !title.isEmpty() && row.section == title);
        }
        if (!match && isSection) {
            section = title;
            walked << title;
            continue;
        }
        if (!match) {
            QList<ui::TappableRow> there;
            for (const ui::TappableRow &row : rows)
                if (section.isNull() || row.section == section)
                    there << row;
            const QString where = section.isNull() ? screenName(front) : QStringLiteral("section '%1' of %2").arg(section, screenName(front));
            const QString after = walked.isEmpty() ? QString() : QStringLiteral(" (reached by '%1')").arg(walked.join(QLatin1Char('/')));
            return usageError(kName, QStringLiteral("no row '%1' in %2%3; the rows there: %4").arg(title, where, after, rowNames(there)));
        }
        walked << title;
        section = QString();
        match->tap();
        if (!settle(options.timeout, QStringLiteral("'%1'").arg(walked.join(QLatin1Char('/')))))
            return ExitFailure;
    }

    const QImage picture = window.grab().toImage();
    QString error;
    if (!writePng(picture, options.output, &error))
        return failure(kName, QStringLiteral("could not write %1: %2").arg(options.output, error));
    QTextStream(stdout) << options.output << ": " << picture.width() << 'x' << picture.height() << Qt::endl;
    return ExitOk;
}

} // namespace app
