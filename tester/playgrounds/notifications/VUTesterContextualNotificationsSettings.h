#pragma once
// Options of the Contextual Notifications playground: what "Post Notification" posts (title,
// message, how many actions), how long each banner stays by itself, and how many are posted at
// once to fill the queue.

#include "shell/VUTesterSettings.h"

class VUTESTER_EXPORT VUTesterContextualNotificationsSettings : public VUTesterChildSettings<VUTesterContextualNotificationsSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "contextualNotificationsSettings";

    VUTesterContextualNotificationsSettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    QString notificationTitle() const { return stringValue(QStringLiteral("notificationTitle")); }
    void setNotificationTitle(const QString &title) { setValue(QStringLiteral("notificationTitle"), title); }
    QString message() const { return stringValue(QStringLiteral("message")); }
    void setMessage(const QString &message) { setValue(QStringLiteral("message"), message); }
    qint64 numberOfActions() const { return int64Value(QStringLiteral("numberOfActions")); }
    void setNumberOfActions(qint64 count) { setValue(QStringLiteral("numberOfActions"), QVariant::fromValue(count)); }
    // Seconds; 0 keeps a banner until it is swiped away or an action is chosen.
    double dismissalDelay() const { return doubleValue(QStringLiteral("dismissalDelay")); }
    void setDismissalDelay(double seconds) { setValue(QStringLiteral("dismissalDelay"), seconds); }
    qint64 numberToPost() const { return int64Value(QStringLiteral("numberToPost")); }
    void setNumberToPost(qint64 count) { setValue(QStringLiteral("numberToPost"), QVariant::fromValue(count)); }
};
