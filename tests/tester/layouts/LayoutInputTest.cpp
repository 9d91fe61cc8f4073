// The playground's model: what the layout input makes of an item (size, weight, title, colour)
// under every colour scheme and ordering, and what each tap behaviour does to it, always as a new
// input that observers hear of.

#include "QtPrinters.h"

#include "layouts/VUTesterLayoutInputManager.h"

#include <gtest/gtest.h>

namespace {

using Settings = VUTesterLayoutsPlaygroundSettings;

struct InputFixture : ::testing::Test, VXChangeObserver {
    Settings settings;
    std::vector<quint64> changes;

    void SetUp() override { settings.setDefaultValues(); }
    void didChange(VXObservable *, quint64 change, void *) override { changes.push_back(change); }

    // Taps item `index` `taps` times with `behavior`; answers the item's kind and extra weight.
    std::pair<qint64, qint64> tap(VUTesterLayoutInputManager &manager, qint64 behavior, qint64 index, int taps = 1)
    {
        settings.setTapBehavior(behavior);
        for (int i = 0; i < taps; ++i)
            manager.handleTapOnItemAtIndex(index);
        return {manager.layoutInput()->kindForItemAtIndex(index), manager.layoutInput()->extraWeightForItemAtIndex(index)};
    }
};

} // namespace

TEST_F(InputFixture, DefaultsGiveSquaresOfWeightZeroColouredByIndexAndTitledFromOne)
{
    const VUTesterLayoutInput input({}, {}, &settings);
    for (qint64 i = 0; i < 12; ++i) {
        const VXLayoutItem item = input.itemAtIndex(i);
        EXPECT_EQ(item.size(), QSizeF(300, 300));
        EXPECT_EQ(item.weight(), 0.0);
        EXPECT_EQ(input.titleForItemAtIndex(i), QString::number(i + 1));
        EXPECT_EQ(input.colorForItemAtIndex(i), graphics::Color::hsb(double(i) / 12.0, 1, 1, 1));
    }
    settings.setDisplayedIndexesStartAtZero(true);
    EXPECT_EQ(input.titleForItemAtIndex(0), QStringLiteral("0"));

    const VUTesterLayoutInput bare;
    EXPECT_EQ(bare.itemAtIndex(3).size(), QSizeF(300, 300)) << "no settings: squares";
    EXPECT_EQ(bare.colorForItemAtIndex(3), graphics::Color::gray(0.5));
}

TEST_F(InputFixture, KindsSizeItemsAndGiveSymbolsUnlessColourShowsTheKind)
{
    const VUTesterLayoutInput input({{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 9}}, {}, &settings);
    const QSizeF sizes[] = {{300, 300}, {300, 400}, {400, 300}, {1000, 300}, {300, 1000}, {300, 300}};
    const QString titles[] = {QStringLiteral("1"), QStringLiteral("▯2"), QStringLiteral("▭3"), QStringLiteral("━4"), QStringLiteral("┃5"), QStringLiteral("6")};
    for (qint64 i = 0; i < 6; ++i) {
        EXPECT_EQ(input.itemAtIndex(i).size(), sizes[i]) << i;
        EXPECT_EQ(input.titleForItemAtIndex(i), titles[i]) << i;
    }
    settings.setColorScheme(Settings::ColorByKind);
    EXPECT_EQ(input.titleForItemAtIndex(3), QStringLiteral("4"));
    EXPECT_EQ(input.colorForItemAtIndex(1), VUTesterLayoutInput::colorForKind(1));
    EXPECT_NE(input.colorForItemAtIndex(1), input.colorForItemAtIndex(2));
    EXPECT_EQ(input.colorForItemAtIndex(5), graphics::Color::gray(0.5)) << "an unknown kind is grey";
    settings.setDefaultInputKind(Settings::VerticalPanos);
    EXPECT_EQ(input.kindForItemAtIndex(7), Settings::VerticalPanos) << "items without an entry take the default";
    settings.setColorScheme(7);
    EXPECT_EQ(input.colorForItemAtIndex(0), graphics::Color::gray(0.5));
}

TEST_F(InputFixture, WeightsFollowTheOrderingAndExtraWeightsShiftThemByWholeUnits)
{
    const VUTesterLayoutInput input({}, {{2, 2}, {3, -1}}, &settings);
    EXPECT_EQ(input.weightForItemAtIndex(2), 2.0) << "constant";
    settings.setItemWeightsOrdering(-1);
    EXPECT_NEAR(input.weightForItemAtIndex(1), 0.7616, 1e-4) << "increasing";
    EXPECT_NEAR(input.weightForItemAtIndex(2), std::tanh(2.0) + 2, 1e-12);
    settings.setItemWeightsOrdering(1);
    EXPECT_EQ(input.weightForItemAtIndex(0), 0.0) << "decreasing";
    EXPECT_NEAR(input.weightForItemAtIndex(3), -0.9951 - 1, 1e-4);
    EXPECT_NEAR(input.itemAtIndex(3).weight(), input.weightForItemAtIndex(3), 0);

    // Marks show the extra weight, unless colour shows the weight.
    EXPECT_EQ(input.titleForItemAtIndex(2), QStringLiteral("💚💚3"));
    EXPECT_EQ(input.titleForItemAtIndex(3), QStringLiteral("💔4"));
    settings.setColorScheme(Settings::ColorByWeight);
    EXPECT_EQ(input.titleForItemAtIndex(2), QStringLiteral("3"));
    // Hue 0; saturation 0.5 + max(w/2, 0), brightness 1 + w/2, clamped: w = -1.9951 is dark red.
    EXPECT_EQ(input.colorForItemAtIndex(2), graphics::Color::rgb(1, 0, 0));
    const double w = input.weightForItemAtIndex(3);
    EXPECT_EQ(input.colorForItemAtIndex(3), graphics::Color::hsb(0, 0.5, w * 0.5 + 1.0));
    EXPECT_EQ(input.colorForItemAtIndex(0), graphics::Color::hsb(0, 0.5, 1.0));
}

