// What must hold when things go wrong: a change cut short by a killed process (and one still
// running elsewhere), several changes at once, files that are already there, paths that lead out
// of the library.

#include "PhotoLibraryFixture.h"

#include "photos/Catalogue.h"
#include "photos/ChangeLocks.h"
#include "photos/LibraryFolder.h"

#include "dispatch/Dispatch.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <atomic>
#include <optional>
#include <thread>

using namespace photos::testing;
using photos::detail::Catalogue;
using photos::detail::ChangeLocks;
using photos::detail::LibraryFolder;
using photos::detail::PendingFile;

namespace {

class ReliabilityTest : public PhotoLibraryFixture {
protected:
    enum Placement { Moved, Copied, PartlyCopied };

    // Leaves the library exactly as a process killed after placing a file, before committing its
    // row, leaves it: the journal entry (a move or a copy) is committed and the file is placed.
    // With the token of a live owner, it is a change still running in another process.
    QString interruptAfterPlacing(const QString &source, bool move, Placement placement, qint64 owner = 0)
    {
        m_library.reset();
        LibraryFolder folder(libraryPath());
        Catalogue catalogue(folder.databasePath());
        catalogue.open();
        const QString destination = LibraryFolder::originalPathFor(QStringLiteral("DEAD0000-1111"), QStringLiteral("jpg"));
        PendingFile pending{0, source, destination, move, owner};
        {
            photos::detail::Transaction transaction(catalogue.writer());
            catalogue.addPendingFile(pending);
            transaction.commit();
        }
        if (placement == PartlyCopied) {
            QDir().mkpath(QFileInfo(folder.resolve(destination)).absolutePath());
            QFile::copy(source, folder.resolve(destination) + LibraryFolder::partialSuffix());
            return destination;
        }
        QString error;
        EXPECT_TRUE(folder.place(source, destination, placement == Moved, &error)) << error.toStdString();
        return destination;
    }
};

TEST_F(ReliabilityTest, MoveInterruptedBeforeCommitIsReturnedOnReopen)
{
    const QString source = photo("killed.jpg", {QSize(32, 32), QDateTime::currentDateTime(), {}, {}});
    const QByteArray bytes = [&] { QFile f(source); f.open(QIODevice::ReadOnly); return f.readAll(); }();
    interruptAfterPlacing(source, true, Moved);
    ASSERT_FALSE(QFileInfo::exists(source));
    ASSERT_EQ(originals().size(), 1);

    reopen();
    EXPECT_EQ(allAssets().count(), 0);
    EXPECT_TRUE(originals().isEmpty());
    QFile back(source);
    ASSERT_TRUE(back.open(QIODevice::ReadOnly));
    EXPECT_EQ(back.readAll(), bytes);
    EXPECT_EQ(m_library->reconciliationReport().size(), 1);
    // Reconciled once: the next opening has nothing left to do.
    reopen();
    EXPECT_TRUE(m_library->reconciliationReport().isEmpty());
}

TEST_F(ReliabilityTest, ChangesOfALiveOwnerAreLeftToIt)
{
    std::optional<ChangeLocks> otherProcess(std::in_place, LibraryFolder(libraryPath()).changeLockPath());
    QString error;
    const qint64 token = otherProcess->claim(&error);
    ASSERT_NE(token, 0) << error.toStdString();
    const QString source = photo("inflight.jpg", {QSize(16, 16), QDateTime::currentDateTime(), {}, {}});
    const QString destination = interruptAfterPlacing(source, true, Moved, token);

    reopen();
    EXPECT_TRUE(m_library->reconciliationReport().isEmpty());
    EXPECT_TRUE(QFileInfo::exists(LibraryFolder(libraryPath()).resolve(destination))) << "the running change keeps its file";
    EXPECT_FALSE(QFileInfo::exists(source));

    // The owner dies: its lock goes with it, and the next opening finishes its work.
    otherProcess.reset();
    reopen();
    EXPECT_EQ(m_library->reconciliationReport().size(), 1);
    EXPECT_TRUE(QFileInfo::exists(source));
    EXPECT_TRUE(originals().isEmpty());
}

TEST_F(ReliabilityTest, CopyInterruptedHalfWayLeavesNoPartialFile)
{
    const QString source = photo("copied.jpg", {QSize(32, 32), QDateTime::currentDateTime(), {}, {}});
    interruptAfterPlacing(source, false, PartlyCopied);
    reopen();
    EXPECT_TRUE(originals().isEmpty());
    EXPECT_TRUE(QFileInfo::exists(source));
    EXPECT_EQ(allAssets().count(), 0);
}

// A move across file systems copies, then removes the source: killed in between, both are whole.
TEST_F(ReliabilityTest, MoveCutShortBeforeRemovingItsSourceKeepsOneCopy)
{
    const QString source = photo("both.jpg", {QSize(32, 32), QDateTime::currentDateTime(), {}, {}});
    interruptAfterPlacing(source, true, Copied);
    reopen();
    EXPECT_TRUE(QFileInfo::exists(source));
    EXPECT_TRUE(originals().isEmpty());
    EXPECT_EQ(allAssets().count(), 0);
}

TEST_F(ReliabilityTest, MoveBackNeverOverwritesAFileThatAppearedAtTheSource)
{
    const QString source = photo("taken.jpg", {QSize(32, 32), QDateTime::currentDateTime(), {}, {}});
    interruptAfterPlacing(source, true, Moved);
    {
        QFile newcomer(source);
        ASSERT_TRUE(newcomer.open(QIODevice::WriteOnly));
        newcomer.write("someone else's file");
    }
    reopen();
    QFile kept(source);
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), QByteArray("someone else's file"));
    // The moved original stays in the library and its journal entry waits for the next opening.
    EXPECT_EQ(originals().size(), 1);
    EXPECT_EQ(allAssets().count(), 0);
    ASSERT_EQ(m_library->reconciliationReport().size(), 1);
    EXPECT_TRUE(m_library->reconciliationReport().first().startsWith(QLatin1String("kept")));
}

