#include "VUSwipeDownPhotoViewController.h"

#include "browsing/VUAspectFitImageView.h"

#include "ui/BackgroundColor.h"
#include "ui/ResizingView.h"

VUSwipeDownPhotoViewController::VUSwipeDownPhotoViewController(graphics::ImagePtr photo, const VUSwipeDownParameters &parameters,
                                                               QObject *parent)
    : ui::ViewController(parent)
    , m_photo(std::move(photo))
    , m_parameters(parameters)
{
}

QWidget *VUSwipeDownPhotoViewController::loadView()
{
    // The photo fills the view, moved by the current offset whenever either changes.
    auto *stage = new ui::ResizingView([this] {
        if (m_interaction)
            _layout(m_interaction->offset(), m_interaction->backgroundAlpha());
    });
    m_photoView = new VUAspectFitImageView(stage);
    m_photoView->setImage(m_photo);
    m_interaction = new VUSwipeDownInteraction(stage, m_parameters);
    connect(m_interaction, &VUSwipeDownInteraction::offsetChanged, this, &VUSwipeDownPhotoViewController::_layout);
    connect(m_interaction, &VUSwipeDownInteraction::dismissed, this, [this] {
        Q_EMIT swipedAway();
        // The photo has already gone: nothing is left to animate.
        dismissViewControllerAnimated(false);
    });
    _layout(QPointF(), 1);
    return stage;
}

void VUSwipeDownPhotoViewController::_layout(QPointF offset, double backgroundAlpha)
{
    QWidget *stage = m_photoView->parentWidget();
    ui::setBackgroundColor(stage, QColor(0, 0, 0, int(std::lround(255 * backgroundAlpha))));
    m_photoView->setGeometry(stage->rect().translated(offset.toPoint()));
}
