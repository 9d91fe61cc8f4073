#include "NavigationController.h"

#include "BarButtonItem.h"
#include "ButtonText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QStackedWidget>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace ui {
namespace {

// The button a bar shows for an item with a title or a system title.
QToolButton *makeButton(BarButtonItem *item)
{
    auto *button = new QToolButton;
    button->setObjectName(item->title());
    button->setText(buttonText(item->title()));
    button->setEnabled(item->isEnabled());
    button->setAutoRaise(true);
    if (item->systemItem() == BarButtonItem::SystemItem::Done) {
        QFont font = button->font();
        font.setBold(true);
        button->setFont(font);
    }
    QObject::connect(button, &QToolButton::clicked, item, &BarButtonItem::trigger);
    return button;
}

// The container's own transition: the incoming screen slides in from the right over the outgoing
// one, which drifts a third of the way left; a pop plays it backwards.
class SlideTransition : public AnimatedTransitioning {
public:
    double transitionDuration(const TransitionContext &) const override { return ViewController::transitionDuration() / 1000.0; }
    void animateTransition(TransitionContext &context) override
    {
        QPointer<QWidget> from = context.viewForKey(TransitionContext::Key::From);
        QPointer<QWidget> to = context.viewForKey(TransitionContext::Key::To);
        const int width = context.containerView()->width();
        const bool push = context.operation() != NavigationOperation::Pop;
        context.addAnimations([from, to, width, push](double p) {
            // Pushing, the incoming screen covers; popping, the outgoing one uncovers.
            const double covering = push ? 1 - p : p;
            QWidget *top = push ? to : from;
            QWidget *below = push ? from : to;
            if (top)
                top->move(int(width * covering), 0);
            if (below)
                below->move(int(-0.3 * width * (1 - covering)), 0);
        }, QEasingCurve::OutCubic);
        context.addCompletion([&context] { context.completeTransition(); });
    }
};

} // namespace

struct NavigationController::Transition {
    QPointer<ViewController> from;
    QPointer<ViewController> to;
    Operation operation = Operation::None;
    bool animated = false;
    bool onScreen = false;
    QList<QPointer<ViewController>> removed;
    // An animated transition's controller, its context and the container of both views.
    std::shared_ptr<AnimatedTransitioning> animator;
    TransitionContext *context = nullptr;
    QWidget *container = nullptr;
};

NavigationController::NavigationController(ViewController *rootViewController, QObject *parent) : ViewController(parent)
{
    if (rootViewController) {
        rootViewController->setParentViewController(this);
        m_stack << rootViewController;
    }
}

NavigationController::~NavigationController()
{
    delete m_transition;
}

QWidget *NavigationController::loadView()
{
    auto *view = new QWidget;
    auto *column = new QVBoxLayout(view);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);

    auto *bar = new QWidget;
    bar->setObjectName(QStringLiteral("navigationBar"));
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(8, 4, 8, 4);
    m_leftItems = new QHBoxLayout;
    m_rightItems = new QHBoxLayout;
    m_backButton = new QToolButton;
    m_backButton->setObjectName(QStringLiteral("backButton"));
    m_backButton->setAutoRaise(true);
    connect(m_backButton, &QToolButton::clicked, this, [this] { popViewControllerAnimated(true); });
    m_titleLabel = new QLabel;
    m_titleLabel->setObjectName(QStringLiteral("navigationTitle"));
    m_titleLabel->setAlignment(Qt::AlignCenter);
    QFont font = m_titleLabel->font();
    font.setBold(true);
    m_titleLabel->setFont(font);
    row->addWidget(m_backButton);
    row->addLayout(m_leftItems);
    row->addWidget(m_titleLabel, 1);
    row->addLayout(m_rightItems);
    column->addWidget(bar);

    m_pages = new QStackedWidget;
    column->addWidget(m_pages, 1);

    m_toolbar = new QWidget;
    m_toolbar->setObjectName(QStringLiteral("toolbar"));
    m_toolbarItems = new QHBoxLayout(m_toolbar);
    m_toolbarItems->setContentsMargins(8, 4, 8, 4);
    m_toolbar->hide();
    column->addWidget(m_toolbar);
    if (ViewController *top = topViewController())
        m_pages->addWidget(top->view());
    updateBar();
    return view;
}

