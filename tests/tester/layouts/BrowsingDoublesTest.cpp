#include "QtPrinters.h"

#include "layouts/VUTesterAsset.h"
#include "layouts/VUTesterAssetActionManager.h"
#include "layouts/VUTesterAssetCollection.h"
#include "layouts/VUTesterBrowsingSession.h"
#include "layouts/VUTesterDataSourceManager.h"
#include "layouts/VUTesterTilingDataSource.h"
#include "layouts/VUTesterTilingViewSettings.h"
#include "media/VUTesterMediaProvider.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

QVariant item(const char *text)
{
    return QString::fromUtf8(text);
}

VUTesterTilingDataSource::SectionedItems strings(std::initializer_list<std::initializer_list<const char *>> sections)
{
    VUTesterTilingDataSource::SectionedItems result;
    for (const auto &section : sections) {
        result.emplace_back();
        for (const char *text : section)
            result.back().push_back(item(text));
    }
    return result;
}

VUAssetReference foreignReference(QVariant wanted, std::optional<ui::IndexPath> path)
{
    VUTesterTilingDataSource older;
    return VUAssetReference(std::make_shared<VUTesterAsset>(std::move(wanted)), std::make_shared<VUTesterAssetCollection>(), std::move(path),
                            older.identifier());
}

} // namespace

TEST(TilingDataSource, RandomSectionsFollowTheFixedSequence)
{
    EXPECT_TRUE(VUTesterTilingDataSource::randomSectionedItems(0).empty());
    EXPECT_TRUE(VUTesterTilingDataSource::randomSectionedItems(-5).empty());
    const auto one = VUTesterTilingDataSource::randomSectionedItems(1);
    ASSERT_EQ(one.size(), 1u);
    EXPECT_EQ(one[0], (std::vector<QVariant>{item("0:0"), item("0:1"), item("0:2")}));

    const VUTesterTilingDataSource many(VUTesterTilingDataSource::randomSectionedItems(3141));
    ASSERT_EQ(many.numberOfSections(), 3141);
    const qint64 reference[] = {3, 14, 24, 10, 18, 25, 8, 3, 22, 17};
    for (qint64 s = 0; s < 10; ++s)
        EXPECT_EQ(many.numberOfItemsInSection(s), reference[s]) << "section " << s;
    for (qint64 s : {7, 14, 21, 28, 3136})
        EXPECT_EQ(many.numberOfItemsInSection(s), 3) << "a multiple of 7: section " << s;
    qint64 smallest = 100, largest = 0;
    for (qint64 s = 0; s < 3141; ++s) {
        smallest = std::min(smallest, many.numberOfItemsInSection(s));
        largest = std::max(largest, many.numberOfItemsInSection(s));
    }
    EXPECT_EQ(smallest, 3);
    EXPECT_EQ(largest, 25);
    EXPECT_EQ(many.itemAtIndexPath({3140, 2}), item("3140:2"));
}

TEST(TilingDataSource, SubItemCountsAndProgrammingErrors)
{
    EXPECT_EQ(VUTesterTilingDataSource().numberOfSubItemsAtIndexPath({}), 0u);
    EXPECT_EQ(VUTesterTilingDataSource(VUTesterTilingDataSource::SectionedItems()).numberOfSections(), 0);

    VUTesterTilingDataSource source(strings({{"a", "b"}, {}, {"c"}}));
    EXPECT_EQ(source.numberOfSubItemsAtIndexPath({}), 3u);
    EXPECT_EQ(source.numberOfSubItemsAtIndexPath({0}), 2u);
    EXPECT_EQ(source.numberOfSubItemsAtIndexPath({1}), 0u);
    EXPECT_EQ(source.numberOfSubItemsAtIndexPath({0, 1}), 0u) << "an item has no sub-items";
    EXPECT_THROW(source.numberOfSubItemsAtIndexPath({3}), std::out_of_range);
    EXPECT_THROW(source.itemAtIndexPath({1, 0}), std::out_of_range);
    EXPECT_THROW(source.assetReferenceAtIndexPath({0, 2}), std::out_of_range);

    source.addItem(item("d"), {0, 0});
    source.removeItemAtIndexPath({0, 1});
    source.moveItemFromIndexPath({0, 0}, {2, 0});
    EXPECT_EQ(source.numberOfSubItemsAtIndexPath({0}), 2u) << "the mutators change nothing";
    EXPECT_EQ(source.itemAtIndexPath({0, 0}), item("a"));
    EXPECT_EQ(source.numberOfSubItemsAtIndexPath({2}), 1u);
}

