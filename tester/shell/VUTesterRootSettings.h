#pragma once
// The trunk of the settings tree: one child settings object per property, in this order. The
// property names are the persistent keys and the key paths of the drill-down rows.

#include "shell/VUTesterSettings.h"

#include "diagnostics/VUTesterVistraHighlightsDiagnosticsSettings.h"
#include "filler/VUTesterLibraryFillerSettings.h"
#include "layouts/VUTesterLayoutGeneratorPlaygroundSettings.h"
#include "layouts/VUTesterTilingViewSettings.h"
#include "perf/VUTesterAnimationsSettings.h"
#include "perf/VUTesterValueFiltersSettings.h"
#include "perf/VUTesterVexoSettings.h"
#include "playgrounds/VUTesterPlaygroundSettings.h"
#include "playgrounds/activity/VUTesterActivitySettings.h"
#include "playgrounds/notifications/VUTesterContextualNotificationsSettings.h"
#include "playgrounds/oneup/VUTesterOneUpPresentationSettings.h"
#include "playgrounds/overlay/VUTesterVideoOverlayButtonSettings.h"
#include "playgrounds/scrubber/VUTesterVideoScrubberSettings.h"
#include "playgrounds/swipedown/VUTesterSwipeDownSettings.h"
#include "playgrounds/transition/VUTesterTransitionSettings.h"
#include "playgrounds/usertransforms/VUTesterUserTransformsSettings.h"
#include "playgrounds/views/VUTesterViewSettings.h"
#include "playgrounds/wallpaper/VUTesterLiveWallpaperSettings.h"
#include "review/VUTesterStoryletsRelatedSettings.h"

class VUTESTER_EXPORT VUTesterRootSettings : public VUTesterSettings {
    Q_OBJECT
public:
    // Use sharedInstance(); a root made directly is a separate tree (tests make their own).
    VUTesterRootSettings();

    // Creates the tree once, applying defaults and then the saved values.
    static VUTesterRootSettings *sharedInstance();
    static TWModulePtr settingsControllerModule();
    TWSettings *parentSettings() const override { return nullptr; }
    std::shared_ptr<TWModule> settingsModule() const override { return settingsControllerModule(); }

