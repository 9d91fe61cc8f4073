#include "TWUISettingsController.h"

#include "TWUISettingsModuleViewController.h"

#include "settings/TWSettings.h"

TWUISettingsController::TWUISettingsController(TWSettings *rootSettings, QObject *parent)
    : ui::NavigationController(nullptr, parent), m_rootSettings(rootSettings)
{
    setViewControllers({new TWUISettingsModuleViewController(rootSettings, rootSettings->settingsModule(), this)}, false);
}

void TWUISettingsController::pushModuleOfSettings(TWSettings *settings, bool animated)
{
    pushViewController(new TWUISettingsModuleViewController(settings, settings->settingsModule(), this), animated);
}
