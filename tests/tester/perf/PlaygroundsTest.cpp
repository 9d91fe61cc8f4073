// The velocity filter playground's text and bars, and the initial velocities playground's
// conversions.

#include "PhoneWindow.h"
#include "QtPrinters.h"

#include "perf/VUTesterAnimationsSettings.h"
#include "perf/VUTesterValueFiltersSettings.h"
#include "perf/playgrounds/VUTesterAlongsideLayerAnimationsPlaygroundViewController.h"
#include "perf/playgrounds/VUTesterInitialVelocitiesPlaygroundViewController.h"
#include "perf/playgrounds/VUTesterVelocityFilterPlaygroundViewController.h"

#include "perf/animation/VUTransforms.h"
#include "perf/animation/VUView.h"
#include "ui/BarButtonItem.h"
#include "ui/DisplayLink.h"
#include "ui/GestureRecognizer.h"
#include "ui/NavigationController.h"
#include "ui/PanGestureRecognizer.h"
#include "ui/Window.h"

#include <QTest>

#include <gtest/gtest.h>

#include <cmath>

TEST(VelocityPlayground, TextIsSignedRightAlignedWithOneDecimal)
{
    EXPECT_EQ(VUTesterVelocityFilterPlaygroundViewController::infoText(0, 0, 0, 0),
              QStringLiteral("Filter Velocity:\nx:       +0.0\ny:       +0.0\n\nGesture Velocity:\nx:       +0.0\ny:       +0.0"));
    EXPECT_EQ(VUTesterVelocityFilterPlaygroundViewController::infoText(-1234.56, 7.04, 99999.95, -0.04),
              QStringLiteral("Filter Velocity:\nx:    -1234.6\ny:       +7.0\n\nGesture Velocity:\nx:   +99999.9\ny:       -0.0"));
    EXPECT_EQ(VUTesterVelocityFilterPlaygroundViewController::barLength(1000, 50), 50);
    EXPECT_EQ(VUTesterVelocityFilterPlaygroundViewController::barLength(-3000, 50), -100);
    EXPECT_EQ(VUTesterVelocityFilterPlaygroundViewController::barLength(0, 50), 0);
}

namespace {

struct VelocityPlaygroundFixture : ::testing::Test {
    ui::DisplayLink::ManualStepping frames{60};
    VUTesterValueFiltersSettings *settings = VUTesterValueFiltersSettings::sharedInstance();
    ui::Window window;
    VUTesterVelocityFilterPlaygroundViewController *playground = nullptr;
    double clock = 50;

    void show()
    {
        playground = new VUTesterVelocityFilterPlaygroundViewController(settings);
        showInPhoneWindow(window, playground, QSize(400, 800));
    }
    void TearDown() override { settings->setDefaultValues(); }
    // A drag from the middle to the left and up, a frame between moves; the finger stays down.
    void dragLeftAndUp()
    {
        QWidget *view = playground->view();
        const QPointF start(200, 400);
        ui::sendTouches(view, ui::TouchPhase::Began, {{0, start}}, clock);
        for (int i = 1; i <= 12; ++i) {
            frames.step();
            ui::sendTouches(view, ui::TouchPhase::Moved, {{0, start + QPointF(-20 * i, -5 * i)}}, clock += 1.0 / 60);
        }
    }
    // Every test lifts its finger, so the next one starts a touch sequence of its own.
    void release() { ui::sendTouches(playground->view(), ui::TouchPhase::Cancelled, {{0, QPointF()}}, clock += 1.0 / 60); }
    QRect bar(const char *key) { return playground->indicatorView(QString::fromLatin1(key))->geometry(); }
};

} // namespace

TEST_F(VelocityPlaygroundFixture, BeforeAnyPanEveryBarIsEmptyAndTheTextShowsZeros)
{
    show();
    EXPECT_EQ(playground->displayedText(), VUTesterVelocityFilterPlaygroundViewController::infoText(0, 0, 0, 0));
    for (const char *key : {"horizontalVelocity", "verticalVelocity", "gestureHorizontalVelocity", "gestureVerticalVelocity"}) {
        ASSERT_TRUE(playground->indicatorView(QString::fromLatin1(key))) << key;
        EXPECT_EQ(bar(key).width() * bar(key).height(), 0) << key;
    }
    EXPECT_FALSE(playground->hasDisplayLink()) << "updates follow the gesture by default";
}

