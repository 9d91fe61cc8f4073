#pragma once
// Options of the Storylet title review: the six title dimensions (each a single value or a group
// label standing for a whole group, see VUTesterStoryletsFontsSettingParameters), the placeholder
// grey and where snapshots and recordings go (a folder under the user's pictures at first).

#include "shell/VUTesterSettings.h"

class VUTESTER_EXPORT VUTesterStoryletsRelatedSettings : public VUTesterChildSettings<VUTesterStoryletsRelatedSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "storyletsRelatedSettings";
    VUTesterStoryletsRelatedSettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    QString subtitleText() const { return valueForKey(QStringLiteral("subtitleText")).toString(); }
    void setSubtitleText(const QString &text) { setValue(QStringLiteral("subtitleText"), text); }
    // Grey level (0 black to 1 white) of the image placeholders in title tiles.
    double backgroundWhite() const { return doubleValue(QStringLiteral("backgroundWhite")); }
    void setBackgroundWhite(double white) { setValue(QStringLiteral("backgroundWhite"), white); }
    // The folder review recordings are written to.
    QString capturedDataFolder() const { return stringValue(QStringLiteral("capturedDataFolder")); }
    void setCapturedDataFolder(const QString &folder) { setValue(QStringLiteral("capturedDataFolder"), folder); }
};
