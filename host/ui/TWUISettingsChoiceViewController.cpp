#include "TWUISettingsChoiceViewController.h"

#include "TWUISettingsCell.h"
#include "TWUISettingsPage.h"
#include "TWUISettingsSectionView.h"

#include "settings/TWSettings.h"
#include "ui/NavigationController.h"

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcSettings)

TWUISettingsChoiceViewController::TWUISettingsChoiceViewController(TWSettings *settings, TWModulePtr module, const TWChoiceRow *row)
    : m_settings(settings), m_module(std::move(module)), m_row(row)
{
    setTitle(row->title());
    connect(m_settings, &TWSettings::valueChanged, this, &TWUISettingsChoiceViewController::refresh);
}

QWidget *TWUISettingsChoiceViewController::loadView()
{
    auto *page = new TWUISettingsPage;
    auto *section = new TWUISettingsSectionView(QString());
    for (int i = 0; i < m_row->titles().size(); ++i) {
        auto *cell = new TWUISettingsCell;
        cell->setObjectName(QStringLiteral("choice:%1").arg(m_row->titles()[i]));
        cell->setTitle(m_row->titles()[i]);
        cell->setTappable(true);
        connect(cell, &TWUISettingsCell::tapped, this, [this, i] { choose(i); });
        section->addCell(cell);
        m_cells.push_back(cell);
    }
    page->addSection(section);
    refresh();
    return page;
}

void TWUISettingsChoiceViewController::refresh()
{
    const int chosen = m_row->indexOfValue(m_settings->valueForKeyPath(m_row->valueKeyPath()));
    for (int i = 0; i < int(m_cells.size()); ++i)
        m_cells[i]->setAccessory(i == chosen ? TWUISettingsCell::Accessory::Checkmark : TWUISettingsCell::Accessory::None);
}

void TWUISettingsChoiceViewController::choose(int index)
{
    if (index < 0 || index >= m_row->values().size())
        return;
    QString error;
    if (!m_settings->validateAndSetValueForKeyPath(m_row->values()[index], m_row->valueKeyPath(), &error))
        qCWarning(lcSettings).noquote() << m_row->title() << ":" << error;
    if (ui::NavigationController *navigation = navigationController(); navigation && navigation->topViewController() == this)
        navigation->popViewControllerAnimated(true);
}

QList<ui::TappableRow> TWUISettingsChoiceViewController::tappableRows()
{
    QList<ui::TappableRow> rows;
    const QStringList titles = m_row->titles();
    for (int i = 0; i < titles.size(); ++i)
        rows.append({QString(), titles[i], [this, i] { choose(i); }});
    return rows;
}
