#include "playgrounds/usertransforms/VUTesterUserTransformsPlaygroundViewController.h"

#include "playgrounds/VUTesterPlaygroundImage.h"
#include "playgrounds/usertransforms/VUTesterUserTransformsSettings.h"

#include "media/VUTesterFractalImageGenerator.h"

#include <usertransforms/VUUserTransformView.h>

#include "ui/BarButtonItem.h"

#include <QLabel>
#include <QVBoxLayout>

#include <cmath>

VUTesterUserTransformsPlaygroundViewController::VUTesterUserTransformsPlaygroundViewController()
{
    setTitle(QStringLiteral("User Transforms"));
    navigationItem()->setRightBarButtonItem(
        new ui::BarButtonItem(QStringLiteral("Reset"), [this](ui::BarButtonItem *) { m_transformView->setUserTransform(QTransform()); }));
}

QString VUTesterUserTransformsPlaygroundViewController::textForTransform(const QTransform &t)
{
    const VUTransformComponents c = VUDecomposeTransform(t);
    const auto number = [](double value, int decimals) {
        // No "-0.00" for what is zero at the precision shown.
        const double rounded = std::round(value * std::pow(10, decimals)) / std::pow(10, decimals);
        return QString::number(rounded == 0 ? 0.0 : rounded, 'f', decimals);
    };
    return QStringLiteral("Scale %1  Rotation %2°\nTranslation (%3, %4)\n[%5 %6, %7 %8, %9 %10]")
        .arg(number(c.xScale, 2), number(c.rotation * 180 / M_PI, 1), number(c.translation.x(), 1), number(c.translation.y(), 1),
             number(t.m11(), 3), number(t.m12(), 3), number(t.m21(), 3), number(t.m22(), 3), number(t.dx(), 1), number(t.dy(), 1));
}

QWidget *VUTesterUserTransformsPlaygroundViewController::loadView()
{
    m_transformView = new VUUserTransformView;
    auto *overlay = new QVBoxLayout(m_transformView);
    overlay->addStretch();
    m_readout = new QLabel;
    m_readout->setObjectName(QStringLiteral("transformReadout"));
    m_readout->setStyleSheet(QStringLiteral("color: white; background: rgba(0, 0, 0, 150); padding: 6px; border-radius: 6px"));
    m_readout->setAttribute(Qt::WA_TransparentForMouseEvents);
    QFont mono = m_readout->font();
    mono.setFamily(QStringLiteral("monospace"));
    mono.setStyleHint(QFont::Monospace);
    m_readout->setFont(mono);
    overlay->addWidget(m_readout, 0, Qt::AlignHCenter);
    connect(m_transformView, &VUUserTransformView::userTransformChanged, this, &VUTesterUserTransformsPlaygroundViewController::_showTransform);
    connect(VUTesterUserTransformsSettings::sharedInstance(), &TWSettings::valueChanged, this,
            &VUTesterUserTransformsPlaygroundViewController::_applySettings);
    _applySettings();
    _showTransform(QTransform());

    auto fractal = std::make_shared<VUTesterFractalImageGenerator>();
    fractal->setImageSize(QSizeF(kPictureSide, kPictureSide));
    fractal->setCenterX(kCenterX);
    fractal->setCenterY(kCenterY);
    fractal->setInnerRadius(kInnerRadius);
    fractal->setMaxIterations(kMaxIterations);
    fractal->setFractalType(0);
    fractal->setFractalColorScheme(kColorScheme);
    VUTesterDeliverGeneratedImage(fractal, this, [this](graphics::ImagePtr image) { m_transformView->setImage(std::move(image)); });
    return m_transformView;
}

void VUTesterUserTransformsPlaygroundViewController::_applySettings()
{
    const VUTesterUserTransformsSettings *settings = VUTesterUserTransformsSettings::sharedInstance();
    m_transformView->setLimits(settings->limits());
    m_transformView->setDoubleTapScale(settings->doubleTapScale());
    m_readout->setVisible(settings->showsTransform());
}

void VUTesterUserTransformsPlaygroundViewController::_showTransform(const QTransform &transform)
{
    m_readout->setText(textForTransform(transform));
}

QString VUTesterUserTransformsPlaygroundViewController::transformText() const
{
    return m_readout ? m_readout->text() : QString();
}

QList<ui::TappableRow> VUTesterUserTransformsPlaygroundViewController::tappableRows()
{
    return {{QString(), QStringLiteral("Double Tap Middle"),
             [this] { m_transformView->zoomAtLocation(QRectF(m_transformView->rect()).center()); }},
            {QString(), QStringLiteral("Reset"), [this] { m_transformView->setUserTransform(QTransform()); }}};
}
