#pragma once
// Starts a playground as its settings screen does: taps the module's first row with a screen in
// a navigation container in a phone-sized window, and hands back what that row pushed.

#include "PhoneWindow.h"

#include "settings/TWModule.h"
#include "settings/TWSettings.h"

#include "ui/DisplayLink.h"
#include "ui/NavigationController.h"

#include <QTest>

class PlaygroundRows {
public:
    // Null when the row pushed nothing.
    ui::ViewController *startPlayground(const TWModulePtr &module, TWSettings *settings)
    {
        auto *screen = new ui::ViewController;
        m_navigation = new ui::NavigationController(screen);
        showInPhoneWindow(m_window, m_navigation);
        if (!QTest::qWaitForWindowExposed(&m_window))
            return nullptr;
        TWRow *row = module->sections().front().rows.front().get();
        row->rowAction()->perform({settings, screen, row});
        // Through the push.
        m_frames.step(60);
        QCoreApplication::processEvents();
        ui::ViewController *top = m_navigation->topViewController();
        return top == screen ? nullptr : top;
    }

    ui::Window &window() { return m_window; }
    ui::DisplayLink::ManualStepping &frames() { return m_frames; }

private:
    ui::DisplayLink::ManualStepping m_frames{60};
    ui::Window m_window;
    ui::NavigationController *m_navigation = nullptr;
};
