#pragma once
// The root of what an external screen shows: one child view controller filling it, replaced as
// a whole when the content changes.

#include "ui/ViewController.h"

#include <QPointer>

class VUBeamcastRootViewController : public ui::ViewController {
    Q_OBJECT
public:
    using ui::ViewController::ViewController;

    ui::ViewController *childViewController() const { return m_child; }
    // Takes ownership; the previous child goes. An external screen has no room for an
    // animation that the viewer did not start, so the change is immediate either way.
    void setChildViewController(ui::ViewController *child, bool animated);

protected:
    QWidget *loadView() override;
    void viewDidLoad() override { installChild(); }

private:
    void installChild();

    QPointer<ui::ViewController> m_child;
};
