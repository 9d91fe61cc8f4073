#pragma once
// A screen made of titled rows, in titled sections, that can perform a row as a tap on it would.
// Scripted navigation (the shot command, tests) walks from screen to screen through it; a view
// controller offers it by deriving from it.

#include <QList>
#include <QString>

#include <functional>

namespace ui {

struct TappableRow {
    QString section; // empty for an untitled section
    QString title;
    std::function<void()> tap;
};

class TappableRows {
public:
    virtual ~TappableRows() = default;
    // The rows shown now, in screen order.
    virtual QList<TappableRow> tappableRows() = 0;
};

} // namespace ui
