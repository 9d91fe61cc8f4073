// Highlights follow the local capture dates: boundaries of days, months and years, time zones,
// day groups, and curation that comes out the same however often it is computed.

#include "PhotoLibraryFixture.h"

#include "photos/HighlightRules.h"
#include "photos/PlaceNames.h"
#include "photos/VHAssetCollection.h"

#include <cstdlib>
#include <ctime>

using namespace photos::testing;
using photos::detail::Candidate;
namespace rules = photos::detail::HighlightRules;

namespace {

class HighlightTest : public PhotoLibraryFixture {
protected:
    void addPhoto(const QDateTime &date, bool favorite = false, QSize size = QSize(32, 24),
                  std::optional<std::pair<double, double>> location = {})
    {
        const QString path = photo(QStringLiteral("p%1.jpg").arg(m_counter++), {size, date, location, {}});
        VHError error;
        ASSERT_TRUE(m_library->performChangesAndWait(
            [&] {
                auto *request = VHAssetCreationRequest::creationRequestForAsset();
                request->addResourceWithType(VHAssetResourceType::Photo, path);
                request->setFavorite(favorite);
            },
            &error))
            << error.debugDescription().toStdString();
    }

    void addMovie(const QDateTime &date)
    {
        ASSERT_TRUE(import({}, movieFile(QStringLiteral("m%1.mov").arg(m_counter++), {QSize(32, 32), date, {}, {}}), true));
    }

    VHFetchResult<VHAssetCollection> highlights(int subtype)
    {
        VHFetchOptions options = m_library->librarySpecificFetchOptions();
        options.setSortDescriptors({{QStringLiteral("startDate"), true}});
        return VHAssetCollection::fetchAssetCollectionsWithType(VHAssetCollectionType::Highlight, subtype, options);
    }

    QStringList identifiers(const VHFetchResult<VHAsset> &assets)
    {
        QStringList list;
        for (qsizetype i = 0; i < assets.count(); ++i)
            list << assets.objectAtIndex(i).localIdentifier();
        return list;
    }

    QStringList curation(const VHAssetCollection &collection, VHHighlightCurationType type)
    {
        VHFetchOptions options = m_library->librarySpecificFetchOptions();
        options.setHighlightCurationType(type);
        return identifiers(VHAsset::fetchAssetsInAssetCollection(collection, options));
    }

    int m_counter = 0;
};

QDateTime local(int year, int month, int day, int hour, int minute = 0, int second = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second), Qt::LocalTime);
}

TEST_F(HighlightTest, LastSecondOfAYearAndFirstOfTheNextSplitEveryLevel)
{
    addPhoto(local(2023, 12, 31, 23, 59, 59));
    addPhoto(local(2024, 1, 1, 0, 0, 0));
    addPhoto(local(2024, 1, 1, 18, 0, 0));

    const auto days = highlights(VHAssetCollectionSubtypeHighlightDays);
    ASSERT_EQ(days.count(), 2);
    EXPECT_EQ(days.objectAtIndex(0).estimatedAssetCount(), 1);
    EXPECT_EQ(days.objectAtIndex(1).estimatedAssetCount(), 2);
    EXPECT_EQ(days.objectAtIndex(0).localizedTitle(), QLocale().toString(QDate(2023, 12, 31), QLocale::LongFormat));
    EXPECT_EQ(days.objectAtIndex(1).localizedSubtitle(), QStringLiteral("2 Photos"));
    EXPECT_EQ(days.objectAtIndex(1).startDate(), local(2024, 1, 1, 0).toUTC());
    EXPECT_EQ(days.objectAtIndex(1).endDate(), local(2024, 1, 1, 18).toUTC());
    EXPECT_EQ(VHAsset::fetchAssetsInAssetCollection(days.objectAtIndex(1), {}).count(), 2);

    const auto months = highlights(VHAssetCollectionSubtypeHighlightMonths);
    ASSERT_EQ(months.count(), 2);
    EXPECT_EQ(months.objectAtIndex(1).localizedTitle(),
              QStringLiteral("%1 2024").arg(QLocale().standaloneMonthName(1)));
    const auto years = highlights(VHAssetCollectionSubtypeHighlightYears);
    ASSERT_EQ(years.count(), 2);
    EXPECT_EQ(years.objectAtIndex(0).localizedTitle(), QStringLiteral("2023"));
    EXPECT_EQ(years.objectAtIndex(1).estimatedAssetCount(), 2);
    for (const auto &result : {days, months, years})
        for (qsizetype i = 0; i < result.count(); ++i)
            EXPECT_EQ(result.objectAtIndex(i).assetCollectionType(), VHAssetCollectionType::Highlight);
}

