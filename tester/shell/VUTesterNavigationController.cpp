#include "shell/VUTesterNavigationController.h"

#include "ui/BarButtonItem.h"

VUTesterNavigationController::VUTesterNavigationController(ui::ViewController *rootViewController)
    : VUNavigationController(rootViewController)
{
    setDelegate(this);
    if (rootViewController) {
        rootViewController->navigationItem()->setLeftBarButtonItem(
            new ui::BarButtonItem(ui::BarButtonItem::SystemItem::Done, [this](ui::BarButtonItem *sender) { _dismiss(sender); }));
    }
}

void VUTesterNavigationController::_dismiss(ui::BarButtonItem *)
{
    dismissViewControllerAnimated(true);
}
