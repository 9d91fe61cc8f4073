// The 1-Up Presentation playground over the photo library: it says when the library is empty,
// shows what is added while it is open, and opens on the chosen item of the chosen sectioning.

#include "PlaygroundRows.h"
#include "EventLoop.h"
#include "TestMedia.h"

#include "playgrounds/oneup/VUTesterOneUpPresentationPlaygroundViewController.h"
#include "playgrounds/oneup/VUTesterOneUpPresentationSettings.h"

#include <browsing/VULibraryDisplayAsset.h>
#include <browsing/VUOneUpViewController.h>
#include <photos/VHAssetChangeRequest.h>
#include <photos/VHPhotoLibrary.h>

#include "ui/Settle.h"

#include <QLabel>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace photos::testing;

namespace {

class OneUpPresentationTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_settings->setDefaultValues();
        m_settings->setDataSource(VUTesterOneUpPresentationSettings::DataSourcePhotoLibrary);
    }
    void TearDown() override { m_settings->setDefaultValues(); }

    // Photos on `day` at the given hours, into the shared library (the tests' own).
    void addPhotos(QDate day, std::initializer_list<int> hours)
    {
        QStringList files;
        for (int hour : hours) {
            files << m_dir.filePath(QStringLiteral("p%1.jpg").arg(m_made++));
            ASSERT_TRUE(writePhoto(files.last(), {QSize(48, 36), QDateTime(day, QTime(hour, 0)), {}, {}}));
        }
        VHError error;
        ASSERT_TRUE(VHPhotoLibrary::sharedPhotoLibrary()->performChangesAndWait(
            [&] {
                for (const QString &file : files)
                    VHAssetCreationRequest::creationRequestForAsset()->addResourceWithType(VHAssetResourceType::Photo, file);
            },
            &error));
    }

    VUTesterOneUpPresentationPlaygroundViewController *start()
    {
        return qobject_cast<VUTesterOneUpPresentationPlaygroundViewController *>(
            m_rows.startPlayground(VUTesterOneUpPresentationSettings::settingsControllerModule(), m_settings));
    }

    VUTesterOneUpPresentationSettings *m_settings = VUTesterOneUpPresentationSettings::sharedInstance();
    PlaygroundRows m_rows;
    QTemporaryDir m_dir;
    int m_made = 0;
};

// Runs first: the library starts empty in every test program.
TEST_F(OneUpPresentationTest, AnEmptyLibrarySaysSoUntilPhotosArrive)
{
    auto *playground = start();
    ASSERT_NE(playground, nullptr);
    auto *label = playground->view()->findChild<QLabel *>(QStringLiteral("emptyLabel"));
    ASSERT_NE(label, nullptr);
    EXPECT_TRUE(playground->isEmpty());
    EXPECT_TRUE(label->isVisible());
    EXPECT_EQ(playground->title(), QStringLiteral("1-Up Presentation"));

    addPhotos(QDate(2020, 3, 1), {9, 10});
    ASSERT_TRUE(spinUntil([&] { return !playground->isEmpty(); }));
    EXPECT_FALSE(label->isVisible());
    EXPECT_TRUE(playground->oneUpViewController()->view()->isVisible());
    EXPECT_EQ(playground->title(), QStringLiteral("1 of 2"));
}

// The initial item counts within the first section: by day that is the first day, in one
// section it runs on into the later day.
TEST_F(OneUpPresentationTest, OpensOnTheChosenItemOfTheChosenSections)
{
    addPhotos(QDate(2020, 3, 5), {8});
    m_settings->setInitialItem(2);
    const TWModulePtr module = VUTesterOneUpPresentationSettings::settingsControllerModule();
    const TWRow *sections = module->rowsEditingKeyPath(QStringLiteral("librarySections")).front();
    EXPECT_TRUE(sections->isVisible(m_settings));

    m_settings->setLibrarySections(VUTesterOneUpPresentationSettings::LibrarySectionsOne);
    auto *oneSection = start();
    ASSERT_NE(oneSection, nullptr);
    EXPECT_EQ(oneSection->oneUpViewController()->currentIndexPath(), ui::IndexPath::forItem(2, 0));
    EXPECT_EQ(oneSection->title(), QStringLiteral("3 of 3"));
    ASSERT_TRUE(ui::Settle::waitUntilSettled(std::chrono::seconds(10)));
    const VUAssetReferencePtr shown = oneSection->browsingSession()->dataSourceManager()->assetsDataSource()->assetReferenceAtIndexPath(
        oneSection->oneUpViewController()->currentIndexPath());
    EXPECT_EQ(shown->asset()->localCreationDate().date(), QDate(2020, 3, 5));
    EXPECT_NE(dynamic_cast<const VULibraryDisplayAsset *>(shown->asset().get()), nullptr);

    m_settings->setLibrarySections(VUTesterOneUpPresentationSettings::LibrarySectionsByDay);
    PlaygroundRows again;
    auto *byDay = qobject_cast<VUTesterOneUpPresentationPlaygroundViewController *>(again.startPlayground(module, m_settings));
    ASSERT_NE(byDay, nullptr);
    EXPECT_EQ(byDay->browsingSession()->dataSourceManager()->assetsDataSource()->numberOfSections(), 2);
    // Only two on the first day: the last of them.
    EXPECT_EQ(byDay->oneUpViewController()->currentIndexPath(), ui::IndexPath::forItem(1, 0));

    m_settings->setDataSource(VUTesterOneUpPresentationSettings::DataSourceSynthetic);
    EXPECT_FALSE(sections->isVisible(m_settings));
}

} // namespace
