#include "review/VUTesterMockExtendedTraitCollection.h"
#include "review/VUTesterStringMatrix.h"
#include "review/VUTesterViewMatrix.h"
#include "review/VUTesterViewMatrixScrollView.h"

#include "ui/DisplayLink.h"
#include "ui/GestureRecognizer.h"

#include <QFile>
#include <QLabel>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "QtPrinters.h"

namespace {

QWidget *viewOfSize(int width, int height)
{
    auto *view = new QWidget;
    view->resize(width, height);
    return view;
}

QLabel *labelWithText(QWidget *sheet, const QString &text)
{
    for (QLabel *label : sheet->findChildren<QLabel *>())
        if (label->text() == text)
            return label;
    return nullptr;
}

} // namespace

TEST(StringMatrix, WritesAHeaderWithAnEmptyFirstCellAndEmptyCellsForGaps)
{
    VUTesterStringMatrix matrix;
    matrix.setString("first", "A", "1");
    matrix.setString("b2", "B", "2");
    matrix.setString("a1", "A", "1"); // replaces, adds no row or column
    EXPECT_EQ(matrix.tabSeparatedText(), "\tA\tB\n1\ta1\t\n2\t\tb2\n");

    QTemporaryDir dir;
    matrix.setString(QString::fromUtf8("米兰 ⏎意大利"), "C", "3");
    QString error;
    ASSERT_TRUE(matrix.writeToFile(dir.filePath("table.txt"), &error)) << error.toStdString();
    QFile file(dir.filePath("table.txt"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()), matrix.tabSeparatedText());

    EXPECT_FALSE(matrix.writeToFile(dir.filePath("missing/table.txt"), &error));
    EXPECT_TRUE(error.startsWith("couldn't write " + dir.filePath("missing/table.txt"))) << error.toStdString();
    EXPECT_FALSE(QFile::exists(dir.filePath("missing/table.txt")));
}

TEST(ViewMatrix, CellsAreAsLargeAsTheirTitleAndViewAndLineUpInColumnsAndRows)
{
    VUTesterViewMatrix matrix;
    matrix.setPadding(QMarginsF(20, 10, 30, 40));
    matrix.setInterCellSpacing(QSizeF(7, 9));
    matrix.setTitle("Column", 1, 0);
    matrix.setTitle("A row", 0, 1);
    matrix.setView(viewOfSize(100, 50), 1, 1);
    matrix.setTitle("Titled", 1, 1);
    matrix.setView(viewOfSize(60, 80), 2, 2);
    matrix.setTitle("", 0, 2); // an empty title draws nothing
    EXPECT_EQ(matrix.columns(), 3);
    EXPECT_EQ(matrix.rows(), 3);

    std::unique_ptr<VUTesterViewMatrixScrollView> scrollView(matrix.createScrollViewWithFrame(QRectF(0, 0, 300, 200)));
    QWidget *sheet = scrollView->sheet();
    QLabel *column = labelWithText(sheet, "Column");
    QLabel *row = labelWithText(sheet, "A row");
    QLabel *titled = labelWithText(sheet, "Titled");
    ASSERT_TRUE(column && row && titled);
    EXPECT_EQ(sheet->findChildren<QLabel *>().size(), 3);

    const int labelHeight = column->height();
    const int column0 = std::max(row->width(), 0);
    const int column1 = std::max({column->width(), titled->width(), 100});
    // Row 0 holds only a title: as high as the label. Row 1: view + 5 + label.
    EXPECT_EQ(column->pos(), QPoint(20 + column0 + 7, 10));
    EXPECT_EQ(row->pos(), QPoint(20, 10 + labelHeight + 9));
    EXPECT_EQ(titled->pos(), QPoint(20 + column0 + 7, 10 + labelHeight + 9));
    const QList<QWidget *> views = sheet->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    QWidget *first = nullptr, *second = nullptr;
    for (QWidget *view : views) {
        if (view->size() == QSize(100, 50))
            first = view;
        if (view->size() == QSize(60, 80))
            second = view;
    }
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->pos(), QPoint(titled->x(), titled->y() + labelHeight + 5));
    const int row2 = 10 + labelHeight + 9 + (50 + 5 + labelHeight) + 9;
    EXPECT_EQ(second->pos(), QPoint(20 + column0 + 7 + column1 + 7, row2));
    // The content reaches from the origin to the last view, plus the right and bottom padding.
    EXPECT_EQ(scrollView->naturalContentSize(), QSizeF(second->x() + 60 + 30, row2 + 80 + 40));
    EXPECT_EQ(scrollView->contentSize(), scrollView->naturalContentSize());
    EXPECT_EQ(scrollView->minimumZoomScale(), 0.0);
}

