#include "TesterWindow.h"

#include "library/LibraryBrowserWidget.h"

#include "shell/VUTesterRootSettingsViewController.h"
#include "ui/NavigationController.h"
#include "ui/Notifications.h"
#include "ui/Window.h"

TesterWindow::TesterWindow(QWidget *parent)
    : QTabWidget(parent)
    , m_tester(new ui::Window)
{
    ui::installApplicationNotifications();
    setWindowTitle(QStringLiteral("VistraUITester"));
    m_tester->setRootViewController(new VUTesterRootSettingsViewController);
    addTab(m_tester, QStringLiteral("Tester"));
    // The library the tester fills, beside it rather than inside the module.
    addTab(new LibraryBrowserWidget, QStringLiteral("Library"));
    resize(defaultSize());
}

ui::ViewController *TesterWindow::frontViewController() const
{
    ui::ViewController *front = m_tester->rootViewController();
    for (;;) {
        if (ui::ViewController *presented = front->presentedViewController())
            front = presented;
        else if (auto *navigation = qobject_cast<ui::NavigationController *>(front); navigation && navigation->topViewController())
            front = navigation->topViewController();
        else
            return front;
    }
}
