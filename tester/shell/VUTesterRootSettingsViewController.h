#pragma once
// The door into the module: the settings screen of the root settings. It saves the whole tree when
// it appears or disappears, before every push or pop, and when the application is about to resign
// active or terminate; never on a single change.

#include "ui/TWUISettingsController.h"

#include "shell/VUTesterExport.h"

class VUTESTER_EXPORT VUTesterRootSettingsViewController : public TWUISettingsController, public ui::NavigationControllerDelegate {
    Q_OBJECT
public:
    VUTesterRootSettingsViewController();
    ~VUTesterRootSettingsViewController() override;

    void willShowViewController(ui::NavigationController *navigationController, ui::ViewController *viewController, bool animated) override;

protected:
    void viewDidAppear(bool animated) override;
    void viewDidDisappear(bool animated) override;

private:
    void _saveSettings();
};
