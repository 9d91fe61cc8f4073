// The library browser under the offscreen platform: the grid asks only for the thumbnails it
// shows, shows them once they arrive, and follows the library as assets are added.

#include "library/LibraryBrowserWidget.h"
#include "library/LibraryThumbnailModel.h"

#include "EventLoop.h"
#include "TestMedia.h"

#include <photos/VHAssetChangeRequest.h>
#include <photos/VHImageManager.h>
#include <photos/VHPhotoLibrary.h>

#include <QApplication>
#include <QListView>
#include <QScrollBar>
#include <QTabWidget>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>

using namespace photos::testing;

namespace {

class LibraryBrowserWidgetTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { ensureApplication<QApplication>(); }

    void SetUp() override
    {
        ASSERT_TRUE(m_dir.isValid());
        m_library = VHPhotoLibrary::create(m_dir.filePath(QStringLiteral("Library")));
        addPhotos(kAssets);
    }

    void addPhotos(int count)
    {
        QStringList files;
        for (int i = 0; i < count; ++i) {
            files << m_dir.filePath(QStringLiteral("p%1.jpg").arg(m_made++));
            ASSERT_TRUE(writePhoto(files.last(), {QSize(24, 16), QDateTime::currentDateTime().addSecs(m_made), {}, {}}));
        }
        VHError error;
        ASSERT_TRUE(m_library->performChangesAndWait(
            [&] {
                VHAssetResourceCreationOptions move;
                move.setShouldMoveFile(true);
                for (const QString &file : files)
                    VHAssetCreationRequest::creationRequestForAsset()->addResourceWithType(VHAssetResourceType::Photo,
                                                                                           file, move);
            },
            &error))
            << error.debugDescription().toStdString();
    }

    // Cells that fit in the viewport, counting partly visible rows.
    int visibleCells(const QListView *view)
    {
        const QSize grid = view->gridSize();
        const int columns = std::max(1, view->viewport()->width() / grid.width());
        const int rows = int(std::ceil(double(view->viewport()->height()) / grid.height())) + 1;
        return columns * rows;
    }

    // A browser on screen whose first screen of thumbnails has arrived.
    std::unique_ptr<LibraryBrowserWidget> showBrowser(QSize size)
    {
        auto browser = std::make_unique<LibraryBrowserWidget>(m_library, nullptr, &m_manager);
        browser->resize(size);
        browser->show();
        LibraryThumbnailModel *model = browser->thumbnailModel();
        EXPECT_TRUE(spinUntil([&] { return model->hasThumbnail(0) && model->pendingRequestCount() == 0; }));
        return browser;
    }

    static constexpr int kAssets = 400;
    VHImageManager m_manager;
    QTemporaryDir m_dir;
    std::shared_ptr<VHPhotoLibrary> m_library;
    int m_made = 0;
};

TEST_F(LibraryBrowserWidgetTest, RequestsOnlyVisibleThumbnailsAndShowsThem)
{
    const auto browser = showBrowser(QSize(420, 520));
    LibraryThumbnailModel *model = browser->thumbnailModel();
    ASSERT_EQ(model->rowCount(), kAssets);
    const int visible = visibleCells(browser->gridView());
    // Each visible cell at most once per thumbnail size (the first layout settles the size).
    EXPECT_LE(model->requestCount(), 2 * visible);
    EXPECT_LT(visible, kAssets / 4);
    const QVariant first = model->data(model->index(0), Qt::DecorationRole);
    ASSERT_TRUE(first.canConvert<QPixmap>());
    EXPECT_FALSE(first.value<QPixmap>().isNull());
    // The photos are smaller than a cell: shown at their own size, never enlarged.
    EXPECT_EQ(first.value<QPixmap>().size(), QSize(24, 16));

    // At the far end only the last screen is asked for.
    const qint64 before = model->requestCount();
    browser->gridView()->verticalScrollBar()->setValue(browser->gridView()->verticalScrollBar()->maximum());
    ASSERT_TRUE(spinUntil([&] { return model->hasThumbnail(kAssets - 1); }));
    EXPECT_FALSE(model->hasThumbnail(kAssets / 2));
    EXPECT_LE(model->requestCount() - before, visible + 1);
}

