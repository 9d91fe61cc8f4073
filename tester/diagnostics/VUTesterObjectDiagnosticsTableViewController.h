#pragma once
// The base of the diagnostics tables: every row shows one library object in an object cell,
// numbered within its section, as tall as its content; a script taps a row by the cell's title.

#include "diagnostics/VUTesterDiagnosticsObject.h"

#include "shell/VUTesterExport.h"

#include "ui/TableViewController.h"

#include <QHash>

#include <memory>

class VUTesterVistraKitObjectDiagnosticsTableViewCell;

class VUTESTER_EXPORT VUTesterObjectDiagnosticsTableViewController : public ui::TableViewController {
    Q_OBJECT
public:
    explicit VUTesterObjectDiagnosticsTableViewController(QObject *parent = nullptr);
    ~VUTesterObjectDiagnosticsTableViewController() override;

protected:
    virtual VUTesterDiagnosticsObject objectAtIndexPath(const ui::IndexPath &indexPath) = 0;

    void viewDidLoad() override;
    ui::CollectionViewCell *cellForRowAtIndexPath(const ui::IndexPath &indexPath) override;
    double heightForRowAtIndexPath(const ui::IndexPath &indexPath) override;
    QString tappableTitleForRowAtIndexPath(const ui::IndexPath &indexPath) override;

private:
    // Measures rows; never shown.
    std::unique_ptr<VUTesterVistraKitObjectDiagnosticsTableViewCell> m_sizingCell;
    // Objects do not change while a table shows them, nor do their heights.
    QHash<ui::IndexPath, double> m_heights;
};
