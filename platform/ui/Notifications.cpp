#include "Notifications.h"

#include <QGuiApplication>

namespace ui {

NotificationCenter &NotificationCenter::defaultCenter()
{
    static NotificationCenter center;
    return center;
}

void NotificationCenter::addObserver(const QObject *observer, const QString &name, std::function<void()> handler)
{
    m_registrations.push_back({observer, name, std::move(handler)});
}

void NotificationCenter::removeObserver(const QObject *observer)
{
    std::erase_if(m_registrations, [observer](const Registration &r) { return r.observer == observer; });
}

void NotificationCenter::postNotification(const QString &name)
{
    // Handlers may add or remove observers: call a copy.
    const std::vector<Registration> registrations = m_registrations;
    for (const Registration &r : registrations)
        if (r.name == name && r.handler)
            r.handler();
}

int NotificationCenter::observerCount(const QString &name) const
{
    return int(std::count_if(m_registrations.begin(), m_registrations.end(), [&](const Registration &r) { return r.name == name; }));
}

void installApplicationNotifications()
{
    auto *app = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    if (!app || app->property("vistra.notificationsInstalled").toBool())
        return;
    app->setProperty("vistra.notificationsInstalled", true);
    QObject::connect(app, &QGuiApplication::applicationStateChanged, app,
                     [previous = QGuiApplication::applicationState()](Qt::ApplicationState state) mutable {
        if (previous == Qt::ApplicationActive && state != Qt::ApplicationActive)
            NotificationCenter::defaultCenter().postNotification(QString::fromLatin1(ApplicationWillResignActiveNotification));
        previous = state;
    });
    QObject::connect(app, &QCoreApplication::aboutToQuit, app, [] {
        NotificationCenter::defaultCenter().postNotification(QString::fromLatin1(ApplicationWillTerminateNotification));
    });
}

} // namespace ui
