// User transforms: the limits as arithmetic, then the view under two fingers (pinch, turn and move
// together about the point between them), against its limits, and double-tapped.

#include <usertransforms/VUUserTransformView.h>

#include "ui/DisplayLink.h"
#include "ui/GestureRecognizer.h"

#include <QImage>

#include <gtest/gtest.h>

#include <cmath>

namespace {

VUTransformComponents components(QPointF translation, double scale, double rotation)
{
    return {translation, scale, scale, rotation};
}

void expectNear(QPointF a, QPointF b, double tolerance = 1e-6)
{
    EXPECT_NEAR(a.x(), b.x(), tolerance);
    EXPECT_NEAR(a.y(), b.y(), tolerance);
}

TEST(UserTransformLimitsTest, ScaleIsClampedAndUniformAndRotationDroppedWhenNotAllowed)
{
    const VUUserTransformLimits limits{0.5, 4, false, false};
    const QSizeF picture(400, 300);
    EXPECT_EQ(VUClampUserTransform(components({}, 9, 0), limits, picture).xScale, 4);
    EXPECT_EQ(VUClampUserTransform(components({}, 0.1, 0), limits, picture).xScale, 0.5);
    const VUTransformComponents stretched = VUClampUserTransform({{}, 2, 3, 0.4}, limits, picture);
    EXPECT_EQ(stretched.xScale, 2);
    EXPECT_EQ(stretched.yScale, 2);
    EXPECT_EQ(stretched.rotation, 0);
    // Free to move when translation is not limited.
    expectNear(VUClampUserTransform(components({5000, -5000}, 1, 0), limits, picture).translation, QPointF(5000, -5000));
}

// The picture keeps covering the middle: the point under it stays on the picture, whatever the
// scale and turn.
TEST(UserTransformLimitsTest, TranslationStopsWhereTheMiddleWouldLeaveThePicture)
{
    const VUUserTransformLimits limits{0.5, 4, true, true};
    const QSizeF picture(400, 300);
    expectNear(VUClampUserTransform(components({150, -100}, 1, 0), limits, picture).translation, QPointF(150, -100));
    expectNear(VUClampUserTransform(components({500, 0}, 1, 0), limits, picture).translation, QPointF(200, 0));
    expectNear(VUClampUserTransform(components({500, 0}, 2, 0), limits, picture).translation, QPointF(400, 0));
    expectNear(VUClampUserTransform(components({-900, 900}, 2, 0), limits, picture).translation, QPointF(-400, 300));
    // A quarter turn: down the screen is across the picture, which is 400 wide.
    expectNear(VUClampUserTransform(components({0, 250}, 1, M_PI / 2), limits, picture).translation, QPointF(0, 200));
    expectNear(VUClampUserTransform(components({250, 0}, 1, M_PI / 2), limits, picture).translation, QPointF(150, 0));
}

class UserTransformViewTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QImage pixels(400, 400, QImage::Format_ARGB32);
        pixels.fill(Qt::red);
        m_view.setImage(std::make_shared<graphics::Image>(pixels));
        m_view.resize(400, 400);
        m_view.show();
    }

    // Two fingers `spread` points either side of `middle` along the angle `turn`.
    static QList<ui::TouchPoint> fingers(QPointF middle, double spread, double turn)
    {
        const QPointF arm(spread * std::cos(turn), spread * std::sin(turn));
        return {{0, middle - arm}, {1, middle + arm}};
    }
    // From 60 points apart, level, at `from`, to `spread` apart turned by `turn` at `to`, in
    // small steps; the fingers stay down.
    void gesture(QPointF from, QPointF to, double spread, double turn)
    {
        ui::sendTouches(&m_view, ui::TouchPhase::Began, fingers(from, 60, 0), m_clock);
        for (int i = 1; i <= 20; ++i) {
            const double f = i / 20.0;
            ui::sendTouches(&m_view, ui::TouchPhase::Moved, fingers(from + (to - from) * f, 60 + (spread - 60) * f, turn * f), m_clock += 0.016);
        }
        m_last = fingers(to, spread, turn);
    }
    void lift() { ui::sendTouches(&m_view, ui::TouchPhase::Ended, m_last, m_clock += 0.016); }
    // Where a point of the view goes under the user transform.
    QPointF shown(QPointF point) const
    {
        const QPointF centre(200, 200);
        return m_view.userTransform().map(point - centre) + centre;
    }

    ui::DisplayLink::ManualStepping m_frames{60};
    VUUserTransformView m_view;
    QList<ui::TouchPoint> m_last;
    double m_clock = 1;
};

TEST_F(UserTransformViewTest, TwoFingersScaleTurnAndMoveTogetherAboutThePointBetweenThem)
{
    m_view.setLimits({0.5, 4, true, false});
    gesture(QPointF(150, 150), QPointF(250, 180), 120, M_PI / 6);
    const VUTransformComponents c = m_view.userTransformComponents();
    EXPECT_NEAR(c.xScale, 2, 0.05);
    EXPECT_NEAR(c.rotation, M_PI / 6, 0.02);
    // What was under the fingers when they went down is under them still.
    expectNear(shown(QPointF(150, 150)), QPointF(250, 180), 2);
    lift();
    EXPECT_EQ(m_view.userTransform(), VUComposeTransform(c.translation, c.xScale, c.yScale, c.rotation));
}

TEST_F(UserTransformViewTest, GesturesStopAtTheLimits)
{
    m_view.setLimits({0.5, 1.5, false, true});
    gesture(QPointF(200, 200), QPointF(200, 200), 200, M_PI / 4);
    EXPECT_NEAR(m_view.userTransformComponents().xScale, 1.5, 1e-9);
    EXPECT_NEAR(m_view.userTransformComponents().rotation, 0, 1e-9);
    lift();
    gesture(QPointF(200, 200), QPointF(2000, 200), 60, 0);
    // The middle stays on the 400-point picture, 1.5 times larger: 300 points at most.
    EXPECT_NEAR(m_view.userTransformComponents().translation.x(), 300, 1e-6);
    lift();
    // Tighter limits apply at once.
    m_view.setLimits({0.5, 1.2, false, true});
    EXPECT_NEAR(m_view.userTransformComponents().xScale, 1.2, 1e-9);
    EXPECT_NEAR(m_view.userTransformComponents().translation.x(), 240, 1e-6);
}

TEST_F(UserTransformViewTest, DoubleTapZoomsInWhereTappedThenBackOut)
{
    m_view.setLimits({0.5, 4, true, true});
    m_view.setDoubleTapScale(2);
    for (double at : {0.0, 0.1}) {
        ui::sendTouches(&m_view, ui::TouchPhase::Began, {{0, QPointF(300, 200)}}, m_clock + at);
        ui::sendTouches(&m_view, ui::TouchPhase::Ended, {{0, QPointF(300, 200)}}, m_clock + at + 0.05);
    }
    EXPECT_TRUE(m_view.isZooming());
    m_frames.step(30);
    EXPECT_FALSE(m_view.isZooming());
    EXPECT_NEAR(m_view.userTransformComponents().xScale, 2, 1e-9);
    expectNear(shown(QPointF(300, 200)), QPointF(300, 200));

    m_view.zoomAtLocation(QPointF(100, 100));
    m_frames.step(30);
    EXPECT_TRUE(m_view.userTransform().isIdentity());
}

} // namespace