bool NavigationController::isOnScreen() const
{
    return appearanceState() == AppearanceState::Appeared || appearanceState() == AppearanceState::Appearing;
}

bool NavigationController::isTransitioning() const
{
    return m_transition != nullptr;
}

void NavigationController::pushViewController(ViewController *controller, bool animated)
{
    if (!controller || m_stack.contains(controller))
        return;
    finishTransition();
    ViewController *from = topViewController();
    controller->setParentViewController(this);
    m_stack << controller;
    m_lastOperation = Operation::Push;
    if (m_delegate)
        m_delegate->willShowViewController(this, controller, animated);
    transition(from, controller, Operation::Push, animated, {});
}

ViewController *NavigationController::popViewControllerAnimated(bool animated)
{
    if (m_stack.size() < 2)
        return nullptr;
    finishTransition();
    ViewController *from = m_stack.takeLast();
    ViewController *to = topViewController();
    m_lastOperation = Operation::Pop;
    if (m_delegate)
        m_delegate->willShowViewController(this, to, animated);
    transition(from, to, Operation::Pop, animated, {from});
    return from;
}

void NavigationController::popToRootViewControllerAnimated(bool animated)
{
    if (m_stack.size() < 2)
        return;
    finishTransition();
    ViewController *from = topViewController();
    const QList<ViewController *> removed = m_stack.mid(1);
    m_stack = m_stack.mid(0, 1);
    m_lastOperation = Operation::Pop;
    if (m_delegate)
        m_delegate->willShowViewController(this, m_stack.first(), animated);
    transition(from, m_stack.first(), Operation::Pop, animated, removed);
}

void NavigationController::setViewControllers(const QList<ViewController *> &controllers, bool animated)
{
    finishTransition();
    ViewController *from = topViewController();
    QList<ViewController *> removed;
    for (ViewController *old : std::as_const(m_stack))
        if (!controllers.contains(old))
            removed << old;
    const bool wasInStack = !controllers.isEmpty() && m_stack.contains(controllers.last());
    for (ViewController *controller : controllers)
        controller->setParentViewController(this);
    m_stack = controllers;
    ViewController *to = topViewController();
    if (to == from) {
        transition(from, to, Operation::None, false, removed);
        return;
    }
    m_lastOperation = wasInStack ? Operation::Pop : Operation::Push;
    if (m_delegate && to)
        m_delegate->willShowViewController(this, to, animated);
    transition(from, to, m_lastOperation, animated, removed);
}

void NavigationController::transition(ViewController *from, ViewController *to, Operation operation, bool animated,
                                      const QList<ViewController *> &removed)
{
    auto *t = new Transition;
    t->from = from;
    t->to = to;
    t->operation = operation;
    t->onScreen = isOnScreen();
    t->animated = animated && t->onScreen && from && to && from != to && isViewLoaded() && view()->isVisible();
    for (ViewController *controller : removed)
        t->removed << controller;
    m_transition = t;

    if (!isViewLoaded()) {
        finishTransition();
        return;
    }
    if (to && m_pages->indexOf(to->view()) < 0)
        m_pages->addWidget(to->view());
    if (t->onScreen && from != to) {
        if (from)
            from->beginAppearanceTransition(false, t->animated);
        if (to)
            to->beginAppearanceTransition(true, t->animated);
    }
    if (!t->animated) {
        if (to)
            m_pages->setCurrentWidget(to->view());
        finishTransition();
        return;
    }
    std::shared_ptr<AnimatedTransitioning> animator;
    if (m_delegate)
        animator = m_delegate->animationControllerForOperation(this, operation, from, to);
    startAnimatedTransition(animator ? std::move(animator) : std::make_shared<SlideTransition>());
}

