#include "QtPrinters.h"

#include "ui/BarButtonItem.h"
#include "ui/NavigationController.h"
#include "ui/Window.h"

#include <QLabel>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace {

// Records its appearance callbacks into a shared log.
class LoggingController : public ui::ViewController {
public:
    LoggingController(QString name, QStringList *log) : m_name(std::move(name)), m_log(log) { setTitle(m_name); }

protected:
    void viewDidLoad() override { *m_log << m_name + QStringLiteral(" load"); }
    void viewWillAppear(bool) override { *m_log << m_name + QStringLiteral(" willAppear"); }
    void viewDidAppear(bool) override { *m_log << m_name + QStringLiteral(" didAppear"); }
    void viewWillDisappear(bool) override { *m_log << m_name + QStringLiteral(" willDisappear"); }
    void viewDidDisappear(bool) override { *m_log << m_name + QStringLiteral(" didDisappear"); }

private:
    QString m_name;
    QStringList *m_log;
};

class LoggingDelegate : public ui::NavigationControllerDelegate {
public:
    explicit LoggingDelegate(QStringList *log) : m_log(log) {}
    void willShowViewController(ui::NavigationController *navigation, ui::ViewController *controller, bool) override
    {
        *m_log << QStringLiteral("delegate willShow %1 (top %2)").arg(controller->title(), navigation->topViewController()->title());
    }

private:
    QStringList *m_log;
};

struct NavigationFixture : ::testing::Test {
    QStringList log;
    LoggingDelegate delegate{&log};
    ui::Window window;
    ui::NavigationController *navigation = nullptr;

    void SetUp() override
    {
        navigation = new ui::NavigationController(new LoggingController(QStringLiteral("root"), &log));
        navigation->setDelegate(&delegate);
        window.setRootViewController(navigation);
        window.resize(390, 600);
        window.show();
        log.clear();
    }
};

} // namespace

TEST_F(NavigationFixture, PushAndPopTellTheDelegateFirstThenDriveAppearance)
{
    auto *detail = new LoggingController(QStringLiteral("detail"), &log);
    navigation->pushViewController(detail, false);
    EXPECT_EQ(navigation->lastOperation(), ui::NavigationController::Operation::Push);
    EXPECT_EQ(log, (QStringList{QStringLiteral("delegate willShow detail (top detail)"), QStringLiteral("detail load"),
                                QStringLiteral("root willDisappear"), QStringLiteral("detail willAppear"), QStringLiteral("root didDisappear"),
                                QStringLiteral("detail didAppear")}));
    log.clear();
    EXPECT_EQ(navigation->popViewControllerAnimated(false), detail);
    EXPECT_EQ(navigation->lastOperation(), ui::NavigationController::Operation::Pop);
    EXPECT_EQ(log, (QStringList{QStringLiteral("delegate willShow root (top root)"), QStringLiteral("detail willDisappear"),
                                QStringLiteral("root willAppear"), QStringLiteral("detail didDisappear"), QStringLiteral("root didAppear")}));
    EXPECT_EQ(navigation->popViewControllerAnimated(false), nullptr) << "the root is never popped";
}

TEST_F(NavigationFixture, AnimatedPushFinishesAfterTheAnimationAndAnInterruptingPopCompletesIt)
{
    auto *first = new LoggingController(QStringLiteral("first"), &log);
    navigation->pushViewController(first, true);
    EXPECT_TRUE(navigation->isTransitioning());
    EXPECT_FALSE(log.contains(QStringLiteral("first didAppear")));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !navigation->isTransitioning(); }, 5000));
    EXPECT_TRUE(log.contains(QStringLiteral("first didAppear")));

    auto *second = new LoggingController(QStringLiteral("second"), &log);
    navigation->pushViewController(second, true);
    navigation->popViewControllerAnimated(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !navigation->isTransitioning(); }, 5000));
    EXPECT_EQ(navigation->topViewController(), first);
    EXPECT_EQ(log.count(QStringLiteral("second didAppear")), 1) << "the interrupted push still completed";
    EXPECT_EQ(log.count(QStringLiteral("second didDisappear")), 1);
    EXPECT_EQ(log.last(), QStringLiteral("first didAppear"));
}

TEST_F(NavigationFixture, BarShowsBackTitleOrLeftItemsAndPoppedControllersAreReleased)
{
    auto *detail = new LoggingController(QStringLiteral("detail"), &log);
    QPointer<ui::ViewController> watch(detail);
    navigation->pushViewController(detail, false);
    auto *back = navigation->view()->findChild<QToolButton *>(QStringLiteral("backButton"));
    ASSERT_TRUE(back);
    EXPECT_TRUE(back->isVisibleTo(navigation->view()));
    EXPECT_EQ(back->text(), QStringLiteral("‹ root"));
    EXPECT_EQ(navigation->view()->findChild<QLabel *>(QStringLiteral("navigationTitle"))->text(), QStringLiteral("detail"));

    bool tapped = false;
    detail->navigationItem()->setLeftBarButtonItem(new ui::BarButtonItem(QStringLiteral("Close"), [&](ui::BarButtonItem *) { tapped = true; }));
    EXPECT_FALSE(back->isVisibleTo(navigation->view())) << "a left item replaces the back button";
    auto *close = navigation->view()->findChild<QToolButton *>(QStringLiteral("Close"));
    ASSERT_TRUE(close);
    QTest::mouseClick(close, Qt::LeftButton);
    EXPECT_TRUE(tapped);

    QTest::mouseClick(back, Qt::LeftButton); // hidden: does nothing
    navigation->popViewControllerAnimated(false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return watch.isNull(); }, 2000)) << "a popped controller nobody adopted is deleted";
}

TEST(Window, RootAppearsWithTheWindowAndDisappearsWhenItCloses)
{
    QStringList log;
    auto *window = new ui::Window;
    window->setRootViewController(new LoggingController(QStringLiteral("root"), &log));
    window->show();
    EXPECT_EQ(log, (QStringList{QStringLiteral("root load"), QStringLiteral("root willAppear"), QStringLiteral("root didAppear")}));
    window->close();
    EXPECT_EQ(log.mid(3), (QStringList{QStringLiteral("root willDisappear"), QStringLiteral("root didDisappear")}));
    delete window;
}

namespace {

// Notes whether its view was still there when it went.
class ViewCheckingController : public ui::ViewController {
public:
    explicit ViewCheckingController(bool *viewAliveAtEnd) : m_viewAliveAtEnd(viewAliveAtEnd) {}
    ~ViewCheckingController() override { *m_viewAliveAtEnd = m_label && m_label->window(); }

protected:
    QWidget *loadView() override
    {
        auto *view = new QWidget;
        m_label = new QLabel(QStringLiteral("content"), view);
        return view;
    }

private:
    bool *m_viewAliveAtEnd;
    QPointer<QLabel> m_label;
};

} // namespace

TEST(Window, ControllersGoBeforeTheViewsTheyShowIn)
{
    bool pushedViewAlive = false, presentedViewAlive = false;
    {
        ui::Window window;
        auto *navigation = new ui::NavigationController(new ui::ViewController);
        window.setRootViewController(navigation);
        window.show();
        navigation->pushViewController(new ViewCheckingController(&pushedViewAlive), false);
        navigation->topViewController()->presentViewController(new ViewCheckingController(&presentedViewAlive), false);
    }
    EXPECT_TRUE(pushedViewAlive);
    EXPECT_TRUE(presentedViewAlive);
}
