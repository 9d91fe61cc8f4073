#include "QtPrinters.h"

#include "ui/NavigationController.h"
#include "ui/Settle.h"
#include "ui/Window.h"

#include <QTimer>
#include <QVariantAnimation>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

TEST(Settle, PendingWorkIsSharedByItsCopiesAndEndsOnce)
{
    ASSERT_EQ(ui::Settle::pendingCount(), 0);
    {
        ui::PendingWork first(QStringLiteral("image 0:1"));
        ui::PendingWork second(QStringLiteral("image 0:2"));
        EXPECT_EQ(ui::Settle::pendingDescriptions(), (QStringList{QStringLiteral("image 0:1"), QStringLiteral("image 0:2")}));

        ui::PendingWork copy = first;
        first = ui::PendingWork();
        EXPECT_EQ(ui::Settle::pendingCount(), 2) << "a copy keeps the work pending";
        copy.end();
        EXPECT_FALSE(copy.isActive());
        EXPECT_EQ(ui::Settle::pendingDescriptions(), QStringList{QStringLiteral("image 0:2")});
        copy.end();
        EXPECT_EQ(ui::Settle::pendingCount(), 1) << "ending twice ends nothing else";
    }
    EXPECT_EQ(ui::Settle::pendingCount(), 0) << "the last copy going ends the work";
}

TEST(Settle, WaitsForDelayedWorkAndWhatItStarts)
{
    QStringList ran;
    QObject context;
    ui::Settle::after(30ms, &context, [&] {
        ran << QStringLiteral("first");
        // Work started by work: the wait must not end in between.
        ui::Settle::after(30ms, &context, [&] { ran << QStringLiteral("second"); }, QStringLiteral("second"));
    }, QStringLiteral("first"));
    // Not tracked itself, but what it starts during the quiet spell is.
    QTimer::singleShot(10ms, &context, [&] { ui::Settle::after(40ms, &context, [&] { ran << QStringLiteral("third"); }, QStringLiteral("third")); });

    EXPECT_TRUE(ui::Settle::waitUntilSettled(5s));
    ran.sort();
    EXPECT_EQ(ran, (QStringList{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")}));
}

TEST(Settle, DelayedWorkOfADestroyedContextNeitherRunsNorStaysPending)
{
    bool ran = false;
    {
        QObject context;
        ui::Settle::after(20ms, &context, [&] { ran = true; }, QStringLiteral("orphan"));
        EXPECT_EQ(ui::Settle::pendingCount(), 1);
    }
    EXPECT_EQ(ui::Settle::pendingCount(), 0);
    EXPECT_TRUE(ui::Settle::waitUntilSettled(1s));
    EXPECT_FALSE(ran);
}

TEST(Settle, ARunningAnimationIsPendingUntilItEnds)
{
    QVariantAnimation animation;
    animation.setStartValue(0.0);
    animation.setEndValue(1.0);
    animation.setDuration(120);
    ui::Settle::track(&animation, QStringLiteral("fade"));
    animation.start();
    EXPECT_EQ(ui::Settle::pendingDescriptions(), QStringList{QStringLiteral("fade")});
    EXPECT_TRUE(ui::Settle::waitUntilSettled(5s));
    EXPECT_EQ(animation.state(), QAbstractAnimation::Stopped);
    EXPECT_EQ(animation.currentValue().toDouble(), 1.0);

    // Destroyed while running: it never says it stopped, yet it is no longer pending.
    auto *dropped = new QVariantAnimation;
    dropped->setDuration(10000);
    dropped->setStartValue(0.0);
    dropped->setEndValue(1.0);
    ui::Settle::track(dropped, QStringLiteral("dropped"));
    dropped->start();
    delete dropped;
    EXPECT_EQ(ui::Settle::pendingCount(), 0);
}

TEST(Settle, TimesOutNamingWhatIsStillUnderWay)
{
    ui::PendingWork stuck(QStringLiteral("image 3:4"));
    QStringList pending;
    EXPECT_FALSE(ui::Settle::waitUntilSettled(100ms, &pending));
    EXPECT_EQ(pending, QStringList{QStringLiteral("image 3:4")});
}

TEST(Settle, AnAnimatedPushIsSettledOnlyOnceItHasEnded)
{
    ui::Window window;
    auto *root = new ui::ViewController;
    root->setTitle(QStringLiteral("Root"));
    auto *navigation = new ui::NavigationController(root);
    window.setRootViewController(navigation);
    window.resize(390, 600);
    window.show();
    ASSERT_TRUE(ui::Settle::waitUntilSettled(5s));

    auto *next = new ui::ViewController;
    next->setTitle(QStringLiteral("Next"));
    navigation->pushViewController(next, true);
    ASSERT_TRUE(navigation->isTransitioning());
    EXPECT_EQ(ui::Settle::pendingDescriptions(), QStringList{QStringLiteral("push of \"Next\"")});
    EXPECT_TRUE(ui::Settle::waitUntilSettled(5s));
    EXPECT_FALSE(navigation->isTransitioning());
    EXPECT_EQ(next->appearanceState(), ui::ViewController::AppearanceState::Appeared);
}
