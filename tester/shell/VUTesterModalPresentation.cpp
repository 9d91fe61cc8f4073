#include "shell/VUTesterModalPresentation.h"

#include "ui/BarButtonItem.h"
#include "ui/NavigationController.h"

#include <QPointer>

void vutester_presentViewController(ui::ViewController *presenter, ui::ViewController *viewController, bool, bool dismissButtonOnRight)
{
    auto *navigation = new ui::NavigationController(viewController);
    auto *done = new ui::BarButtonItem(ui::BarButtonItem::SystemItem::Done,
                                       [presenter = QPointer<ui::ViewController>(presenter)](ui::BarButtonItem *sender) {
                                           if (presenter)
                                               vutester_dismiss(presenter, sender);
                                       });
    if (dismissButtonOnRight)
        viewController->navigationItem()->setRightBarButtonItem(done);
    else
        viewController->navigationItem()->setLeftBarButtonItem(done);
    presenter->presentViewController(navigation, true);
}

void vutester_dismiss(ui::ViewController *presenter, ui::BarButtonItem *)
{
    if (presenter->presentedViewController())
        presenter->dismissViewControllerAnimated(true);
}
