#include "QtPrinters.h"

#include "filler/VUTesterLibraryFillerSettings.h"
#include "shell/VUTesterRootSettings.h"
#include "shell/VUTesterVersion.h"

#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstring>

namespace {

class TransientProbe : public VUTesterSettings {
public:
    TransientProbe()
    {
        for (const char *key : {"internalProgressTitle", "internal", "notinternalYet", "Internalized", "visible"})
            declareKey(QString::fromLatin1(key), Kind::String);
    }
};

const char *const kChildKeys[] = {
    "vistraHighlightsDiagnosticsSettings", "libraryFillerSettings", "vexoSettings", "imagePickerSettings", "videoEditorSettings",
    "imageManagerSettings", "stirShotViewSettings", "sharingSettings", "oneUpPresentationSettings", "videoScrubberSettings",
    "swipeDownSettings", "vistraPickerSettings", "activityProgressSettings", "videoOverlayButtonSettings", "latticerPlaygroundSettings",
    "exploreLayoutPlaygroundSettings", "yearsMonthsLayoutsPlaygroundSettings", "contextualNotificationsSettings", "storyletsRelatedSettings",
    "tilingViewSettings", "viewSettings", "animationsSettings", "transitionSettings", "userTransformsSettings", "lumoSettings",
    "liveWallpaperSettings", "valueFiltersSettings", "sampleAccessorViewSettings"};

// The class of each child, in the same order.
const char *const kChildClasses[] = {
    "VUTesterVistraHighlightsDiagnosticsSettings", "VUTesterLibraryFillerSettings", "VUTesterVexoSettings", "VUTesterImagePickerSettings",
    "VUTesterVideoEditorSettings", "VUTesterImageManagerSettings", "VUTesterStirShotViewSettings", "VUTesterSharingSettings",
    "VUTesterOneUpPresentationSettings", "VUTesterVideoScrubberSettings", "VUTesterSwipeDownSettings", "VUTesterVistraPickerSettings",
    "VUTesterActivitySettings", "VUTesterVideoOverlayButtonSettings", "VUTesterLatticerPlaygroundSettings", "VUTesterExploreLayoutSettings",
    "VUTesterYearsMonthsLayoutsSettings", "VUTesterContextualNotificationsSettings", "VUTesterStoryletsRelatedSettings",
    "VUTesterTilingViewSettings", "VUTesterViewSettings", "VUTesterAnimationsSettings", "VUTesterTransitionSettings",
    "VUTesterUserTransformsSettings", "VUTesterLumoSettings", "VUTesterLiveWallpaperSettings", "VUTesterValueFiltersSettings",
    "VUTesterSampleAccessoryViewSettings"};

struct TreeFixture : ::testing::Test {
    QTemporaryDir dir;
    QString path;
    void SetUp() override
    {
        path = dir.filePath(QStringLiteral("settings.json"));
        TWSettings::setArchivePath(path);
    }
    void TearDown() override { TWSettings::setArchivePath(QString()); }
};

QStringList rowTitles(const TWSection &section)
{
    QStringList titles;
    for (const TWRowPtr &row : section.rows)
        titles << row->title();
    return titles;
}

} // namespace

TEST(VUTesterSettings, InternalPrefixIsCaseSensitiveAndOnlyAPrefix)
{
    TransientProbe probe;
    for (const TWSettings::KeyInfo &info : probe.keys())
        probe.setValueForKey(QStringLiteral("value"), info.key);
    const QJsonObject archive = probe.archive();
    EXPECT_FALSE(archive.contains(QStringLiteral("internalProgressTitle")));
    EXPECT_FALSE(archive.contains(QStringLiteral("internal")));
    EXPECT_TRUE(archive.contains(QStringLiteral("notinternalYet")));
    EXPECT_TRUE(archive.contains(QStringLiteral("Internalized")));
    EXPECT_TRUE(archive.contains(QStringLiteral("visible")));

    TransientProbe restored;
    restored.applyArchive(QJsonObject{{QStringLiteral("internalProgressTitle"), QStringLiteral("stored")},
                                      {QStringLiteral("visible"), QStringLiteral("stored")}});
    EXPECT_TRUE(restored.valueForKey(QStringLiteral("internalProgressTitle")).toString().isEmpty());
    EXPECT_EQ(restored.valueForKey(QStringLiteral("visible")).toString(), QStringLiteral("stored"));
}

