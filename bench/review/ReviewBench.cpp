// Where the fonts review spends its time: laying titles out, building a sheet of about a thousand
// tiles (widgets and text layout), painting it, encoding it as PNG, and a whole recording of every
// graph-string key in every language.

#include "review/VUTesterStoryletsFontsReviewViewController.h"
#include "review/VUTesterStoryletsGraphStrings.h"
#include "review/VUTesterStoryletsRelatedSettings.h"
#include "review/VUTesterViewMatrixScrollView.h"
#include "storylets/VXTitleSubtitleLabel.h"

#include <QBuffer>
#include <QImageWriter>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

// A review loaded with the shared settings as given, laid out at a desktop window's size.
std::unique_ptr<VUTesterStoryletsFontsReviewViewController> review(const QString &fonts, const QVariant &title, const QVariant &tileKind)
{
    VUTesterStoryletsRelatedSettings *settings = VUTesterStoryletsRelatedSettings::sharedInstance();
    settings->setDefaultValues();
    settings->setValueForKey(fonts, "titleFontName");
    settings->setValueForKey(title, "titleText");
    settings->setValueForKey(tileKind, "tileKind");
    auto controller = std::make_unique<VUTesterStoryletsFontsReviewViewController>();
    controller->view()->setAttribute(Qt::WA_DontShowOnScreen);
    controller->view()->resize(1280, 1600);
    controller->view()->show();
    return controller;
}

// 9 fonts × 23 titles × 5 tile kinds: 1,035 tiles.
std::unique_ptr<VUTesterStoryletsFontsReviewViewController> thousandTiles()
{
    return review("20. Supported Fonts", "10. Strings", "10. All");
}

void BM_TitleLabelLayout(benchmark::State &state)
{
    const VUTesterStoryletsGraphStrings &strings = *VUTesterStoryletsGraphStrings::sharedInstance();
    QStringList titles;
    for (const QString &language : strings.languages())
        for (const QString &key : VUTesterStoryletsGraphStrings::keys())
            titles << strings.localizedStringForKey(key, language);
    VXTitleSubtitleSpec spec;
    spec.titleFontName = "Noto Serif Display";
    spec.titleFontSize = 28;
    VXTitleSubtitleLabel label;
    label.setSpec(spec);
    label.setSubtitleText("Minneapolis, MN");
    label.setDiagnosticsEnabled(true);
    label.resize(240, 200);
    qsizetype i = 0;
    for (auto _ : state) {
        label.setTitleText(titles[i++ % titles.size()]);
        label.layoutIfNeeded();
        benchmark::DoNotOptimize(label.renderedLines());
    }
    state.SetLabel("one title of the 352 graph strings, shrunk to fit 240 × 200");
}
BENCHMARK(BM_TitleLabelLayout)->Unit(benchmark::kMicrosecond);

void BM_BuildSheetOf1000Tiles(benchmark::State &state)
{
    auto controller = thousandTiles();
    for (auto _ : state)
        controller->_updateTileViews();
    state.SetLabel(QStringLiteral("%1 × %2 points").arg(controller->scrollView()->naturalContentSize().width()).arg(controller->scrollView()->naturalContentSize().height()).toStdString());
}
BENCHMARK(BM_BuildSheetOf1000Tiles)->Unit(benchmark::kMillisecond);

void BM_PaintSheetOf1000Tiles(benchmark::State &state)
{
    auto controller = thousandTiles();
    for (auto _ : state)
        benchmark::DoNotOptimize(controller->_snapshot());
}
BENCHMARK(BM_PaintSheetOf1000Tiles)->Unit(benchmark::kMillisecond);

void BM_EncodeSheetOf1000TilesAsPng(benchmark::State &state)
{
    const QImage sheet = thousandTiles()->_snapshot();
    for (auto _ : state) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QImageWriter writer(&buffer, "png");
        writer.setQuality(int(state.range(0)));
        writer.write(sheet);
        state.counters["MB"] = buffer.data().size() / 1e6;
    }
    state.SetLabel(QStringLiteral("%1 × %2 pixels").arg(sheet.width()).arg(sheet.height()).toStdString());
}
// Quality -1 is zlib's default level; 80 is level 1.
BENCHMARK(BM_EncodeSheetOf1000TilesAsPng)->Unit(benchmark::kMillisecond)->Arg(-1)->Arg(80);

// What the headless recording does: one font and one tile kind, one pass per key over every
// language, then the collage and the table written.
void BM_RecordEveryKeyAndLanguage(benchmark::State &state)
{
    QTemporaryDir folder;
    VUTesterStoryletsRelatedSettings::sharedInstance()->setCapturedDataFolder(folder.path());
    auto controller = review("DejaVu Serif", "Graph Strings//", 3);
    const QStringList keys = VUTesterStoryletsGraphStrings::keys();
    for (auto _ : state) {
        controller->reviewSettings()->setValueForKey("Graph Strings//" + keys.first(), "titleText");
        controller->startRecording();
        for (qsizetype i = 1; i < keys.size(); ++i)
            controller->reviewSettings()->setValueForKey("Graph Strings//" + keys[i], "titleText");
        QString error;
        if (!controller->stopRecording(&error))
            state.SkipWithError(qPrintable(error));
    }
    state.SetLabel(QStringLiteral("%1 keys × %2 languages").arg(keys.size()).arg(VUTesterStoryletsGraphStrings::sharedInstance()->languages().size()).toStdString());
}
BENCHMARK(BM_RecordEveryKeyAndLanguage)->Unit(benchmark::kMillisecond)->Iterations(2);

} // namespace