TEST_F(HighlightTest, MonthEndsAtItsLastDayIncludingLeapDays)
{
    addPhoto(local(2024, 2, 29, 23, 0));
    addPhoto(local(2024, 3, 1, 1, 0));
    const auto months = highlights(VHAssetCollectionSubtypeHighlightMonths);
    ASSERT_EQ(months.count(), 2);
    EXPECT_EQ(months.objectAtIndex(0).estimatedAssetCount(), 1);
    // Day groups never cross a month, even between neighbouring days.
    EXPECT_EQ(highlights(VHAssetCollectionSubtypeHighlightDayGroups).count(), 2);
    EXPECT_EQ(highlights(VHAssetCollectionSubtypeHighlightYears).count(), 1);
}

// The same instant is a different day in Tokyo and in New York: the day is the local one.
TEST_F(HighlightTest, DaysFollowTheWallClockOfTheCapturePlace)
{
    const QDateTime instant = QDateTime(QDate(2024, 3, 10), QTime(23, 30), Qt::UTC);
    addMovie(instant.toOffsetFromUtc(9 * 3600));  // 11 March, 08:30 in Tokyo
    addMovie(instant.toOffsetFromUtc(-5 * 3600)); // 10 March, 18:30 in New York
    auto days = highlights(VHAssetCollectionSubtypeHighlightDays);
    ASSERT_EQ(days.count(), 2);
    EXPECT_EQ(days.objectAtIndex(0).localizedTitle(), QLocale().toString(QDate(2024, 3, 10), QLocale::LongFormat));
    EXPECT_EQ(days.objectAtIndex(1).localizedTitle(), QLocale().toString(QDate(2024, 3, 11), QLocale::LongFormat));
    EXPECT_EQ(days.objectAtIndex(0).localizedSubtitle(), QStringLiteral("1 Video"));

    // Rebuilt on a machine set to another zone, the highlights stay the same.
    const QByteArray zone = qgetenv("TZ");
    qputenv("TZ", "Pacific/Honolulu");
    tzset();
    ASSERT_TRUE(m_library->rebuildHighlights());
    days = highlights(VHAssetCollectionSubtypeHighlightDays);
    if (zone.isNull())
        qunsetenv("TZ");
    else
        qputenv("TZ", zone);
    tzset();
    ASSERT_EQ(days.count(), 2);
    EXPECT_EQ(days.objectAtIndex(0).localizedTitle(), QLocale().toString(QDate(2024, 3, 10), QLocale::LongFormat));
}

TEST_F(HighlightTest, DayGroupsJoinDaysAtMostTwoApartAndMergeAsDaysArrive)
{
    addPhoto(local(2021, 7, 1, 10));
    addPhoto(local(2021, 7, 4, 10));
    EXPECT_EQ(highlights(VHAssetCollectionSubtypeHighlightDayGroups).count(), 2);
    // 2 July bridges the gap: 1, 2 and 4 July are one trip.
    addPhoto(local(2021, 7, 2, 10));
    addPhoto(local(2021, 7, 9, 10));
    const auto groups = highlights(VHAssetCollectionSubtypeHighlightDayGroups);
    ASSERT_EQ(groups.count(), 2);
    EXPECT_EQ(groups.objectAtIndex(0).estimatedAssetCount(), 3);
    EXPECT_EQ(groups.objectAtIndex(1).estimatedAssetCount(), 1);
    EXPECT_EQ(VHAsset::fetchAssetsInAssetCollection(groups.objectAtIndex(0), {}).count(), 3);
    EXPECT_TRUE(groups.objectAtIndex(0).localizedTitle().contains(QStringLiteral(" – ")));
}

