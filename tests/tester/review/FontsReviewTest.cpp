#include "review/VUTesterStoryletsFontsReviewViewController.h"
#include "review/VUTesterStoryletsGraphStrings.h"
#include "review/VUTesterStoryletsRelatedSettings.h"
#include "review/VUTesterStringMatrix.h"
#include "review/VUTesterViewMatrixScrollView.h"
#include "storylets/VXTitleSubtitleLabel.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "QtPrinters.h"

namespace {

// The shared settings the review copies when it loads, set for one test.
class FontsReview : public ::testing::Test {
protected:
    void SetUp() override
    {
        settings = VUTesterStoryletsRelatedSettings::sharedInstance();
        settings->setDefaultValues();
        settings->setCapturedDataFolder(folder.filePath("captures"));
        settings->setValueForKey("DejaVu Sans", "titleFontName");
        settings->setValueForKey(3, "tileKind");
    }
    void TearDown() override { settings->setDefaultValues(); }

    std::unique_ptr<VUTesterStoryletsFontsReviewViewController> load()
    {
        auto review = std::make_unique<VUTesterStoryletsFontsReviewViewController>();
        // On screen as far as Qt knows, so resizing reaches the review at once.
        review->view()->setAttribute(Qt::WA_DontShowOnScreen);
        review->view()->show();
        review->view()->resize(800, 900);
        return review;
    }
    static QList<VXTitleSubtitleLabel *> tiles(VUTesterStoryletsFontsReviewViewController &review)
    {
        return review.scrollView()->sheet()->findChildren<VXTitleSubtitleLabel *>();
    }
    static QStringList titleTexts(VUTesterStoryletsFontsReviewViewController &review)
    {
        QStringList texts;
        for (QLabel *label : review.scrollView()->sheet()->findChildren<QLabel *>(Qt::FindDirectChildrenOnly))
            texts << label->text();
        return texts;
    }

    QTemporaryDir folder;
    VUTesterStoryletsRelatedSettings *settings = nullptr;
};

} // namespace

TEST_F(FontsReview, TitlesOnlyForDimensionsWithSeveralValues)
{
    auto review = load();
    ASSERT_TRUE(review->scrollView());
    EXPECT_EQ(tiles(*review).size(), 1);
    EXPECT_TRUE(titleTexts(*review).isEmpty());

    review->reviewSettings()->setValueForKey("10. All", "orientation");
    EXPECT_EQ(tiles(*review).size(), 2);
    EXPECT_EQ(titleTexts(*review), (QStringList{"Portrait", "Lanscape"}));

    EXPECT_EQ(VUTesterStoryletsFontsReviewViewController::columnTitleForFont("Noto Serif Display"), "Noto Ser…");
    EXPECT_EQ(VUTesterStoryletsFontsReviewViewController::columnTitleForFont("FreeSans"), "FreeSans…");
    EXPECT_EQ(VUTesterStoryletsFontsReviewViewController::columnTitleForFont("Chalkduster"), "Chalkdus… (missing)");
    review->reviewSettings()->setValueForKey("20. Supported Fonts", "titleFontName");
    EXPECT_TRUE(titleTexts(*review).contains("WenQuanY…"));
}

TEST_F(FontsReview, ATvHasNoTodayWidgetButItsRowStillCounts)
{
    settings->setValueForKey(5, "formFactor");
    settings->setValueForKey("10. All", "tileKind");
    auto review = load();
    EXPECT_EQ(tiles(*review).size(), 4);
    const QStringList rows = titleTexts(*review);
    EXPECT_EQ(rows, (QStringList{"Header", "Feed Big", "Feed Small", "Related", "Today Widget"}));
    // The empty row is still laid out below the others.
    QLabel *widgetRow = nullptr, *relatedRow = nullptr;
    for (QLabel *label : review->scrollView()->sheet()->findChildren<QLabel *>(Qt::FindDirectChildrenOnly)) {
        if (label->text() == "Today Widget")
            widgetRow = label;
        if (label->text() == "Related")
            relatedRow = label;
    }
    ASSERT_TRUE(widgetRow && relatedRow);
    EXPECT_GE(widgetRow->y(), relatedRow->y() + 397 + 20);
}

