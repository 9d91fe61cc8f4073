#pragma once
// A view controller: owns a view (a QWidget made on first use), is told when the view appears and
// disappears, carries a navigation item, and presents other controllers modally over its window.

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>

class QWidget;

namespace ui {

class BarButtonItem;
class NavigationController;

class NavigationItem : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    QString title() const { return m_title; }
    void setTitle(const QString &title);
    const QList<BarButtonItem *> &leftBarButtonItems() const { return m_left; }
    const QList<BarButtonItem *> &rightBarButtonItems() const { return m_right; }
    // The item takes ownership of the buttons; null clears the side.
    void setLeftBarButtonItem(BarButtonItem *item);
    void setRightBarButtonItem(BarButtonItem *item);
    void setLeftBarButtonItems(const QList<BarButtonItem *> &items);
    void setRightBarButtonItems(const QList<BarButtonItem *> &items);

Q_SIGNALS:
    void changed();

private:
    QString m_title;
    QList<BarButtonItem *> m_left, m_right;
};

class ViewController : public QObject {
    Q_OBJECT
public:
    enum class AppearanceState { Disappeared, Appearing, Appeared, Disappearing };

    explicit ViewController(QObject *parent = nullptr);
    ~ViewController() override;

    QWidget *view();
    bool isViewLoaded() const { return !m_view.isNull(); }
    QString title() const;
    void setTitle(const QString &title);
    NavigationItem *navigationItem() { return &m_navigationItem; }
    // What the navigation container's toolbar shows while this controller is on top (when the
    // container shows its toolbar). The controller takes ownership of the items.
    const QList<BarButtonItem *> &toolbarItems() const { return m_toolbarItems; }
    void setToolbarItems(const QList<BarButtonItem *> &items);

    ViewController *parentViewController() const { return m_parentViewController; }
    // The nearest navigation container this controller is in (itself when it is one).
    virtual NavigationController *navigationController() const;

    // Shows `controller` over this controller's window. One presentation at a time per presenter.
    void presentViewController(ViewController *controller, bool animated, std::function<void()> completion = {});
    // Dismisses what this controller presented, or, when it presented nothing, this controller
    // from its presenter.
    void dismissViewControllerAnimated(bool animated, std::function<void()> completion = {});
    ViewController *presentedViewController() const { return m_presented; }
    ViewController *presentingViewController() const { return m_presenting; }
    // Whether the last presentation or dismissal that involved this controller was animated.
    bool lastTransitionWasAnimated() const { return m_lastTransitionAnimated; }
    AppearanceState appearanceState() const { return m_appearance; }

    // For containers and windows: drive the appearance callbacks of a child or root controller.
    void beginAppearanceTransition(bool appearing, bool animated);
    void endAppearanceTransition();
    void setParentViewController(ViewController *parent);

    // Duration of animated transitions, in milliseconds.
    static int transitionDuration();

Q_SIGNALS:
    void titleChanged();
    void toolbarItemsChanged();

protected:
    // Makes the view; the default is an empty widget.
    virtual QWidget *loadView();
    virtual void viewDidLoad() {}
    virtual void viewWillAppear(bool animated) {}
    virtual void viewDidAppear(bool animated) {}
    virtual void viewWillDisappear(bool animated) {}
    virtual void viewDidDisappear(bool animated) {}

private:
    void finishDismissal(std::function<void()> completion);

    QPointer<QWidget> m_view;
    NavigationItem m_navigationItem;
    QList<BarButtonItem *> m_toolbarItems;
    ViewController *m_parentViewController = nullptr;
    QPointer<ViewController> m_presented;
    QPointer<ViewController> m_presenting;
    AppearanceState m_appearance = AppearanceState::Disappeared;
    bool m_appearanceAnimated = false;
    bool m_lastTransitionAnimated = false;
};

} // namespace ui
