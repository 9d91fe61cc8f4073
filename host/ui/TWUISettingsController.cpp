#include "TWUISettingsController.h"

#include "TWUISettingsAppearance.h"
#include "TWUISettingsModuleViewController.h"

#include "settings/TWSettings.h"

#include <QEvent>
#include <QToolButton>
#include <QWidget>

TWUISettingsController::TWUISettingsController(TWSettings *rootSettings, QObject *parent)
    : ui::NavigationController(nullptr, parent), m_rootSettings(rootSettings)
{
    setViewControllers({new TWUISettingsModuleViewController(rootSettings, rootSettings->settingsModule(), this)}, false);
}

void TWUISettingsController::pushModuleOfSettings(TWSettings *settings, bool animated)
{
    pushViewController(new TWUISettingsModuleViewController(settings, settings->settingsModule(), this), animated);
}

QWidget *TWUISettingsController::loadView()
{
    QWidget *view = ui::NavigationController::loadView();
    view->installEventFilter(this);
    applyAppearance(view);
    return view;
}

bool TWUISettingsController::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::PaletteChange && watched->isWidgetType())
        applyAppearance(static_cast<QWidget *>(watched));
    return ui::NavigationController::eventFilter(watched, event);
}

void TWUISettingsController::applyAppearance(QWidget *view)
{
    QWidget *bar = view->findChild<QWidget *>(QStringLiteral("navigationBar"));
    if (!bar)
        return;
    const TWUISettingsAppearance appearance = TWUISettingsAppearance::forWidget(view);
    QPalette palette = bar->palette();
    palette.setColor(QPalette::Window, appearance.background);
    palette.setColor(QPalette::WindowText, appearance.label);
    palette.setColor(QPalette::ButtonText, appearance.accent);
    bar->setPalette(palette);
    bar->setAutoFillBackground(true);
    if (auto *back = bar->findChild<QToolButton *>(QStringLiteral("backButton"))) {
        const QString sheet = QStringLiteral("QToolButton { border: none; background: transparent; color: %1; padding: 4px 2px; }")
                                  .arg(appearance.accent.name());
        // Setting a sheet polishes the button again: only when it changes.
        if (back->styleSheet() != sheet)
            back->setStyleSheet(sheet);
        QFont font = TWUISettingsAppearance::rowFont(bar->font());
        back->setFont(font);
    }
}
