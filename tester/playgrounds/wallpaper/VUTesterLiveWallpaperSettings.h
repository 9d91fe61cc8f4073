#pragma once
// Options of the Live Wallpaper playground: which Stir Shot of the library is the wallpaper, how
// deep its motion goes, and whether the clock shows and a press plays the movie.

#include "shell/VUTesterSettings.h"

class VUTESTER_EXPORT VUTesterLiveWallpaperSettings : public VUTesterChildSettings<VUTesterLiveWallpaperSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "liveWallpaperSettings";

    VUTesterLiveWallpaperSettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    // Which Stir Shot, newest first.
    qint64 stirShotIndex() const { return int64Value(QStringLiteral("stirShotIndex")); }
    void setStirShotIndex(qint64 index) { setValue(QStringLiteral("stirShotIndex"), QVariant::fromValue(index)); }
    // Points the picture may move away from rest.
    double motionDepth() const { return doubleValue(QStringLiteral("motionDepth")); }
    void setMotionDepth(double points) { setValue(QStringLiteral("motionDepth"), points); }
    bool showsClock() const { return boolValue(QStringLiteral("showsClock")); }
    void setShowsClock(bool shows) { setValue(QStringLiteral("showsClock"), shows); }
    bool playsOnPress() const { return boolValue(QStringLiteral("playsOnPress")); }
    void setPlaysOnPress(bool plays) { setValue(QStringLiteral("playsOnPress"), plays); }
};
