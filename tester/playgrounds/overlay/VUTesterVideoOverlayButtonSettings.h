#pragma once
// Options of the Video Overlay Button playground: the size of the buttons, the pictures they sit
// on, and whether a live video with a working button heads the screen.

#include "shell/VUTesterSettings.h"

class VUTESTER_EXPORT VUTesterVideoOverlayButtonSettings : public VUTesterChildSettings<VUTesterVideoOverlayButtonSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "videoOverlayButtonSettings";
    enum Pictures : qint64 { PicturesLightAndDark = 0, PicturesLight = 1, PicturesDark = 2 };

    VUTesterVideoOverlayButtonSettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    // A VUVideoOverlayButton::Size.
    qint64 buttonSize() const { return int64Value(QStringLiteral("buttonSize")); }
    void setButtonSize(qint64 size) { setValue(QStringLiteral("buttonSize"), QVariant::fromValue(size)); }
    qint64 pictures() const { return int64Value(QStringLiteral("pictures")); }
    void setPictures(qint64 pictures) { setValue(QStringLiteral("pictures"), QVariant::fromValue(pictures)); }
    bool showsLiveVideo() const { return boolValue(QStringLiteral("showsLiveVideo")); }
    void setShowsLiveVideo(bool shows) { setValue(QStringLiteral("showsLiveVideo"), shows); }
};
