#pragma once
// What the harness asks of a test environment: a view controller it shows inside a navigation
// controller, which then builds the scene a test names and hands over what to measure.

#include <QString>
#include <QVariantMap>

#include <functional>
#include <memory>

namespace ui {
class AnimatedTransitioning;
class ScrollView;
class ViewController;
} // namespace ui

class VXPerfTestEnvironment {
public:
    using ScrollReadyHandler = std::function<void(ui::ScrollView *scrollView)>;
    // The controller to push and pop, and the transition to do it with (null: the navigation
    // controller's own).
    using TransitionReadyHandler = std::function<void(ui::ViewController *controller, std::shared_ptr<ui::AnimatedTransitioning> transition)>;

    virtual ~VXPerfTestEnvironment() = default;
    virtual ui::ViewController *environmentViewController() = 0;
    virtual void prepareForScrollTestWithName(const QString &name, const QVariantMap &options, ScrollReadyHandler readyHandler) = 0;
    virtual void prepareForTransitionTestWithName(const QString &name, const QVariantMap &options, TransitionReadyHandler readyHandler) = 0;
};
