#include "QtPrinters.h"

#include "shell/VUTesterModalPresentation.h"
#include "shell/VUTesterNavigationController.h"
#include "shell/VUTesterRootSettings.h"
#include "shell/VUTesterRootSettingsViewController.h"
#include "ui/AlertController.h"
#include "ui/BarButtonItem.h"
#include "ui/Notifications.h"
#include "ui/TWUISettingsAppearance.h"
#include "ui/TWUISettingsCell.h"
#include "ui/TWUISettingsChoiceViewController.h"
#include "ui/TWUISettingsModuleViewController.h"
#include "ui/Window.h"

#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct RootScreenFixture : ::testing::Test {
    QTemporaryDir dir;
    QString path;
    ui::Window window;
    VUTesterRootSettingsViewController *root = nullptr;

    void SetUp() override
    {
        path = dir.filePath(QStringLiteral("settings.json"));
        TWSettings::setArchivePath(path);
        VUTesterRootSettings::sharedInstance()->restoreDefaultValuesRecursively();
        root = new VUTesterRootSettingsViewController;
        window.setRootViewController(root);
        window.resize(390, 844);
    }
    void TearDown() override { TWSettings::setArchivePath(QString()); }

    // True once when the archive was written since the last call.
    bool savedSinceLastCheck()
    {
        const bool saved = QFile::exists(path);
        QFile::remove(path);
        return saved;
    }
    TWUISettingsModuleViewController *topScreen() const
    {
        return qobject_cast<TWUISettingsModuleViewController *>(root->topViewController());
    }
    TWUISettingsCell *cell(const QString &name) const
    {
        return root->topViewController()->view()->findChild<TWUISettingsCell *>(name);
    }
    // Clicks the row with this title on the screen on top, and waits for what it starts.
    void tap(const QString &rowTitle) { click(QStringLiteral("row:") + rowTitle); }
    void click(const QString &cellName)
    {
        TWUISettingsCell *target = cell(cellName);
        ASSERT_TRUE(target) << cellName.toStdString();
        QTest::mouseClick(target, Qt::LeftButton);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !root->isTransitioning(); }, 5000));
    }
};

} // namespace

TEST_F(RootScreenFixture, SavesWhenShownHiddenOnEveryPushAndPopAndOnApplicationNotificationsOnly)
{
    window.show();
    EXPECT_TRUE(savedSinceLastCheck()) << "appearing saves";
    VUTesterAnimationsSettings::sharedInstance()->setDuration(4.2);
    EXPECT_FALSE(savedSinceLastCheck()) << "a single change never saves";

    tap(QStringLiteral("Animations"));
    EXPECT_EQ(topScreen()->module()->title(), QStringLiteral("Animations"));
    EXPECT_TRUE(savedSinceLastCheck()) << "a push saves";
    root->popViewControllerAnimated(false);
    EXPECT_TRUE(savedSinceLastCheck()) << "a pop saves";

    ui::NotificationCenter::defaultCenter().postNotification(QString::fromLatin1(ui::ApplicationWillResignActiveNotification));
    EXPECT_TRUE(savedSinceLastCheck());
    ui::NotificationCenter::defaultCenter().postNotification(QString::fromLatin1(ui::ApplicationWillTerminateNotification));
    EXPECT_TRUE(savedSinceLastCheck());

    window.close();
    EXPECT_TRUE(savedSinceLastCheck()) << "disappearing saves";
    QFile reopened(path);
    window.setRootViewController(nullptr);
    ui::NotificationCenter::defaultCenter().postNotification(QString::fromLatin1(ui::ApplicationWillTerminateNotification));
    EXPECT_FALSE(savedSinceLastCheck()) << "a destroyed root screen no longer observes the application";
}

