#pragma once
// A view's background colour: the palette's window colour, filled behind the view's own
// painting. An invalid colour leaves the view transparent.

#include <QColor>
#include <QPalette>
#include <QWidget>

namespace ui {

inline void setBackgroundColor(QWidget *view, const QColor &color)
{
    QPalette palette = view->palette();
    palette.setColor(QPalette::Window, color);
    view->setPalette(palette);
    view->setAutoFillBackground(color.isValid());
}

inline QColor backgroundColor(const QWidget *view)
{
    return view->autoFillBackground() ? view->palette().color(QPalette::Window) : QColor();
}

} // namespace ui
