#pragma once
// The base of the animation playgrounds: a white canvas of views (VUView) where a tap asks the
// views to animate to the tapped point and a "Reset" button on the right of the navigation bar
// puts them back in the middle at once. Subclasses add the views and say how they move; their
// own buttons go after "Reset".

#include "shell/VUTesterExport.h"

#include "ui/ViewController.h"

#include <QPointF>

class QGraphicsScene;
class QGraphicsView;
class VUView;

namespace ui {
class TapGestureRecognizer;
}

class VUTESTER_EXPORT VUTesterAnimationsPlaygroundViewController : public ui::ViewController {
    Q_OBJECT
public:
    VUTesterAnimationsPlaygroundViewController();

    virtual void animateViewsToCenter(QPointF center) = 0;
    virtual void resetViewsToCenter(QPointF center) = 0;

    // In the canvas's coordinates, which are the view's.
    QGraphicsScene *scene() const { return m_scene; }
    QGraphicsView *canvas() const { return m_canvas; }
    ui::TapGestureRecognizer *tapGestureRecognizer() const { return m_tap; }
    QPointF viewCenter() const;
    // Puts a view on the canvas, which takes it.
    void addView(VUView *view);

protected:
    QWidget *loadView() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QGraphicsScene *m_scene = nullptr;
    QGraphicsView *m_canvas = nullptr;
    ui::TapGestureRecognizer *m_tap = nullptr;
};