TEST(TilingDataSource, ReferencesCarryANewAssetThePathAndTheIdentifier)
{
    const VUTesterTilingDataSource source(strings({{"a", "b"}}));
    const VUTesterTilingDataSource other(strings({{"a", "b"}}));
    EXPECT_NE(source.identifier(), other.identifier());

    const VUAssetReferencePtr first = source.assetReferenceAtIndexPath({0, 1});
    const VUAssetReferencePtr second = source.assetReferenceAtIndexPath({0, 1});
    EXPECT_EQ(first->dataSourceIdentifier(), source.identifier());
    EXPECT_EQ(first->indexPath(), (ui::IndexPath{0, 1}));
    EXPECT_NE(first->asset(), second->asset()) << "made anew on every call";
    EXPECT_TRUE(first->asset()->isEqual(second->asset().get()));
    EXPECT_EQ(static_cast<const VUTesterAsset &>(*first->asset()).item(), item("b"));
    EXPECT_TRUE(first->assetCollection()->localizedTitle().isNull());
}

TEST(TilingDataSource, FindsReferencesOfItsOwnAndOfOlderDataSources)
{
    const VUTesterTilingDataSource source(strings({{"x", "a", "a"}, {"a", "y"}}));
    EXPECT_EQ(source.indexPathForAssetReference(nullptr), std::nullopt);

    // Its own references are answered with their path, which is not checked.
    const VUAssetReference own(std::make_shared<VUTesterAsset>(item("gone")), std::make_shared<VUTesterAssetCollection>(), ui::IndexPath{9, 9},
                               source.identifier());
    EXPECT_EQ(source.indexPathForAssetReference(&own), (ui::IndexPath{9, 9}));

    // The old path still holds an equal item: kept, though a search would find an earlier one.
    const VUAssetReference stayed = foreignReference(item("a"), ui::IndexPath{1, 0});
    EXPECT_EQ(source.indexPathForAssetReference(&stayed), (ui::IndexPath{1, 0}));

    // Otherwise the first section with the item wins, and in it the lowest index.
    for (const std::optional<ui::IndexPath> &old : {std::optional<ui::IndexPath>(ui::IndexPath{1, 1}), std::optional<ui::IndexPath>(ui::IndexPath{5, 0}),
                                                  std::optional<ui::IndexPath>(ui::IndexPath{0}), std::optional<ui::IndexPath>()}) {
        const VUAssetReference moved = foreignReference(item("a"), old);
        EXPECT_EQ(source.indexPathForAssetReference(&moved), (ui::IndexPath{0, 1})) << (old ? old->length() : -1);
    }
    const VUAssetReference later = foreignReference(item("y"), ui::IndexPath{0, 0});
    EXPECT_EQ(source.indexPathForAssetReference(&later), (ui::IndexPath{1, 1}));

    const VUAssetReference missing = foreignReference(item("z"), ui::IndexPath{0, 0});
    EXPECT_EQ(source.indexPathForAssetReference(&missing), std::nullopt);
    const VUAssetReference noItem = foreignReference(QVariant(), ui::IndexPath{7, 0});
    EXPECT_EQ(source.indexPathForAssetReference(&noItem), std::nullopt) << "no item is equal to nothing";
}

TEST(TilingDataSource, RandomDataSourceFollowsTheSettings)
{
    VUTesterTilingViewSettings *settings = VUTesterTilingViewSettings::sharedInstance();
    EXPECT_EQ(settings->numberOfSections(), 31);
    EXPECT_EQ(VUTesterTilingDataSource::initWithRandomSectionedItems()->numberOfSections(), 31);
    settings->setNumberOfSections(0);
    EXPECT_EQ(VUTesterTilingDataSource::initWithRandomSectionedItems()->numberOfSections(), 0);
    settings->setNumberOfSections(31);
}

