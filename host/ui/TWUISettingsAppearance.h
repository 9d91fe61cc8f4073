#pragma once
// The colours and fonts of the settings screens, in the manner of a phone's settings: grouped
// sections on a tinted background, secondary text for values, an accent colour for buttons. Light
// or dark follows the palette the screen is shown with.

#include <QColor>
#include <QFont>

class QPalette;
class QWidget;

struct TWUISettingsAppearance {
    bool dark = false;
    QColor background;   // behind the sections
    QColor cell;         // a section's card
    QColor pressedCell;  // a row while it is pressed
    QColor label;        // row titles
    QColor secondaryLabel; // current values, inert rows
    QColor header;       // section titles
    QColor chevron;      // the drill-down mark
    QColor separator;    // between the rows of a section
    QColor accent;       // button rows, checkmarks, a slider's filled part
    QColor switchOn;
    QColor track;        // a switch that is off, a slider's unfilled part
    QColor knob;         // a switch's knob, a slider's handle

    static TWUISettingsAppearance forPalette(const QPalette &palette);
    static TWUISettingsAppearance forWidget(const QWidget *widget);

    // Row titles and values, a little larger than the body text around them.
    static QFont rowFont(const QFont &base);
    // Section titles.
    static QFont headerFont(const QFont &base);

    static constexpr int kMargin = 16;       // between the window's edge and a section, and inside a row
    static constexpr int kRowHeight = 44;
    static constexpr int kCornerRadius = 10;
};
