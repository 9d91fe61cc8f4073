// The highlights diagnostics over a real small library: what the object cell shows for each kind
// of object, the five sections of a highlight and their counts, thumbnails that a reused cell
// must never show, the screens the rows open, and the initialisers that must end the process.

#include "QtPrinters.h"
#include "TestMedia.h"

#include "diagnostics/VUTesterAssetCollectionDiagnosticsViewController.h"
#include "diagnostics/VUTesterAssetCollectionFetchResultDiagnosticsViewController.h"
#include "diagnostics/VUTesterVistraHighlightsDiagnosticsSettings.h"
#include "diagnostics/VUTesterVistraKitObjectDiagnosticsTableViewCell.h"

#include <browsing/VUAspectFitImageView.h>
#include <photos/VHAssetChangeRequest.h>
#include <photos/VHPhotoLibrary.h>

#include "ui/NavigationController.h"
#include "ui/Settle.h"
#include "ui/Window.h"

#include <QLabel>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace std::chrono_literals;
using namespace photos::testing;

namespace {

// One trip day near Paris of eight photos (the one at noon a favourite, so the key asset), and
// a lone photo with no place nine days later.
class DiagnosticsTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        s_media = new QTemporaryDir;
        const auto library = VHPhotoLibrary::sharedPhotoLibrary();
        ASSERT_TRUE(library->open());
        for (int hour = 8; hour < 16; ++hour)
            addPhoto(QDateTime(QDate(2021, 7, 1), QTime(hour, 0)), std::make_pair(48.85, 2.30), hour == 12);
        addPhoto(QDateTime(QDate(2021, 7, 10), QTime(9, 0)), std::nullopt, false);
    }
    static void TearDownTestSuite() { delete s_media; }

    static void addPhoto(const QDateTime &date, std::optional<std::pair<double, double>> location, bool favorite)
    {
        const QString path = s_media->filePath(QStringLiteral("p%1.jpg").arg(s_counter++));
        ASSERT_TRUE(writePhoto(path, {QSize(48, 36), date, location, {}}));
        VHError error;
        ASSERT_TRUE(VHPhotoLibrary::sharedPhotoLibrary()->performChangesAndWait(
            [&] {
                auto *request = VHAssetCreationRequest::creationRequestForAsset();
                request->addResourceWithType(VHAssetResourceType::Photo, path);
                request->setFavorite(favorite);
            },
            &error))
            << error.debugDescription().toStdString();
    }

    static VHFetchResult<VHAssetCollection> days()
    {
        return VUTesterVistraHighlightsDiagnosticsSettings::fetchHighlights(VHAssetCollectionSubtypeHighlightDays);
    }

    static QString formatted(const QDateTime &date)
    {
        return VUTesterVistraKitObjectDiagnosticsContent::defaultDateFormatter().stringFromDate(date);
    }

    static QTemporaryDir *s_media;
    static int s_counter;
};

QTemporaryDir *DiagnosticsTest::s_media = nullptr;
int DiagnosticsTest::s_counter = 0;

using Content = VUTesterVistraKitObjectDiagnosticsContent;