TEST_F(VelocityPlaygroundFixture, NegativeVelocitiesDrawBarsLeftOfAndAboveTheirAnchors)
{
    show();
    dragLeftAndUp();
    // 20 and 5 points a frame at 60 frames a second.
    const QString text = playground->displayedText();
    EXPECT_TRUE(text.startsWith(QStringLiteral("Filter Velocity:\nx:    -1200.0\ny:     -300.0\n"))) << text.toStdString();
    const double s = 0.25 * 400;
    const QPoint middle(200, 400);
    const int horizontal = int(std::lround(s * std::log2(1 + 1200.0 / 1000)));
    const int vertical = int(std::lround(s * std::log2(1 + 300.0 / 1000)));
    EXPECT_EQ(bar("horizontalVelocity"), QRect(middle.x() - horizontal, middle.y() - 5, horizontal, 5));
    EXPECT_EQ(bar("verticalVelocity"), QRect(middle.x() - 5, middle.y() - vertical, 5, vertical));
    EXPECT_EQ(bar("gestureHorizontalVelocity").right(), middle.x() - 1) << "the recogniser's bar ends at the anchor too";
    EXPECT_EQ(bar("gestureHorizontalVelocity").top(), middle.y());
    EXPECT_GT(bar("gestureHorizontalVelocity").width(), 0);
    EXPECT_EQ(playground->indicatorView(QStringLiteral("horizontalVelocity"))->palette().color(QPalette::Window), QColor(Qt::red));
    EXPECT_EQ(playground->indicatorView(QStringLiteral("gestureVerticalVelocity"))->palette().color(QPalette::Window), QColor(Qt::green));
    release();
}

TEST_F(VelocityPlaygroundFixture, ASwitchedOffDirectionKeepsItsFilterEmptyWhileTheGestureBarMoves)
{
    settings->setComputeHorizontalVelocity(false);
    show();
    dragLeftAndUp();
    EXPECT_EQ(bar("horizontalVelocity").width(), 0);
    EXPECT_GT(bar("verticalVelocity").height(), 0);
    EXPECT_GT(bar("gestureHorizontalVelocity").width(), 0);
    EXPECT_TRUE(playground->displayedText().startsWith(QStringLiteral("Filter Velocity:\nx:       +0.0\n")));
    release();
}

TEST_F(VelocityPlaygroundFixture, TheDisplayLinkScheduleRefreshesEachFrameAndOnlyWhileShown)
{
    settings->setUpdateSchedule(VUTesterValueFiltersSettings::UpdateScheduleDisplayLink);
    show();
    ASSERT_TRUE(playground->hasDisplayLink());
    QWidget *view = playground->view();
    ui::sendTouches(view, ui::TouchPhase::Began, {{0, QPointF(200, 400)}}, clock);
    // The pan begins with the first move and measures from the second on: 30 points a frame.
    for (int x = 230; x <= 290; x += 30) {
        frames.step();
        ui::sendTouches(view, ui::TouchPhase::Moved, {{0, QPointF(x, 400)}}, clock += 1.0 / 60);
    }
    frames.step();
    const QString shown = playground->displayedText();
    ui::sendTouches(view, ui::TouchPhase::Moved, {{0, QPointF(320, 400)}}, clock += 1.0 / 60);
    EXPECT_EQ(playground->displayedText(), shown) << "gesture events alone do not refresh it";
    frames.step();
    EXPECT_TRUE(playground->displayedText().startsWith(QStringLiteral("Filter Velocity:\nx:    +1800.0\n")))
        << playground->displayedText().toStdString();
    release();

    // Switching while shown changes which path refreshes, not whether a timer runs.
    settings->setUpdateSchedule(VUTesterValueFiltersSettings::UpdateScheduleGesture);
    EXPECT_TRUE(playground->hasDisplayLink());
    window.hide();
    EXPECT_FALSE(playground->hasDisplayLink());
}

namespace {

struct InitialVelocitiesFixture : ::testing::Test {
    ui::DisplayLink::ManualStepping frames{60};
    VUTesterAnimationsSettings *settings = VUTesterAnimationsSettings::sharedInstance();
    ui::Window window;
    VUTesterInitialVelocitiesPlaygroundViewController *playground = new VUTesterInitialVelocitiesPlaygroundViewController;
    quint32 random = 0;
    QStringList logged;
    static QStringList *s_log;

    void SetUp() override
    {
        playground->setRandomSource([this] { return random; });
        showInPhoneWindow(window, new ui::NavigationController(playground));
        s_log = &logged;
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &context, const QString &message) {
            if (QByteArray(context.category) == "vistra.perf.animations")
                *s_log << message;
        });
    }
    void TearDown() override
    {
        qInstallMessageHandler(nullptr);
        settings->setDefaultValues();
    }
    void expectTogether(const char *what)
    {
        VUView *a = playground->testViewA(), *b = playground->testViewB();
        EXPECT_TRUE(VUPointIsApproximatelyEqualToPoint(a->center(), b->center())) << what;
        EXPECT_NEAR(a->bounds().width(), b->bounds().width(), 1e-6) << what;
        EXPECT_NEAR(a->transform().m11(), b->transform().m11(), 1e-9) << what;
        EXPECT_NEAR(a->transform().m12(), b->transform().m12(), 1e-9) << what;
    }
};
QStringList *InitialVelocitiesFixture::s_log = nullptr;

} // namespace