TEST_F(TreeFixture, RootOwnsItsChildrenInDeclarationOrderAndSharedInstancesAreThoseChildren)
{
    VUTesterRootSettings *root = VUTesterRootSettings::sharedInstance();
    EXPECT_EQ(root, VUTesterRootSettings::sharedInstance());
    EXPECT_EQ(root->parentSettings(), nullptr);
    QStringList keys;
    for (const TWSettings::KeyInfo &info : root->keys())
        keys << info.key;
    QStringList expected;
    for (const char *key : kChildKeys)
        expected << QString::fromLatin1(key);
    EXPECT_EQ(keys, expected);
    for (TWSettings *child : root->childSettingsList())
        EXPECT_EQ(child->parentSettings(), root) << child->keyPath().toStdString();
    EXPECT_EQ(VUTesterLibraryFillerSettings::sharedInstance(), root->libraryFillerSettings());
    EXPECT_EQ(VUTesterSwipeDownSettings::sharedInstance(), root->swipeDownSettings());
    EXPECT_EQ(VUTesterActivitySettings::sharedInstance(), root->activityProgressSettings());
    EXPECT_EQ(VUTesterSampleAccessoryViewSettings::sharedInstance(), root->sampleAccessorViewSettings());
}

TEST(VUTesterRootSettings, EveryChildReportsItsOwnClass)
{
    VUTesterRootSettings root;
    const QList<TWSettings *> children = root.childSettingsList();
    ASSERT_EQ(children.size(), qsizetype(std::size(kChildClasses)));
    for (qsizetype i = 0; i < children.size(); ++i)
        EXPECT_STREQ(children[i]->metaObject()->className(), kChildClasses[i]) << kChildKeys[i];
}

TEST(VUTesterRootSettingsDeathTest, CopyingBetweenTwoPlaygroundClassesEndsTheProcess)
{
    VUTesterRootSettings root;
    EXPECT_DEATH(root.swipeDownSettings()->copyValuesFrom(*root.sharingSettings()), "cannot copy a VUTesterSharingSettings into a VUTesterSwipeDownSettings");
}

TEST_F(TreeFixture, DefaultsFirstThenSavedValuesButNeverTransientOnes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"animationsSettings.duration": 7.5, "libraryFillerSettings.media": 2,
                   "libraryFillerSettings.internalCancelable": true, "libraryFillerSettings.internalProgressTitle": "Progress: 12%"})");
    file.close();
    std::unique_ptr<VUTesterRootSettings> root(TWSettings::createSharedInstance<VUTesterRootSettings>());
    EXPECT_EQ(root->animationsSettings()->duration(), 7.5);
    EXPECT_EQ(root->animationsSettings()->springDampingRatio(), 0.5) << "missing keys keep their defaults";
    EXPECT_EQ(root->libraryFillerSettings()->media(), 2);
    EXPECT_FALSE(root->libraryFillerSettings()->internalCancelable());
    EXPECT_TRUE(root->libraryFillerSettings()->internalProgressTitle().isEmpty());
}

TEST_F(TreeFixture, RestoringAChildResetsOnlyItAndTheRootResetsAllKeepingIdentity)
{
    std::unique_ptr<VUTesterRootSettings> root(TWSettings::createSharedInstance<VUTesterRootSettings>());
    VUTesterAnimationsSettings *animations = root->animationsSettings();
    VUTesterLibraryFillerSettings *filler = root->libraryFillerSettings();
    animations->setDuration(9);
    filler->setLongSide(800);

    TWModulePtr animationsModule = VUTesterAnimationsSettings::settingsControllerModule();
    animationsModule->rowWithTitle(QStringLiteral("Restore Defaults"))->rowAction()->perform({animations, nullptr, nullptr});
    EXPECT_EQ(animations->duration(), 2.0);
    EXPECT_EQ(filler->longSide(), 800);

    animations->setDuration(9);
    VUTesterRootSettings::settingsControllerModule()->rowWithTitle(QStringLiteral("Restore All Defaults"))->rowAction()->perform({root.get(), nullptr, nullptr});
    EXPECT_EQ(animations->duration(), 2.0);
    EXPECT_EQ(filler->longSide(), 3200);
    EXPECT_EQ(root->animationsSettings(), animations) << "restoring changes values, never objects";
}

