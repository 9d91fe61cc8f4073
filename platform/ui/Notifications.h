#pragma once
// A main-thread notification centre and the two application notifications, mapped from Qt:
// about to resign active (the application loses the active state) and about to terminate.

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <vector>

namespace ui {

inline constexpr const char *ApplicationWillResignActiveNotification = "ApplicationWillResignActive";
inline constexpr const char *ApplicationWillTerminateNotification = "ApplicationWillTerminate";

class NotificationCenter {
public:
    static NotificationCenter &defaultCenter();

    void addObserver(const QObject *observer, const QString &name, std::function<void()> handler);
    // Removes every registration of the observer.
    void removeObserver(const QObject *observer);
    void postNotification(const QString &name);
    int observerCount(const QString &name) const;

private:
    struct Registration {
        const QObject *observer;
        QString name;
        std::function<void()> handler;
    };
    std::vector<Registration> m_registrations;
};

// Connects the running application's state changes and shutdown to the notifications. Safe to
// call more than once.
void installApplicationNotifications();

} // namespace ui
