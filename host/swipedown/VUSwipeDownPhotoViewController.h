#pragma once
// A photo presented over the screen that showed it, on black, dismissed by swiping it down
// (VUSwipeDownInteraction): the photo follows the finger and the screen beneath shows through
// as the black fades.

#include "VUSwipeDownInteraction.h"

#include <graphics/Image.h>

#include "ui/ViewController.h"

class VUAspectFitImageView;

class VUSwipeDownPhotoViewController : public ui::ViewController {
    Q_OBJECT
public:
    VUSwipeDownPhotoViewController(graphics::ImagePtr photo, const VUSwipeDownParameters &parameters, QObject *parent = nullptr);

    const graphics::ImagePtr &photo() const { return m_photo; }
    // Null until the view is loaded.
    VUSwipeDownInteraction *interaction() const { return m_interaction; }
    VUAspectFitImageView *photoView() const { return m_photoView; }

Q_SIGNALS:
    // The photo was swiped away; the controller is being dismissed.
    void swipedAway();

protected:
    QWidget *loadView() override;

private:
    void _layout(QPointF offset, double backgroundAlpha);

    graphics::ImagePtr m_photo;
    VUSwipeDownParameters m_parameters;
    VUSwipeDownInteraction *m_interaction = nullptr;
    VUAspectFitImageView *m_photoView = nullptr;
};
