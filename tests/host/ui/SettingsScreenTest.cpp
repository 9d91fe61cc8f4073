// The settings screen as a person sees it, under the offscreen platform: titles at the leading
// edge, values and chevrons at the trailing edge, hairlines between rows, grouped sections on a
// tinted background, in light and dark palettes; and rows that refuse what they do not offer.

#include "settings/TWModule.h"
#include "settings/TWSettings.h"
#include "ui/TWUISettingsAppearance.h"
#include "ui/TWUISettingsCell.h"
#include "ui/TWUISettingsController.h"
#include "ui/TWUISettingsModuleViewController.h"
#include "ui/Window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QSlider>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class DetailSettings : public TWSettings {
public:
    std::shared_ptr<TWModule> settingsModule() const override
    {
        return TWModule::moduleWithTitle(QStringLiteral("Detail"), {TWSection::sectionWithRows({TWButtonRow::rowWithTitle(QStringLiteral("Go"), TWRowAction::actionWithHandler({}))})});
    }
};

class ScreenSettings : public TWSettings {
public:
    ScreenSettings()
    {
        declareKey(QStringLiteral("mode"), Kind::Int64);
        declareKey(QStringLiteral("enabled"), Kind::Bool);
        declareKey(QStringLiteral("amount"), Kind::Double);
        declareKey(QStringLiteral("folder"), Kind::String);
        declareChild(QStringLiteral("detail"), new DetailSettings);
    }
    void setDefaultValues() override
    {
        TWSettings::setDefaultValues();
        setValue(QStringLiteral("mode"), 1);
        setValue(QStringLiteral("amount"), 0.5);
        setValue(QStringLiteral("folder"), QStringLiteral("/tmp/captures"));
    }
    std::shared_ptr<TWModule> settingsModule() const override
    {
        auto mode = TWChoiceRow::rowWithTitle(QStringLiteral("Mode"), QStringLiteral("mode"));
        mode->possibleValues({0, 1}, {QStringLiteral("Off"), QStringLiteral("Automatic")});
        auto amount = TWSliderRow::rowWithTitle(QStringLiteral("Amount"), QStringLiteral("amount"));
        amount->minValue(0, 1)->vu_increment(0.25);
        auto folder = TWEditStringRow::rowWithTitle(QStringLiteral("Folder"), QStringLiteral("folder"));
        folder->setRequiresText(true);
        return TWModule::moduleWithTitle(QStringLiteral("Screen"), {
            TWSection::sectionWithRows({mode, TWDrillDownRow::rowWithTitle(QStringLiteral("Detail"), QStringLiteral("detail")),
                                        TWDrillDownRow::rowWithTitle(QStringLiteral("Later"), QString())},
                                       QStringLiteral("Options")),
            TWSection::sectionWithRows({TWSwitchRow::rowWithTitle(QStringLiteral("Enabled"), QStringLiteral("enabled")), amount, folder}),
            TWSection::sectionWithRows({TWButtonRow::rowWithTitle(QStringLiteral("Reset"), TWRestoreDefaultSettingsRowAction::actionWithSettingsKeyPath())}),
        });
    }
};

QPalette darkPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::black);
    palette.setColor(QPalette::WindowText, Qt::white);
    palette.setColor(QPalette::Base, QColor(28, 28, 30));
    palette.setColor(QPalette::Text, Qt::white);
    return palette;
}

bool near(QColor a, QColor b)
{
    return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue()) < 24;
}

// The columns of a row's title line where something other than the card is drawn, as runs
// [first, last]; the card's rounded corners are left out.
std::vector<std::pair<int, int>> inkedRuns(const QImage &image, QColor card, int band)
{
    std::vector<std::pair<int, int>> runs;
    const int corner = TWUISettingsAppearance::kCornerRadius / 2;
    for (int x = corner; x < image.width() - corner; ++x) {
        bool inked = false;
        for (int y = 4; y < band - 4 && !inked; ++y)
            inked = !near(image.pixelColor(x, y), card);
        if (!inked)
            continue;
        if (!runs.empty() && runs.back().second >= x - 8)
            runs.back().second = x;
        else
            runs.emplace_back(x, x);
    }
    return runs;
}

struct SettingsScreenTest : ::testing::Test {
    ScreenSettings settings;
    ui::Window window;
    TWUISettingsController *controller = nullptr;

    void SetUp() override
    {
        settings.restoreDefaultValuesRecursively();
        controller = new TWUISettingsController(&settings);
        window.setRootViewController(controller);
        window.resize(390, 700);
        window.show();
    }
    TWUISettingsModuleViewController *screen() const { return qobject_cast<TWUISettingsModuleViewController *>(controller->topViewController()); }
    TWUISettingsCell *cell(const char *title) const { return screen()->view()->findChild<TWUISettingsCell *>(QStringLiteral("row:") + QLatin1String(title)); }
    QImage picture(QWidget *widget) const { return widget->grab().toImage().scaled(widget->size()); }
    // A row as drawn on its section's card.
    QImage picture(TWUISettingsCell *row) const { return picture(row->parentWidget()).copy(row->geometry()); }
};

} // namespace

