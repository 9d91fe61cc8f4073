// vistra-tester perf list
// vistra-tester perf run NAME [--duration S] [--json] [--meter]
// Runs the application's performance tests headless, as the Vexo screen's rows run them.

#include "Commands.h"
#include "commands/MediaOptions.h"

#include "perf/harness/VXPerfHarness.h"
#include "perf/meters/VUTesterDisplayLinkFPSMeter.h"
#include "perf/vexo/VUTesterVexoBaselineViewController.h"

#include <QCommandLineParser>
#include <QEventLoop>
#include <QJsonDocument>
#include <QLoggingCategory>
#include <QTextStream>
#include <QTimer>

#include <optional>

namespace app {
namespace {

const char *const kPerf = "perf";
// A test that has not ended this long after its own length has hung.
constexpr int kGraceMs = 60000;
// Up to an hour: long enough for any soak, short of a typo's thousands.
constexpr NumberRange kDuration{0, 3600, true, false};

void printDefinitions()
{
    QTextStream out(stdout);
    for (const QVariantMap &definition : vexo_testDefinitions()) {
        QStringList options;
        for (auto it = definition.begin(); it != definition.end(); ++it)
            if (it.key() != VXPerfTestNameKey)
                options << it.key() + QLatin1Char('=') + it.value().toString();
        out << definition.value(VXPerfTestNameKey).toString() << '\t' << options.join(QLatin1Char(' ')) << '\n';
    }
}

// "Display Link 60.0 fps, NullScrollView 59.8 fps"
QString meterLine()
{
    QStringList meters;
    for (const VUTesterFPSMeter *meter : VUTesterFPSMeter::allFPSMeters())
        meters << QStringLiteral("%1 %2 fps").arg(meter->label()).arg(meter->fps(), 0, 'f', 1);
    return meters.join(QStringLiteral(", "));
}

int runTest(const QString &name, const QVariantMap &definition, bool json, bool meter)
{
    VUTesterVexoBaselineViewController::registerWithHarness();
    VXPerfHarness *harness = VXPerfHarness::sharedHarness();
    harness->setShowsResultAlerts(false);
    // The result goes to stdout; the harness's own account of it would repeat it on stderr.
    QLoggingCategory::setFilterRules(QStringLiteral("vistra.perf.info=false"));

    // The refresh rate the main loop delivers, and the rate of the test's own frames.
    VUTesterDisplayLinkFPSMeter displayLinkMeter;
    VUTesterFPSMeter testMeter;
    testMeter.setLabel(name);
    QTimer meterTimer;
    QMetaObject::Connection sampling;
    if (meter) {
        displayLinkMeter.start();
        testMeter.start();
        sampling = QObject::connect(harness, &VXPerfHarness::frameRecorded, [&testMeter] { testMeter.sample(); });
        QObject::connect(&meterTimer, &QTimer::timeout, [] { QTextStream(stderr) << meterLine() << Qt::endl; });
        meterTimer.start(1000);
    }

    QEventLoop loop;
    std::optional<VXPerfResult> result;
    const QMetaObject::Connection finished = QObject::connect(harness, &VXPerfHarness::testFinished, [&](const VXPerfResult &r) {
        result = r;
        loop.quit();
    });
    if (!harness->runTest(name, definition))
        return failure(kPerf, QStringLiteral("the harness could not start %1").arg(name));
    const double duration = definition.value(VXPerfDurationKey).toDouble();
    QTimer::singleShot(int(duration * 1000) + kGraceMs, &loop, &QEventLoop::quit);
    loop.exec();
    QObject::disconnect(finished);
    QObject::disconnect(sampling);
    if (meter) {
        displayLinkMeter.invalidate();
        testMeter.invalidate();
    }
    if (!result)
        return failure(kPerf, QStringLiteral("%1 did not finish").arg(name));
    if (json)
        QTextStream(stdout) << QJsonDocument(result->toJson()).toJson(QJsonDocument::Indented);
    else
        QTextStream(stdout) << result->toText();
    if (result->frames < 2)
        return failure(kPerf, QStringLiteral("%1 recorded no frames to measure").arg(name));
    return ExitOk;
}

} // namespace

int runPerfCommand(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "The performance harness, headless.\n\n"
        "  perf list       the tests: each name, a tab, then its options as key=value\n"
        "  perf run NAME   runs one in an offscreen window, as the Vexo screen does, and prints what\n"
        "                  it measured: frames, frames per second, the display's refresh rate,\n"
        "                  frame time (the interval between frames) and work (the main thread's time\n"
        "                  per frame, painting included) at the 50th, 90th and 99th percentile and\n"
        "                  the maximum in milliseconds, frames that missed a refresh, peak resident\n"
        "                  memory and the most widgets alive at once.\n\n"
        "With --json one object: test, frames, fps, refreshRate, frameTimeMs {p50, p90, p99, max},\n"
        "framesOverBudget, peakRssBytes, workMs {p50, p90, p99, max}, peakWidgets, and note when\n"
        "something about the run is worth knowing (content that does not scroll)."));
    parser.addHelpOption();
    parser.addOptions({
        {QStringLiteral("duration"), QStringLiteral("Length of a scroll test, or the most a transition test may take, in seconds."), QStringLiteral("S")},
        {QStringLiteral("json"), QStringLiteral("Print the result as one JSON object.")},
        {QStringLiteral("meter"), QStringLiteral("Print every frame-rate meter to stderr once a second while the test runs.")},
    });
    parser.addPositionalArgument(QStringLiteral("list|run"), QStringLiteral("What to do."));
    parser.addPositionalArgument(QStringLiteral("NAME"), QStringLiteral("The test to run."), QStringLiteral("[NAME]"));
    if (const int status = parseCommandArguments(parser, kPerf, arguments, 2); status >= 0)
        return status;

    const QStringList positional = parser.positionalArguments();
    const QString verb = positional.value(0);
    if (verb == QLatin1String("list")) {
        if (positional.size() != 1 || parser.isSet(QStringLiteral("duration")) || parser.isSet(QStringLiteral("meter")))
            return usageError(kPerf, QStringLiteral("list takes no arguments"));
        printDefinitions();
        return ExitOk;
    }
    if (verb != QLatin1String("run"))
        return usageError(kPerf, QStringLiteral("say list or run (see --help)"));
    if (positional.size() != 2)
        return usageError(kPerf, QStringLiteral("run takes one test NAME (see 'perf list')"));
    const QString name = positional[1];
    std::optional<QVariantMap> definition = vexo_testDefinitionNamed(name);
    if (!definition)
        return usageError(kPerf, QStringLiteral("unknown test '%1'; the tests are: %2").arg(name, vexo_testNames().join(QStringLiteral(", "))));
    if (parser.isSet(QStringLiteral("duration"))) {
        double duration = 0;
        QString message;
        if (!parseNumberOption(QStringLiteral("duration"), parser.value(QStringLiteral("duration")), kDuration, &duration, &message))
            return usageError(kPerf, message);
        definition->insert(VXPerfDurationKey, QString::number(duration));
    }
    return runTest(name, *definition, parser.isSet(QStringLiteral("json")), parser.isSet(QStringLiteral("meter")));
}

} // namespace app
