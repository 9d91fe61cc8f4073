#include "playgrounds/wallpaper/VUTesterLiveWallpaperSettings.h"

#include "playgrounds/wallpaper/VUTesterLiveWallpaperPlaygroundViewController.h"

VUTesterLiveWallpaperSettings::VUTesterLiveWallpaperSettings()
{
    declareKey(QStringLiteral("stirShotIndex"), Kind::Int64);
    declareKey(QStringLiteral("motionDepth"), Kind::Double);
    declareKey(QStringLiteral("showsClock"), Kind::Bool);
    declareKey(QStringLiteral("playsOnPress"), Kind::Bool);
}

void VUTesterLiveWallpaperSettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    setStirShotIndex(0);
    setMotionDepth(20);
    setShowsClock(true);
    setPlaysOnPress(true);
}

TWModulePtr VUTesterLiveWallpaperSettings::settingsControllerModule()
{
    auto index = TWSliderRow::rowWithTitle(QStringLiteral("Stir Shot (Newest First)"), QStringLiteral("stirShotIndex"));
    index->minValue(0, 50)->vu_increment(1);
    auto depth = TWSliderRow::rowWithTitle(QStringLiteral("Motion Depth"), QStringLiteral("motionDepth"));
    depth->minValue(0, 60)->vu_increment(2);
    return TWModule::moduleWithTitle(QStringLiteral("Live Wallpaper"), {
        TWSection::sectionWithRows({playgroundRow(QStringLiteral("Test Live Wallpaper"),
                                                  [] { return new VUTesterLiveWallpaperPlaygroundViewController(sharedInstance()); })}),
        TWSection::sectionWithRows({index, depth, TWSwitchRow::rowWithTitle(QStringLiteral("Clock"), QStringLiteral("showsClock")),
                                    TWSwitchRow::rowWithTitle(QStringLiteral("Press to Play"), QStringLiteral("playsOnPress"))},
                                   QStringLiteral("Wallpaper")),
        restoreDefaultsSection(),
    });
}
