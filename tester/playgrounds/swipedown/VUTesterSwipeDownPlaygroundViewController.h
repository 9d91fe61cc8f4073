#pragma once
// The Swipe Down playground: a photo to present full screen and swipe away. The screen beneath
// tells, while the photo is dragged (it shows through as the background fades), where the photo
// is and how opaque the background, and after each release what the release was and what came
// of it. The swipe-down settings apply from the next presentation on.

#include "shell/VUTesterExport.h"

#include <graphics/Image.h>
#include <swipedown/VUSwipeDownPhotoViewController.h>

#include "ui/TappableRows.h"
#include "ui/ViewController.h"

#include <QPointer>

class QLabel;
class VUAspectFitImageView;

class VUTESTER_EXPORT VUTesterSwipeDownPlaygroundViewController : public ui::ViewController, public ui::TappableRows {
    Q_OBJECT
public:
    VUTesterSwipeDownPlaygroundViewController();

    // Null until the picture has been drawn.
    const graphics::ImagePtr &photo() const { return m_photo; }
    // Presents the photo with the current settings; does nothing before the picture is drawn or
    // while it is presented.
    void presentPhoto();
    VUSwipeDownPhotoViewController *presentedPhoto() const { return m_presented; }
    // What the screen tells of the drag under way, and of the last release.
    QString dragText() const;
    QString releaseText() const;

    QList<ui::TappableRow> tappableRows() override;

protected:
    QWidget *loadView() override;

private:
    // The settings' thresholds, shown and returned.
    VUSwipeDownParameters _showThresholds();

    graphics::ImagePtr m_photo;
    VUAspectFitImageView *m_thumbnail = nullptr;
    QLabel *m_thresholds = nullptr;
    QLabel *m_drag = nullptr;
    QLabel *m_release = nullptr;
    QPointer<VUSwipeDownPhotoViewController> m_presented;
};