TEST_F(RootScreenFixture, RowsEditTheirKeysAndFollowTheirConditionsLive)
{
    window.show();
    tap(QStringLiteral("Library Filler"));
    auto *filler = VUTesterLibraryFillerSettings::sharedInstance();
    QWidget *screen = topScreen()->view();

    TWUISettingsCell *media = cell(QStringLiteral("row:Media"));
    ASSERT_TRUE(media);
    EXPECT_EQ(media->detailText(), QStringLiteral("Random"));
    tap(QStringLiteral("Media"));
    auto *choices = qobject_cast<TWUISettingsChoiceViewController *>(root->topViewController());
    ASSERT_TRUE(choices) << "a choice opens the list of its values";
    EXPECT_EQ(choices->title(), QStringLiteral("Media"));
    EXPECT_EQ(cell(QStringLiteral("choice:Random"))->accessory(), TWUISettingsCell::Accessory::Checkmark);
    EXPECT_EQ(cell(QStringLiteral("choice:Photo"))->accessory(), TWUISettingsCell::Accessory::None);
    savedSinceLastCheck();
    click(QStringLiteral("choice:Stir Shot"));
    EXPECT_EQ(filler->media(), 2);
    EXPECT_EQ(topScreen()->module()->title(), QStringLiteral("Library Filler")) << "picking goes back";
    EXPECT_TRUE(savedSinceLastCheck()) << "going back saves";
    EXPECT_EQ(media->detailText(), QStringLiteral("Stir Shot"));
    filler->setMedia(VUTesterLibraryFillerSettings::kEnumerate);
    EXPECT_EQ(media->detailText(), QStringLiteral("Enumerate")) << "the row follows the key";

    auto *longSide = screen->findChild<QSlider *>(QStringLiteral("longSide"));
    ASSERT_TRUE(longSide);
    longSide->setValue(longSide->maximum());
    EXPECT_EQ(filler->longSide(), 15000);
    EXPECT_EQ(filler->valueForKey(QStringLiteral("longSide")).typeId(), QMetaType::LongLong);

    QWidget *progressRow = screen->findChild<QWidget *>(QStringLiteral("row:"));
    ASSERT_TRUE(progressRow);
    EXPECT_FALSE(progressRow->isVisibleTo(screen));
    filler->setValueForKey(true, QStringLiteral("internalCancelable"));
    filler->setValueForKey(QStringLiteral("Progress: 75%"), QStringLiteral("internalProgressTitle"));
    EXPECT_TRUE(progressRow->isVisibleTo(screen));
    auto *progressCell = qobject_cast<TWUISettingsCell *>(progressRow);
    ASSERT_TRUE(progressCell);
    EXPECT_EQ(progressCell->title(), QStringLiteral("Progress: 75%"));

    QTest::mouseClick(progressCell, Qt::LeftButton);
    auto *alert = qobject_cast<ui::AlertController *>(topScreen()->presentedViewController());
    ASSERT_TRUE(alert);
    EXPECT_EQ(alert->title(), QStringLiteral("Cancel"));
    EXPECT_EQ(alert->message(), QStringLiteral("Are you sure you want to cancel the ongoing operation(s)?"));
    QTest::mouseClick(alert->view()->findChild<QPushButton *>(QStringLiteral("Cancel Operation(s)")), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !filler->internalCancelable(); }, 5000));
    EXPECT_FALSE(progressRow->isVisibleTo(screen));
}

// While fills run their progress row stays: restoring defaults resets options, not what running
// work shows.
TEST_F(RootScreenFixture, RestoringDefaultsWhileFillsRunKeepsTheProgressRow)
{
    window.show();
    tap(QStringLiteral("Library Filler"));
    auto *filler = VUTesterLibraryFillerSettings::sharedInstance();
    filler->setLongSide(800);
    filler->setValueForKey(true, QStringLiteral("internalCancelable"));
    filler->setValueForKey(QStringLiteral("Progress: 40%"), QStringLiteral("internalProgressTitle"));
    QWidget *screen = topScreen()->view();
    QWidget *progressRow = screen->findChild<QWidget *>(QStringLiteral("row:"));
    ASSERT_TRUE(progressRow);
    ASSERT_TRUE(progressRow->isVisibleTo(screen));

    topScreen()->tapRow(topScreen()->module()->rowWithTitle(QStringLiteral("Restore Defaults")));
    EXPECT_EQ(filler->longSide(), 3200);
    EXPECT_TRUE(filler->internalCancelable());
    EXPECT_EQ(filler->internalProgressTitle(), QStringLiteral("Progress: 40%"));
    EXPECT_TRUE(progressRow->isVisibleTo(screen));
    filler->setValueForKey(false, QStringLiteral("internalCancelable"));
}