TEST_F(FontsReview, RebuildingKeepsZoomAndPlace)
{
    settings->setValueForKey("10. All", "tileKind");
    auto review = load();
    QPointer<VUTesterViewMatrixScrollView> before = review->scrollView();
    before->setZoomScale(0.5);
    before->setContentOffset(QPointF(0, 120));
    review->reviewSettings()->setBackgroundWhite(0.5);
    ASSERT_TRUE(before.isNull());
    EXPECT_EQ(review->scrollView()->zoomScale(), 0.5);
    EXPECT_EQ(review->scrollView()->contentOffset(), QPointF(0, 120));

    // A new size of the screen is a trait change: the sheet is built anew.
    review->view()->resize(600, 700);
    EXPECT_EQ(review->scrollView()->geometry(), QRect(0, 80, 600, 620));
}

TEST_F(FontsReview, SnapshotsAreNumberedFromZero)
{
    auto review = load();
    QString path, error;
    ASSERT_TRUE(review->writeSnapshot(&path, &error)) << error.toStdString();
    EXPECT_EQ(path, folder.filePath("captures/VUTesterStoryletsFontsReview-000.png"));
    ASSERT_TRUE(review->writeSnapshot(&path, &error)) << error.toStdString();
    EXPECT_EQ(path, folder.filePath("captures/VUTesterStoryletsFontsReview-001.png"));
    const QImage image(path);
    EXPECT_EQ(QSizeF(image.size()), review->scrollView()->naturalContentSize());

    QFile blocker(folder.filePath("file"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    settings->setCapturedDataFolder(folder.filePath("file/captures"));
    EXPECT_FALSE(review->writeSnapshot(&path, &error));
    EXPECT_EQ(error, "couldn't create the folder " + folder.filePath("file/captures"));
}

TEST_F(FontsReview, ARecordingKeepsTheLinesEachTitleBrokeInto)
{
    settings->setValueForKey("Graph Strings//VGSocialGroupFormatTitleCoworkers", "titleText");
    auto review = load();
    review->startRecording();
    ASSERT_TRUE(review->isRecordingDiagnostics());
    const VUTesterStringMatrix *matrix = review->recordedMatrix();
    const QStringList languages = VUTesterStoryletsGraphStrings::sharedInstance()->languages();
    EXPECT_EQ(matrix->rows(), languages);
    EXPECT_EQ(matrix->columns(), QStringList{"VGSocialGroupFormatTitleCoworkers"});
    // Each cell holds the lines its label drew.
    const QList<VXTitleSubtitleLabel *> labels = tiles(*review);
    ASSERT_EQ(labels.size(), languages.size());
    int multiline = 0;
    for (qsizetype i = 0; i < languages.size(); ++i) {
        const QStringList lines = labels[i]->renderedLines();
        EXPECT_EQ(matrix->string("VGSocialGroupFormatTitleCoworkers", languages[i]), lines.join(" ⏎")) << languages[i].toStdString();
        multiline += lines.size() > 1;
    }
    EXPECT_GT(multiline, 0);

    // Stepping to another key while recording records another pass and another sheet.
    review->reviewSettings()->setValueForKey("Graph Strings//VGGenericStoryletTitle", "titleText");
    EXPECT_EQ(matrix->columns().size(), 2);
    EXPECT_EQ(review->recordedSheetCount(), 2);

    QString error;
    ASSERT_TRUE(review->stopRecording(&error)) << error.toStdString();
    EXPECT_FALSE(review->isRecordingDiagnostics());
    const QImage collage(folder.filePath("captures/VUTesterStoryletsFontsReview.png"));
    EXPECT_EQ(collage.width(), 2 * review->_snapshot().width() + 10);
    QFile table(folder.filePath("captures/VUTesterStoryletsFontsReview.txt"));
    ASSERT_TRUE(table.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(table.readAll()).split('\n', Qt::SkipEmptyParts);
    EXPECT_EQ(lines.size(), languages.size() + 1);
    EXPECT_EQ(lines.first(), "\tVGSocialGroupFormatTitleCoworkers\tVGGenericStoryletTitle");
}

TEST_F(FontsReview, AForeignObservationContextEndsTheProcess)
{
    auto review = load();
    int other = 0;
    EXPECT_DEATH(review->didChange(nullptr, 16, &other), "foreign observation context");
}
