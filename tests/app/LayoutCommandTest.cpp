// vistra-tester layout: the geometries of each generator as text and JSON, the key item counted
// from 1, kinds and weights per item, and every bad value refused with status 2.

#include "CliHome.h"
#include "QtPrinters.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRectF>

#include <gtest/gtest.h>

namespace {

cli::Result layout(const QStringList &arguments)
{
    static const cli::Home home;
    return home.run(QStringList{QStringLiteral("layout")} + arguments);
}

QJsonObject json(const QStringList &arguments)
{
    const cli::Result run = layout(arguments + QStringList{QStringLiteral("--json")});
    EXPECT_EQ(run.status, 0) << run.err.toStdString();
    return QJsonDocument::fromJson(run.out.toUtf8()).object();
}

QRectF frameOf(const QJsonValue &item)
{
    const QJsonArray center = item[QStringLiteral("center")].toArray(), size = item[QStringLiteral("size")].toArray();
    return QRectF(center[0].toDouble() - size[0].toDouble() / 2, center[1].toDouble() - size[1].toDouble() / 2, size[0].toDouble(), size[1].toDouble());
}

} // namespace

TEST(LayoutCommand, EachGeneratorPrintsOneGeometryPerItemWithTheKeyCountedFromOne)
{
    for (const char *name : {"explore", "latticer", "years-months"}) {
        const QJsonObject object = json({QString::fromLatin1(name), QStringLiteral("--items"), QStringLiteral("7"), QStringLiteral("--width"),
                                         QStringLiteral("120"), QStringLiteral("--key"), QStringLiteral("3")});
        EXPECT_EQ(object[QStringLiteral("generator")].toString(), QString::fromLatin1(name));
        EXPECT_EQ(object[QStringLiteral("contentSize")][0].toDouble(), 120);
        const QJsonArray items = object[QStringLiteral("items")].toArray();
        ASSERT_EQ(items.size(), 7) << name;
        double largest = 0;
        qsizetype largestIndex = -1;
        for (qsizetype i = 0; i < items.size(); ++i) {
            EXPECT_EQ(items[i][QStringLiteral("index")].toInt(), i);
            const QRectF frame = frameOf(items[i]);
            EXPECT_LE(frame.right(), 120 + 1e-9);
            if (frame.width() * frame.height() > largest) {
                largest = frame.width() * frame.height();
                largestIndex = i;
            }
        }
        EXPECT_EQ(largestIndex, 2) << name << ": --key 3 is the third item";
    }
}

TEST(LayoutCommand, TextListsTheContentSizeThenEachItemAndKindsAndWeightsShapeItems)
{
    // A lattice of 2 x 2 cells of 49 points: a pano fitted into the second cell.
    const cli::Result run = layout({QStringLiteral("latticer"), QStringLiteral("--items"), QStringLiteral("3"), QStringLiteral("--width"), QStringLiteral("100"),
                            QStringLiteral("--kinds"), QStringLiteral("0,3")});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, QStringLiteral("content size 100 x 100\n"
                                      "0: center 24.5, 24.5  size 49 x 49\n"
                                      "1: center 75.5, 24.5  size 49 x 14.7\n"
                                      "2: center 24.5, 75.5  size 49 x 49\n"));

    // One unit over the mean makes an explore item heavier: a 2 x 2 span.
    const QJsonArray items = json({QStringLiteral("explore"), QStringLiteral("--items"), QStringLiteral("4"), QStringLiteral("--width"),
                                   QStringLiteral("100"), QStringLiteral("--weights"), QStringLiteral("0, 1")})[QStringLiteral("items")].toArray();
    EXPECT_EQ(frameOf(items[1]).size(), QSizeF(49, 49));
    EXPECT_EQ(frameOf(items[0]).size(), QSizeF(23.5, 23.5));
}

TEST(LayoutCommand, BadValuesExitWithStatusTwoAndPrintNothing)
{
    const QStringList base{QStringLiteral("--items"), QStringLiteral("3"), QStringLiteral("--width"), QStringLiteral("100")};
    const QList<QStringList> refused{
        QStringList{QStringLiteral("grid")} + base,
        base,
        {QStringLiteral("explore"), QStringLiteral("--width"), QStringLiteral("100")},
        {QStringLiteral("explore"), QStringLiteral("--items"), QStringLiteral("3")},
        {QStringLiteral("explore"), QStringLiteral("--items"), QStringLiteral("-1"), QStringLiteral("--width"), QStringLiteral("100")},
        {QStringLiteral("explore"), QStringLiteral("--items"), QStringLiteral("two"), QStringLiteral("--width"), QStringLiteral("100")},
        {QStringLiteral("explore"), QStringLiteral("--items"), QStringLiteral("3"), QStringLiteral("--width"), QStringLiteral("0")},
        {QStringLiteral("explore"), QStringLiteral("--items"), QStringLiteral("3"), QStringLiteral("--width"), QStringLiteral("inf")},
        QStringList{QStringLiteral("explore"), QStringLiteral("--height"), QStringLiteral("-5")} + base,
        QStringList{QStringLiteral("explore"), QStringLiteral("--key"), QStringLiteral("4")} + base,
        QStringList{QStringLiteral("explore"), QStringLiteral("--key"), QStringLiteral("-1")} + base,
        QStringList{QStringLiteral("explore"), QStringLiteral("--kinds"), QStringLiteral("0,5")} + base,
        QStringList{QStringLiteral("explore"), QStringLiteral("--kinds"), QStringLiteral("0,1,2,3")} + base,
        QStringList{QStringLiteral("explore"), QStringLiteral("--weights"), QStringLiteral("1,x")} + base,
        QStringList{QStringLiteral("explore"), QStringLiteral("--items"), QStringLiteral("4")} + base,
        QStringList{QStringLiteral("explore"), QStringLiteral("--columns"), QStringLiteral("4")} + base,
    };
    for (const QStringList &arguments : refused) {
        const cli::Result run = layout(arguments);
        EXPECT_EQ(run.status, 2) << arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_TRUE(run.out.isEmpty()) << arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_TRUE(run.err.startsWith(QStringLiteral("vistra-tester layout: "))) << run.err.toStdString();
    }
    EXPECT_EQ(layout({QStringLiteral("explore"), QStringLiteral("--items"), QStringLiteral("0"), QStringLiteral("--width"), QStringLiteral("10")}).out,
              QStringLiteral("content size 10 x 0\n"));
}
