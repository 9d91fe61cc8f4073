#pragma once
// The Contextual Notifications playground: a screen of photos under the host's notification
// banners. "Post Notification" posts what the settings describe (several at once to see them
// queue); banners leave after their delay, by a swipe up, or through an action, and the log at
// the bottom says which.

#include "playgrounds/notifications/VUTesterContextualNotificationsSettings.h"

#include "ui/TappableRows.h"
#include "ui/ViewController.h"

#include <QPointer>
#include <QStringList>

class VUContextualNotificationCenter;
class VUTesterEventLogLabel;

class VUTESTER_EXPORT VUTesterContextualNotificationsPlaygroundViewController : public ui::ViewController, public ui::TappableRows {
    Q_OBJECT
public:
    explicit VUTesterContextualNotificationsPlaygroundViewController(VUTesterContextualNotificationsSettings *settings,
                                                                     QObject *parent = nullptr);

    // Posts as many notifications as the settings say. Needs the view.
    void postNotifications();
    // Null until the view is loaded.
    VUContextualNotificationCenter *notificationCenter() const { return m_center; }
    const QStringList &log() const;

    QList<ui::TappableRow> tappableRows() override;

protected:
    QWidget *loadView() override;

private:
    QPointer<VUTesterContextualNotificationsSettings> m_settings;
    VUContextualNotificationCenter *m_center = nullptr;
    VUTesterEventLogLabel *m_log = nullptr;
};
