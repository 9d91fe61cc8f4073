#pragma once
// The Video Scrubber playground: a movie in the host's player, its play button over it, and the
// host's filmstrip scrubber beneath; drag along the strip to see the picture at the playhead,
// play at the chosen rate, loop or stop at the end. The line at the bottom says what the movie is
// and where the player stands.

#include "playgrounds/scrubber/VUTesterVideoScrubberSettings.h"

#include "ui/ViewController.h"

#include <QPointer>

#include <memory>

class QLabel;
class VHPhotoLibrary;
class VUMoviePlayerView;
class VUVideoOverlayButton;
class VUVideoScrubber;

class VUTESTER_EXPORT VUTesterVideoScrubberPlaygroundViewController : public ui::ViewController {
    Q_OBJECT
public:
    // Library videos come from `library`, the shared library when null.
    explicit VUTesterVideoScrubberPlaygroundViewController(VUTesterVideoScrubberSettings *settings,
                                                           std::shared_ptr<VHPhotoLibrary> library = nullptr, QObject *parent = nullptr);

    // Null until the view is loaded.
    VUMoviePlayerView *playerView() const { return m_playerView; }
    VUVideoScrubber *scrubber() const { return m_scrubber; }
    VUVideoOverlayButton *playButton() const { return m_playButton; }
    QString statusText() const;

protected:
    QWidget *loadView() override;
    void viewWillDisappear(bool animated) override;

private:
    void _settingChanged(const QString &key);
    void _loadMovie();
    void _applyPlaybackSettings();
    void _update();

    QPointer<VUTesterVideoScrubberSettings> m_settings;
    std::shared_ptr<VHPhotoLibrary> m_library;
    VUMoviePlayerView *m_playerView = nullptr;
    VUVideoScrubber *m_scrubber = nullptr;
    VUVideoOverlayButton *m_playButton = nullptr;
    QLabel *m_status = nullptr;
    bool m_makingMovie = false;
    QString m_problem; // why there is no movie
};