void NavigationController::startAnimatedTransition(std::shared_ptr<AnimatedTransitioning> animator)
{
    Transition *t = m_transition;
    t->animator = std::move(animator);
    t->container = new QWidget(m_pages);
    t->container->setObjectName(QStringLiteral("transitionContainer"));
    t->container->setGeometry(m_pages->rect());
    for (ViewController *controller : {t->from.data(), t->to.data()}) {
        QWidget *view = controller->view();
        view->setParent(t->container);
        view->setGeometry(t->container->rect());
        view->show();
    }
    (t->operation == Operation::Pop ? t->from : t->to)->view()->raise();
    t->container->show();
    t->container->raise();
    updateBar();

    const QString description = t->operation == Operation::Pop ? QStringLiteral("pop to \"%1\"").arg(t->to->title())
                                                               : QStringLiteral("push of \"%1\"").arg(t->to->title());
    t->context = new TransitionContext(t->container, t->from, t->to, t->operation, description, [this, t] {
        if (m_transition == t)
            finishTransition();
    }, this);
    t->animator->animateTransition(*t->context);
    const std::shared_ptr<PercentDrivenInteractiveTransition> interaction =
        m_delegate ? m_delegate->interactionControllerForAnimationController(this, t->animator.get()) : nullptr;
    // The animation controller may have completed the transition at once.
    if (m_transition != t)
        return;
    const double duration = t->animator->transitionDuration(*t->context);
    if (interaction)
        interaction->startInteractiveTransition(*t->context, duration);
    else
        t->context->start(duration);
}

void NavigationController::returnTransitionViews()
{
    Transition *t = m_transition;
    if (!t->container)
        return;
    for (ViewController *controller : {t->from.data(), t->to.data()})
        if (controller && controller->isViewLoaded() && controller->view()->parentWidget() == t->container)
            m_pages->addWidget(controller->view());
    delete t->container;
    t->container = nullptr;
    // Deleted later: this may run inside one of the context's own calls.
    t->context->deleteLater();
}

void NavigationController::revertCancelledTransition()
{
    Transition *t = m_transition;
    if (t->operation == Operation::Push) {
        m_stack.removeOne(t->to.data());
        t->removed = {t->to};
    } else if (t->operation == Operation::Pop) {
        for (const QPointer<ViewController> &removed : std::as_const(t->removed))
            if (removed)
                m_stack << removed.data();
        t->removed.clear();
    }
    // The screens trade places: the one that was leaving stays, and nothing new is shown.
    if (t->onScreen) {
        t->from->endAppearanceTransition();
        t->to->endAppearanceTransition();
        t->to->beginAppearanceTransition(false, true);
        t->from->beginAppearanceTransition(true, true);
    }
    std::swap(t->from, t->to);
    t->operation = Operation::None;
}

void NavigationController::finishTransition()
{
    Transition *t = m_transition;
    if (!t)
        return;
    if (t->context && !t->context->isComplete()) {
        // Interrupted: the animations jump to their ends, and their completion normally ends the
        // transition; one that does not is ended here all the same.
        t->context->finishAnimations();
        if (m_transition != t)
            return;
    }
    if (t->context && t->context->transitionWasCancelled())
        revertCancelledTransition();
    returnTransitionViews();
    m_transition = nullptr;
    if (isViewLoaded()) {
        if (t->to)
            m_pages->setCurrentWidget(t->to->view());
        if (t->to)
            t->to->view()->setGeometry(m_pages->rect());
    }
    if (t->onScreen && t->from != t->to) {
        if (t->from)
            t->from->endAppearanceTransition();
        if (t->to)
            t->to->endAppearanceTransition();
    }
    for (const QPointer<ViewController> &removed : std::as_const(t->removed)) {
        if (!removed)
            continue;
        if (isViewLoaded())
            m_pages->removeWidget(removed->view());
        removed->view()->hide();
        removed->setParentViewController(nullptr);
        // Deleted on the next turn of the event loop unless the caller has adopted it by then.
        removed->setParent(this);
        QTimer::singleShot(0, this, [this, removed] {
            if (removed && removed->parent() == this && !m_stack.contains(removed.data()))
                delete removed.data();
        });
    }
    if (isViewLoaded())
        updateBar();
    const bool animated = t->animated;
    ViewController *shown = t->to;
    const bool changed = t->operation != Operation::None;
    const std::shared_ptr<AnimatedTransitioning> animator = t->animator;
    delete t;
    if (animator)
        animator->animationEnded();
    if (shown && changed) {
        Q_EMIT didShowViewController(shown);
        if (m_delegate)
            m_delegate->didShowViewController(this, shown, animated);
    }
}