// A highlight level opens the list of that level's highlights, titled by the row.
TEST_F(RootScreenFixture, HighlightLevelsOpenTheirLists)
{
    window.show();
    tap(QStringLiteral("Highlights"));
    topScreen()->tapRow(topScreen()->module()->rowWithTitle(QStringLiteral("Years")));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !root->isTransitioning(); }, 5000));
    ASSERT_EQ(root->viewControllers().size(), 3);
    EXPECT_EQ(root->topViewController()->title(), QStringLiteral("Years"));
    root->popToRootViewControllerAnimated(false);
}

TEST_F(RootScreenFixture, TitlesWithAnAmpersandShowAsWritten)
{
    window.show();
    TWUISettingsCell *row = cell(QStringLiteral("row:Years & Months Layouts"));
    ASSERT_TRUE(row);
    EXPECT_EQ(row->title(), QStringLiteral("Years & Months Layouts"));
    tap(QStringLiteral("Years & Months Layouts"));
    EXPECT_EQ(topScreen()->module()->title(), QStringLiteral("Years & Months Layouts"));
}

TEST_F(RootScreenFixture, SortingSwapsWhichTestsSectionIsShown)
{
    window.show();
    tap(QStringLiteral("Vexo"));
    const auto &sections = topScreen()->module()->sections();
    ASSERT_EQ(sections[2].title, QStringLiteral("Tests"));
    EXPECT_EQ(sections[2].rows[0]->title(), QStringLiteral("NullScrollView"));
    EXPECT_EQ(sections[3].rows[0]->title(), QStringLiteral("CrossfadeNavigation"));

    const QList<QLabel *> headers = topScreen()->view()->findChildren<QLabel *>(QStringLiteral("section:Tests"));
    ASSERT_EQ(headers.size(), 2);
    QWidget *screen = topScreen()->view();
    EXPECT_TRUE(headers[0]->isVisibleTo(screen));
    EXPECT_FALSE(headers[1]->isVisibleTo(screen));
    VUTesterVexoSettings::sharedInstance()->setSortAlphabetically(true);
    EXPECT_FALSE(headers[0]->isVisibleTo(screen));
    EXPECT_TRUE(headers[1]->isVisibleTo(screen));
    VUTesterVexoSettings::sharedInstance()->setSortAlphabetically(false);
}

TEST_F(RootScreenFixture, ModalPresentationAlwaysAnimatesAndPlacesDoneOnTheAskedSide)
{
    window.show();
    for (bool onRight : {true, false}) {
        auto *content = new ui::ViewController;
        vutester_presentViewController(root, content, false, onRight);
        auto *navigation = qobject_cast<ui::NavigationController *>(root->presentedViewController());
        ASSERT_TRUE(navigation);
        EXPECT_TRUE(navigation->lastTransitionWasAnimated()) << "the animated argument is ignored";
        const auto &items = onRight ? content->navigationItem()->rightBarButtonItems() : content->navigationItem()->leftBarButtonItems();
        const auto &other = onRight ? content->navigationItem()->leftBarButtonItems() : content->navigationItem()->rightBarButtonItems();
        ASSERT_EQ(items.size(), 1);
        EXPECT_TRUE(other.isEmpty());
        EXPECT_EQ(items[0]->systemItem(), ui::BarButtonItem::SystemItem::Done);
        items[0]->trigger();
        ASSERT_TRUE(QTest::qWaitFor([&] { return root->presentedViewController() == nullptr; }, 5000));
    }
}

TEST_F(RootScreenFixture, TesterNavigationControllerDismissesFromItsLeftDoneButton)
{
    window.show();
    auto *content = new ui::ViewController;
    auto *navigation = new VUTesterNavigationController(content);
    EXPECT_EQ(navigation->delegate(), navigation);
    ASSERT_EQ(content->navigationItem()->leftBarButtonItems().size(), 1);
    EXPECT_TRUE(content->navigationItem()->rightBarButtonItems().isEmpty());
    root->presentViewController(navigation, false);
    content->navigationItem()->leftBarButtonItems()[0]->trigger();
    ASSERT_TRUE(QTest::qWaitFor([&] { return root->presentedViewController() == nullptr; }, 5000));
}