TEST_F(InitialVelocitiesFixture, ButtonsComeAfterResetAndTheViewsStartAtTheOrigin)
{
    QStringList titles;
    for (const ui::BarButtonItem *item : playground->navigationItem()->rightBarButtonItems())
        titles << item->title();
    EXPECT_EQ(titles, (QStringList{"Reset", "Scale", "Resize", "Rotate"}));
    EXPECT_EQ(playground->testViewA()->center(), QPointF(40, 30));
    EXPECT_EQ(playground->testViewB()->bounds().size(), QSizeF(80, 60));
}

TEST_F(InitialVelocitiesFixture, ResizingKeepsTheAspectAndGivesBTheMatchingScaleVelocity)
{
    random = quint32(std::lround(150.0 / 250.0 * 4294967295.0)); // width 200
    playground->_resizeViewsRandomly();
    EXPECT_NEAR(playground->lastVelocityOfB().scale, 5.0 * 1.5, 1e-6) << "v (5) times 200 / 80 - 1";
    EXPECT_EQ(playground->lastVelocityOfB().x, 0);
    frames.step(6);
    expectTogether("mid-resize");
    frames.step(200);
    EXPECT_NEAR(playground->testViewA()->bounds().width(), 200, 1e-6);
    EXPECT_NEAR(playground->testViewA()->bounds().height(), 150, 1e-6);
    expectTogether("resized");

    random = 0;
    playground->_resizeViewsRandomly();
    frames.step(200);
    EXPECT_NEAR(playground->testViewB()->bounds().width(), 50, 1e-6) << "r = 0 gives the narrowest";
    random = 0xffffffffu;
    playground->_resizeViewsRandomly();
    frames.step(200);
    EXPECT_NEAR(playground->testViewB()->bounds().width(), 300, 1e-6) << "r = 1 the widest";
    EXPECT_TRUE(logged.isEmpty());
}

TEST_F(InitialVelocitiesFixture, RotatingAScaledViewSaysSoAndStillRotatesWithBAlong)
{
    random = 0xffffffffu; // scale 3
    playground->_scaleViewsRandomly();
    frames.step(200);
    EXPECT_NEAR(VUDecomposeTransform(playground->testViewA()->transform()).xScale, 3, 1e-9);
    EXPECT_TRUE(logged.isEmpty()) << "the identity is a pure uniform scale";

    random = 0; // -pi/2
    playground->_rotateViewsRandomly();
    ASSERT_EQ(logged.size(), 1);
    EXPECT_EQ(logged[0], QStringLiteral("current transform isn't a pure rotation: [3, 0, 0, 3, 0, 0]"));
    EXPECT_NEAR(playground->lastVelocityOfB().rotation, 5 * -M_PI / 2, 1e-9);
    frames.step(9);
    expectTogether("mid-rotation");
    frames.step(200);
    const VUTransformComponents rotated = VUDecomposeTransform(playground->testViewB()->transform());
    EXPECT_NEAR(rotated.rotation, -M_PI / 2, 1e-9);
    EXPECT_NEAR(rotated.xScale, 3, 1e-9) << "the scale is kept";

    playground->_scaleViewsRandomly();
    ASSERT_EQ(logged.size(), 2);
    EXPECT_TRUE(logged[1].startsWith(QStringLiteral("current transform isn't a pure uniform scale: ")));
}

TEST_F(InitialVelocitiesFixture, MovesFollowTapsAndInterruptionsWithBOnAThroughout)
{
    settings->setInitialSpringVelocity(12);
    playground->animateViewsToCenter(QPointF(300, 600));
    EXPECT_NEAR(playground->lastVelocityOfB().x, 12 * 260, 1e-6);
    EXPECT_NEAR(playground->lastVelocityOfB().y, 12 * 570, 1e-6);
    frames.step(10);
    expectTogether("first move");
    playground->animateViewsToCenter(QPointF(50, 700));
    frames.step(4);
    random = 1u << 31;
    playground->_rotateViewsRandomly();
    frames.step(10);
    expectTogether("second move, rotating");
    playground->resetViewsToCenter(QPointF(195, 400));
    EXPECT_EQ(playground->testViewA()->center(), QPointF(195, 400));
    EXPECT_EQ(playground->testViewB()->center(), QPointF(195, 400));
    frames.step(60);
    EXPECT_EQ(playground->testViewA()->center(), QPointF(195, 400)) << "reset stopped every animation";
}

TEST(AlongsideLayerPlayground, TheCornersTurnOnTheSameSpringAsTheMove)
{
    ui::DisplayLink::ManualStepping frames(60);
    ui::Window window;
    auto *playground = new VUTesterAlongsideLayerAnimationsPlaygroundViewController;
    showInPhoneWindow(window, playground);
    VUView *view = playground->testView();
    playground->animateViewsToCenter(QPointF(260, 600));
    frames.step(20);
    // Both went the same share of their way.
    const double moved = (view->center().x() - 60) / 200;
    EXPECT_NEAR(view->cornerRadius() / 60, moved, 1e-9);
    frames.step(200);
    EXPECT_EQ(view->cornerRadius(), 60);
    playground->animateViewsToCenter(QPointF(100, 100));
    frames.step(200);
    EXPECT_EQ(view->cornerRadius(), 0) << "each tap flips the shape";
}