void NavigationController::updateBar()
{
    if (!m_pages)
        return;
    updateToolbar();
    ViewController *top = m_transition && m_transition->to ? m_transition->to.data() : topViewController();
    auto clear = [](QHBoxLayout *layout) {
        while (QLayoutItem *item = layout->takeAt(0)) {
            delete item->widget();
            delete item;
        }
    };
    clear(m_leftItems);
    clear(m_rightItems);
    m_titleLabel->setText(top ? top->title() : QString());
    if (!top) {
        m_backButton->hide();
        return;
    }
    NavigationItem *item = top->navigationItem();
    disconnect(item, &NavigationItem::changed, this, &NavigationController::updateBar);
    connect(item, &NavigationItem::changed, this, &NavigationController::updateBar, Qt::UniqueConnection);
    const int depth = m_stack.indexOf(top);
    const bool showBack = depth > 0 && item->leftBarButtonItems().isEmpty();
    m_backButton->setVisible(showBack);
    if (showBack) {
        const QString previous = m_stack.at(depth - 1)->title();
        m_backButton->setText(buttonText(QStringLiteral("‹ %1").arg(previous.isEmpty() ? QStringLiteral("Back") : previous)));
    }
    auto addButtons = [](QHBoxLayout *layout, const QList<BarButtonItem *> &items) {
        for (BarButtonItem *barItem : items)
            layout->addWidget(makeButton(barItem));
    };
    addButtons(m_leftItems, item->leftBarButtonItems());
    addButtons(m_rightItems, item->rightBarButtonItems());
}

void NavigationController::setToolbarHidden(bool hidden)
{
    if (hidden == m_toolbarHidden)
        return;
    m_toolbarHidden = hidden;
    updateToolbar();
}

void NavigationController::updateToolbar()
{
    if (!m_toolbar)
        return;
    ViewController *top = m_transition && m_transition->to ? m_transition->to.data() : topViewController();
    if (m_toolbarOwner != top) {
        if (m_toolbarOwner)
            disconnect(m_toolbarOwner, &ViewController::toolbarItemsChanged, this, &NavigationController::updateToolbar);
        m_toolbarOwner = top;
        if (top)
            connect(top, &ViewController::toolbarItemsChanged, this, &NavigationController::updateToolbar);
    }
    const QList<BarButtonItem *> items = top ? top->toolbarItems() : QList<BarButtonItem *>();
    QList<QWidget *> customViews;
    for (BarButtonItem *item : items)
        if (item->customView())
            customViews << item->customView();
    // Custom views belong to their items: one that stays is only moved, one that goes leaves the
    // toolbar; the buttons made here are made again.
    while (QLayoutItem *entry = m_toolbarItems->takeAt(0)) {
        QWidget *widget = entry->widget();
        delete entry;
        if (!widget || customViews.contains(widget))
            continue;
        if (m_toolbarCustomViews.contains(widget)) {
            widget->hide();
            widget->setParent(nullptr);
        } else {
            delete widget;
        }
    }
    m_toolbarCustomViews.clear();
    m_toolbar->setVisible(!m_toolbarHidden && !items.isEmpty());
    for (BarButtonItem *item : items) {
        if (item->systemItem() == BarButtonItem::SystemItem::FlexibleSpace) {
            m_toolbarItems->addStretch(1);
        } else if (QWidget *custom = item->customView()) {
            m_toolbarCustomViews << custom;
            m_toolbarItems->addWidget(custom);
            custom->show();
        } else {
            m_toolbarItems->addWidget(makeButton(item));
        }
    }
}

void NavigationController::viewWillAppear(bool animated)
{
    if (ViewController *top = topViewController())
        top->beginAppearanceTransition(true, animated);
}

void NavigationController::viewDidAppear(bool animated)
{
    if (ViewController *top = topViewController())
        top->endAppearanceTransition();
}

void NavigationController::viewWillDisappear(bool animated)
{
    finishTransition();
    if (ViewController *top = topViewController())
        top->beginAppearanceTransition(false, animated);
}

void NavigationController::viewDidDisappear(bool animated)
{
    if (ViewController *top = topViewController())
        top->endAppearanceTransition();
}

} // namespace ui
