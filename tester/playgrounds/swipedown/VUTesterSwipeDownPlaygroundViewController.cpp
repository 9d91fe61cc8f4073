#include "playgrounds/swipedown/VUTesterSwipeDownPlaygroundViewController.h"

#include "playgrounds/VUTesterPlaygroundImage.h"
#include "playgrounds/swipedown/VUTesterSwipeDownSettings.h"

#include "media/VUTesterRadialPatternImageGenerator.h"

#include <browsing/VUAspectFitImageView.h>

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>

VUTesterSwipeDownPlaygroundViewController::VUTesterSwipeDownPlaygroundViewController()
{
    setTitle(QStringLiteral("Swipe Down"));
}

QWidget *VUTesterSwipeDownPlaygroundViewController::loadView()
{
    auto *view = new QWidget;
    auto *column = new QVBoxLayout(view);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(12);
    m_thumbnail = new VUAspectFitImageView;
    m_thumbnail->setMinimumHeight(200);
    column->addWidget(m_thumbnail, 1);
    auto *present = new QPushButton(QStringLiteral("Present Photo"));
    connect(present, &QPushButton::clicked, this, &VUTesterSwipeDownPlaygroundViewController::presentPhoto);
    column->addWidget(present);
    m_thresholds = new QLabel;
    m_thresholds->setWordWrap(true);
    column->addWidget(m_thresholds);
    m_drag = new QLabel(QStringLiteral("Present the photo, then drag it down."));
    m_release = new QLabel;
    for (QLabel *label : {m_drag, m_release}) {
        label->setWordWrap(true);
        QFont large = label->font();
        large.setPointSizeF(large.pointSizeF() * 1.2);
        label->setFont(large);
        column->addWidget(label);
    }
    column->addStretch();
    _showThresholds();

    auto generator = std::make_shared<VUTesterRadialPatternImageGenerator>();
    generator->setImageSize(QSizeF(1200, 900));
    generator->setColor(graphics::Color::rgb(0.1, 0.45, 0.9));
    VUTesterDeliverGeneratedImage(generator, this, [this](graphics::ImagePtr image) {
        m_photo = std::move(image);
        m_thumbnail->setImage(m_photo);
    });
    return view;
}

void VUTesterSwipeDownPlaygroundViewController::presentPhoto()
{
    if (!m_photo || m_presented)
        return;
    const VUSwipeDownParameters parameters = _showThresholds();
    m_presented = new VUSwipeDownPhotoViewController(m_photo, parameters);
    m_presented->setTitle(QStringLiteral("Photo"));
    // The interaction comes with the view.
    m_presented->view();
    VUSwipeDownInteraction *interaction = m_presented->interaction();
    connect(interaction, &VUSwipeDownInteraction::offsetChanged, this, [this](QPointF offset, double alpha) {
        m_drag->setText(QStringLiteral("Down %1 pt, across %2 pt; background %3%")
                        .arg(std::lround(offset.y()))
                        .arg(std::lround(offset.x()))
                        .arg(std::lround(alpha * 100)));
    });
    connect(interaction, &VUSwipeDownInteraction::stateChanged, this, [this, interaction](VUSwipeDownInteraction::State state) {
        if (state != VUSwipeDownInteraction::State::Returning && state != VUSwipeDownInteraction::State::Dismissing)
            return;
        m_release->setText(QStringLiteral("Released %1 pt down at %2 pt/s: %3")
                        .arg(std::lround(interaction->releaseOffset().y()))
                        .arg(std::lround(interaction->releaseVelocity().y()))
                        .arg(state == VUSwipeDownInteraction::State::Dismissing ? QStringLiteral("dismissed") : QStringLiteral("kept")));
    });
    presentViewController(m_presented, true);
}

VUSwipeDownParameters VUTesterSwipeDownPlaygroundViewController::_showThresholds()
{
    const VUSwipeDownParameters parameters = VUTesterSwipeDownSettings::sharedInstance()->parameters();
    m_thresholds->setText(QStringLiteral("Dismisses when released %1 pt or more down, or moving down at %2 pt/s or more.")
                              .arg(parameters.dismissalDistance)
                              .arg(parameters.dismissalVelocity));
    return parameters;
}

QString VUTesterSwipeDownPlaygroundViewController::dragText() const
{
    return m_drag ? m_drag->text() : QString();
}

QString VUTesterSwipeDownPlaygroundViewController::releaseText() const
{
    return m_release ? m_release->text() : QString();
}

QList<ui::TappableRow> VUTesterSwipeDownPlaygroundViewController::tappableRows()
{
    return {{QString(), QStringLiteral("Present Photo"), [this] { presentPhoto(); }}};
}
