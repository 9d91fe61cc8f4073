#include "playgrounds/wallpaper/VUTesterLiveWallpaperPlaygroundViewController.h"

#include <photos/VHAsset.h>
#include <wallpaper/VULiveWallpaperView.h>

#include <QGridLayout>
#include <QLabel>

VUTesterLiveWallpaperPlaygroundViewController::VUTesterLiveWallpaperPlaygroundViewController(VUTesterLiveWallpaperSettings *settings,
                                                                                             std::shared_ptr<VHPhotoLibrary> library,
                                                                                             QObject *parent)
    : ui::ViewController(parent)
    , m_settings(settings)
    , m_library(std::move(library))
{
    setTitle(QStringLiteral("Live Wallpaper"));
    connect(settings, &TWSettings::valueChanged, this, [this](const QString &key) {
        if (!m_wallpaper)
            return;
        if (key == QLatin1String("stirShotIndex"))
            _loadStirShot();
        else
            _applySettings();
    });
}

VUTesterLiveWallpaperPlaygroundViewController::~VUTesterLiveWallpaperPlaygroundViewController()
{
    VHImageManager::defaultManager()->cancelImageRequest(m_request);
}

QWidget *VUTesterLiveWallpaperPlaygroundViewController::loadView()
{
    auto *view = new QWidget;
    auto *layout = new QGridLayout(view);
    layout->setContentsMargins(0, 0, 0, 0);
    m_wallpaper = new VULiveWallpaperView;
    m_problem = new QLabel;
    m_problem->setWordWrap(true);
    m_problem->setAlignment(Qt::AlignCenter);
    m_problem->setContentsMargins(24, 0, 24, 0);
    layout->addWidget(m_wallpaper, 0, 0);
    layout->addWidget(m_problem, 0, 0);
    _applySettings();
    _loadStirShot();
    return view;
}

QString VUTesterLiveWallpaperPlaygroundViewController::problemText() const
{
    return m_problem && !m_problem->isHidden() ? m_problem->text() : QString();
}

void VUTesterLiveWallpaperPlaygroundViewController::_applySettings()
{
    m_wallpaper->setMotionDepth(m_settings->motionDepth());
    m_wallpaper->setClockVisible(m_settings->showsClock());
    m_wallpaper->setPlaysOnPress(m_settings->playsOnPress());
}

void VUTesterLiveWallpaperPlaygroundViewController::_loadStirShot()
{
    VHImageManager::defaultManager()->cancelImageRequest(m_request);
    m_request = VHInvalidImageRequestID;
    VHFetchOptions options;
    options.setPhotoLibrary(m_library);
    options.setSortDescriptors({{QStringLiteral("creationDate"), false}});
    // Newest first, as far as the one asked for (the whole library only when it is not there).
    const qint64 index = m_settings->stirShotIndex();
    QList<VHAsset> stirShots;
    const VHFetchResult<VHAsset> photos = VHAsset::fetchAssetsWithMediaType(VHAssetMediaType::Image, options);
    for (qsizetype i = 0; i < photos.count() && stirShots.size() <= index; ++i)
        if (VHAsset asset = photos.objectAtIndex(i); asset.isMovingPhoto())
            stirShots.append(asset);
    if (index >= stirShots.size()) {
        m_wallpaper->setStirShot(QImage(), QString());
        m_problem->setText(stirShots.isEmpty()
                               ? QStringLiteral("The library has no Stir Shots: make some under Utilities, Library Filler, with Media set to Stir Shot.")
                               : QStringLiteral("There is no Stir Shot at %1: the library has %2.").arg(index).arg(stirShots.size()));
        m_problem->show();
        return;
    }
    m_problem->hide();
    const VHAsset stirShot = stirShots[index];
    // The still at the size the screen shows it; until it comes, the movie's first picture.
    m_wallpaper->setStirShot(QImage(), stirShot.resourcePath(VHAssetResourceType::PairedVideo));
    const QSize pixels = (QSizeF(m_wallpaper->size().expandedTo(QSize(390, 844))) * m_wallpaper->devicePixelRatioF()).toSize();
    m_request = VHImageManager::defaultManager()->requestImageForAsset(
        stirShot, pixels, VHImageContentMode::AspectFill, [this, movie = stirShot.resourcePath(VHAssetResourceType::PairedVideo)](
                                                              const graphics::ImagePtr &image, const QVariantMap &) {
            m_request = VHInvalidImageRequestID;
            if (image)
                m_wallpaper->setStirShot(image->uprightPixels(), movie);
        });
}
