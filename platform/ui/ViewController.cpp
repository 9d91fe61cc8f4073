#include "ViewController.h"

#include "BarButtonItem.h"
#include "NavigationController.h"
#include "Settle.h"

#include <QEvent>
#include <QPropertyAnimation>
#include <QWidget>

namespace ui {
namespace {

// Keeps a presented view covering its host window as the window resizes.
class OverlayFitter : public QObject {
public:
    OverlayFitter(QWidget *host, QWidget *overlay) : QObject(overlay), m_host(host), m_overlay(overlay)
    {
        host->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == m_host && event->type() == QEvent::Resize && m_overlay)
            m_overlay->setGeometry(m_host->rect());
        return false;
    }

private:
    QPointer<QWidget> m_host;
    QPointer<QWidget> m_overlay;
};

int g_transitionDuration = 250;

} // namespace

void NavigationItem::setTitle(const QString &title)
{
    if (title == m_title)
        return;
    m_title = title;
    Q_EMIT changed();
}

void NavigationItem::setLeftBarButtonItem(BarButtonItem *item)
{
    setLeftBarButtonItems(item ? QList<BarButtonItem *>{item} : QList<BarButtonItem *>{});
}

void NavigationItem::setRightBarButtonItem(BarButtonItem *item)
{
    setRightBarButtonItems(item ? QList<BarButtonItem *>{item} : QList<BarButtonItem *>{});
}

void NavigationItem::setLeftBarButtonItems(const QList<BarButtonItem *> &items)
{
    for (BarButtonItem *item : items)
        item->setParent(this);
    m_left = items;
    Q_EMIT changed();
}

void NavigationItem::setRightBarButtonItems(const QList<BarButtonItem *> &items)
{
    for (BarButtonItem *item : items)
        item->setParent(this);
    m_right = items;
    Q_EMIT changed();
}

ViewController::ViewController(QObject *parent) : QObject(parent) {}

// The controller owns its view wherever the view is placed.
ViewController::~ViewController()
{
    // Child controllers (pushed, presented) go first, while their views, inside this one's, still
    // exist: a controller may let go of what its view holds as it goes.
    for (ViewController *child : findChildren<ViewController *>(Qt::FindDirectChildrenOnly))
        delete child;
    delete m_view.data();
}

int ViewController::transitionDuration()
{
    return g_transitionDuration;
}

QWidget *ViewController::view()
{
    if (!m_view) {
        m_view = loadView();
        viewDidLoad();
    }
    return m_view;
}

QWidget *ViewController::loadView()
{
    return new QWidget;
}

QString ViewController::title() const
{
    return m_navigationItem.title();
}

void ViewController::setTitle(const QString &title)
{
    if (title == m_navigationItem.title())
        return;
    m_navigationItem.setTitle(title);
    Q_EMIT titleChanged();
}

void ViewController::setToolbarItems(const QList<BarButtonItem *> &items)
{
    for (BarButtonItem *item : m_toolbarItems)
        if (!items.contains(item))
            item->deleteLater();
    for (BarButtonItem *item : items)
        item->setParent(this);
    m_toolbarItems = items;
    Q_EMIT toolbarItemsChanged();
}

void ViewController::setParentViewController(ViewController *parent)
{
    m_parentViewController = parent;
    if (parent)
        setParent(parent);
}

NavigationController *ViewController::navigationController() const
{
    for (ViewController *p = m_parentViewController; p; p = p->m_parentViewController)
        if (auto *navigation = qobject_cast<NavigationController *>(p))
            return navigation;
    return nullptr;
}

void ViewController::beginAppearanceTransition(bool appearing, bool animated)
{
    if (appearing && (m_appearance == AppearanceState::Appeared || m_appearance == AppearanceState::Appearing))
        return;
    if (!appearing && (m_appearance == AppearanceState::Disappeared || m_appearance == AppearanceState::Disappearing))
        return;
    m_appearanceAnimated = animated;
    view();
    if (appearing) {
        m_appearance = AppearanceState::Appearing;
        viewWillAppear(animated);
    } else {
        m_appearance = AppearanceState::Disappearing;
        viewWillDisappear(animated);
    }
}

void ViewController::endAppearanceTransition()
{
    if (m_appearance == AppearanceState::Appearing) {
        m_appearance = AppearanceState::Appeared;
        viewDidAppear(m_appearanceAnimated);
    } else if (m_appearance == AppearanceState::Disappearing) {
        m_appearance = AppearanceState::Disappeared;
        viewDidDisappear(m_appearanceAnimated);
    }
}

void ViewController::presentViewController(ViewController *controller, bool animated, std::function<void()> completion)
{
    if (!controller || m_presented)
        return;
    QWidget *host = view()->window();
    m_presented = controller;
    controller->m_presenting = this;
    controller->setParent(this);
    m_lastTransitionAnimated = animated;
    controller->m_lastTransitionAnimated = animated;

    QWidget *overlay = controller->view();
    overlay->setParent(host);
    overlay->setAutoFillBackground(true);
    overlay->setGeometry(host->rect());
    new OverlayFitter(host, overlay);
    controller->beginAppearanceTransition(true, animated);
    overlay->show();
    overlay->raise();

    auto finish = [controller = QPointer<ViewController>(controller), completion = std::move(completion)] {
        if (controller)
            controller->endAppearanceTransition();
        if (completion)
            completion();
    };
    if (!animated) {
        finish();
        return;
    }
    auto *animation = new QPropertyAnimation(overlay, "pos", overlay);
    animation->setDuration(g_transitionDuration);
    animation->setStartValue(QPoint(0, host->height()));
    animation->setEndValue(QPoint(0, 0));
    animation->setEasingCurve(QEasingCurve::OutCubic);
    QObject::connect(animation, &QPropertyAnimation::finished, this, finish);
    Settle::track(animation, QStringLiteral("presentation of \"%1\"").arg(controller->title()));
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

void ViewController::dismissViewControllerAnimated(bool animated, std::function<void()> completion)
{
    ViewController *presented = m_presented;
    if (!presented) {
        if (m_presenting)
            m_presenting->dismissViewControllerAnimated(animated, std::move(completion));
        return;
    }
    m_lastTransitionAnimated = animated;
    presented->m_lastTransitionAnimated = animated;
    presented->beginAppearanceTransition(false, animated);
    QWidget *overlay = presented->view();
    if (!animated || !overlay->isVisible()) {
        finishDismissal(std::move(completion));
        return;
    }
    auto *animation = new QPropertyAnimation(overlay, "pos", overlay);
    animation->setDuration(g_transitionDuration);
    animation->setStartValue(overlay->pos());
    animation->setEndValue(QPoint(0, overlay->parentWidget() ? overlay->parentWidget()->height() : overlay->height()));
    animation->setEasingCurve(QEasingCurve::InCubic);
    QObject::connect(animation, &QPropertyAnimation::finished, this, [this, completion = std::move(completion)]() mutable {
        finishDismissal(std::move(completion));
    });
    Settle::track(animation, QStringLiteral("dismissal of \"%1\"").arg(presented->title()));
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

void ViewController::finishDismissal(std::function<void()> completion)
{
    ViewController *presented = m_presented;
    if (presented) {
        presented->view()->hide();
        presented->endAppearanceTransition();
        presented->m_presenting = nullptr;
        m_presented = nullptr;
        presented->deleteLater();
    }
    if (completion)
        completion();
}

} // namespace ui
