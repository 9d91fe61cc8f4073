#pragma once
// The Live Wallpaper playground: a Stir Shot of the library as the host's live wallpaper, filling
// the screen under the clock. Press and hold to play its movie; move the pointer to see the
// picture's parallax at the chosen depth.

#include "playgrounds/wallpaper/VUTesterLiveWallpaperSettings.h"

#include <photos/VHImageManager.h>

#include "ui/ViewController.h"

#include <QPointer>

#include <memory>

class QLabel;
class VHPhotoLibrary;
class VULiveWallpaperView;

class VUTESTER_EXPORT VUTesterLiveWallpaperPlaygroundViewController : public ui::ViewController {
    Q_OBJECT
public:
    // Stir Shots come from `library`, the shared library when null.
    explicit VUTesterLiveWallpaperPlaygroundViewController(VUTesterLiveWallpaperSettings *settings,
                                                           std::shared_ptr<VHPhotoLibrary> library = nullptr, QObject *parent = nullptr);
    ~VUTesterLiveWallpaperPlaygroundViewController() override;

    // Null until the view is loaded.
    VULiveWallpaperView *wallpaperView() const { return m_wallpaper; }
    // Why there is no wallpaper; empty when there is one.
    QString problemText() const;

protected:
    QWidget *loadView() override;

private:
    void _loadStirShot();
    void _applySettings();

    QPointer<VUTesterLiveWallpaperSettings> m_settings;
    std::shared_ptr<VHPhotoLibrary> m_library;
    VULiveWallpaperView *m_wallpaper = nullptr;
    QLabel *m_problem = nullptr;
    VHImageRequestID m_request = VHInvalidImageRequestID;
};