TEST_F(LibraryBrowserWidgetTest, ScrollingAwayCancelsRequestsThatHaveNotArrived)
{
    const auto browser = showBrowser(QSize(420, 520));
    QListView *view = browser->gridView();
    LibraryThumbnailModel *model = browser->thumbnailModel();
    // Jump to the end and straight back, before the main loop can deliver the end's thumbnails:
    // what was asked for down there is cancelled and never arrives.
    view->verticalScrollBar()->setValue(view->verticalScrollBar()->maximum());
    view->viewport()->repaint();
    const int asked = model->pendingRequestCount();
    EXPECT_GT(asked, 0);
    view->verticalScrollBar()->setValue(0);
    EXPECT_EQ(model->pendingRequestCount(), 0);
    spinUntil([] { return false; }, 300);
    for (int row = kAssets - 8; row < kAssets; ++row)
        EXPECT_FALSE(model->hasThumbnail(row)) << row;
}

// Whole columns of equal cells span the grid's width at any window size, also when the grid is
// on a tab that is shown only after the window was resized.
TEST_F(LibraryBrowserWidgetTest, ColumnsFillTheWidthAtAnyWindowSize)
{
    QTabWidget window;
    window.addTab(new QWidget, QStringLiteral("Tester"));
    auto *browser = new LibraryBrowserWidget(m_library, nullptr, &m_manager);
    window.addTab(browser, QStringLiteral("Library"));
    window.resize(390, 844);
    window.show();
    const auto expectFilled = [&](const char *when) {
        QApplication::processEvents();
        const QListView *grid = browser->gridView();
        const int width = grid->viewport()->width();
        const int cell = grid->gridSize().width();
        const int columns = width / cell;
        EXPECT_GE(columns, 2) << when;
        EXPECT_LE(width - columns * cell, columns) << when << ": " << columns << " columns of " << cell << " in " << width;
    };
    window.setCurrentIndex(1);
    expectFilled("shown");
    for (int width : {375, 600, 1024, 320, 375}) {
        window.resize(width, 700);
        expectFilled("resized");
    }
    window.setCurrentIndex(0);
    window.resize(500, 700);
    window.setCurrentIndex(1);
    expectFilled("resized while hidden");
}

