#pragma once
// Autoresizing: a view whose width or height follows its parent's. When the parent grows or
// shrinks, a flexible dimension of the view changes by the same amount, so a view made to fill
// its parent keeps filling it and one inset by a margin keeps that margin.

#include <QFlags>

class QWidget;

namespace ui {

enum class Autoresizing {
    None = 0,
    FlexibleWidth = 1,
    FlexibleHeight = 2,
};
Q_DECLARE_FLAGS(AutoresizingMask, Autoresizing)
Q_DECLARE_OPERATORS_FOR_FLAGS(AutoresizingMask)

// Replaces any mask set before; None stops following.
void setAutoresizingMask(QWidget *view, AutoresizingMask mask);

} // namespace ui