TEST_F(ReliabilityTest, ConcurrentChangesAreSerialisedAndNoneIsLost)
{
    constexpr int kThreads = 4;
    constexpr int kPerThread = 8;
    QStringList files;
    for (int i = 0; i < kThreads * kPerThread; ++i)
        files << photo(QStringLiteral("c%1.jpg").arg(i), {QSize(16, 16), QDateTime::currentDateTime(), {}, {}});

    std::atomic<int> succeeded{0};
    dispatch::Group group;
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < kPerThread; ++i) {
                group.enter();
                const QString file = files[t * kPerThread + i];
                m_library->performChanges(
                    [file] {
                        VHAssetResourceCreationOptions move;
                        move.setShouldMoveFile(true);
                        VHAssetCreationRequest::creationRequestForAsset()->addResourceWithType(
                            VHAssetResourceType::Photo, file, move);
                    },
                    [&](bool success, const VHError &) {
                        succeeded += success;
                        group.leave();
                    });
            }
        });
    }
    for (auto &thread : threads)
        thread.join();
    ASSERT_TRUE(group.waitFor(std::chrono::seconds(30)));
    EXPECT_EQ(succeeded, kThreads * kPerThread);
    const auto assets = allAssets();
    EXPECT_EQ(assets.count(), kThreads * kPerThread);
    QSet<QString> identifiers;
    for (qsizetype i = 0; i < assets.count(); ++i)
        identifiers.insert(assets.objectAtIndex(i).localIdentifier());
    EXPECT_EQ(identifiers.size(), kThreads * kPerThread);
    EXPECT_EQ(originals().size(), kThreads * kPerThread);
}

TEST_F(ReliabilityTest, PlacingNeverOverwritesAnExistingFile)
{
    LibraryFolder folder(libraryPath());
    const QString first = photo("first.jpg", {QSize(16, 16), QDateTime::currentDateTime(), {}, {}});
    const QString second = photo("second.jpg", {QSize(24, 24), QDateTime::currentDateTime(), {}, {}});
    const QString destination = QStringLiteral("originals/x/same.jpg");
    QString error;
    ASSERT_TRUE(folder.place(first, destination, true, &error)) << error.toStdString();
    for (bool move : {true, false}) {
        EXPECT_FALSE(folder.place(second, destination, move, &error));
        EXPECT_TRUE(QFileInfo::exists(second));
    }
    QFile placed(folder.resolve(destination)), kept(second);
    ASSERT_TRUE(placed.open(QIODevice::ReadOnly) && kept.open(QIODevice::ReadOnly));
    EXPECT_NE(placed.readAll(), kept.readAll());
    EXPECT_FALSE(QFileInfo::exists(folder.resolve(destination) + LibraryFolder::partialSuffix()));
}

TEST_F(ReliabilityTest, PathsNeverLeadOutOfTheLibrary)
{
    LibraryFolder folder(libraryPath());
    EXPECT_TRUE(folder.resolve(QStringLiteral("../in/x.jpg")).isEmpty());
    EXPECT_TRUE(folder.resolve(QStringLiteral("originals/../../in/x.jpg")).isEmpty());
    EXPECT_TRUE(folder.resolve(QStringLiteral("/etc/passwd")).isEmpty());
    EXPECT_TRUE(folder.resolve(QString()).isEmpty());
    // A link inside the library that points outside it is not followed.
    ASSERT_TRUE(QFile::link(m_dir.filePath(QStringLiteral("in")), libraryPath() + QStringLiteral("/originals/out")));
    EXPECT_TRUE(folder.resolve(QStringLiteral("originals/out/x.jpg")).isEmpty());
    EXPECT_FALSE(folder.resolve(QStringLiteral("originals/a/b.jpg")).isEmpty());
    QString error;
    const QString source = photo("escape.jpg", {QSize(16, 16), QDateTime::currentDateTime(), {}, {}});
    EXPECT_FALSE(folder.place(source, QStringLiteral("originals/out/escaped.jpg"), true, &error));
    EXPECT_FALSE(QFileInfo::exists(inputPath("escaped.jpg")));
    EXPECT_TRUE(QFileInfo::exists(source));
}

TEST_F(ReliabilityTest, LibraryFolderIsPrivateToItsOwner)
{
    for (const QString &path : {libraryPath(), libraryPath() + QStringLiteral("/originals"),
                                libraryPath() + QStringLiteral("/Catalogue.sqlite")}) {
        const auto permissions = QFileInfo(path).permissions();
        EXPECT_TRUE(permissions & QFileDevice::ReadOwner) << path.toStdString();
        EXPECT_FALSE(permissions & (QFileDevice::ReadGroup | QFileDevice::ReadOther | QFileDevice::WriteOther))
            << path.toStdString();
    }
}

TEST_F(ReliabilityTest, UnusableLocationIsReportedNotCrashed)
{
    QFile blocker(m_dir.filePath(QStringLiteral("file")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    auto library = VHPhotoLibrary::create(m_dir.filePath(QStringLiteral("file/Library")));
    VHError error;
    EXPECT_FALSE(library->open(&error));
    EXPECT_TRUE(error.debugDescription().contains(QLatin1String("cannot open the photo library")));
    EXPECT_EQ(VHAsset::fetchAssetsWithOptions(library->librarySpecificFetchOptions()).count(), 0);
}

} // namespace
