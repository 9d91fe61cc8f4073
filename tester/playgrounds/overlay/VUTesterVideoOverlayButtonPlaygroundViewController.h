#pragma once
// The Video Overlay Button playground: the host's play button in every style (rows) and state
// (columns: play, pause, loading, disabled) at the chosen size, over a light and a dark picture,
// under a live test video whose button plays and pauses it for real.

#include "playgrounds/overlay/VUTesterVideoOverlayButtonSettings.h"

#include "ui/ViewController.h"

#include <QList>
#include <QPointer>

class QScrollArea;
class VUMoviePlayerView;
class VUVideoOverlayButton;

class VUTESTER_EXPORT VUTesterVideoOverlayButtonPlaygroundViewController : public ui::ViewController {
    Q_OBJECT
public:
    explicit VUTesterVideoOverlayButtonPlaygroundViewController(VUTesterVideoOverlayButtonSettings *settings, QObject *parent = nullptr);

    // The buttons of the matrix, picture by picture, style by style, state by state; and the live
    // video with its button (null without one).
    const QList<VUVideoOverlayButton *> &matrixButtons() const { return m_matrixButtons; }
    VUMoviePlayerView *liveVideo() const { return m_liveVideo; }
    VUVideoOverlayButton *liveButton() const { return m_liveButton; }

protected:
    QWidget *loadView() override;

private:
    void _rebuild();
    QWidget *_liveSection();
    QWidget *_matrix(const QImage &image, const QString &title);
    void _updateLiveButton();

    QPointer<VUTesterVideoOverlayButtonSettings> m_settings;
    QScrollArea *m_scrollArea = nullptr;
    QList<VUVideoOverlayButton *> m_matrixButtons;
    VUMoviePlayerView *m_liveVideo = nullptr;
    VUVideoOverlayButton *m_liveButton = nullptr;
    bool m_makingMovie = false;
};
