#pragma once
// Options of the Swipe Down playground: when a release dismisses (distance and speed), how the
// photo resists being dragged up or sideways, how the background fades as it goes down, and the
// spring it settles with.

#include "shell/VUTesterSettings.h"

#include <swipedown/VUSwipeDownInteraction.h>

class VUTESTER_EXPORT VUTesterSwipeDownSettings : public VUTesterChildSettings<VUTesterSwipeDownSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "swipeDownSettings";

    VUTesterSwipeDownSettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    // The interaction's parameters as set here.
    VUSwipeDownParameters parameters() const;

    double dismissalDistance() const { return doubleValue(QStringLiteral("dismissalDistance")); }
    void setDismissalDistance(double points) { setValue(QStringLiteral("dismissalDistance"), points); }
    double dismissalVelocity() const { return doubleValue(QStringLiteral("dismissalVelocity")); }
    void setDismissalVelocity(double pointsPerSecond) { setValue(QStringLiteral("dismissalVelocity"), pointsPerSecond); }
    bool rubberBanding() const { return boolValue(QStringLiteral("rubberBanding")); }
    void setRubberBanding(bool on) { setValue(QStringLiteral("rubberBanding"), on); }
    double rubberBandCoefficient() const { return doubleValue(QStringLiteral("rubberBandCoefficient")); }
    void setRubberBandCoefficient(double coefficient) { setValue(QStringLiteral("rubberBandCoefficient"), coefficient); }
    bool followsHorizontally() const { return boolValue(QStringLiteral("followsHorizontally")); }
    void setFollowsHorizontally(bool follows) { setValue(QStringLiteral("followsHorizontally"), follows); }
    bool dimsBackground() const { return boolValue(QStringLiteral("dimsBackground")); }
    void setDimsBackground(bool dims) { setValue(QStringLiteral("dimsBackground"), dims); }
    double dimmingDistance() const { return doubleValue(QStringLiteral("dimmingDistance")); }
    void setDimmingDistance(double points) { setValue(QStringLiteral("dimmingDistance"), points); }
    double minimumBackgroundAlpha() const { return doubleValue(QStringLiteral("minimumBackgroundAlpha")); }
    void setMinimumBackgroundAlpha(double alpha) { setValue(QStringLiteral("minimumBackgroundAlpha"), alpha); }
    double springDuration() const { return doubleValue(QStringLiteral("springDuration")); }
    void setSpringDuration(double seconds) { setValue(QStringLiteral("springDuration"), seconds); }
    double springDampingRatio() const { return doubleValue(QStringLiteral("springDampingRatio")); }
    void setSpringDampingRatio(double ratio) { setValue(QStringLiteral("springDampingRatio"), ratio); }
};