TEST(VUTesterRootSettings, RootModuleHasTheSixSectionsInOrder)
{
    const TWModulePtr module = VUTesterRootSettings::settingsControllerModule();
    EXPECT_EQ(module->title(), QStringLiteral("VistraUITester"));
    ASSERT_EQ(module->sections().size(), 6u);
    const QStringList titles{QStringLiteral("Diagnostics"), QStringLiteral("Utilities"), QStringLiteral("API"), QStringLiteral("SPI"),
                             QStringLiteral("Playgrounds"), QString()};
    for (size_t i = 0; i < 6; ++i)
        EXPECT_EQ(module->sections()[i].title, titles[int(i)]);
    EXPECT_EQ(rowTitles(module->sections()[1]), (QStringList{QStringLiteral("Request Access"), QStringLiteral("Library Filler"), QStringLiteral("Vexo")}));
    EXPECT_EQ(rowTitles(module->sections()[3]),
              (QStringList{QStringLiteral("1-Up Presentation"), QStringLiteral("Video Scrubber"), QStringLiteral("Swipe Down"),
                           QStringLiteral("Vistra Picker"), QStringLiteral("Activity Controller"), QStringLiteral("Video Overlay Button")}));
    EXPECT_EQ(module->sections()[4].rows.size(), 13u);
    EXPECT_EQ(rowTitles(module->sections()[5]), QStringList{QStringLiteral("Restore All Defaults")});
}

// Every drill-down of the root opens a module titled like the row (the velocity filter screen
// keeps its family's title) and closing with "Restore Defaults".
TEST_F(TreeFixture, EveryChildModuleIsTitledByItsRowAndEndsWithRestoreDefaults)
{
    std::unique_ptr<VUTesterRootSettings> root(TWSettings::createSharedInstance<VUTesterRootSettings>());
    int drillDowns = 0;
    const TWModulePtr rootModule = VUTesterRootSettings::settingsControllerModule();
    for (const TWSection &section : rootModule->sections()) {
        for (const TWRowPtr &row : section.rows) {
            if (row->kind() != TWRow::Kind::DrillDown)
                continue;
            ++drillDowns;
            TWSettings *child = root->settingsForKeyPath(row->valueKeyPath());
            ASSERT_TRUE(child) << row->valueKeyPath().toStdString();
            const TWModulePtr module = child->settingsModule();
            ASSERT_TRUE(module);
            const QString expectedTitle = row->title() == QLatin1String("Value Filters") ? QStringLiteral("Animations") : row->title();
            EXPECT_EQ(module->title(), expectedTitle);
            const TWSection &last = module->sections().back();
            ASSERT_FALSE(last.rows.empty());
            EXPECT_EQ(last.rows.back()->title(), QStringLiteral("Restore Defaults")) << module->title().toStdString();
            EXPECT_TRUE(std::dynamic_pointer_cast<TWRestoreDefaultSettingsRowAction>(last.rows.back()->rowAction())) << module->title().toStdString();
        }
    }
    EXPECT_EQ(drillDowns, 27) << "every child but the sample accessory view has a row";
}

