#include "TWUISettingsModuleViewController.h"

#include "TWUISettingsCell.h"
#include "TWUISettingsChoiceViewController.h"
#include "TWUISettingsControls.h"
#include "TWUISettingsController.h"
#include "TWUISettingsPage.h"
#include "TWUISettingsSectionView.h"

#include "settings/TWSettings.h"

#include <QDoubleValidator>
#include <QLocale>
#include <QLoggingCategory>
#include <QSignalBlocker>

#include <cmath>

Q_DECLARE_LOGGING_CATEGORY(lcSettings)

namespace {

// Slider positions for a row: one per step, or a fine continuous scale without a step.
struct SliderScale {
    double min, step;
    int positions;

    explicit SliderScale(const TWSliderRow &row)
        : min(row.minimum())
        , step(row.increment() > 0 ? row.increment() : (row.maximum() - row.minimum()) / 1000.0)
        , positions(step > 0 ? int(std::lround((row.maximum() - row.minimum()) / step)) : 0)
    {
    }
    double valueAt(int position) const { return min + position * step; }
    int positionOf(double value) const { return step > 0 ? int(std::lround((value - min) / step)) : 0; }
};

QString numberText(double value)
{
    return QString::number(value, 'g', 10);
}

} // namespace

TWUISettingsModuleViewController::TWUISettingsModuleViewController(TWSettings *settings, TWModulePtr module, TWUISettingsController *settingsController)
    : m_settings(settings), m_module(std::move(module)), m_settingsController(settingsController)
{
    setTitle(m_module ? m_module->title() : QString());
    connect(m_settings, &TWSettings::valueChanged, this, &TWUISettingsModuleViewController::refresh);
}

bool TWUISettingsModuleViewController::setValue(const TWRow *row, const QVariant &value)
{
    QString error;
    if (m_settings->validateAndSetValueForKeyPath(value, row->valueKeyPath(), &error))
        return true;
    qCWarning(lcSettings).noquote() << row->title() << ":" << error;
    return false;
}

TWSettings *TWUISettingsModuleViewController::drillDownTarget(const TWRow *row) const
{
    auto *drill = dynamic_cast<const TWDrillDownRow *>(row);
    if (!drill)
        return nullptr;
    // An empty key path leads nowhere: it is a row whose screen is not built, not this object.
    TWSettings *target = drill->foreignSettings();
    if (!target && !drill->valueKeyPath().isEmpty())
        target = m_settings->settingsForKeyPath(drill->valueKeyPath());
    return target && target->settingsModule() ? target : nullptr;
}

bool TWUISettingsModuleViewController::isTappable(const TWRow *row) const
{
    if (row->rowAction())
        return true;
    // Drill-downs open their object's screen, choices the list of their values.
    return row->kind() == TWRow::Kind::Choice || drillDownTarget(row);
}

void TWUISettingsModuleViewController::tapRow(const TWRow *row)
{
    if (!isTappable(row))
        return;
    if (row->rowAction()) {
        row->rowAction()->perform({m_settings, this, const_cast<TWRow *>(row)});
        return;
    }
    if (row->kind() == TWRow::Kind::DrillDown) {
        if (m_settingsController)
            m_settingsController->pushModuleOfSettings(drillDownTarget(row), true);
        return;
    }
    if (auto *choice = dynamic_cast<const TWChoiceRow *>(row); choice && navigationController())
        navigationController()->pushViewController(new TWUISettingsChoiceViewController(m_settings, m_module, choice), true);
}

QList<ui::TappableRow> TWUISettingsModuleViewController::tappableRows()
{
    QList<ui::TappableRow> rows;
    if (!m_module)
        return rows;
    for (const TWSection &section : m_module->sections()) {
        if (!section.isVisible(m_settings))
            continue;
        for (const TWRowPtr &row : section.rows)
            if (isTappable(row.get()) && row->isVisible(m_settings))
                rows.append({section.title, row->displayTitle(m_settings), [this, row = row.get()] { tapRow(row); }});
    }
    return rows;
}

TWUISettingsCell *TWUISettingsModuleViewController::cellForRow(const TWRow *row) const
{
    for (const SectionBinding &section : m_sections)
        for (const RowBinding &binding : section.rows)
            if (binding.row == row)
                return binding.cell;
    return nullptr;
}

QWidget *TWUISettingsModuleViewController::loadView()
{
    auto *page = new TWUISettingsPage;
    if (m_module) {
        for (const TWSection &section : m_module->sections()) {
            SectionBinding binding{&section, new TWUISettingsSectionView(section.title), {}};
            for (const TWRowPtr &row : section.rows) {
                binding.rows.push_back(makeRow(row));
                binding.view->addCell(binding.rows.back().cell);
            }
            page->addSection(binding.view);
            m_sections.push_back(std::move(binding));
        }
    }
    refresh();
    return page;
}