    VUTesterVistraHighlightsDiagnosticsSettings *vistraHighlightsDiagnosticsSettings() const { return static_cast<VUTesterVistraHighlightsDiagnosticsSettings *>(childSettings(QStringLiteral("vistraHighlightsDiagnosticsSettings"))); }
    VUTesterLibraryFillerSettings *libraryFillerSettings() const { return static_cast<VUTesterLibraryFillerSettings *>(childSettings(QStringLiteral("libraryFillerSettings"))); }
    VUTesterVexoSettings *vexoSettings() const { return static_cast<VUTesterVexoSettings *>(childSettings(QStringLiteral("vexoSettings"))); }
    VUTesterImagePickerSettings *imagePickerSettings() const { return static_cast<VUTesterImagePickerSettings *>(childSettings(QStringLiteral("imagePickerSettings"))); }
    VUTesterVideoEditorSettings *videoEditorSettings() const { return static_cast<VUTesterVideoEditorSettings *>(childSettings(QStringLiteral("videoEditorSettings"))); }
    VUTesterImageManagerSettings *imageManagerSettings() const { return static_cast<VUTesterImageManagerSettings *>(childSettings(QStringLiteral("imageManagerSettings"))); }
    VUTesterStirShotViewSettings *stirShotViewSettings() const { return static_cast<VUTesterStirShotViewSettings *>(childSettings(QStringLiteral("stirShotViewSettings"))); }
    VUTesterSharingSettings *sharingSettings() const { return static_cast<VUTesterSharingSettings *>(childSettings(QStringLiteral("sharingSettings"))); }
    VUTesterOneUpPresentationSettings *oneUpPresentationSettings() const { return static_cast<VUTesterOneUpPresentationSettings *>(childSettings(QStringLiteral("oneUpPresentationSettings"))); }
    VUTesterVideoScrubberSettings *videoScrubberSettings() const { return static_cast<VUTesterVideoScrubberSettings *>(childSettings(QStringLiteral("videoScrubberSettings"))); }
    VUTesterSwipeDownSettings *swipeDownSettings() const { return static_cast<VUTesterSwipeDownSettings *>(childSettings(QStringLiteral("swipeDownSettings"))); }
    VUTesterVistraPickerSettings *vistraPickerSettings() const { return static_cast<VUTesterVistraPickerSettings *>(childSettings(QStringLiteral("vistraPickerSettings"))); }
    VUTesterActivitySettings *activityProgressSettings() const { return static_cast<VUTesterActivitySettings *>(childSettings(QStringLiteral("activityProgressSettings"))); }
    VUTesterVideoOverlayButtonSettings *videoOverlayButtonSettings() const { return static_cast<VUTesterVideoOverlayButtonSettings *>(childSettings(QStringLiteral("videoOverlayButtonSettings"))); }
    VUTesterLatticerPlaygroundSettings *latticerPlaygroundSettings() const { return static_cast<VUTesterLatticerPlaygroundSettings *>(childSettings(QStringLiteral("latticerPlaygroundSettings"))); }
    VUTesterExploreLayoutSettings *exploreLayoutPlaygroundSettings() const { return static_cast<VUTesterExploreLayoutSettings *>(childSettings(QStringLiteral("exploreLayoutPlaygroundSettings"))); }
    VUTesterYearsMonthsLayoutsSettings *yearsMonthsLayoutsPlaygroundSettings() const { return static_cast<VUTesterYearsMonthsLayoutsSettings *>(childSettings(QStringLiteral("yearsMonthsLayoutsPlaygroundSettings"))); }
    VUTesterContextualNotificationsSettings *contextualNotificationsSettings() const { return static_cast<VUTesterContextualNotificationsSettings *>(childSettings(QStringLiteral("contextualNotificationsSettings"))); }
    VUTesterStoryletsRelatedSettings *storyletsRelatedSettings() const { return static_cast<VUTesterStoryletsRelatedSettings *>(childSettings(QStringLiteral("storyletsRelatedSettings"))); }
    VUTesterTilingViewSettings *tilingViewSettings() const { return static_cast<VUTesterTilingViewSettings *>(childSettings(QStringLiteral("tilingViewSettings"))); }
    VUTesterViewSettings *viewSettings() const { return static_cast<VUTesterViewSettings *>(childSettings(QStringLiteral("viewSettings"))); }
    VUTesterAnimationsSettings *animationsSettings() const { return static_cast<VUTesterAnimationsSettings *>(childSettings(QStringLiteral("animationsSettings"))); }
    VUTesterTransitionSettings *transitionSettings() const { return static_cast<VUTesterTransitionSettings *>(childSettings(QStringLiteral("transitionSettings"))); }
    VUTesterUserTransformsSettings *userTransformsSettings() const { return static_cast<VUTesterUserTransformsSettings *>(childSettings(QStringLiteral("userTransformsSettings"))); }
    VUTesterLumoSettings *lumoSettings() const { return static_cast<VUTesterLumoSettings *>(childSettings(QStringLiteral("lumoSettings"))); }
    VUTesterLiveWallpaperSettings *liveWallpaperSettings() const { return static_cast<VUTesterLiveWallpaperSettings *>(childSettings(QStringLiteral("liveWallpaperSettings"))); }
    VUTesterValueFiltersSettings *valueFiltersSettings() const { return static_cast<VUTesterValueFiltersSettings *>(childSettings(QStringLiteral("valueFiltersSettings"))); }
    VUTesterSampleAccessoryViewSettings *sampleAccessorViewSettings() const { return static_cast<VUTesterSampleAccessoryViewSettings *>(childSettings(QStringLiteral("sampleAccessorViewSettings"))); }
};