TEST(ViewMatrixScrollView, DoubleTapZoomsToHalfAndBack)
{
    VUTesterViewMatrix matrix;
    matrix.setView(viewOfSize(800, 600), 0, 0);
    std::unique_ptr<VUTesterViewMatrixScrollView> scrollView(matrix.createScrollViewWithFrame(QRectF(0, 0, 400, 300)));
    const auto doubleTap = [&](double t) {
        for (double at : {t, t + 0.1}) {
            ui::sendTouches(scrollView.get(), ui::TouchPhase::Began, {{1, QPointF(100, 100)}}, at);
            ui::sendTouches(scrollView.get(), ui::TouchPhase::Ended, {{1, QPointF(100, 100)}}, at + 0.05);
        }
    };
    ui::DisplayLink::ManualStepping frames;
    doubleTap(1.0);
    frames.step(120);
    EXPECT_EQ(scrollView->zoomScale(), 0.5);
    EXPECT_EQ(scrollView->contentView()->size(), QSize(400, 300));
    doubleTap(5.0);
    frames.step(120);
    EXPECT_EQ(scrollView->zoomScale(), 1.0);
}

TEST(StoryletsTiles, SizesPerKindAndFormFactor)
{
    struct Case {
        qint64 kind, formFactor, orientation;
        QSizeF size;
    } cases[] = {
        {0, 0, 1, QSizeF((304 - 32 - 15) / 4.0, (304 - 32 - 15) / 4.0)},          // today widget: its own width
        {0, 4, 1, QSizeF((556 - 40 - 30) / 6.0, (556 - 40 - 30) / 6.0)},          // six columns on the largest tablet
        {1, 0, 1, QSizeF((320 - 32) / 2.0, (320 - 32) / 2.0)},                     // related: two columns
        {2, 1, 1, QSizeF((375 - 32 - 10) / 2.0, (375 - 32 - 10) / 2.0)},          // feed small: two with spacing
        {3, 0, 1, QSizeF(288, 288)},                                                // feed big: square hero
        {3, 3, 1, QSizeF(688, 688 / 1.5)},                                          // a 3:2 hero on a tablet
        {4, 0, 1, QSizeF(320, 320 / double(float(16.0 / 9.0)))},                    // header edge to edge
        {4, 0, 2, QSizeF(568 - 80, (568 - 80) / double(float(16.0 / 9.0)))},       // landscape: regular, inset
        {1, 5, 1, QSizeF(397, 397)}, {2, 5, 2, QSizeF(300, 300)}, {3, 5, 1, QSizeF(650, 650)}, {4, 5, 1, QSizeF(1740, 720)},
    };
    for (const Case &c : cases) {
        const VUTesterStoryletsTile tile = VUTesterStoryletsTileForKind(c.kind, c.formFactor, c.orientation);
        EXPECT_NEAR(tile.size.width(), c.size.width(), 1e-6) << c.kind << " " << c.formFactor << " " << c.orientation;
        EXPECT_NEAR(tile.size.height(), c.size.height(), 1e-4) << c.kind << " " << c.formFactor << " " << c.orientation;
        EXPECT_TRUE(tile.isDrawn());
    }
    EXPECT_FALSE(VUTesterStoryletsTileForKind(0, 5, 1).isDrawn()); // no today widget on a TV
    EXPECT_EQ(VUTesterStoryletsTileForKind(3, 0, 1).style, VXTileStyle::FeedBigSquare);
    EXPECT_EQ(VUTesterStoryletsTileForKind(3, 3, 1).style, VXTileStyle::FeedBigWide);
}
