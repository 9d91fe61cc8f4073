#pragma once
// Options of the Video Scrubber playground: which movie it scrubs (the test pattern at a chosen
// size and length, or a video of the library), how it plays, and how a drag seeks.

#include "shell/VUTesterSettings.h"

class VUTESTER_EXPORT VUTesterVideoScrubberSettings : public VUTesterChildSettings<VUTesterVideoScrubberSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "videoScrubberSettings";
    enum MovieSource : qint64 { MovieSourceTestPattern = 0, MovieSourceLibrary = 1 };
    enum TestMovieSize : qint64 { TestMovieSizeSmall = 0, TestMovieSize720p = 1, TestMovieSize1080p = 2 };
    enum ScrubbingTolerance : qint64 { ScrubbingToleranceExact = 0, ScrubbingToleranceKeyFrame = 1 };

    VUTesterVideoScrubberSettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    qint64 movieSource() const { return int64Value(QStringLiteral("movieSource")); }
    void setMovieSource(qint64 source) { setValue(QStringLiteral("movieSource"), QVariant::fromValue(source)); }
    qint64 testMovieSize() const { return int64Value(QStringLiteral("testMovieSize")); }
    void setTestMovieSize(qint64 size) { setValue(QStringLiteral("testMovieSize"), QVariant::fromValue(size)); }
    // Pixels of a test movie size.
    static QSizeF pixelSize(qint64 testMovieSize);
    double testMovieDuration() const { return doubleValue(QStringLiteral("testMovieDuration")); }
    void setTestMovieDuration(double seconds) { setValue(QStringLiteral("testMovieDuration"), seconds); }
    // Which video of the library, newest first.
    qint64 libraryVideoIndex() const { return int64Value(QStringLiteral("libraryVideoIndex")); }
    void setLibraryVideoIndex(qint64 index) { setValue(QStringLiteral("libraryVideoIndex"), QVariant::fromValue(index)); }
    double playbackRate() const { return doubleValue(QStringLiteral("playbackRate")); }
    void setPlaybackRate(double rate) { setValue(QStringLiteral("playbackRate"), rate); }
    bool loops() const { return boolValue(QStringLiteral("loops")); }
    void setLoops(bool loops) { setValue(QStringLiteral("loops"), loops); }
    qint64 scrubbingTolerance() const { return int64Value(QStringLiteral("scrubbingTolerance")); }
    void setScrubbingTolerance(qint64 tolerance) { setValue(QStringLiteral("scrubbingTolerance"), QVariant::fromValue(tolerance)); }
    bool showsKeyFrames() const { return boolValue(QStringLiteral("showsKeyFrames")); }
    void setShowsKeyFrames(bool shows) { setValue(QStringLiteral("showsKeyFrames"), shows); }
};
