#pragma once
// A top-level window showing one root view controller, which appears and disappears with it.

#include <QWidget>

namespace ui {

class ViewController;

class Window : public QWidget {
    Q_OBJECT
public:
    explicit Window(QWidget *parent = nullptr);
    ~Window() override;
    // The window takes ownership of the controller.
    void setRootViewController(ViewController *controller);
    ViewController *rootViewController() const { return m_root; }

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    ViewController *m_root = nullptr;
};

} // namespace ui