// Videos carry their length at the bottom right and Stir Shots their mark at the top left;
// plain photos carry nothing over the picture. With three rows the view needs no scrolling.
TEST_F(LibraryBrowserWidgetTest, VideosShowTheirLengthAndStirShotsTheirMark)
{
    auto library = VHPhotoLibrary::create(m_dir.filePath(QStringLiteral("Badges")));
    const QDateTime noon(QDate(2024, 5, 1), QTime(12, 0));
    const QString pairing = QStringLiteral("5D3A0C1E-2B4F-4E61-8A7D-9C0B1E2F3A4B");
    const QString photo = m_dir.filePath(QStringLiteral("still.jpg")), video = m_dir.filePath(QStringLiteral("clip.mov"));
    const QString pairedPhoto = m_dir.filePath(QStringLiteral("pair.jpg")), pairedVideo = m_dir.filePath(QStringLiteral("pair.mov"));
    ASSERT_TRUE(writePhoto(photo, {QSize(64, 48), noon, {}, {}}));
    ASSERT_TRUE(writeMovie(video, {QSize(64, 48), noon.addSecs(60), {}, {}}));
    ASSERT_TRUE(writePhoto(pairedPhoto, {QSize(64, 48), noon.addSecs(120), {}, pairing}));
    ASSERT_TRUE(writeMovie(pairedVideo, {QSize(64, 48), noon.addSecs(120), {}, pairing}));
    // Later photos fill three rows: as many as fit the view without scrolling.
    QStringList later;
    for (int i = 0; i < 6; ++i) {
        later << m_dir.filePath(QStringLiteral("later%1.jpg").arg(i));
        ASSERT_TRUE(writePhoto(later.last(), {QSize(64, 48), noon.addSecs(600 + i), {}, {}}));
    }
    VHError error;
    ASSERT_TRUE(library->performChangesAndWait(
        [&] {
            for (const QString &file : later)
                VHAssetCreationRequest::creationRequestForAsset()->addResourceWithType(VHAssetResourceType::Photo, file);
            VHAssetCreationRequest::creationRequestForAsset()->addResourceWithType(VHAssetResourceType::Photo, photo);
            VHAssetCreationRequest::creationRequestForAsset()->addResourceWithType(VHAssetResourceType::Video, video);
            auto *pair = VHAssetCreationRequest::creationRequestForAsset();
            pair->addResourceWithType(VHAssetResourceType::Photo, pairedPhoto);
            pair->addResourceWithType(VHAssetResourceType::PairedVideo, pairedVideo);
        },
        &error))
        << error.debugDescription().toStdString();

    LibraryBrowserWidget browser(library, nullptr, &m_manager);
    browser.resize(375, 500);
    browser.show();
    LibraryThumbnailModel *model = browser.thumbnailModel();
    ASSERT_EQ(model->rowCount(), 9);
    ASSERT_TRUE(spinUntil([&] { return model->hasThumbnail(0) && model->hasThumbnail(1) && model->hasThumbnail(2); }));
    spinUntil([] { return false; }, 200);
    EXPECT_LE(model->requestCount(), 2 * 9) << "the grid settles: its cells stop changing size";
    EXPECT_FALSE(model->data(model->index(0), Qt::AccessibleTextRole).toString().contains(QLatin1Char(',')));
    EXPECT_TRUE(model->data(model->index(1), Qt::AccessibleTextRole).toString().endsWith(QStringLiteral(", Video, 0:01")));
    EXPECT_TRUE(model->data(model->index(2), Qt::AccessibleTextRole).toString().endsWith(QStringLiteral(", Stir Shot")));

    QListView *grid = browser.gridView();
    grid->viewport()->repaint();
    const QImage shown = grid->viewport()->grab().toImage().scaled(grid->viewport()->size());
    // Near-white pixels in a corner of a cell: the pictures here are saturated or dark.
    const auto whiteIn = [&](int row, bool bottomRight) {
        const QRect cell = grid->visualRect(model->index(row));
        const QRect corner = bottomRight ? QRect(cell.right() - 40, cell.bottom() - 18, 36, 16) : QRect(cell.left() + 3, cell.top() + 3, 22, 22);
        int white = 0;
        for (int y = corner.top(); y <= corner.bottom(); ++y)
            for (int x = corner.left(); x <= corner.right(); ++x)
                white += qGray(shown.pixel(x, y)) > 200 && qAbs(qRed(shown.pixel(x, y)) - qBlue(shown.pixel(x, y))) < 30;
        return white;
    };
    EXPECT_EQ(whiteIn(0, true) + whiteIn(0, false), 0) << "a plain photo";
    EXPECT_GT(whiteIn(1, true), 10) << "the video's length";
    EXPECT_EQ(whiteIn(1, false), 0);
    EXPECT_GT(whiteIn(2, false), 10) << "the Stir Shot mark";
    EXPECT_EQ(whiteIn(2, true), 0);
}

TEST_F(LibraryBrowserWidgetTest, FollowsTheLibraryAsAssetsArrive)
{
    const auto browser = showBrowser(QSize(300, 300));
    addPhotos(3);
    EXPECT_TRUE(spinUntil([&] { return browser->thumbnailModel()->rowCount() == kAssets + 3; }));
}

} // namespace