TEST_F(DiagnosticsTest, CellTextForCollectionsAssetsAndOtherObjects)
{
    const auto formatter = Content::defaultDateFormatter();
    const VHAssetCollection trip = days().firstObject();
    const Content day = Content::contentForObject(trip, 0, 2, formatter);
    EXPECT_EQ(day.title, QStringLiteral("#0: Paris"));
    EXPECT_EQ(day.subtitle, trip.localizedSubtitle());
    EXPECT_EQ(day.propertyLines,
              QStringList({QStringLiteral("Date Range: %1 - %2").arg(formatted(trip.startDate()), formatted(trip.endDate())),
                           QStringLiteral("curated: ✅ enriched: ✅"),
                           QStringLiteral("promotionScore: %1").arg(trip.promotionScore(), 0, 'f', 3)}));
    // The thumbnail is the key asset: the favourite at noon.
    ASSERT_TRUE(day.thumbnailAsset.isValid());
    EXPECT_TRUE(day.thumbnailAsset.isFavorite());

    // The lone day is too small to be curated and has no place to enrich it.
    EXPECT_EQ(Content::contentForObject(days().lastObject(), 1, 2, formatter).propertyLines.value(1),
              QStringLiteral("curated: ❌ enriched: ❌"));

    // A highlight with nothing to say for itself, first of its section; unnumbered without a count.
    auto record = std::make_shared<photos::detail::CollectionRecord>(trip.record());
    record->title.clear();
    record->subtitle.clear();
    const VHAssetCollection untitled(trip.photoLibrary(), record);
    const Content numbered = Content::contentForObject(untitled, 0, 1, formatter);
    EXPECT_EQ(numbered.title, QStringLiteral("#0: <no title>"));
    EXPECT_EQ(numbered.subtitle, QStringLiteral("<no subtitle>"));
    EXPECT_EQ(Content::contentForObject(untitled, Content::kNotFound, 0, formatter).title, QStringLiteral("<no title>"));

    const VHAsset asset = VHAsset::fetchAssetsInAssetCollection(trip, {}).objectAtIndex(2);
    const Content assetContent = Content::contentForObject(asset, 2, 8, formatter);
    EXPECT_EQ(assetContent.title, QStringLiteral("#2"));
    EXPECT_TRUE(assetContent.subtitle.isEmpty());
    EXPECT_EQ(assetContent.propertyLines.value(0), QStringLiteral("Photo 48 × 36"));
    EXPECT_EQ(assetContent.propertyLines.value(1), QStringLiteral("Date: %1").arg(formatted(asset.creationDate())));
    EXPECT_EQ(assetContent.thumbnailAsset, asset);

    const Content other = Content::contentForObject(VUTesterDiagnosticsOtherObject{QStringLiteral("<VHMoment 0x1>")}, 1, 3, formatter);
    EXPECT_EQ(other.title, QStringLiteral("#1: <Unknown Object Type>"));
    EXPECT_EQ(other.propertyLines, QStringList{QStringLiteral("<VHMoment 0x1>")});
    EXPECT_FALSE(other.thumbnailAsset.isValid());

    // The cell lays out once the table has set object, index and count, and then shows the same.
    VUTesterVistraKitObjectDiagnosticsTableViewCell cell;
    cell.setObject(trip);
    cell.setIndex(0);
    cell.setCount(2);
    EXPECT_TRUE(cell.titleLabel()->text().isEmpty());
    QCoreApplication::processEvents();
    EXPECT_EQ(cell.titleLabel()->text(), day.title);
    EXPECT_EQ(cell.subtitleLabel()->text(), day.subtitle);
    EXPECT_EQ(cell.propertiesLabel()->text(), day.propertyLines.join('\n'));
    cell.setThumbnailImageRequestID(VHInvalidImageRequestID);
}

TEST_F(DiagnosticsTest, FiveSectionsCountTheHighlightsAssets)
{
    struct Expected {
        VHAssetCollection collection;
        QStringList titles;
    };
    const VHAssetCollection year =
        VUTesterVistraHighlightsDiagnosticsSettings::fetchHighlights(VHAssetCollectionSubtypeHighlightYears).firstObject();
    const Expected cases[] = {
        {days().firstObject(), {"Key Asset (1)", "Summary (6)", "Extended (8)", "Curated Assets (8)", "Assets (8)"}},
        {days().lastObject(), {"Key Asset (1)", "Summary (1)", "Extended (1)", "Curated Assets (1)", "Assets (1)"}},
        {year, {"Key Asset (1)", "Summary (6)", "Extended (9)", "Curated Assets (9)", "Assets (9)"}},
    };
    for (const Expected &expected : cases) {
        SCOPED_TRACE(expected.collection.localizedTitle().toStdString());
        VUTesterAssetCollectionDiagnosticsViewController controller(expected.collection);
        controller.view()->resize(390, 800);
        QStringList titles;
        for (const auto &section : controller.sections()) {
            titles << section.title();
            // Each counted title heads exactly the assets its rows show.
            EXPECT_TRUE(section.title().endsWith(QStringLiteral("(%1)").arg(section.assets().count())));
        }
        EXPECT_EQ(titles, expected.titles);
        EXPECT_EQ(controller.tableView()->numberOfSections(), 5);
        EXPECT_EQ(controller.tableView()->numberOfItemsInSection(4), controller.sections()[4].assets().count());
    }

    // The key asset's section holds the same asset its collection's cell shows as thumbnail.
    VUTesterAssetCollectionDiagnosticsViewController trip(days().firstObject());
    trip.view();
    EXPECT_EQ(trip.sections()[0].assets().firstObject(),
              Content::contentForObject(days().firstObject(), 0, 1, Content::defaultDateFormatter()).thumbnailAsset);
}