TEST_F(SettingsScreenTest, TitlesLeadValuesAndChevronsTrail)
{
    const TWUISettingsAppearance appearance = TWUISettingsAppearance::forWidget(cell("Mode"));
    const int width = cell("Mode")->width();
    const int trailing = width - TWUISettingsAppearance::kMargin;

    const auto mode = inkedRuns(picture(cell("Mode")), appearance.cell, cell("Mode")->height());
    ASSERT_EQ(mode.size(), 3u) << "title, value, chevron";
    EXPECT_NEAR(mode[0].first, TWUISettingsAppearance::kMargin, 2) << "the title at the leading edge";
    EXPECT_GT(mode[1].first, width / 2) << "the value at the trailing edge, apart from the title";
    EXPECT_NEAR(mode[2].second, trailing, 3) << "the chevron last, at the trailing edge";
    EXPECT_EQ(cell("Mode")->detailText(), QStringLiteral("Automatic"));

    const auto detail = inkedRuns(picture(cell("Detail")), appearance.cell, cell("Detail")->height());
    ASSERT_EQ(detail.size(), 2u) << "title and chevron";
    EXPECT_NEAR(detail[1].second, trailing, 3);
    const auto later = inkedRuns(picture(cell("Later")), appearance.cell, cell("Later")->height());
    ASSERT_EQ(later.size(), 1u) << "a row leading nowhere has no chevron";
    EXPECT_EQ(cell("Later")->style(), TWUISettingsCell::Style::Inert);
    EXPECT_FALSE(cell("Later")->isTappable());
    EXPECT_EQ(cell("Reset")->style(), TWUISettingsCell::Style::Button);

    // A hairline between two rows of a section, starting where the titles start.
    QWidget *card = cell("Mode")->parentWidget();
    const QImage cardPicture = picture(card);
    const int boundary = cell("Mode")->geometry().bottom();
    EXPECT_TRUE(near(cardPicture.pixelColor(width / 2, boundary), appearance.separator));
    EXPECT_TRUE(near(cardPicture.pixelColor(TWUISettingsAppearance::kMargin / 2, boundary), appearance.cell));
}

TEST_F(SettingsScreenTest, FollowsLightAndDarkPalettes)
{
    for (bool dark : {false, true}) {
        window.setPalette(dark ? darkPalette() : QApplication::palette());
        QApplication::processEvents();
        const TWUISettingsAppearance appearance = TWUISettingsAppearance::forWidget(cell("Mode"));
        ASSERT_EQ(appearance.dark, dark);
        const QImage page = picture(screen()->view());
        const QPoint inCard = cell("Mode")->mapTo(screen()->view(), QPoint(cell("Mode")->width() / 2, 2));
        EXPECT_TRUE(near(page.pixelColor(4, inCard.y()), appearance.background)) << "dark " << dark;
        EXPECT_TRUE(near(page.pixelColor(inCard), appearance.cell)) << "dark " << dark;
        EXPECT_NE(appearance.background, TWUISettingsAppearance::forPalette(dark ? QApplication::palette() : darkPalette()).background);

        // The button's title is drawn in the accent colour.
        const QImage button = picture(cell("Reset"));
        int accentPixels = 0;
        for (int x = 0; x < button.width(); ++x)
            accentPixels += near(button.pixelColor(x, button.height() / 2), appearance.accent);
        EXPECT_GT(accentPixels, 2) << "dark " << dark;
    }
}

TEST_F(SettingsScreenTest, ControlsEditTheirKeysAndRefusedTextGoesBack)
{
    auto *toggle = screen()->view()->findChild<QAbstractButton *>(QStringLiteral("enabled"));
    ASSERT_TRUE(toggle);
    QTest::mouseClick(toggle, Qt::LeftButton);
    EXPECT_TRUE(settings.valueForKey(QStringLiteral("enabled")).toBool());

    auto *slider = screen()->view()->findChild<QSlider *>(QStringLiteral("amount"));
    ASSERT_TRUE(slider);
    slider->setValue(slider->maximum());
    EXPECT_EQ(settings.valueForKey(QStringLiteral("amount")).toDouble(), 1.0);
    EXPECT_EQ(cell("Amount")->detailText(), QStringLiteral("1"));

    auto *folder = screen()->view()->findChild<QLineEdit *>(QStringLiteral("folder"));
    ASSERT_TRUE(folder);
    folder->setText(QStringLiteral("   "));
    Q_EMIT folder->editingFinished();
    EXPECT_EQ(settings.valueForKey(QStringLiteral("folder")).toString(), QStringLiteral("/tmp/captures"));
    EXPECT_EQ(folder->text(), QStringLiteral("/tmp/captures")) << "the field shows what the key kept";
    folder->setText(QStringLiteral("/tmp/elsewhere"));
    Q_EMIT folder->editingFinished();
    EXPECT_EQ(settings.valueForKey(QStringLiteral("folder")).toString(), QStringLiteral("/tmp/elsewhere"));
}

TEST_F(SettingsScreenTest, TappingRowsOpensTheirScreensButNotInertOnes)
{
    QTest::mouseClick(cell("Later"), Qt::LeftButton);
    EXPECT_EQ(controller->viewControllers().size(), 1);
    QTest::keyClick(cell("Detail"), Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !controller->isTransitioning(); }, 5000));
    ASSERT_EQ(controller->viewControllers().size(), 2);
    EXPECT_EQ(controller->topViewController()->title(), QStringLiteral("Detail"));
}
