#pragma once
// Presenting any view controller modally inside a navigation controller with a Done button.

#include "shell/VUTesterExport.h"

namespace ui {
class BarButtonItem;
class ViewController;
}

// Wraps `viewController` in a new navigation controller with a Done button (on the right when
// `dismissButtonOnRight`, else on the left) that dismisses it, and presents that from `presenter`.
// The presentation is always animated: `animated` is ignored on purpose.
VUTESTER_EXPORT void vutester_presentViewController(ui::ViewController *presenter, ui::ViewController *viewController, bool animated,
                                                    bool dismissButtonOnRight);
// Dismisses whatever `presenter` presented, animated.
VUTESTER_EXPORT void vutester_dismiss(ui::ViewController *presenter, ui::BarButtonItem *sender = nullptr);