// The rows of every screen bound the values of their keys: what they offer is taken, a value past
// a slider's bounds or beside a choice's values is not, and defaults and presets are offered ones.
TEST_F(TreeFixture, EveryRowBoundsItsKeyAndDefaultsAndPresetsAreWithinTheRows)
{
    std::unique_ptr<VUTesterRootSettings> root(TWSettings::createSharedInstance<VUTesterRootSettings>());
    const auto expectOfferedValues = [](const TWSettings *settings) {
        for (const TWSettings::KeyInfo &info : settings->keys()) {
            QVariant value = settings->valueForKey(info.key);
            QString error;
            EXPECT_TRUE(settings->validateValue(&value, info.key, &error)) << settings->keyPath().toStdString() << "." << info.key.toStdString() << ": " << error.toStdString();
        }
    };
    int bounded = 0;
    for (TWSettings *settings : root->childSettingsList()) {
        expectOfferedValues(settings);
        const TWModulePtr module = settings->settingsModule();
        for (const TWSection &section : module->sections()) {
            for (const TWRowPtr &row : section.rows) {
                const std::string where = (settings->keyPath() + QLatin1Char('.') + row->valueKeyPath()).toStdString();
                QVariant inside, outside;
                if (auto *choice = dynamic_cast<const TWChoiceRow *>(row.get())) {
                    if (choice->values().value(0).typeId() == QMetaType::Bool)
                        continue;
                    for (QVariant value : choice->values())
                        EXPECT_TRUE(settings->validateValue(&value, row->valueKeyPath())) << where << " " << value.toString().toStdString();
                    inside = choice->values().first();
                    // A number past every value offered (-1 is a value of some rows).
                    double largest = -1;
                    for (const QVariant &value : choice->values())
                        largest = std::max(largest, value.toDouble());
                    outside = largest + 1;
                } else if (auto *slider = dynamic_cast<const TWSliderRow *>(row.get())) {
                    inside = slider->maximum();
                    outside = slider->maximum() + 1;
                } else {
                    continue;
                }
                ++bounded;
                QString error;
                EXPECT_TRUE(settings->validateValue(&inside, row->valueKeyPath(), &error)) << where << ": " << error.toStdString();
                EXPECT_FALSE(settings->validateValue(&outside, row->valueKeyPath(), &error)) << where;
            }
        }
    }
    EXPECT_GE(bounded, 20);

    VUTesterLibraryFillerSettings *filler = root->libraryFillerSettings();
    for (const QString &preset : VUTesterLibraryFillerSettings::presetTitles()) {
        ASSERT_TRUE(filler->applyPreset(preset));
        expectOfferedValues(filler);
    }
}

TEST(VUTesterLibraryFillerSettings, PossibleValuesLeaveOutTheSentinelsAndUnknownKeysGiveNothing)
{
    QVariantList values;
    QStringList titles;
    VUTesterLibraryFillerSettings::getPossibleValues(&values, &titles, QStringLiteral("aspectRatio"));
    ASSERT_EQ(values.size(), 8);
    EXPECT_EQ(values[3].toDouble(), 1.3333333730697632);
    EXPECT_EQ(titles[1], QStringLiteral("4 × 1 Pano"));
    VUTesterLibraryFillerSettings::getPossibleValues(nullptr, &titles, QStringLiteral("imageOrientation"));
    EXPECT_EQ(titles.last(), QStringLiteral("Right Mirrored"));
    values = {1};
    titles = {QStringLiteral("x")};
    VUTesterLibraryFillerSettings::getPossibleValues(&values, &titles, QStringLiteral("longSide"));
    EXPECT_TRUE(values.isEmpty());
    EXPECT_TRUE(titles.isEmpty());

    const TWModulePtr module = VUTesterLibraryFillerSettings::settingsControllerModule();
    auto *media = dynamic_cast<TWChoiceRow *>(module->rowWithTitle(QStringLiteral("Media")));
    ASSERT_TRUE(media);
    EXPECT_EQ(media->titles().mid(0, 3), (QStringList{QStringLiteral("Enumerate"), QStringLiteral("Random"), QStringLiteral("Photo")}));
    auto *ratio = dynamic_cast<TWChoiceRow *>(module->rowWithTitle(QStringLiteral("Aspect Ratio")));
    EXPECT_EQ(ratio->values()[0].typeId(), QMetaType::Double) << "the aspect ratio's sentinels are doubles";
    auto *destination = dynamic_cast<TWChoiceRow *>(module->rowWithTitle(QStringLiteral("Destination")));
    EXPECT_EQ(destination->titles(), (QStringList{QStringLiteral("Library"), QStringLiteral("File Backed")}));
}

