#pragma once
// Options of the Activity Controller playground: the activity "Start Activity" begins, its
// length in equal steps, whether it tells its progress, may be cancelled, and fails part way.

#include "shell/VUTesterSettings.h"

class VUTESTER_EXPORT VUTesterActivitySettings : public VUTesterChildSettings<VUTesterActivitySettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "activityProgressSettings";

    VUTesterActivitySettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    QString activityTitle() const { return stringValue(QStringLiteral("activityTitle")); }
    void setActivityTitle(const QString &title) { setValue(QStringLiteral("activityTitle"), title); }
    // Seconds from start to finish.
    double duration() const { return doubleValue(QStringLiteral("duration")); }
    void setDuration(double seconds) { setValue(QStringLiteral("duration"), seconds); }
    qint64 numberOfSteps() const { return int64Value(QStringLiteral("numberOfSteps")); }
    void setNumberOfSteps(qint64 steps) { setValue(QStringLiteral("numberOfSteps"), QVariant::fromValue(steps)); }
    bool determinate() const { return boolValue(QStringLiteral("determinate")); }
    void setDeterminate(bool determinate) { setValue(QStringLiteral("determinate"), determinate); }
    bool cancellable() const { return boolValue(QStringLiteral("cancellable")); }
    void setCancellable(bool cancellable) { setValue(QStringLiteral("cancellable"), cancellable); }
    bool fails() const { return boolValue(QStringLiteral("fails")); }
    void setFails(bool fails) { setValue(QStringLiteral("fails"), fails); }
    // The share of the work done when it fails: at the first step that reaches it.
    double failurePoint() const { return doubleValue(QStringLiteral("failurePoint")); }
    void setFailurePoint(double point) { setValue(QStringLiteral("failurePoint"), point); }
};
