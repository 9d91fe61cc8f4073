// The User Transforms playground: the fractal detail it shows, the composed transform read out
// as it changes, and the limits following the settings while it is shown.

#include "PlaygroundRows.h"

#include "playgrounds/usertransforms/VUTesterUserTransformsPlaygroundViewController.h"
#include "playgrounds/usertransforms/VUTesterUserTransformsSettings.h"

#include <usertransforms/VUUserTransformView.h>

#include "ui/Settle.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

class UserTransformsPlaygroundTest : public ::testing::Test {
protected:
    void SetUp() override { m_settings->setDefaultValues(); }
    void TearDown() override { m_settings->setDefaultValues(); }

    VUTesterUserTransformsPlaygroundViewController *start()
    {
        return qobject_cast<VUTesterUserTransformsPlaygroundViewController *>(
            m_rows.startPlayground(VUTesterUserTransformsSettings::settingsControllerModule(), m_settings));
    }

    VUTesterUserTransformsSettings *m_settings = VUTesterUserTransformsSettings::sharedInstance();
    PlaygroundRows m_rows;
};

TEST_F(UserTransformsPlaygroundTest, ReadoutGivesThePartsAndTheMatrix)
{
    using Playground = VUTesterUserTransformsPlaygroundViewController;
    EXPECT_EQ(Playground::textForTransform(QTransform()),
              QStringLiteral("Scale 1.00  Rotation 0.0°\nTranslation (0.0, 0.0)\n[1.000 0.000, 0.000 1.000, 0.0 0.0]"));
    const QTransform turned = VUComposeTransform(QPointF(12.34, -5), 2, 2, M_PI / 2);
    EXPECT_EQ(Playground::textForTransform(turned),
              QStringLiteral("Scale 2.00  Rotation 90.0°\nTranslation (12.3, -5.0)\n[0.000 2.000, -2.000 0.000, 12.3 -5.0]"));
}

TEST_F(UserTransformsPlaygroundTest, ShowsTheFractalDetailAndFollowsTheLimitsWhileShown)
{
    m_settings->setMaximumScale(3);
    auto *playground = start();
    ASSERT_NE(playground, nullptr);
    ASSERT_TRUE(ui::Settle::waitUntilSettled(std::chrono::seconds(20)));
    VUUserTransformView *view = playground->transformView();
    ASSERT_NE(view->image(), nullptr);
    EXPECT_EQ(view->image()->size(), QSizeF(800, 800));
    // The set's interior is black and its surroundings run from dark red to yellow: no blue.
    const QImage pixels = view->image()->uprightPixels();
    int black = 0, warm = 0, blue = 0;
    for (int y = 0; y < pixels.height(); y += 8)
        for (int x = 0; x < pixels.width(); x += 8) {
            const QColor c = pixels.pixelColor(x, y);
            black += c.red() + c.green() + c.blue() == 0;
            warm += c.red() > 100 && c.blue() < 40;
            blue += c.blue() > c.red() && c.blue() > 40;
        }
    EXPECT_GT(black, 500);
    EXPECT_GT(warm, 100);
    EXPECT_EQ(blue, 0);

    // Zoomed by a double tap in the middle to the settings' scale, at most their maximum.
    m_settings->setDoubleTapScale(5);
    for (const ui::TappableRow &row : playground->tappableRows())
        if (row.title == QStringLiteral("Double Tap Middle"))
            row.tap();
    m_rows.frames().step(60);
    EXPECT_NEAR(view->userTransformComponents().xScale, 3, 1e-9);
    EXPECT_TRUE(playground->transformText().startsWith(QStringLiteral("Scale 3.00")));
    m_settings->setMaximumScale(2);
    EXPECT_NEAR(view->userTransformComponents().xScale, 2, 1e-9);
    EXPECT_TRUE(playground->transformText().startsWith(QStringLiteral("Scale 2.00")));

    m_settings->setShowsTransform(false);
    EXPECT_FALSE(playground->view()->findChild<QWidget *>(QStringLiteral("transformReadout"))->isVisible());
}

} // namespace
