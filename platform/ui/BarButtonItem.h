#pragma once
// A button for a navigation bar: a title or a system item, and what it does when tapped.

#include <QObject>
#include <QString>

#include <functional>

namespace ui {

class BarButtonItem : public QObject {
    Q_OBJECT
public:
    enum class SystemItem { None, Done, Cancel };
    using Action = std::function<void(BarButtonItem *)>;

    BarButtonItem(const QString &title, Action action, QObject *parent = nullptr);
    BarButtonItem(SystemItem systemItem, Action action, QObject *parent = nullptr);

    SystemItem systemItem() const { return m_systemItem; }
    QString title() const { return m_title; }
    void setTitle(const QString &title);
    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    // Performs the action, as a tap does.
    void trigger();

Q_SIGNALS:
    void changed();

private:
    SystemItem m_systemItem = SystemItem::None;
    QString m_title;
    Action m_action;
    bool m_enabled = true;
};

} // namespace ui
