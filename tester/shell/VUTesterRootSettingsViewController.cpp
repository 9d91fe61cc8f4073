#include "shell/VUTesterRootSettingsViewController.h"

#include "shell/VUTesterRootSettings.h"

#include "ui/Notifications.h"

VUTesterRootSettingsViewController::VUTesterRootSettingsViewController()
    : TWUISettingsController(VUTesterRootSettings::sharedInstance())
{
    setDelegate(this);
    ui::NotificationCenter &center = ui::NotificationCenter::defaultCenter();
    center.addObserver(this, QString::fromLatin1(ui::ApplicationWillResignActiveNotification), [this] { _saveSettings(); });
    center.addObserver(this, QString::fromLatin1(ui::ApplicationWillTerminateNotification), [this] { _saveSettings(); });
}

VUTesterRootSettingsViewController::~VUTesterRootSettingsViewController()
{
    ui::NotificationCenter::defaultCenter().removeObserver(this);
}

void VUTesterRootSettingsViewController::_saveSettings()
{
    VUTesterRootSettings::sharedInstance()->save();
}

void VUTesterRootSettingsViewController::viewDidAppear(bool animated)
{
    TWUISettingsController::viewDidAppear(animated);
    _saveSettings();
}

void VUTesterRootSettingsViewController::viewDidDisappear(bool animated)
{
    TWUISettingsController::viewDidDisappear(animated);
    _saveSettings();
}

void VUTesterRootSettingsViewController::willShowViewController(ui::NavigationController *, ui::ViewController *, bool)
{
    _saveSettings();
}