TEST_F(InputFixture, EveryTapBehaviourChangesKindsAndWeightsAsItSays)
{
    VUTesterLayoutInputManager manager({}, &settings);
    using K = std::pair<qint64, qint64>;
    EXPECT_EQ(tap(manager, Settings::TapTogglePanos, 4), K(3, 0));
    EXPECT_EQ(manager.layoutInput()->itemAtIndex(4).size(), QSizeF(1000, 300));
    EXPECT_EQ(tap(manager, Settings::TapTogglePanos, 4), K(0, 0));
    EXPECT_EQ(tap(manager, Settings::TapTogglePanos, 5, 1), K(3, 0));
    EXPECT_EQ(tap(manager, Settings::TapRotate, 5), K(4, 0));
    EXPECT_EQ(tap(manager, Settings::TapRotate, 5), K(3, 0));
    EXPECT_EQ(tap(manager, Settings::TapRotate, 6), K(0, 0)) << "a square stays";
    EXPECT_EQ(tap(manager, Settings::TapCycleNonPanos, 5), K(0, 0)) << "a pano becomes a square";
    EXPECT_EQ(tap(manager, Settings::TapCycleNonPanos, 5), K(1, 0));
    EXPECT_EQ(tap(manager, Settings::TapRotate, 5), K(2, 0));
    EXPECT_EQ(tap(manager, Settings::TapCycleNonPanos, 5), K(0, 0));
    EXPECT_EQ(tap(manager, Settings::TapCycleThrough, 5, 4), K(4, 0));
    EXPECT_EQ(tap(manager, Settings::TapCycleThrough, 5), K(0, 0));
    EXPECT_EQ(tap(manager, Settings::TapChangeWeight, 7), K(0, 1));
    EXPECT_EQ(tap(manager, Settings::TapChangeWeight, 7), K(0, -1));
    EXPECT_EQ(tap(manager, Settings::TapChangeWeight, 7), K(0, 0));
    EXPECT_EQ(tap(manager, Settings::TapIncreaseWeight, 7, 2), K(0, 2));
    EXPECT_EQ(manager.layoutInput()->titleForItemAtIndex(7), QStringLiteral("💚💚8"));
    EXPECT_EQ(tap(manager, Settings::TapChangeWeight, 7), K(0, 2)) << "past the cycle, the weight stays";
    EXPECT_EQ(tap(manager, Settings::TapDecreaseWeight, 7, 5), K(0, -3));
    EXPECT_EQ(tap(manager, Settings::TapNone, 7), K(0, -3));
    EXPECT_EQ(tap(manager, 42, 7), K(0, -3)) << "an unknown behaviour changes nothing";

    // Kinds past the table stay under every behaviour but the pano toggle.
    settings.setDefaultInputKind(9);
    for (qint64 behavior : {Settings::TapRotate, Settings::TapCycleNonPanos, Settings::TapCycleThrough})
        EXPECT_EQ(tap(manager, behavior, 20), K(9, 0)) << behavior;
    EXPECT_EQ(tap(manager, Settings::TapTogglePanos, 21), K(3, 0));
}

TEST_F(InputFixture, EveryTapSignalsOneChangeWithANewInputThatWritesTheItemsEntries)
{
    VUTesterLayoutInputManager manager({{2, 1}}, &settings);
    EXPECT_EQ(manager.layoutInput()->extraWeightForItemAtIndex(2), 1) << "initial weights";
    EXPECT_TRUE(manager.layoutInput()->inputKinds().isEmpty());
    int context;
    manager.registerChangeObserver(this, &context);

    settings.setDefaultInputKind(Settings::Portraits);
    const std::shared_ptr<const VUTesterLayoutInput> before = manager.layoutInput();
    settings.setTapBehavior(Settings::TapNone);
    manager.handleTapOnItemAtIndex(3);
    EXPECT_EQ(changes, std::vector<quint64>{1}) << "even a tap that changes nothing redraws";
    EXPECT_NE(manager.layoutInput(), before);
    EXPECT_EQ(manager.layoutInput()->inputKinds(), (VUTesterLayoutInput::IndexMap{{3, 1}})) << "written even when equal to the default";
    EXPECT_EQ(manager.layoutInput()->extraWeights(), (VUTesterLayoutInput::IndexMap{{2, 1}, {3, 0}}));
    EXPECT_EQ(before->inputKinds().size(), 0) << "the old input is never changed";

    settings.setDefaultInputKind(Settings::Squares);
    EXPECT_EQ(manager.layoutInput()->kindForItemAtIndex(3), Settings::Portraits) << "a tapped item keeps its kind";
    settings.setTapBehavior(Settings::TapRotate);
    manager.handleTapOnItemAtIndex(0);
    EXPECT_EQ(changes.size(), 2u);
}