TEST_F(DiagnosticsTest, ReusedCellCancelsItsThumbnailAndShowsNoneOfIt)
{
    VHImageManager::defaultManager()->clearCache();
    const VHAssetCollection trip = days().firstObject();
    VUTesterVistraKitObjectDiagnosticsTableViewCell reused, kept;
    for (auto *cell : {&reused, &kept}) {
        cell->resize(390, 90);
        cell->setObject(trip);
        cell->setIndex(0);
        cell->setCount(1);
        cell->layoutIfNeeded();
        EXPECT_NE(cell->thumbnailImageRequestID(), VHInvalidImageRequestID);
    }
    reused.prepareForReuse();
    EXPECT_EQ(reused.thumbnailImageRequestID(), VHInvalidImageRequestID);
    EXPECT_EQ(reused.index(), Content::kNotFound);
    EXPECT_EQ(reused.count(), 0);
    ASSERT_TRUE(ui::Settle::waitUntilSettled(10s));
    // The cell left alone gets its picture; the reused one never gets the one it no longer wants.
    EXPECT_NE(kept.thumbnailImageView()->image(), nullptr);
    EXPECT_EQ(reused.thumbnailImageView()->image(), nullptr);
}

TEST_F(DiagnosticsTest, RowsOpenTheLevelAndThenTheCollection)
{
    const TWModulePtr module = VUTesterVistraHighlightsDiagnosticsSettings::settingsControllerModule();
    EXPECT_EQ(module->title(), QStringLiteral("Highlights"));
    QStringList titles;
    for (const TWRowPtr &row : module->sections().front().rows)
        titles << row->title();
    EXPECT_EQ(titles, QStringList({"Years", "Months", "DayGroups", "Days"}));

    ui::Window window;
    auto *root = new ui::ViewController;
    auto *navigation = new ui::NavigationController(root);
    window.setRootViewController(navigation);
    window.resize(390, 800);
    window.show();
    TWRow *daysRow = module->rowWithTitle(QStringLiteral("Days"));
    daysRow->rowAction()->perform({VUTesterVistraHighlightsDiagnosticsSettings::sharedInstance(), root, daysRow});
    ASSERT_TRUE(ui::Settle::waitUntilSettled(10s));
    auto *level = qobject_cast<VUTesterAssetCollectionFetchResultDiagnosticsViewController *>(navigation->topViewController());
    ASSERT_NE(level, nullptr);
    EXPECT_EQ(level->title(), QStringLiteral("Days"));
    ASSERT_EQ(level->fetchResult().count(), 2);
    EXPECT_LT(level->fetchResult().objectAtIndex(0).startDate(), level->fetchResult().objectAtIndex(1).startDate());
    // Two rows leave most of the table empty: it is the rows' colour down to the bottom.
    const QImage shown = level->view()->grab().toImage();
    const QColor rowColour = level->view()->palette().color(QPalette::Base);
    EXPECT_EQ(shown.pixelColor(shown.width() / 2, shown.height() - 10).rgb(), rowColour.rgb());
    EXPECT_EQ(shown.pixelColor(10, shown.height() / 2).rgb(), rowColour.rgb());

    const QList<ui::TappableRow> rows = level->tappableRows();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0].title, QStringLiteral("#0: Paris"));
    rows[0].tap();
    ASSERT_TRUE(ui::Settle::waitUntilSettled(10s));
    auto *collection = qobject_cast<VUTesterAssetCollectionDiagnosticsViewController *>(navigation->topViewController());
    ASSERT_NE(collection, nullptr);
    EXPECT_EQ(collection->title(), QStringLiteral("Paris"));
    EXPECT_EQ(collection->assetCollection(), level->fetchResult().firstObject());
}

TEST(DiagnosticsDeathTest, InitialisersOtherThanTheDesignatedOnesEndTheProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(VUTesterAssetCollectionFetchResultDiagnosticsViewController(), "use initWithFetchResult:, not init");
    EXPECT_DEATH(VUTesterAssetCollectionFetchResultDiagnosticsViewController(ui::TableViewStyle::Grouped),
                 "use initWithFetchResult:, not initWithStyle:");
    EXPECT_DEATH(VUTesterAssetCollectionDiagnosticsViewController(), "use initWithAssetCollection:, not init");
    EXPECT_DEATH(VUTesterAssetCollectionDiagnosticsViewController(ui::TableViewStyle::Plain), "use initWithAssetCollection:, not initWithStyle:");
}

} // namespace
