#pragma once
// The settings screen: a navigation container that shows one screen per module, starting with
// the root settings' module. Drill-down rows push the module of the settings object they lead to.
// Its bar takes the screens' grouped background and shows the back button in the accent colour.

#include "ui/NavigationController.h"

class TWSettings;

class TWUISettingsController : public ui::NavigationController {
    Q_OBJECT
public:
    explicit TWUISettingsController(TWSettings *rootSettings, QObject *parent = nullptr);
    TWSettings *rootSettings() const { return m_rootSettings; }

    // Pushes the screen of `settings`' module (drill-down rows do this).
    void pushModuleOfSettings(TWSettings *settings, bool animated);

protected:
    QWidget *loadView() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void applyAppearance(QWidget *view);

    TWSettings *m_rootSettings;
};
