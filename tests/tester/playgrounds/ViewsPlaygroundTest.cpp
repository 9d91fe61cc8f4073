// The Views playground: its settings, every view in each of its states, and the views following
// the settings while the screen is shown.

#include "PlaygroundRows.h"

#include "playgrounds/views/VUTesterViewSettings.h"
#include "playgrounds/views/VUTesterViewsPlaygroundViewController.h"

#include <views/VUDurationBadgeView.h>
#include <views/VUFavoriteBadgeView.h>
#include <views/VUProgressRingView.h>
#include <views/VUSelectionMarkView.h>
#include <views/VUStirShotBadgeView.h>

#include <gtest/gtest.h>

namespace {

class ViewsPlaygroundTest : public ::testing::Test {
protected:
    void SetUp() override { m_settings->setDefaultValues(); }
    void TearDown() override { m_settings->setDefaultValues(); }

    VUTesterViewSettings *m_settings = VUTesterViewSettings::sharedInstance();
    PlaygroundRows m_rows;
};

TEST_F(ViewsPlaygroundTest, ModuleStartsThePlaygroundAndOffersEveryColour)
{
    const TWModulePtr module = VUTesterViewSettings::settingsControllerModule();
    EXPECT_EQ(module->title(), QStringLiteral("Views"));
    EXPECT_EQ(module->sections().front().rows.front()->title(), QStringLiteral("Test Views"));
    EXPECT_EQ(module->sections().back().rows.front()->title(), QStringLiteral("Restore Defaults"));
    for (const char *key : {"badgeColor", "selectionColor", "progressColor"}) {
        const auto rows = module->rowsEditingKeyPath(QString::fromLatin1(key));
        ASSERT_EQ(rows.size(), 1u) << key;
        for (qint64 value = VUTesterViewSettings::ColorWhite; value <= VUTesterViewSettings::ColorGreen; ++value)
            EXPECT_TRUE(rows.front()->offersValue(QVariant::fromValue(value))) << key << value;
    }
    EXPECT_EQ(VUTesterViewSettings::colorForValue(VUTesterViewSettings::ColorRed), QColor(255, 59, 48));
    EXPECT_EQ(VUTesterViewSettings::colorForValue(99), QColor(Qt::white));
    EXPECT_NE(qobject_cast<VUTesterViewsPlaygroundViewController *>(m_rows.startPlayground(module, m_settings)), nullptr);
}

TEST_F(ViewsPlaygroundTest, EveryStateOfEveryViewIsShown)
{
    auto *playground = qobject_cast<VUTesterViewsPlaygroundViewController *>(
        m_rows.startPlayground(VUTesterViewSettings::settingsControllerModule(), m_settings));
    ASSERT_NE(playground, nullptr);
    ASSERT_EQ(playground->specimens().size(), 14);

    const auto favorite = qobject_cast<VUFavoriteBadgeView *>(playground->specimenView(QStringLiteral("Not Favorite")));
    ASSERT_NE(favorite, nullptr);
    EXPECT_FALSE(favorite->isFavorite());
    EXPECT_TRUE(qobject_cast<VUFavoriteBadgeView *>(playground->specimenView(QStringLiteral("Favorite")))->isFavorite());
    EXPECT_TRUE(qobject_cast<VUStirShotBadgeView *>(playground->specimenView(QStringLiteral("Stir Shot Off")))->isOff());
    EXPECT_EQ(qobject_cast<VUDurationBadgeView *>(playground->specimenView(QStringLiteral("Hours")))->duration(), 3723);
    EXPECT_FALSE(qobject_cast<VUDurationBadgeView *>(playground->specimenView(QStringLiteral("No Shade")))->showsShade());
    auto *unavailable = qobject_cast<VUSelectionMarkView *>(playground->specimenView(QStringLiteral("Unavailable")));
    EXPECT_FALSE(unavailable->isEnabled());
    EXPECT_TRUE(qobject_cast<VUSelectionMarkView *>(playground->specimenView(QStringLiteral("Selected")))->isSelected());
    EXPECT_EQ(qobject_cast<VUProgressRingView *>(playground->specimenView(QStringLiteral("Waiting")))->state(),
              VUProgressRingView::State::Indeterminate);
    EXPECT_EQ(qobject_cast<VUProgressRingView *>(playground->specimenView(QStringLiteral("Done")))->state(),
              VUProgressRingView::State::Completed);
    // Each view lies wholly on its tile, where the grid puts it.
    for (const auto &specimen : playground->specimens()) {
        QWidget *tile = specimen.view->parentWidget();
        EXPECT_TRUE(specimen.view->isVisible()) << specimen.caption.toStdString();
        EXPECT_TRUE(tile->rect().contains(specimen.view->geometry())) << specimen.caption.toStdString();
    }
    const QRect selected = playground->specimenView(QStringLiteral("Selected"))->geometry();
    EXPECT_GT(selected.left(), 50);
    EXPECT_GT(selected.top(), 50);
    const QRect stirShot = playground->specimenView(QStringLiteral("Stir Shot"))->geometry();
    EXPECT_LT(stirShot.right(), 50);
    EXPECT_LT(stirShot.bottom(), 50);
}

TEST_F(ViewsPlaygroundTest, ViewsFollowTheSettingsWhileShown)
{
    auto *playground = qobject_cast<VUTesterViewsPlaygroundViewController *>(
        m_rows.startPlayground(VUTesterViewSettings::settingsControllerModule(), m_settings));
    ASSERT_NE(playground, nullptr);
    VUBadgeView *favorite = playground->specimenView(QStringLiteral("Favorite"));
    auto *ring = qobject_cast<VUProgressRingView *>(playground->specimenView(QStringLiteral("Progress")));
    VUBadgeView *selected = playground->specimenView(QStringLiteral("Selected"));
    EXPECT_EQ(favorite->glyphSize(), 16);
    EXPECT_DOUBLE_EQ(ring->progress(), 0.4);

    m_settings->setBadgeSize(40);
    m_settings->setBadgeColor(VUTesterViewSettings::ColorYellow);
    m_settings->setSelectionColor(VUTesterViewSettings::ColorGreen);
    m_settings->setProgress(0.9);
    m_settings->setProgressLineWidth(8);
    EXPECT_EQ(favorite->glyphSize(), 40);
    EXPECT_EQ(favorite->size(), favorite->sizeHint()) << "placed again at its new size";
    EXPECT_EQ(favorite->color(), VUTesterViewSettings::colorForValue(VUTesterViewSettings::ColorYellow));
    EXPECT_EQ(selected->color(), VUTesterViewSettings::colorForValue(VUTesterViewSettings::ColorGreen));
    EXPECT_DOUBLE_EQ(ring->progress(), 0.9);
    EXPECT_EQ(ring->lineWidth(), 8);
    // The selection mark keeps its own size, the ring its own colour.
    EXPECT_EQ(selected->glyphSize(), 24);
    EXPECT_EQ(ring->color(), VUTesterViewSettings::colorForValue(VUTesterViewSettings::ColorBlue));
}

} // namespace
