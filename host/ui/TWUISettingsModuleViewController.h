#pragma once
// One settings screen: the rows of a module, bound to a settings object. Values, live titles and
// the visibility of conditional sections and rows follow the object as it changes.

#include "settings/TWModule.h"

#include "ui/TappableRows.h"
#include "ui/ViewController.h"

#include <QHash>

class QLabel;
class TWSettings;
class TWUISettingsController;

class TWUISettingsModuleViewController : public ui::ViewController, public ui::TappableRows {
    Q_OBJECT
public:
    TWUISettingsModuleViewController(TWSettings *settings, TWModulePtr module, TWUISettingsController *settingsController);

    TWSettings *settings() const { return m_settings; }
    const TWModulePtr &module() const { return m_module; }
    // Performs a row as a tap on it would (tests and scripted use).
    void tapRow(const TWRow *row);
    // The visible buttons and drill-downs: the rows a tap acts on.
    QList<ui::TappableRow> tappableRows() override;

protected:
    QWidget *loadView() override;

private:
    QWidget *makeRowWidget(const TWRowPtr &row);
    void refresh();
    void setValue(const TWRow *row, const QVariant &value);

    TWSettings *m_settings;
    TWModulePtr m_module;
    TWUISettingsController *m_settingsController;

    struct RowBinding {
        const TWRow *row;
        const TWSection *section;
        QWidget *widget;
        QLabel *titleLabel;
        std::function<void()> update;
    };
    std::vector<RowBinding> m_rows;
    std::vector<std::pair<const TWSection *, QWidget *>> m_headers;
};
