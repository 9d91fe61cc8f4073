#include "filler/VUTesterLibraryFillerSettingsValueCombinationEnumerator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <tuple>

namespace {

using Enumerator = VUTesterLibraryFillerSettingsValueCombinationEnumerator;
constexpr qint64 kEnumerate = VUTesterLibraryFillerSettings::kEnumerate;
constexpr qint64 kRandom = VUTesterLibraryFillerSettings::kRandom;

struct EnumeratorFixture : ::testing::Test {
    VUTesterLibraryFillerSettings settings;
    void SetUp() override { settings.restoreDefaultValuesRecursively(); }
};

} // namespace

TEST_F(EnumeratorFixture, WalksEveryCombinationLikeAnOdometerThenStartsOver)
{
    settings.setNumberOfAssetsToAdd(VUTesterLibraryFillerSettings::kAutomaticNumberOfAssets);
    settings.setMedia(kEnumerate);
    settings.setOrientation(kEnumerate);
    settings.setImageOrientation(kEnumerate);
    settings.setAspectRatio(1.5);
    Enumerator enumerator(&settings);
    ASSERT_EQ(enumerator.numberOfAssetsToAdd(), 48);

    std::vector<std::tuple<qint64, qint64, qint64>> walk;
    for (int i = 0; i < 48; ++i) {
        walk.emplace_back(enumerator.media(), enumerator.orientation(), enumerator.imageOrientation());
        EXPECT_EQ(enumerator.aspectRatio(), 1.5);
        enumerator.nextCombination();
    }
    for (int i = 0; i < 48; ++i) {
        EXPECT_EQ(std::get<0>(walk[i]), i / 16) << "media varies slowest";
        EXPECT_EQ(std::get<1>(walk[i]), (i / 8) % 2);
        EXPECT_EQ(std::get<2>(walk[i]), i % 8) << "image orientation varies fastest";
    }
    EXPECT_EQ(std::tie(std::get<0>(walk[0]), std::get<1>(walk[0]), std::get<2>(walk[0])),
              std::make_tuple(enumerator.media(), enumerator.orientation(), enumerator.imageOrientation()))
        << "after the last combination the first comes again";
}

TEST_F(EnumeratorFixture, FixedCountWrapsAndPlainSettingsGiveOneAutomaticAsset)
{
    settings.setNumberOfAssetsToAdd(10);
    settings.setMedia(kEnumerate);
    settings.setOrientation(0);
    settings.setImageOrientation(3);
    Enumerator enumerator(&settings);
    EXPECT_EQ(enumerator.numberOfAssetsToAdd(), 10);
    std::vector<qint64> media;
    for (int i = 0; i < 7; ++i, enumerator.nextCombination())
        media.push_back(enumerator.media());
    EXPECT_EQ(media, (std::vector<qint64>{0, 1, 2, 0, 1, 2, 0}));
    EXPECT_EQ(enumerator.imageOrientation(), 3);

    settings.setNumberOfAssetsToAdd(VUTesterLibraryFillerSettings::kAutomaticNumberOfAssets);
    settings.setMedia(1);
    EXPECT_EQ(Enumerator(&settings).numberOfAssetsToAdd(), 1);
}

TEST_F(EnumeratorFixture, RandomSettingsAreDrawnOnEveryReadAndNeverCounted)
{
    settings.setNumberOfAssetsToAdd(VUTesterLibraryFillerSettings::kAutomaticNumberOfAssets);
    settings.setMedia(kRandom);
    settings.setImageOrientation(kRandom);
    settings.setAspectRatio(double(kRandom));
    settings.setOrientation(kEnumerate);
    Enumerator enumerator(&settings);
    EXPECT_EQ(enumerator.numberOfAssetsToAdd(), 2) << "only the enumerated orientation counts";

    QVariantList ratios;
    VUTesterLibraryFillerSettings::getPossibleValues(&ratios, nullptr, QStringLiteral("aspectRatio"));
    std::set<qint64> orientations;
    std::set<double> seenRatios;
    for (int i = 0; i < 400; ++i) {
        const qint64 o = enumerator.imageOrientation();
        ASSERT_GE(o, 0);
        ASSERT_LE(o, 7);
        orientations.insert(o);
        const double r = enumerator.aspectRatio();
        ASSERT_TRUE(ratios.contains(QVariant(r))) << r;
        seenRatios.insert(r);
    }
    EXPECT_EQ(orientations.size(), 8u) << "400 draws reach every value";
    EXPECT_EQ(seenRatios.size(), 8u);
}

TEST_F(EnumeratorFixture, TakesASnapshotOfTheSettings)
{
    settings.setMedia(2);
    Enumerator enumerator(&settings);
    settings.setMedia(0);
    settings.setLongSide(100);
    EXPECT_EQ(enumerator.media(), 2);
    EXPECT_EQ(enumerator.longSide(), 3200);
    EXPECT_EQ(enumerator.content(), 0);
}

TEST_F(EnumeratorFixture, LocationsStayPutWithoutRadiusAndScatterWithinItOtherwise)
{
    EXPECT_TRUE(Enumerator(&settings).location().isNull());
    settings.setLocationRadius(25000);
    EXPECT_TRUE(Enumerator(&settings).location().isNull()) << "no location stays nil whatever the radius";

    settings.setLocation(TWLocationValue(46.5197, 6.6323));
    settings.setLocationRadius(0);
    Enumerator fixed(&settings);
    for (int i = 0; i < 3; ++i, fixed.nextCombination())
        EXPECT_EQ(fixed.location(), settings.location());

    settings.setLocationRadius(1000);
    Enumerator scattered(&settings);
    const double circumference = 40030223.8575236;
    std::set<std::pair<double, double>> distinct;
    for (int i = 0; i < 200; ++i, scattered.nextCombination()) {
        double lat = 0, lon = 0;
        ASSERT_TRUE(TWLocationFromValue(scattered.location(), &lat, &lon));
        // The offsets are at most a quarter (latitude) and a half (longitude) of the radius' span.
        EXPECT_LE(std::abs(lat - 46.5197), 1000.0 / circumference * 90.0 + 1e-12);
        EXPECT_LE(std::abs(lon - 6.6323), 1000.0 / circumference * 180.0 + 1e-12);
        distinct.insert({lat, lon});
    }
    EXPECT_GT(distinct.size(), 150u);
}
