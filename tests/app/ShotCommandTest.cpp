#include "QtPrinters.h"

#include "CliHome.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

namespace {

struct ShotFixture : ::testing::Test {
    cli::Home home;

    cli::Result shot(const QStringList &arguments) { return home.run(QStringList{QStringLiteral("shot")} + arguments); }
    QString file(const char *name) const { return home.path(QString::fromLatin1(name)); }
};

// Pixels clearly darker than the light window background, such as those of text.
int darkPixels(const QImage &image, const QRect &rect)
{
    int count = 0;
    for (int y = rect.top(); y <= rect.bottom(); ++y)
        for (int x = rect.left(); x <= rect.right(); ++x)
            count += qGray(image.pixel(x, y)) < 110;
    return count;
}

// The first row of column x where a placeholder card's light grey starts (ten rows of it, so not
// a line), or -1.
int firstCardRow(const QImage &image, int x)
{
    int run = 0;
    for (int y = 0; y < image.height(); ++y) {
        const QRgb pixel = image.pixel(x, y);
        run = std::abs(qGray(pixel) - 170) <= 3 && qRed(pixel) == qBlue(pixel) ? run + 1 : 0;
        if (run == 10)
            return y - 9;
    }
    return -1;
}

// The left end of the navigation bar, below the tabs: the back button's place.
const QRect kBackButtonArea(0, 28, 120, 26);

} // namespace

TEST_F(ShotFixture, PicturesTheRootAndAScreenReachedByTitles)
{
    ASSERT_EQ(shot({QStringLiteral(""), QStringLiteral("-o"), file("root.png"), QStringLiteral("--size"), QStringLiteral("360x640")}).status, 0);
    const QImage root(file("root.png"));
    ASSERT_FALSE(root.isNull());
    EXPECT_EQ(root.size(), QSize(360, 640));
    EXPECT_EQ(darkPixels(root, kBackButtonArea), 0) << "the root screen has nowhere to go back to";
    EXPECT_GT(darkPixels(root, QRect(0, 60, 360, 580)), 500) << "its rows are drawn";

    // A section title first only says where the row is; the tiling view's grid comes after a push.
    ASSERT_EQ(shot({QStringLiteral("Playgrounds/Tiling View/Test Tiling View"), QStringLiteral("-o"), file("grid.png")}).status, 0);
    const QImage grid(file("grid.png"));
    EXPECT_EQ(grid.size(), QSize(390, 844)) << "the window's own size by default";
    EXPECT_GT(darkPixels(grid, kBackButtonArea), 30) << "the pushed screen shows its back button";
    // Placeholder cards of 0:0 (landscape), 0:1 (portrait) and 0:2 (landscape) fill the first row
    // of 96-point cells; the fourth column stays empty until 1:3 (portrait) in the next section,
    // below a gap of 20. A picture taken during the push would show the grid shifted right.
    const int top = firstCardRow(grid, 146);
    ASSERT_GT(top, 40);
    EXPECT_NEAR(firstCardRow(grid, 48), top + 16, 2) << "a landscape card is centred in its square";
    EXPECT_NEAR(firstCardRow(grid, 244), top + 16, 2);
    EXPECT_NEAR(firstCardRow(grid, 342), top + 96 + 20, 2);
}

TEST_F(ShotFixture, UnknownTitleExitsTwoNamingTheRowsThere)
{
    const cli::Result result = shot({QStringLiteral("Utilities/Library Filler/Fill Everything"), QStringLiteral("-o"), file("x.png")});
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.err.contains(QStringLiteral("no row 'Fill Everything' in \"Library Filler\" (reached by 'Utilities/Library Filler')")))
        << result.err.toStdString();
    EXPECT_TRUE(result.err.contains(QStringLiteral("\"Fill Library\", \"Presets/Random Assets\""))) << result.err.toStdString();
    EXPECT_FALSE(QFile::exists(file("x.png")));

    const cli::Result inSection = shot({QStringLiteral("Utilities/Highlights"), QStringLiteral("-o"), file("x.png")});
    EXPECT_EQ(inSection.status, 2);
    EXPECT_TRUE(inSection.err.endsWith(QStringLiteral("the rows there: \"Utilities/Request Access\", \"Utilities/Library Filler\", \"Utilities/Vexo\"\n")))
        << inSection.err.toStdString();
}

TEST_F(ShotFixture, RefusesBadArgumentsBeforeAnyWork)
{
    QFile existing(file("kept.png"));
    ASSERT_TRUE(existing.open(QIODevice::WriteOnly));
    existing.write("mine");
    existing.close();
    const QList<QStringList> refused{
        {QStringLiteral(""), QStringLiteral("-o"), file("kept.png")},
        {QStringLiteral(""), QStringLiteral("-o"), file("x.jpg")},
        {QStringLiteral(""), QStringLiteral("-o"), file("missing/x.png")},
        {QStringLiteral(""), QStringLiteral("-o"), file("x.png"), QStringLiteral("--size"), QStringLiteral("20x20")},
        {QStringLiteral(""), QStringLiteral("-o"), file("x.png"), QStringLiteral("--size"), QStringLiteral("wide")},
        {QStringLiteral("Utilities//Vexo"), QStringLiteral("-o"), file("x.png")},
        {QStringLiteral("Utilities")},
    };
    for (const QStringList &arguments : refused) {
        const cli::Result result = shot(arguments);
        EXPECT_EQ(result.status, 2) << arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_TRUE(result.err.startsWith(QStringLiteral("vistra-tester shot: "))) << result.err.toStdString();
    }
    ASSERT_TRUE(existing.open(QIODevice::ReadOnly));
    EXPECT_EQ(existing.readAll(), "mine");
    EXPECT_EQ(QDir(home.path(QStringLiteral("."))).entryList({QStringLiteral("x.*")}), QStringList());
    EXPECT_FALSE(QDir(file("config")).exists()) << "nothing started: not even the settings were saved";

    ASSERT_EQ(shot({QStringLiteral(""), QStringLiteral("-o"), file("kept.png"), QStringLiteral("--force")}).status, 0);
    EXPECT_FALSE(QImage(file("kept.png")).isNull());
}