TEST_F(HighlightTest, CurationNestsIsStableAndPrefersFavourites)
{
    // 30 photos through one day; number 17 is the favourite.
    for (int i = 0; i < 30; ++i)
        addPhoto(local(2020, 5, 17, 8, i * 2), i == 17);
    const auto days = highlights(VHAssetCollectionSubtypeHighlightDays);
    ASSERT_EQ(days.count(), 1);
    const VHAssetCollection day = days.firstObject();
    EXPECT_TRUE(day.isCurated());
    EXPECT_FALSE(day.isEnriched());
    EXPECT_GT(day.promotionScore(), 0.0);
    EXPECT_LE(day.promotionScore(), 1.0);

    const QStringList summary = curation(day, VHHighlightCurationType::Summary);
    const QStringList extended = curation(day, VHHighlightCurationType::Extended);
    const QStringList curated = identifiers(VHAsset::fetchCuratedAssetsInAssetCollection(day));
    EXPECT_EQ(summary.size(), rules::kSummaryLimit);
    EXPECT_EQ(extended.size(), rules::kExtendedLimit);
    EXPECT_EQ(curated.size(), 30);
    for (const QString &id : summary)
        EXPECT_TRUE(extended.contains(id));
    const VHAsset key = VHAsset::fetchKeyCuratedAssetInAssetCollection(day, nullptr).firstObject();
    ASSERT_TRUE(key.isValid());
    EXPECT_TRUE(key.isFavorite());
    EXPECT_TRUE(summary.contains(key.localIdentifier()));
    // A curated reference asset is answered as it is.
    const VHAsset other = VHAsset::fetchCuratedAssetsInAssetCollection(day).objectAtIndex(3);
    EXPECT_EQ(VHAsset::fetchKeyCuratedAssetInAssetCollection(day, &other).firstObject().localIdentifier(),
              other.localIdentifier());

    ASSERT_TRUE(m_library->rebuildHighlights());
    reopen();
    const VHAssetCollection again = highlights(VHAssetCollectionSubtypeHighlightDays).firstObject();
    EXPECT_EQ(again.localIdentifier(), day.localIdentifier());
    EXPECT_EQ(curation(again, VHHighlightCurationType::Summary), summary);
    EXPECT_EQ(curation(again, VHHighlightCurationType::Extended), extended);
    EXPECT_EQ(VHAsset::fetchKeyCuratedAssetInAssetCollection(again, nullptr).firstObject().localIdentifier(),
              key.localIdentifier());
    EXPECT_DOUBLE_EQ(again.promotionScore(), day.promotionScore());

    // Months and years curate from their days.
    const VHAssetCollection month = highlights(VHAssetCollectionSubtypeHighlightMonths).firstObject();
    EXPECT_EQ(curation(month, VHHighlightCurationType::Summary), summary);
}

TEST_F(HighlightTest, SpreadCoversTheWholeDayAndBreaksTiesByTime)
{
    QVector<Candidate> pool;
    for (int i = 0; i < 12; ++i)
        pool.append(Candidate{i + 1, i * 3600, i * 3600000LL, 1.0, false, false, false});
    const QVector<Candidate> chosen = rules::spread(pool, 4);
    ASSERT_EQ(chosen.size(), 4);
    // Equal scores: the first of each quarter of the day.
    EXPECT_EQ(chosen[0].id, 1);
    EXPECT_EQ(chosen[1].id, 4);
    EXPECT_EQ(chosen[2].id, 7);
    EXPECT_EQ(chosen[3].id, 10);
    pool[8].score = 5; // a favourite in the third quarter wins it
    EXPECT_EQ(rules::spread(pool, 4)[2].id, 9);
    EXPECT_EQ(rules::curate(pool).keyAssetId, 9);
    EXPECT_EQ(rules::spread(pool, 20).size(), 12);
    EXPECT_EQ(rules::curate({}).keyAssetId, 0);
}

TEST_F(HighlightTest, FewAssetsAreNotCuratedAndPlacesEnrich)
{
    photos::detail::HighlightTotals totals;
    totals.add(Candidate{1, 0, 0, 1, false, true, false});
    totals.add(Candidate{2, 10, 10000, 1, true, false, false});
    EXPECT_FALSE(rules::isCurated(totals));
    EXPECT_TRUE(rules::isEnriched(totals));
    EXPECT_EQ(rules::subtitle(totals), QStringLiteral("1 Photo, 1 Video"));
    totals.add(Candidate{3, 20, 20000, 1, false, false, true});
    EXPECT_TRUE(rules::isCurated(totals));
    const double score = rules::promotionScore(totals);
    EXPECT_GT(score, 0.0);
    EXPECT_LT(score, 1.0);
}

