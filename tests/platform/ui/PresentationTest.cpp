#include "ui/AlertController.h"
#include "ui/Notifications.h"
#include "ui/Window.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class Counter : public ui::ViewController {
public:
    int appeared = 0, disappeared = 0;

protected:
    void viewDidAppear(bool) override { ++appeared; }
    void viewDidDisappear(bool) override { ++disappeared; }
};

struct PresentationFixture : ::testing::Test {
    ui::Window window;
    ui::ViewController *presenter = new ui::ViewController;
    void SetUp() override
    {
        window.setRootViewController(presenter);
        window.resize(390, 600);
        window.show();
    }
};

} // namespace

TEST_F(PresentationFixture, PresentedControllerCoversTheWindowAndDismissalRunsTheCompletion)
{
    auto *presented = new Counter;
    QPointer<Counter> watch(presented);
    presenter->presentViewController(presented, false);
    EXPECT_EQ(presenter->presentedViewController(), presented);
    EXPECT_EQ(presented->presentingViewController(), presenter);
    EXPECT_EQ(presented->appeared, 1);
    EXPECT_EQ(presented->view()->geometry(), window.rect());
    window.resize(500, 700);
    EXPECT_EQ(presented->view()->geometry(), window.rect()) << "the presentation follows the window";

    bool completed = false;
    presented->dismissViewControllerAnimated(true, [&] { completed = true; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return completed; }, 5000));
    EXPECT_EQ(presenter->presentedViewController(), nullptr);
    EXPECT_TRUE(presenter->lastTransitionWasAnimated());
    ASSERT_TRUE(QTest::qWaitFor([&] { return watch.isNull(); }, 2000));
}

TEST_F(PresentationFixture, AlertActionDismissesBeforeItsHandlerRunsAndCancelComesLast)
{
    auto *alert = new ui::AlertController(QStringLiteral("Cancel"), QStringLiteral("Sure?"));
    bool handled = false;
    bool presentedWhenHandled = true;
    alert->addAction({QStringLiteral("Stay"), ui::AlertAction::Style::Cancel, {}});
    alert->addAction({QStringLiteral("Go"), ui::AlertAction::Style::Default, [&] {
                          handled = true;
                          presentedWhenHandled = presenter->presentedViewController() != nullptr;
                      }});
    presenter->presentViewController(alert, false);
    const QList<QPushButton *> buttons = alert->view()->findChildren<QPushButton *>();
    ASSERT_EQ(buttons.size(), 2);
    EXPECT_EQ(buttons.last()->text(), QStringLiteral("Stay"));
    EXPECT_EQ(alert->view()->findChild<QLabel *>(QStringLiteral("alertMessage"))->text(), QStringLiteral("Sure?"));
    QTest::mouseClick(alert->view()->findChild<QPushButton *>(QStringLiteral("Go")), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([&] { return handled; }, 5000));
    EXPECT_FALSE(presentedWhenHandled);
}

TEST(Notifications, ApplicationStateAndShutdownArePostedToObservers)
{
    ui::installApplicationNotifications();
    ui::installApplicationNotifications();
    QObject observer;
    int resign = 0, terminate = 0;
    auto &center = ui::NotificationCenter::defaultCenter();
    center.addObserver(&observer, QString::fromLatin1(ui::ApplicationWillResignActiveNotification), [&] { ++resign; });
    center.addObserver(&observer, QString::fromLatin1(ui::ApplicationWillTerminateNotification), [&] { ++terminate; });

    QMetaObject::invokeMethod(qApp, "applicationStateChanged", Q_ARG(Qt::ApplicationState, Qt::ApplicationActive));
    QMetaObject::invokeMethod(qApp, "applicationStateChanged", Q_ARG(Qt::ApplicationState, Qt::ApplicationInactive));
    QMetaObject::invokeMethod(qApp, "applicationStateChanged", Q_ARG(Qt::ApplicationState, Qt::ApplicationHidden));
    EXPECT_EQ(resign, 1) << "only leaving the active state resigns";
    QMetaObject::invokeMethod(qApp, "aboutToQuit");
    EXPECT_EQ(terminate, 1);

    center.removeObserver(&observer);
    EXPECT_EQ(center.observerCount(QString::fromLatin1(ui::ApplicationWillTerminateNotification)), 0);
}
