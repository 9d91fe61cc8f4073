#include "playgrounds/scrubber/VUTesterVideoScrubberSettings.h"

#include "playgrounds/scrubber/VUTesterVideoScrubberPlaygroundViewController.h"

VUTesterVideoScrubberSettings::VUTesterVideoScrubberSettings()
{
    declareKey(QStringLiteral("movieSource"), Kind::Int64);
    declareKey(QStringLiteral("testMovieSize"), Kind::Int64);
    declareKey(QStringLiteral("testMovieDuration"), Kind::Double);
    declareKey(QStringLiteral("libraryVideoIndex"), Kind::Int64);
    declareKey(QStringLiteral("playbackRate"), Kind::Double);
    declareKey(QStringLiteral("loops"), Kind::Bool);
    declareKey(QStringLiteral("scrubbingTolerance"), Kind::Int64);
    declareKey(QStringLiteral("showsKeyFrames"), Kind::Bool);
}

void VUTesterVideoScrubberSettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    setMovieSource(MovieSourceTestPattern);
    setTestMovieSize(TestMovieSize720p);
    setTestMovieDuration(5);
    setLibraryVideoIndex(0);
    setPlaybackRate(1);
    setLoops(true);
    setScrubbingTolerance(ScrubbingToleranceExact);
    setShowsKeyFrames(true);
}

QSizeF VUTesterVideoScrubberSettings::pixelSize(qint64 testMovieSize)
{
    switch (testMovieSize) {
    case TestMovieSizeSmall:
        return {384, 216};
    case TestMovieSize1080p:
        return {1920, 1080};
    default:
        return {1280, 720};
    }
}

TWModulePtr VUTesterVideoScrubberSettings::settingsControllerModule()
{
    auto source = TWChoiceRow::rowWithTitle(QStringLiteral("Movie"), QStringLiteral("movieSource"));
    source->possibleValues(VUTesterIntegerValues({MovieSourceTestPattern, MovieSourceLibrary}),
                           {QStringLiteral("Test Pattern"), QStringLiteral("Library Video")});
    auto size = TWChoiceRow::rowWithTitle(QStringLiteral("Size"), QStringLiteral("testMovieSize"));
    size->possibleValues(VUTesterIntegerValues({TestMovieSizeSmall, TestMovieSize720p, TestMovieSize1080p}),
                         {QStringLiteral("384 × 216"), QStringLiteral("1280 × 720"), QStringLiteral("1920 × 1080")});
    size->conditionFormat(QStringLiteral("movieSource == 0"));
    auto duration = TWSliderRow::rowWithTitle(QStringLiteral("Length"), QStringLiteral("testMovieDuration"));
    duration->minValue(1, 30)->vu_increment(1);
    duration->conditionFormat(QStringLiteral("movieSource == 0"));
    auto index = TWSliderRow::rowWithTitle(QStringLiteral("Video (Newest First)"), QStringLiteral("libraryVideoIndex"));
    index->minValue(0, 50)->vu_increment(1);
    index->conditionFormat(QStringLiteral("movieSource == 1"));
    auto rate = TWSliderRow::rowWithTitle(QStringLiteral("Rate"), QStringLiteral("playbackRate"));
    rate->minValue(0.25, 4)->vu_increment(0.25);
    auto tolerance = TWChoiceRow::rowWithTitle(QStringLiteral("Seek To"), QStringLiteral("scrubbingTolerance"));
    tolerance->possibleValues(VUTesterIntegerValues({ScrubbingToleranceExact, ScrubbingToleranceKeyFrame}),
                              {QStringLiteral("Exact Frame"), QStringLiteral("Key Frame")});
    return TWModule::moduleWithTitle(QStringLiteral("Video Scrubber"), {
        TWSection::sectionWithRows({playgroundRow(QStringLiteral("Test Video Scrubber"),
                                                  [] { return new VUTesterVideoScrubberPlaygroundViewController(sharedInstance()); })}),
        TWSection::sectionWithRows({source, size, duration, index}, QStringLiteral("Movie")),
        TWSection::sectionWithRows({rate, TWSwitchRow::rowWithTitle(QStringLiteral("Loop"), QStringLiteral("loops"))},
                                   QStringLiteral("Playback")),
        TWSection::sectionWithRows({tolerance, TWSwitchRow::rowWithTitle(QStringLiteral("Key Frame Marks"), QStringLiteral("showsKeyFrames"))},
                                   QStringLiteral("Scrubbing")),
        restoreDefaultsSection(),
    });
}
