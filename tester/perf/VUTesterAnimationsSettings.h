#pragma once
// Timing and spring parameters shared by the animation playgrounds.

#include "shell/VUTesterSettings.h"

class VUTESTER_EXPORT VUTesterAnimationsSettings : public VUTesterChildSettings<VUTesterAnimationsSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "animationsSettings";
    VUTesterAnimationsSettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    double duration() const { return doubleValue(QStringLiteral("duration")); }
    void setDuration(double duration) { setValue(QStringLiteral("duration"), duration); }
    double delay() const { return doubleValue(QStringLiteral("delay")); }
    void setDelay(double delay) { setValue(QStringLiteral("delay"), delay); }
    double springDampingRatio() const { return doubleValue(QStringLiteral("springDampingRatio")); }
    void setSpringDampingRatio(double ratio) { setValue(QStringLiteral("springDampingRatio"), ratio); }
    // Relative to the distance to travel, in distances per second.
    double initialSpringVelocity() const { return doubleValue(QStringLiteral("initialSpringVelocity")); }
    void setInitialSpringVelocity(double velocity) { setValue(QStringLiteral("initialSpringVelocity"), velocity); }
};
