#pragma once
// The application's window: the module's root screen in the "Tester" tab and, beside it, the
// library the tester fills. The window command and the shot command build the same one.

#include <QSize>
#include <QTabWidget>

namespace ui {
class ViewController;
class Window;
} // namespace ui

class TesterWindow : public QTabWidget {
    Q_OBJECT
public:
    explicit TesterWindow(QWidget *parent = nullptr);

    // Phone-sized to start with; the window resizes freely.
    static QSize defaultSize() { return QSize(390, 844); }

    ui::Window *testerTab() const { return m_tester; }
    // The controller shown in front in the tester tab: the top of the navigation stack, or what
    // was presented over it.
    ui::ViewController *frontViewController() const;

private:
    ui::Window *m_tester;
};
