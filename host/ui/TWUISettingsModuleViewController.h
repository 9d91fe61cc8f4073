#pragma once
// One settings screen: the sections of a module, each row a cell bound to a settings object.
// Values, live titles and the visibility of conditional sections and rows follow the object as it
// changes. Choice rows open a list of their values; drill-downs open their object's screen.

#include "settings/TWModule.h"

#include "ui/TappableRows.h"
#include "ui/ViewController.h"

#include <functional>
#include <vector>

class TWSettings;
class TWUISettingsCell;
class TWUISettingsController;
class TWUISettingsSectionView;

class TWUISettingsModuleViewController : public ui::ViewController, public ui::TappableRows {
    Q_OBJECT
public:
    TWUISettingsModuleViewController(TWSettings *settings, TWModulePtr module, TWUISettingsController *settingsController);

    TWSettings *settings() const { return m_settings; }
    const TWModulePtr &module() const { return m_module; }
    // Performs a row as a tap on it would (tests and scripted use).
    void tapRow(const TWRow *row);
    // The settings object whose screen a drill-down row opens; null when it leads nowhere.
    TWSettings *drillDownTarget(const TWRow *row) const;
    // Whether tapping the row does anything.
    bool isTappable(const TWRow *row) const;
    // The rows shown now that a tap acts on.
    QList<ui::TappableRow> tappableRows() override;
    // The cell showing a row, once the view is loaded.
    TWUISettingsCell *cellForRow(const TWRow *row) const;

protected:
    QWidget *loadView() override;

private:
    struct RowBinding {
        const TWRow *row;
        TWUISettingsCell *cell;
        std::function<void()> update; // shows the row's current value
    };
    RowBinding makeRow(const TWRowPtr &row);
    void refresh();
    // Sets a key from the screen; a value its row does not offer is refused with a warning.
    bool setValue(const TWRow *row, const QVariant &value);

    TWSettings *m_settings;
    TWModulePtr m_module;
    TWUISettingsController *m_settingsController;

    struct SectionBinding {
        const TWSection *section;
        TWUISettingsSectionView *view;
        std::vector<RowBinding> rows;
    };
    std::vector<SectionBinding> m_sections;
};
