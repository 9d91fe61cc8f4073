#pragma once
// Options of the User Transforms playground: the limits of the user transform (scale bounds,
// whether the picture turns, whether it must keep covering the middle), how far a double tap
// zooms, and whether the composed transform is shown.

#include "shell/VUTesterSettings.h"

#include <usertransforms/VUUserTransformLimits.h>

class VUTESTER_EXPORT VUTesterUserTransformsSettings : public VUTesterChildSettings<VUTesterUserTransformsSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "userTransformsSettings";

    VUTesterUserTransformsSettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    VUUserTransformLimits limits() const;

    double minimumScale() const { return doubleValue(QStringLiteral("minimumScale")); }
    void setMinimumScale(double scale) { setValue(QStringLiteral("minimumScale"), scale); }
    double maximumScale() const { return doubleValue(QStringLiteral("maximumScale")); }
    void setMaximumScale(double scale) { setValue(QStringLiteral("maximumScale"), scale); }
    bool allowsRotation() const { return boolValue(QStringLiteral("allowsRotation")); }
    void setAllowsRotation(bool allows) { setValue(QStringLiteral("allowsRotation"), allows); }
    bool limitsTranslation() const { return boolValue(QStringLiteral("limitsTranslation")); }
    void setLimitsTranslation(bool limits) { setValue(QStringLiteral("limitsTranslation"), limits); }
    double doubleTapScale() const { return doubleValue(QStringLiteral("doubleTapScale")); }
    void setDoubleTapScale(double scale) { setValue(QStringLiteral("doubleTapScale"), scale); }
    bool showsTransform() const { return boolValue(QStringLiteral("showsTransform")); }
    void setShowsTransform(bool shows) { setValue(QStringLiteral("showsTransform"), shows); }
};
