#pragma once
// One in-app notification: a title, a message, up to a few actions, and how long it stays on
// screen by itself.

#include <QList>
#include <QString>

#include <functional>

struct VUContextualNotificationAction {
    QString title;
    std::function<void()> handler;
};

struct VUContextualNotification {
    QString title;
    QString message;
    QList<VUContextualNotificationAction> actions;
    // Seconds on screen before it leaves by itself; 0 keeps it until dismissed.
    double dismissalDelay = 4;
};
