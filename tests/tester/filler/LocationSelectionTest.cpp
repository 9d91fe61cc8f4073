#include "filler/VUTesterLibraryFillerSettings.h"
#include "filler/VUTesterLocationSelectionViewController.h"
#include "filler/VUTesterWorldMapView.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct LocationFixture : ::testing::Test {
    VUTesterLibraryFillerSettings settings;
    std::unique_ptr<VUTesterLocationSelectionViewController> screen;
    QWidget *view = nullptr;

    void SetUp() override
    {
        settings.restoreDefaultValuesRecursively();
        screen = std::make_unique<VUTesterLocationSelectionViewController>(QVariant(), &settings);
        view = screen->view();
        view->resize(400, 700);
        view->show();
    }
    std::pair<double, double> settingsLocation() const
    {
        double lat = 0, lon = 0;
        EXPECT_TRUE(TWLocationFromValue(settings.location(), &lat, &lon));
        return {lat, lon};
    }
};

} // namespace

TEST_F(LocationFixture, ClickingTheMapPicksTheCoordinateUnderThePointer)
{
    auto *map = view->findChild<VUTesterWorldMapView *>();
    ASSERT_TRUE(map);
    const QPointF paris = map->pointForCoordinate(48.8566, 2.3522);
    const QPointF back = map->coordinateForPoint(paris);
    EXPECT_NEAR(back.x(), 48.8566, 1e-9);
    EXPECT_NEAR(back.y(), 2.3522, 1e-9);

    QTest::mouseClick(map, Qt::LeftButton, {}, map->mapRect().center().toPoint());
    auto [lat, lon] = settingsLocation();
    EXPECT_NEAR(lat, 0, 180.0 / map->mapRect().height());
    EXPECT_NEAR(lon, 0, 360.0 / map->mapRect().width());
    EXPECT_TRUE(settings.internalLocationIsSet());
    ASSERT_TRUE(map->marker());

    QTest::mouseClick(map, Qt::LeftButton, {}, map->mapRect().topLeft().toPoint() + QPoint(1, 1));
    std::tie(lat, lon) = settingsLocation();
    EXPECT_GT(lat, 88);
    EXPECT_LT(lon, -178);
}

TEST_F(LocationFixture, TypedCoordinatesAreCheckedBeforeTheyReachTheSettings)
{
    auto *latitude = view->findChild<QLineEdit *>(QStringLiteral("latitude"));
    auto *longitude = view->findChild<QLineEdit *>(QStringLiteral("longitude"));
    auto *set = view->findChild<QPushButton *>(QStringLiteral("Set"));
    latitude->setText(QStringLiteral("95"));
    longitude->setText(QStringLiteral("10"));
    QTest::mouseClick(set, Qt::LeftButton);
    EXPECT_TRUE(settings.location().isNull());
    EXPECT_TRUE(view->findChild<QLabel *>(QStringLiteral("status"))->text().contains(QStringLiteral("-90 to 90")));

    latitude->setText(QStringLiteral("-33.8688"));
    longitude->setText(QStringLiteral("151.2093"));
    QTest::mouseClick(set, Qt::LeftButton);
    const auto [lat, lon] = settingsLocation();
    EXPECT_DOUBLE_EQ(lat, -33.8688);
    EXPECT_DOUBLE_EQ(lon, 151.2093);
}

TEST_F(LocationFixture, NamedPlacesAndNoneReportThroughTheDelegate)
{
    const auto places = VUTesterLocationSelectionViewController::places();
    ASSERT_GE(places.size(), 10) << "the place list ships inside the module";
    auto *list = view->findChild<QListWidget *>(QStringLiteral("places"));
    const QList<QListWidgetItem *> zurich = list->findItems(QStringLiteral("Zürich"), Qt::MatchExactly);
    ASSERT_EQ(zurich.size(), 1);
    Q_EMIT list->itemActivated(zurich.first());
    const auto [lat, lon] = settingsLocation();
    EXPECT_DOUBLE_EQ(lat, 47.3769);
    EXPECT_DOUBLE_EQ(lon, 8.5417);

    QTest::mouseClick(view->findChild<QPushButton *>(QStringLiteral("None")), Qt::LeftButton);
    EXPECT_TRUE(settings.location().isNull());
    EXPECT_FALSE(settings.internalLocationIsSet());
    EXPECT_FALSE(view->findChild<VUTesterWorldMapView *>()->marker());
}
