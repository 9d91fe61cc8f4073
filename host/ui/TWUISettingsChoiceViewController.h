#pragma once
// The screen a choice row opens: its values by title, a checkmark at the current one. Picking one
// sets the key (as the row offers it) and goes back.

#include "settings/TWModule.h"

#include "ui/TappableRows.h"
#include "ui/ViewController.h"

#include <vector>

class TWSettings;
class TWUISettingsCell;

class TWUISettingsChoiceViewController : public ui::ViewController, public ui::TappableRows {
    Q_OBJECT
public:
    // `module` keeps `row` alive while the screen is shown.
    TWUISettingsChoiceViewController(TWSettings *settings, TWModulePtr module, const TWChoiceRow *row);

    const TWChoiceRow *row() const { return m_row; }
    // Picks the value at `index`, as a tap on its row does.
    void choose(int index);
    // The values, by title.
    QList<ui::TappableRow> tappableRows() override;

protected:
    QWidget *loadView() override;

private:
    void refresh();

    TWSettings *m_settings;
    TWModulePtr m_module;
    const TWChoiceRow *m_row;
    std::vector<TWUISettingsCell *> m_cells;
};
