#include "shell/VUTesterRootSettings.h"

#include "photos/VHPhotoLibrary.h"

#include <QLoggingCategory>

Q_LOGGING_CATEGORY(lcShell, "vistra.shell")


VUTesterRootSettings::VUTesterRootSettings()
{
    declareChild(QStringLiteral("vistraHighlightsDiagnosticsSettings"), new VUTesterVistraHighlightsDiagnosticsSettings);
    declareChild(QStringLiteral("libraryFillerSettings"), new VUTesterLibraryFillerSettings);
    declareChild(QStringLiteral("vexoSettings"), new VUTesterVexoSettings);
    declareChild(QStringLiteral("imagePickerSettings"), new VUTesterImagePickerSettings);
    declareChild(QStringLiteral("videoEditorSettings"), new VUTesterVideoEditorSettings);
    declareChild(QStringLiteral("imageManagerSettings"), new VUTesterImageManagerSettings);
    declareChild(QStringLiteral("stirShotViewSettings"), new VUTesterStirShotViewSettings);
    declareChild(QStringLiteral("sharingSettings"), new VUTesterSharingSettings);
    declareChild(QStringLiteral("oneUpPresentationSettings"), new VUTesterOneUpPresentationSettings);
    declareChild(QStringLiteral("videoScrubberSettings"), new VUTesterVideoScrubberSettings);
    declareChild(QStringLiteral("swipeDownSettings"), new VUTesterSwipeDownSettings);
    declareChild(QStringLiteral("vistraPickerSettings"), new VUTesterVistraPickerSettings);
    declareChild(QStringLiteral("activityProgressSettings"), new VUTesterActivitySettings);
    declareChild(QStringLiteral("videoOverlayButtonSettings"), new VUTesterVideoOverlayButtonSettings);
    declareChild(QStringLiteral("latticerPlaygroundSettings"), new VUTesterLatticerPlaygroundSettings);
    declareChild(QStringLiteral("exploreLayoutPlaygroundSettings"), new VUTesterExploreLayoutSettings);
    declareChild(QStringLiteral("yearsMonthsLayoutsPlaygroundSettings"), new VUTesterYearsMonthsLayoutsSettings);
    declareChild(QStringLiteral("contextualNotificationsSettings"), new VUTesterContextualNotificationsSettings);
    declareChild(QStringLiteral("storyletsRelatedSettings"), new VUTesterStoryletsRelatedSettings);
    declareChild(QStringLiteral("tilingViewSettings"), new VUTesterTilingViewSettings);
    declareChild(QStringLiteral("viewSettings"), new VUTesterViewSettings);
    declareChild(QStringLiteral("animationsSettings"), new VUTesterAnimationsSettings);
    declareChild(QStringLiteral("transitionSettings"), new VUTesterTransitionSettings);
    declareChild(QStringLiteral("userTransformsSettings"), new VUTesterUserTransformsSettings);
    declareChild(QStringLiteral("lumoSettings"), new VUTesterLumoSettings);
    declareChild(QStringLiteral("liveWallpaperSettings"), new VUTesterLiveWallpaperSettings);
    declareChild(QStringLiteral("valueFiltersSettings"), new VUTesterValueFiltersSettings);
    declareChild(QStringLiteral("sampleAccessorViewSettings"), new VUTesterSampleAccessoryViewSettings);
}

VUTesterRootSettings *VUTesterRootSettings::sharedInstance()
{
    static VUTesterRootSettings *const instance = createSharedInstance<VUTesterRootSettings>();
    return instance;
}
TWModulePtr VUTesterRootSettings::settingsControllerModule()
{
    auto drill = [](const char *title, const char *key) -> TWRowPtr {
        return TWDrillDownRow::rowWithTitle(QString::fromUtf8(title), QString::fromLatin1(key));
    };
    return TWModule::moduleWithTitle(QStringLiteral("VistraUITester"), {
        TWSection::sectionWithRows({drill("Highlights", "vistraHighlightsDiagnosticsSettings")}, QStringLiteral("Diagnostics")),
        TWSection::sectionWithRows({TWButtonRow::vu_rowWithTitle(QStringLiteral("Request Access"), [](ui::ViewController *) {
                                        VHPhotoLibrary::requestAuthorization([](VHAuthorizationStatus status) {
                                            qCInfo(lcShell).noquote() << QStringLiteral("authorization status: %1").arg(int(status));
                                        });
                                    }),
                                    drill("Library Filler", "libraryFillerSettings"),
                                    drill("Vexo", "vexoSettings")},
                                   QStringLiteral("Utilities")),
        TWSection::sectionWithRows({drill("Image Picker", "imagePickerSettings"),
                                    drill("Video Editor", "videoEditorSettings"),
                                    drill("Image Manager", "imageManagerSettings"),
                                    drill("Stir Shot View", "stirShotViewSettings"),
                                    drill("Sharing", "sharingSettings")},
                                   QStringLiteral("API")),
        TWSection::sectionWithRows({drill("1-Up Presentation", "oneUpPresentationSettings"),
                                    drill("Video Scrubber", "videoScrubberSettings"),
                                    drill("Swipe Down", "swipeDownSettings"),
                                    drill("Vistra Picker", "vistraPickerSettings"),
                                    drill("Activity Controller", "activityProgressSettings"),
                                    drill("Video Overlay Button", "videoOverlayButtonSettings")},
                                   QStringLiteral("SPI")),
        TWSection::sectionWithRows({drill("Latticer Playground", "latticerPlaygroundSettings"),
                                    drill("Explore Layout", "exploreLayoutPlaygroundSettings"),
                                    drill("Years & Months Layouts", "yearsMonthsLayoutsPlaygroundSettings"),
                                    drill("Contextual Notifications", "contextualNotificationsSettings"),
                                    drill("Storylets & Related", "storyletsRelatedSettings"),
                                    drill("Tiling View", "tilingViewSettings"),
                                    drill("Views", "viewSettings"),
                                    drill("Animations", "animationsSettings"),
                                    drill("Transition", "transitionSettings"),
                                    drill("User Transforms", "userTransformsSettings"),
                                    drill("Stir Shots", "lumoSettings"),
                                    drill("Live Wallpaper", "liveWallpaperSettings"),
                                    drill("Value Filters", "valueFiltersSettings")},
                                   QStringLiteral("Playgrounds")),
        restoreDefaultsSection(QStringLiteral("Restore All Defaults")),
    });
}
