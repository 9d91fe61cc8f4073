#pragma once
// A button for a navigation bar or a toolbar: a title or a system item, and what it does when
// tapped; or, in a toolbar, a flexible space or a view of the caller's (a segmented control).

#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>

namespace ui {

class BarButtonItem : public QObject {
    Q_OBJECT
public:
    // A flexible space takes an equal share of the room its toolbar has left.
    enum class SystemItem { None, Done, Cancel, FlexibleSpace };
    using Action = std::function<void(BarButtonItem *)>;

    BarButtonItem(const QString &title, Action action, QObject *parent = nullptr);
    BarButtonItem(SystemItem systemItem, Action action, QObject *parent = nullptr);
    // An item showing `customView`, which the item owns wherever the bar places it.
    explicit BarButtonItem(QWidget *customView, QObject *parent = nullptr);
    ~BarButtonItem() override;

    SystemItem systemItem() const { return m_systemItem; }
    QWidget *customView() const { return m_customView; }
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
    QPointer<QWidget> m_customView;
};

} // namespace ui