TEST_F(TreeFixture, PresetsSetTheirKeysAndLeaveDestinationAndLocationAlone)
{
    std::unique_ptr<VUTesterRootSettings> root(TWSettings::createSharedInstance<VUTesterRootSettings>());
    VUTesterLibraryFillerSettings *filler = root->libraryFillerSettings();
    filler->setFillDestination(1);
    filler->setLocation(TWLocationValue(10, 20));
    filler->setLocationRadius(500);
    ASSERT_TRUE(filler->applyPreset(QStringLiteral("Panos")));
    EXPECT_EQ(filler->numberOfAssetsToAdd(), VUTesterLibraryFillerSettings::kAutomaticNumberOfAssets);
    EXPECT_EQ(filler->media(), 0);
    EXPECT_EQ(filler->orientation(), VUTesterLibraryFillerSettings::kEnumerate);
    EXPECT_EQ(filler->aspectRatio(), 4.0);
    EXPECT_EQ(filler->longSide(), 12000);
    EXPECT_EQ(filler->content(), 2);
    EXPECT_EQ(filler->imageOrientation(), 0);
    ASSERT_TRUE(filler->applyPreset(QStringLiteral("Random Assets")));
    EXPECT_EQ(filler->aspectRatio(), 1001.0);
    EXPECT_EQ(filler->numberOfAssetsToAdd(), 50);
    EXPECT_EQ(filler->fillDestination(), 1);
    EXPECT_FALSE(filler->location().isNull());
    EXPECT_EQ(filler->locationRadius(), 500);
    EXPECT_FALSE(filler->applyPreset(QStringLiteral("No Such Preset")));
    filler->setLongSide(100);
    ASSERT_TRUE(filler->applyPreset(QStringLiteral("photos for 1:1 ZOOM testing"))) << "titles match in any case";
    EXPECT_EQ(filler->longSide(), 8000);
}

TEST_F(TreeFixture, LocationIsSetFollowsTheLocationWhateverSetsIt)
{
    std::unique_ptr<VUTesterRootSettings> root(TWSettings::createSharedInstance<VUTesterRootSettings>());
    VUTesterLibraryFillerSettings *filler = root->libraryFillerSettings();
    EXPECT_FALSE(filler->internalLocationIsSet());
    ASSERT_TRUE(root->validateAndSetValueForKeyPath(TWLocationValue(46.5, 6.6), QStringLiteral("libraryFillerSettings.location")));
    EXPECT_TRUE(filler->internalLocationIsSet());
    filler->locationDidChange(nullptr, QVariant());
    EXPECT_FALSE(filler->internalLocationIsSet());
    filler->setLocation(TWLocationValue(-33.9, 18.4));
    ASSERT_TRUE(root->save());

    std::unique_ptr<VUTesterRootSettings> relaunched(TWSettings::createSharedInstance<VUTesterRootSettings>());
    EXPECT_TRUE(relaunched->libraryFillerSettings()->internalLocationIsSet()) << "a saved location is set after a relaunch";
    relaunched->libraryFillerSettings()->restoreDefaultValuesRecursively();
    EXPECT_FALSE(relaunched->libraryFillerSettings()->internalLocationIsSet());
}

TEST(VUTesterExports, VersionSymbolsHaveTheirValues)
{
    EXPECT_STREQ(VistraUITesterVersionString, "@(#)PROGRAM:VistraUITester  PROJECT:Fotoreel-1\n");
    EXPECT_EQ(VistraUITesterVersionNumber, 1.0);
    EXPECT_EQ(VUTesterBeamcastScreenBorderSize, 1.0);
    EXPECT_STREQ(VUTesterSharingSettingsPickedAssetLocalIdentifiersKey, "VUTesterSharingSettingsPickedAssetLocalIdentifiersKey");
}