// Days and trips with a named place are titled by it and carry their dates as the subtitle;
// periods without one, and months and years always, are titled by their dates.
TEST_F(HighlightTest, PlacesTitleDaysAndTripsWithTheirDatesBeneath)
{
    const std::pair<double, double> nearParis{48.85, 2.30};
    const std::pair<double, double> midAtlantic{30.0, -40.0};
    addPhoto(local(2021, 7, 1, 10), false, QSize(32, 24), nearParis);
    addPhoto(local(2021, 7, 1, 12), false, QSize(32, 24), nearParis);
    addPhoto(local(2021, 7, 2, 9), false, QSize(32, 24), midAtlantic);

    const auto days = highlights(VHAssetCollectionSubtypeHighlightDays);
    ASSERT_EQ(days.count(), 2);
    EXPECT_EQ(days.objectAtIndex(0).localizedTitle(), QStringLiteral("Paris"));
    EXPECT_EQ(days.objectAtIndex(0).localizedSubtitle(), rules::dateRangeText(QDate(2021, 7, 1), QDate(2021, 7, 1)));
    EXPECT_EQ(days.objectAtIndex(1).localizedTitle(), QLocale().toString(QDate(2021, 7, 2), QLocale::LongFormat));
    EXPECT_EQ(days.objectAtIndex(1).localizedSubtitle(), QStringLiteral("1 Photo"));

    const auto groups = highlights(VHAssetCollectionSubtypeHighlightDayGroups);
    ASSERT_EQ(groups.count(), 1);
    EXPECT_EQ(groups.firstObject().localizedTitle(), QStringLiteral("Paris"));
    EXPECT_EQ(groups.firstObject().localizedSubtitle(), rules::dateRangeText(QDate(2021, 7, 1), QDate(2021, 7, 2)));
    EXPECT_EQ(highlights(VHAssetCollectionSubtypeHighlightMonths).firstObject().localizedTitle(),
              QStringLiteral("%1 2021").arg(QLocale().standaloneMonthName(7)));
}

TEST_F(HighlightTest, PlaceTitlesPreferTheKeyAssetThenTheMostSharedPlace)
{
    auto at = [](qint64 id, double latitude, double longitude) {
        Candidate candidate{id, id, id, 1, false, true, false};
        candidate.latitude = latitude;
        candidate.longitude = longitude;
        return candidate;
    };
    const Candidate tokyo = at(1, 35.68, 139.69);
    const Candidate paris1 = at(2, 48.86, 2.35), paris2 = at(3, 48.80, 2.40);
    const Candidate nowhere = at(4, 0.5, -160.0);
    EXPECT_EQ(rules::placeTitle({tokyo, paris1, paris2}, 0), QStringLiteral("Paris"));
    EXPECT_EQ(rules::placeTitle({tokyo, paris1, paris2}, 1), QStringLiteral("Tokyo"));
    // Equal counts: the earliest place; an unnamed key asset leaves the choice to the others.
    EXPECT_EQ(rules::placeTitle({paris1, tokyo}, 0), QStringLiteral("Paris"));
    EXPECT_EQ(rules::placeTitle({nowhere, tokyo}, 4), QStringLiteral("Tokyo"));
    Candidate unlocated = at(5, 35.68, 139.69);
    unlocated.located = false;
    EXPECT_EQ(rules::placeTitle({nowhere, unlocated}, 0), QString());
    // Cities of other continents' zones are found by name, with spaces for underscores.
    EXPECT_EQ(photos::detail::PlaceNames::nameOfPlace(40.71, -74.0), QStringLiteral("New York"));
}

TEST_F(HighlightTest, DateRangesReadAsAPersonWritesThem)
{
    const QLocale saved;
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    EXPECT_EQ(rules::dateRangeText(QDate(2024, 3, 12), QDate(2024, 3, 12)), QStringLiteral("12 March 2024"));
    EXPECT_EQ(rules::dateRangeText(QDate(2024, 3, 12), QDate(2024, 3, 14)), QStringLiteral("12 – 14 March 2024"));
    EXPECT_EQ(rules::dateRangeText(QDate(2024, 3, 30), QDate(2024, 4, 2)), QStringLiteral("30 March – 2 April 2024"));
    EXPECT_EQ(rules::dateRangeText(QDate(2023, 12, 30), QDate(2024, 1, 2)), QStringLiteral("30 December 2023 – 2 January 2024"));
    QLocale::setDefault(saved);
}

} // namespace
