#include "PlaygroundFixture.h"

#include "PhoneWindow.h"
#include "TestMovies.h"

#include "media/VUTesterPhotoWriter.h"
#include "media/VUTesterVideoWriter.h"

#include <movie/MediaTime.h>
#include <photos/VHAssetChangeRequest.h>
#include <photos/VHPhotoLibrary.h>

#include "dispatch/Dispatch.h"
#include "ui/Settle.h"

#include <QUuid>

#include <cmath>

using namespace std::chrono_literals;

void PlaygroundFixture::SetUp()
{
    ASSERT_TRUE(m_temporary.isValid());
    m_oldTemporary = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(m_temporary.path()));
}

void PlaygroundFixture::TearDown()
{
    m_window.reset();
    settle();
    if (m_oldTemporary.isNull())
        qunsetenv("TMPDIR");
    else
        qputenv("TMPDIR", m_oldTemporary);
}

void PlaygroundFixture::show(ui::ViewController *screen)
{
    m_window = std::make_unique<ui::Window>();
    showInPhoneWindow(*m_window, screen);
}

bool PlaygroundFixture::settle()
{
    QStringList pending;
    const bool settled = ui::Settle::waitUntilSettled(30s, &pending, 0ms);
    EXPECT_TRUE(settled) << pending.join(QStringLiteral(", ")).toStdString();
    return settled;
}

std::shared_ptr<VHPhotoLibrary> PlaygroundFixture::library()
{
    if (!m_library)
        m_library = VHPhotoLibrary::create(m_temporary.filePath(QStringLiteral("Library")));
    return m_library;
}

void PlaygroundFixture::addVideos(int count)
{
    for (int i = 0; i < count; ++i) {
        const QString movie = m_temporary.filePath(QStringLiteral("video-%1.mov").arg(++m_added));
        QString writeError;
        ASSERT_TRUE(writeTestMovie(movie, TestMovie{}, &writeError)) << writeError.toStdString();
        VHError error;
        ASSERT_TRUE(library()->performChangesAndWait(
            [&] { VHAssetCreationRequest::creationRequestForAsset()->addResourceWithType(VHAssetResourceType::Video, movie); }, &error))
            << error.debugDescription().toStdString();
    }
}

void PlaygroundFixture::addStirShot(double displayTime)
{
    const QString pairing = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    const QString photo = m_temporary.filePath(QStringLiteral("still-%1.jpg").arg(++m_added));
    const QString movie = m_temporary.filePath(QStringLiteral("still-%1.mov").arg(m_added));
    VUTesterPhotoWriter photoWriter;
    QImage still(160, 96, QImage::Format_RGB32);
    still.fill(QColor(200, 40, 40));
    photoWriter.setImage(still);
    photoWriter.setOutputURL(photo);
    photoWriter.setStirShotPairingIdentifier(pairing);
    VUTesterOptionalError error;
    ASSERT_TRUE(photoWriter.writeImageWithError(&error)) << error->debugDescription.toStdString();

    // The movie's pictures are the numbered greys of TestMovies.h, 24 a second.
    VUTesterVideoWriter videoWriter;
    videoWriter.setOutputURL(movie);
    videoWriter.setOutputDuration(47 / 24.0);
    videoWriter.setStirShotPairingIdentifier(pairing);
    videoWriter.setFrameGenerator([](double time) {
        QImage frame(160, 96, QImage::Format_RGB32);
        const int level = 20 + 4 * int(std::lround(time * 24));
        frame.fill(QColor(level, level, level));
        return frame;
    });
    dispatch::Semaphore written;
    VUTesterOptionalError videoError;
    videoWriter.createVideoWithCompletionHandler([&](VUTesterOptionalError e) {
        videoError = e;
        written.signal();
    });
    written.wait();
    ASSERT_FALSE(videoError) << videoError->debugDescription.toStdString();

    VHError importError;
    ASSERT_TRUE(library()->performChangesAndWait(
        [&] {
            auto *request = VHAssetCreationRequest::creationRequestForAsset();
            request->addResourceWithType(VHAssetResourceType::Photo, photo);
            request->addResourceWithType(VHAssetResourceType::PairedVideo, movie);
            request->setImageDisplayTime(movie::MediaTime::fromSeconds(displayTime, 600));
        },
        &importError))
        << importError.debugDescription().toStdString();
}
