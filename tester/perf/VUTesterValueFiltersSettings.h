#pragma once
// Options of the velocity filter playground.

#include "shell/VUTesterSettings.h"

class VUTESTER_EXPORT VUTesterValueFiltersSettings : public VUTesterChildSettings<VUTesterValueFiltersSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "valueFiltersSettings";
    enum UpdateSchedule : qint64 { UpdateScheduleGesture = 0, UpdateScheduleDisplayLink = 1 };

    VUTesterValueFiltersSettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    qint64 updateSchedule() const { return int64Value(QStringLiteral("updateSchedule")); }
    void setUpdateSchedule(qint64 schedule) { setValue(QStringLiteral("updateSchedule"), QVariant::fromValue(schedule)); }
    bool computeHorizontalVelocity() const { return boolValue(QStringLiteral("computeHorizontalVelocity")); }
    void setComputeHorizontalVelocity(bool on) { setValue(QStringLiteral("computeHorizontalVelocity"), on); }
    bool computeVerticalVelocity() const { return boolValue(QStringLiteral("computeVerticalVelocity")); }
    void setComputeVerticalVelocity(bool on) { setValue(QStringLiteral("computeVerticalVelocity"), on); }
};
