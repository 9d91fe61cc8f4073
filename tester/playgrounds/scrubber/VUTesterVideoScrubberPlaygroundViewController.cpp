#include "playgrounds/scrubber/VUTesterVideoScrubberPlaygroundViewController.h"

#include "media/VUTesterTestPatternMovie.h"

#include <overlay/VUVideoOverlayButton.h>
#include <photos/VHAsset.h>
#include <player/VUMoviePlayerView.h>
#include <scrubber/VUVideoScrubber.h>

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

VUTesterVideoScrubberPlaygroundViewController::VUTesterVideoScrubberPlaygroundViewController(VUTesterVideoScrubberSettings *settings,
                                                                                             std::shared_ptr<VHPhotoLibrary> library,
                                                                                             QObject *parent)
    : ui::ViewController(parent)
    , m_settings(settings)
    , m_library(std::move(library))
{
    setTitle(QStringLiteral("Video Scrubber"));
    connect(settings, &TWSettings::valueChanged, this, &VUTesterVideoScrubberPlaygroundViewController::_settingChanged);
}

QWidget *VUTesterVideoScrubberPlaygroundViewController::loadView()
{
    auto *view = new QWidget;
    auto *stage = new QWidget;
    m_playerView = new VUMoviePlayerView(stage);
    m_playButton = new VUVideoOverlayButton(stage);
    m_playButton->setSize(VUVideoOverlayButton::Size::Large);
    auto *stageLayout = new QGridLayout(stage);
    stageLayout->setContentsMargins(0, 0, 0, 0);
    stageLayout->addWidget(m_playerView, 0, 0);
    stageLayout->addWidget(m_playButton, 0, 0, Qt::AlignCenter);

    VUMoviePlayer *player = m_playerView->player();
    m_scrubber = new VUVideoScrubber(player);
    m_status = new QLabel;
    m_status->setWordWrap(true);
    m_status->setContentsMargins(16, 0, 16, 12);
    auto *layout = new QVBoxLayout(view);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(stage, 1);
    layout->addWidget(m_scrubber);
    layout->addWidget(m_status);

    connect(m_playButton, &QAbstractButton::clicked, this, [player] { player->isPlaying() ? player->pause() : player->play(); });
    connect(player, &VUMoviePlayer::statusChanged, this, &VUTesterVideoScrubberPlaygroundViewController::_update);
    connect(player, &VUMoviePlayer::rateChanged, this, &VUTesterVideoScrubberPlaygroundViewController::_update);
    connect(player, &VUMoviePlayer::currentTimeChanged, this, &VUTesterVideoScrubberPlaygroundViewController::_update);
    _applyPlaybackSettings();
    _loadMovie();
    return view;
}

void VUTesterVideoScrubberPlaygroundViewController::viewWillDisappear(bool animated)
{
    ui::ViewController::viewWillDisappear(animated);
    m_playerView->player()->pause();
}

void VUTesterVideoScrubberPlaygroundViewController::_settingChanged(const QString &key)
{
    if (!isViewLoaded())
        return;
    static const QStringList movieKeys{QStringLiteral("movieSource"), QStringLiteral("testMovieSize"),
                                       QStringLiteral("testMovieDuration"), QStringLiteral("libraryVideoIndex")};
    if (movieKeys.contains(key))
        _loadMovie();
    else
        _applyPlaybackSettings();
}

void VUTesterVideoScrubberPlaygroundViewController::_applyPlaybackSettings()
{
    VUMoviePlayer *player = m_playerView->player();
    player->setDefaultRate(m_settings->playbackRate());
    player->setLooping(m_settings->loops());
    m_scrubber->setSeekTolerance(m_settings->scrubbingTolerance() == VUTesterVideoScrubberSettings::ScrubbingToleranceKeyFrame
                                     ? VUMoviePlayer::SeekTolerance::KeyFrame
                                     : VUMoviePlayer::SeekTolerance::Exact);
    m_scrubber->setShowsKeyFrames(m_settings->showsKeyFrames());
    _update();
}

void VUTesterVideoScrubberPlaygroundViewController::_loadMovie()
{
    VUMoviePlayer *player = m_playerView->player();
    player->setMovie(QString());
    m_problem.clear();
    if (m_settings->movieSource() == VUTesterVideoScrubberSettings::MovieSourceLibrary) {
        VHFetchOptions options;
        options.setPhotoLibrary(m_library);
        options.setSortDescriptors({{QStringLiteral("creationDate"), false}});
        const VHFetchResult<VHAsset> videos = VHAsset::fetchAssetsWithMediaType(VHAssetMediaType::Video, options);
        const qint64 index = m_settings->libraryVideoIndex();
        if (index < videos.count())
            player->setMovie(videos.objectAtIndex(index).resourcePath(VHAssetResourceType::Video));
        else
            m_problem = videos.isEmpty() ? QStringLiteral("The library has no videos: fill it with some under Utilities, Library Filler.")
                                         : QStringLiteral("There is no video at %1: the library has %2.").arg(index).arg(videos.count());
        _update();
        return;
    }
    m_makingMovie = true;
    _update();
    VUTesterMakeTestPatternMovie(VUTesterVideoScrubberSettings::pixelSize(m_settings->testMovieSize()), m_settings->testMovieDuration(),
                                 this, [this](const QString &path, const QString &error) {
                                     m_makingMovie = false;
                                     m_problem = error;
                                     m_playerView->player()->setMovie(path);
                                     _update();
                                 });
}

QString VUTesterVideoScrubberPlaygroundViewController::statusText() const
{
    return m_status ? m_status->text() : QString();
}

void VUTesterVideoScrubberPlaygroundViewController::_update()
{
    if (!m_status)
        return; // the view is still being made
    const VUMoviePlayer *player = m_playerView->player();
    const VUMoviePlayer::Status status = player->status();
    const bool loading = m_makingMovie || status == VUMoviePlayer::Status::Loading;
    m_playButton->setMode(loading ? VUVideoOverlayButton::Mode::Loading
                                  : player->isPlaying() ? VUVideoOverlayButton::Mode::Pause : VUVideoOverlayButton::Mode::Play);
    m_playButton->setEnabled(loading || status == VUMoviePlayer::Status::ReadyToPlay);

    QString text;
    if (!m_problem.isEmpty())
        text = m_problem;
    else if (m_makingMovie)
        text = QStringLiteral("Making the test pattern movie…");
    else if (status == VUMoviePlayer::Status::Failed)
        text = player->error();
    else if (status == VUMoviePlayer::Status::ReadyToPlay)
        text = QStringLiteral("%1: %2 × %3, %4 fps, %5 s, key frames: %6\nAt %7 s · rate %8× · %9")
                   .arg(m_settings->movieSource() == VUTesterVideoScrubberSettings::MovieSourceLibrary
                            ? QStringLiteral("Library video %1").arg(m_settings->libraryVideoIndex())
                            : QStringLiteral("Test pattern"))
                   .arg(player->presentationSize().width())
                   .arg(player->presentationSize().height())
                   .arg(player->nominalFrameRate(), 0, 'g', 4)
                   .arg(player->duration(), 0, 'f', 2)
                   .arg(player->keyFrameTimes().size())
                   .arg(player->currentTime(), 0, 'f', 2)
                   .arg(m_settings->playbackRate(), 0, 'g', 3)
                   .arg(m_settings->loops() ? QStringLiteral("looping") : QStringLiteral("once"));
    if (text != m_status->text())
        m_status->setText(text);
}