TEST(TesterAsset, SizeFollowsTheParityOfADeterministicHash)
{
    // Pinned: the hash decides the grid's picture on every machine and in every run.
    EXPECT_EQ(VUTesterItemHash(item("0:0")), 0xb7e23b43737ba943ull);
    EXPECT_EQ(VUTesterItemHash(item("12:3")), 0x64b3ced5fd8f9f1cull);
    EXPECT_EQ(VUTesterItemHash(QVariant()), 0u);

    const VUTesterAsset odd(item("0:0")), even(item("12:3")), none;
    EXPECT_EQ(odd.pixelWidth(), 300u);
    EXPECT_EQ(odd.pixelHeight(), 200u);
    EXPECT_DOUBLE_EQ(odd.aspectRatio(), 1.5);
    EXPECT_EQ(even.pixelWidth(), 200u);
    EXPECT_EQ(even.pixelHeight(), 300u);
    EXPECT_DOUBLE_EQ(even.aspectRatio(), 200.0 / 300.0);
    EXPECT_EQ(none.pixelWidth(), 200u) << "no item hashes as 0: portrait";
    EXPECT_EQ(odd.uuid(), QStringLiteral("0:0"));
    EXPECT_TRUE(none.uuid().isNull());
    EXPECT_EQ(odd.mediaType(), 1u);
    EXPECT_FALSE(odd.photoLumoStillDisplayTime().isValid());

    // The default grid mixes both orientations.
    const VUTesterTilingDataSource grid(VUTesterTilingDataSource::randomSectionedItems(31));
    int landscape = 0, total = 0;
    for (qint64 s = 0; s < grid.numberOfSections(); ++s)
        for (qint64 i = 0; i < grid.numberOfItemsInSection(s); ++i, ++total)
            landscape += VUTesterAsset(grid.itemAtIndexPath({s, i})).pixelWidth() == 300;
    EXPECT_EQ(total, 380);
    EXPECT_GT(landscape, total * 2 / 5);
    EXPECT_LT(landscape, total * 3 / 5);
}

TEST(TesterAsset, EqualityRestsOnItems)
{
    const VUTesterAsset a(item("3:4")), sameItem(item("3:4")), other(item("3:5")), none, alsoNone;
    EXPECT_TRUE(a.isEqual(&sameItem));
    EXPECT_EQ(a.hash(), sameItem.hash());
    EXPECT_TRUE(a.isContentEqualTo(&sameItem));
    EXPECT_FALSE(a.isEqual(&other));
    EXPECT_FALSE(a.isContentEqualTo(&other));
    EXPECT_FALSE(a.isEqual(nullptr));
    EXPECT_FALSE(none.isEqual(&alsoNone)) << "two assets without items are not equal";
    EXPECT_FALSE(a.isEqual(&none));
    auto shared = std::make_shared<const VUTesterAsset>(item("1:1"));
    EXPECT_EQ(shared->copy(), shared) << "immutable: a copy is the same asset";
}

TEST(TesterActions, OnlyTrashFavoriteAndShare)
{
    const VUTesterAssetActionManager manager;
    const VUTesterAsset asset(item("0:0"));
    for (qint64 type = -2; type <= 40; ++type) {
        const bool expected = type == 3 || type == 9 || type == 19;
        EXPECT_EQ(manager.canPerformActionType(type, &asset, nullptr), expected) << "action type " << type;
    }
    EXPECT_EQ(manager.preferredTrashActionTypeOnAssetsByAssetCollection({}), VUAssetActionTypeTrash);
}

TEST(TesterBrowsingSession, WiresASyntheticSession)
{
    const auto session = VUTesterBrowsingSession::newBrowsingSession();
    const auto again = VUTesterBrowsingSession::newBrowsingSession();
    ASSERT_TRUE(session->dataSourceManager() && session->actionManager() && session->mediaProvider());
    EXPECT_NE(dynamic_cast<VUTesterMediaProvider *>(session->mediaProvider().get()), nullptr);
    EXPECT_TRUE(session->actionManager()->canPerformActionType(VUAssetActionTypeShare, nullptr, nullptr));
    const VUAssetsDataSourcePtr source = session->dataSourceManager()->assetsDataSource();
    ASSERT_NE(dynamic_cast<VUTesterTilingDataSource *>(source.get()), nullptr);
    EXPECT_EQ(source->numberOfSections(), 31);
    EXPECT_NE(source->identifier(), again->dataSourceManager()->assetsDataSource()->identifier());

    // The other session's data source finds this one's references by their items.
    const VUAssetReferencePtr reference = source->assetReferenceAtIndexPath({20, 5});
    EXPECT_EQ(again->dataSourceManager()->assetsDataSource()->indexPathForAssetReference(reference.get()), (ui::IndexPath{20, 5}));
}

TEST(DataSourceManager, AnnouncesOnlyRealChanges)
{
    auto first = std::make_shared<VUTesterTilingDataSource>();
    VUTesterDataSourceManager manager(first);
    EXPECT_EQ(manager.assetsDataSource(), first);
    int changes = 0;
    QObject::connect(&manager, &VUAssetsDataSourceManager::assetsDataSourceChanged, [&] { ++changes; });
    manager.setAssetsDataSource(first);
    EXPECT_EQ(changes, 0);
    manager.setAssetsDataSource(std::make_shared<VUTesterTilingDataSource>());
    EXPECT_EQ(changes, 1);
}
