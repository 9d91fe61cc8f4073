#pragma once
// The host's navigation controller; it adds nothing the module relies on.

#include "ui/NavigationController.h"

class VUNavigationController : public ui::NavigationController {
    Q_OBJECT
public:
    using ui::NavigationController::NavigationController;
};
