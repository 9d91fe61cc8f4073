// The navigation container's toolbar shows the top controller's items only while it is not hidden,
// keeps custom views alive for their items, and the segmented control reports taps, not code.

#include "QtPrinters.h"

#include "ui/BarButtonItem.h"
#include "ui/NavigationController.h"
#include "ui/SegmentedControl.h"
#include "ui/Window.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace {

struct ToolbarFixture : ::testing::Test {
    ui::Window window;
    ui::NavigationController *navigation = nullptr;
    ui::ViewController *root = nullptr;

    void SetUp() override
    {
        root = new ui::ViewController;
        navigation = new ui::NavigationController(root);
        window.setRootViewController(navigation);
        window.resize(390, 600);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    QList<QWidget *> toolbarWidgets() const
    {
        QList<QWidget *> widgets;
        QLayout *layout = navigation->toolbar()->layout();
        for (int i = 0; i < layout->count(); ++i)
            widgets << layout->itemAt(i)->widget();
        return widgets;
    }
};

} // namespace

TEST_F(ToolbarFixture, ShowsTheTopControllersItemsOnlyWhileNotHidden)
{
    auto *control = new ui::SegmentedControl({QStringLiteral("a"), QStringLiteral("b")});
    QPointer<QWidget> custom = control;
    int legendTaps = 0;
    auto *pushed = new ui::ViewController;
    using System = ui::BarButtonItem::SystemItem;
    pushed->setToolbarItems({new ui::BarButtonItem(System::FlexibleSpace, {}), new ui::BarButtonItem(control),
                             new ui::BarButtonItem(System::FlexibleSpace, {}),
                             new ui::BarButtonItem(QStringLiteral("Legend"), [&](ui::BarButtonItem *) { ++legendTaps; })});
    navigation->pushViewController(pushed, false);
    EXPECT_FALSE(navigation->toolbar()->isVisible()) << "hidden until asked for";

    navigation->setToolbarHidden(false);
    ASSERT_TRUE(navigation->toolbar()->isVisible());
    const QList<QWidget *> widgets = toolbarWidgets();
    ASSERT_EQ(widgets.size(), 4) << "stretch, control, stretch, button";
    EXPECT_EQ(widgets[0], nullptr);
    EXPECT_EQ(widgets[1], control);
    EXPECT_EQ(widgets[2], nullptr);
    auto *legend = qobject_cast<QToolButton *>(widgets[3]);
    ASSERT_TRUE(legend);
    EXPECT_EQ(legend->text(), QStringLiteral("Legend"));
    QTest::mouseClick(legend, Qt::LeftButton);
    EXPECT_EQ(legendTaps, 1);
    navigation->toolbar()->layout()->activate();
    EXPECT_GT(control->geometry().left(), 0) << "the flexible space before it takes room";

    QPointer<ui::ViewController> popped = navigation->popViewControllerAnimated(false);
    EXPECT_FALSE(navigation->toolbar()->isVisible()) << "a controller without items shows no toolbar";
    ASSERT_TRUE(custom) << "the custom view lives with its item";
    EXPECT_NE(custom->parent(), navigation->toolbar());
    navigation->pushViewController(popped, false);
    EXPECT_TRUE(navigation->toolbar()->isVisible());
    EXPECT_EQ(toolbarWidgets().value(1), control);

    pushed->setToolbarItems({});
    EXPECT_FALSE(navigation->toolbar()->isVisible());
    QTest::qWait(0);
    EXPECT_FALSE(custom) << "dropping the item drops its view";
}

TEST(SegmentedControl, ATapSelectsAndReportsCodeOnlySelects)
{
    ui::SegmentedControl control({QString(), QStringLiteral("━"), QStringLiteral("A & B")});
    control.show();
    QSignalSpy changes(&control, &ui::SegmentedControl::valueChanged);
    EXPECT_EQ(control.numberOfSegments(), 3);
    EXPECT_EQ(control.titleForSegmentAtIndex(2), QStringLiteral("A & B"));
    EXPECT_EQ(control.selectedSegmentIndex(), -1);

    control.setSelectedSegmentIndex(1);
    EXPECT_EQ(control.selectedSegmentIndex(), 1);
    EXPECT_EQ(changes.count(), 0);

    QTest::mouseClick(control.segmentButton(2), Qt::LeftButton);
    EXPECT_EQ(control.selectedSegmentIndex(), 2);
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toInt(), 2);

    control.setSelectedSegmentIndex(-1);
    EXPECT_EQ(control.selectedSegmentIndex(), -1);
}
