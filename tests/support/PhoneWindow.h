#pragma once
// A window the size of a phone screen, shown with a controller at its root, as most screen tests
// need it.

#include "ui/ViewController.h"
#include "ui/Window.h"

#include <QSize>

inline constexpr QSize kPhoneWindowSize{390, 844};

inline void showInPhoneWindow(ui::Window &window, ui::ViewController *root, QSize size = kPhoneWindowSize)
{
    window.setRootViewController(root);
    window.resize(size);
    window.show();
}
