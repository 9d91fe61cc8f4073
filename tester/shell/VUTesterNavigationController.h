#pragma once
// A navigation controller with a Done button on the left of its root screen that dismisses it.

#include "ui/VUNavigationController.h"

#include "shell/VUTesterExport.h"

class VUTESTER_EXPORT VUTesterNavigationController : public VUNavigationController, public ui::NavigationControllerDelegate {
    Q_OBJECT
public:
    explicit VUTesterNavigationController(ui::ViewController *rootViewController);

private:
    void _dismiss(ui::BarButtonItem *sender);
};