TWUISettingsModuleViewController::RowBinding TWUISettingsModuleViewController::makeRow(const TWRowPtr &rowPtr)
{
    const TWRow *row = rowPtr.get();
    auto *cell = new TWUISettingsCell;
    cell->setObjectName(QStringLiteral("row:%1").arg(row->title()));
    cell->setTitle(row->title());
    const bool tappable = isTappable(row);
    cell->setTappable(tappable);
    connect(cell, &TWUISettingsCell::tapped, this, [this, row] { tapRow(row); });
    RowBinding binding{row, cell, {}};
    const QString keyPath = row->valueKeyPath();

    switch (row->kind()) {
    case TWRow::Kind::Button:
        cell->setStyle(tappable ? TWUISettingsCell::Style::Button : TWUISettingsCell::Style::Inert);
        break;
    case TWRow::Kind::DrillDown:
        cell->setStyle(tappable ? TWUISettingsCell::Style::Plain : TWUISettingsCell::Style::Inert);
        cell->setAccessory(tappable ? TWUISettingsCell::Accessory::Chevron : TWUISettingsCell::Accessory::None);
        break;
    case TWRow::Kind::Choice: {
        auto *choice = static_cast<const TWChoiceRow *>(row);
        cell->setAccessory(TWUISettingsCell::Accessory::Chevron);
        binding.update = [this, cell, choice, keyPath] { cell->setDetailText(choice->titleForValue(m_settings->valueForKeyPath(keyPath))); };
        break;
    }
    case TWRow::Kind::Switch: {
        auto *toggle = new TWUISwitch;
        toggle->setObjectName(keyPath);
        toggle->setAccessibleName(row->title());
        cell->setTrailingControl(toggle);
        binding.update = [this, toggle, keyPath] {
            QSignalBlocker block(toggle);
            toggle->setChecked(m_settings->valueForKeyPath(keyPath).toBool());
        };
        connect(toggle, &QAbstractButton::toggled, this, [this, row, toggle](bool on) {
            if (!setValue(row, on)) {
                QSignalBlocker block(toggle);
                toggle->setChecked(!on);
            }
        });
        break;
    }
    case TWRow::Kind::Slider: {
        auto *sliderRow = static_cast<const TWSliderRow *>(row);
        const SliderScale scale(*sliderRow);
        auto *slider = new TWUISettingsSlider;
        slider->setObjectName(keyPath);
        slider->setAccessibleName(row->title());
        slider->setRange(0, scale.positions);
        cell->setBottomControl(slider);
        binding.update = [this, cell, slider, keyPath, scale] {
            const double value = m_settings->valueForKeyPath(keyPath).toDouble();
            QSignalBlocker block(slider);
            slider->setValue(scale.positionOf(value));
            cell->setDetailText(numberText(value));
        };
        connect(slider, &QSlider::valueChanged, this, [this, row, scale, keyPath](int position) {
            const double value = scale.valueAt(position);
            QString key;
            TWSettings *owner = m_settings->resolveKeyPath(keyPath, &key);
            const bool whole = owner && (owner->kindOfKey(key) == TWSettings::Kind::Int64 || owner->kindOfKey(key) == TWSettings::Kind::Int32);
            setValue(row, whole ? QVariant::fromValue<qint64>(std::llround(value)) : QVariant(value));
        });
        break;
    }
    case TWRow::Kind::EditFloat:
    case TWRow::Kind::EditString: {
        auto *edit = new TWUISettingsTextField;
        edit->setObjectName(keyPath);
        edit->setAccessibleName(row->title());
        const bool number = row->kind() == TWRow::Kind::EditFloat;
        if (number)
            edit->setValidator(new QDoubleValidator(edit));
        cell->setTrailingControl(edit);
        binding.update = [this, edit, keyPath, number] {
            if (edit->hasFocus())
                return;
            const QVariant value = m_settings->valueForKeyPath(keyPath);
            edit->setText(number ? numberText(value.toDouble()) : value.toString());
            edit->setCursorPosition(0);
        };
        connect(edit, &QLineEdit::editingFinished, this, [this, row, edit, number] {
            const bool accepted = setValue(row, number ? QVariant(QLocale().toDouble(edit->text())) : QVariant(edit->text()));
            // A refused text goes back to the value the key kept.
            if (!accepted) {
                edit->clearFocus();
                refresh();
            }
        });
        break;
    }
    }
    return binding;
}

void TWUISettingsModuleViewController::refresh()
{
    for (SectionBinding &section : m_sections) {
        bool anyShown = false;
        for (RowBinding &binding : section.rows) {
            const bool shown = binding.row->isVisible(m_settings);
            anyShown = anyShown || shown;
            if (binding.cell->isHidden() == shown) {
                binding.cell->setVisible(shown);
                // The separators between the rows change.
                binding.cell->parentWidget()->update();
            }
            if (!shown)
                continue;
            binding.cell->setTitle(binding.row->displayTitle(m_settings));
            if (binding.update)
                binding.update();
        }
        // A section without a row to show is left out, title and all.
        section.view->setVisible(anyShown && section.section->isVisible(m_settings));
    }
}
