#include "diagnostics/VUTesterObjectDiagnosticsTableViewController.h"

#include "diagnostics/VUTesterVistraKitObjectDiagnosticsTableViewCell.h"

#include "ui/BackgroundColor.h"

VUTesterObjectDiagnosticsTableViewController::VUTesterObjectDiagnosticsTableViewController(QObject *parent)
    : ui::TableViewController(ui::TableViewStyle::Plain, parent)
{
}

VUTesterObjectDiagnosticsTableViewController::~VUTesterObjectDiagnosticsTableViewController() = default;

void VUTesterObjectDiagnosticsTableViewController::viewDidLoad()
{
    ui::TableViewController::viewDidLoad();
    // The rows draw their own separators, so the table is the rows' colour all the way down,
    // below the last row too.
    ui::setBackgroundColor(tableView(), tableView()->palette().color(QPalette::Base));
    tableView()->registerCellFactory(VUTesterVistraKitObjectDiagnosticsTableViewCell::identifier(),
                                     VUTesterVistraKitObjectDiagnosticsTableViewCell::nib());
}

ui::CollectionViewCell *VUTesterObjectDiagnosticsTableViewController::cellForRowAtIndexPath(const ui::IndexPath &indexPath)
{
    auto *cell = static_cast<VUTesterVistraKitObjectDiagnosticsTableViewCell *>(
        tableView()->dequeueReusableCellWithReuseIdentifier(VUTesterVistraKitObjectDiagnosticsTableViewCell::identifier(), indexPath));
    cell->setObject(objectAtIndexPath(indexPath));
    cell->setIndex(indexPath.item());
    cell->setCount(numberOfRowsInSection(indexPath.section()));
    return cell;
}

double VUTesterObjectDiagnosticsTableViewController::heightForRowAtIndexPath(const ui::IndexPath &indexPath)
{
    if (const auto found = m_heights.constFind(indexPath); found != m_heights.constEnd())
        return *found;
    if (!m_sizingCell)
        m_sizingCell.reset(static_cast<VUTesterVistraKitObjectDiagnosticsTableViewCell *>(VUTesterVistraKitObjectDiagnosticsTableViewCell::nib()()));
    const auto content = VUTesterVistraKitObjectDiagnosticsContent::contentForObject(
        objectAtIndexPath(indexPath), indexPath.item(), numberOfRowsInSection(indexPath.section()), m_sizingCell->dateFormatter());
    const double height = m_sizingCell->heightForContent(content);
    m_heights.insert(indexPath, height);
    return height;
}

QString VUTesterObjectDiagnosticsTableViewController::tappableTitleForRowAtIndexPath(const ui::IndexPath &indexPath)
{
    return VUTesterVistraKitObjectDiagnosticsContent::contentForObject(objectAtIndexPath(indexPath), indexPath.item(),
                                                                       numberOfRowsInSection(indexPath.section()),
                                                                       VUTesterVistraKitObjectDiagnosticsContent::defaultDateFormatter())
        .title;
}
