#include "TWUISettingsModuleViewController.h"

#include "TWUISettingsController.h"

#include "settings/TWSettings.h"
#include "ui/ButtonText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleValidator>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>

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

// Rows with an action of their own (a choice that opens a picker screen) are tapped as a whole.
bool isTappable(const TWRow &row)
{
    return row.kind() == TWRow::Kind::Button || row.kind() == TWRow::Kind::DrillDown || row.rowAction();
}

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

void TWUISettingsModuleViewController::setValue(const TWRow *row, const QVariant &value)
{
    QString error;
    if (!m_settings->setValueForKeyPath(value, row->valueKeyPath(), &error))
        qCWarning(lcSettings).noquote() << row->title() << ":" << error;
}

void TWUISettingsModuleViewController::tapRow(const TWRow *row)
{
    if (row->kind() == TWRow::Kind::DrillDown && !row->rowAction()) {
        auto *drill = static_cast<const TWDrillDownRow *>(row);
        TWSettings *target = drill->foreignSettings() ? drill->foreignSettings() : m_settings->settingsForKeyPath(row->valueKeyPath());
        if (target && m_settingsController)
            m_settingsController->pushModuleOfSettings(target, true);
        return;
    }
    if (row->rowAction())
        row->rowAction()->perform({m_settings, this, const_cast<TWRow *>(row)});
}

QList<ui::TappableRow> TWUISettingsModuleViewController::tappableRows()
{
    QList<ui::TappableRow> rows;
    if (!m_module)
        return rows;
    for (const TWSection &section : m_module->sections()) {
        if (!section.isVisible(m_settings))
            continue;
        for (const TWRowPtr &row : section.rows) {
            if (isTappable(*row) && row->isVisible(m_settings))
                rows.append({section.title, row->displayTitle(m_settings), [this, row = row.get()] { tapRow(row); }});
        }
    }
    return rows;
}

QWidget *TWUISettingsModuleViewController::loadView()
{
    auto *scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    auto *content = new QWidget;
    auto *column = new QVBoxLayout(content);
    column->setSpacing(2);
    if (m_module) {
        for (const TWSection &section : m_module->sections()) {
            auto *header = new QLabel(section.title.toUpper());
            header->setObjectName(QStringLiteral("section:%1").arg(section.title));
            header->setContentsMargins(4, 14, 4, 2);
            header->setStyleSheet(QStringLiteral("color: palette(mid); font-size: small;"));
            if (section.title.isEmpty())
                header->setFixedHeight(12);
            column->addWidget(header);
            m_headers.emplace_back(&section, header);
            for (const TWRowPtr &row : section.rows) {
                QWidget *widget = makeRowWidget(row);
                column->addWidget(widget);
                m_rows.back().section = &section;
            }
        }
    }
    column->addStretch(1);
    scroll->setWidget(content);
    refresh();
    return scroll;
}

QWidget *TWUISettingsModuleViewController::makeRowWidget(const TWRowPtr &rowPtr)
{
    const TWRow *row = rowPtr.get();
    auto *widget = new QWidget;
    widget->setObjectName(QStringLiteral("row:%1").arg(row->title()));
    auto *line = new QHBoxLayout(widget);
    line->setContentsMargins(8, 2, 8, 2);
    RowBinding binding{row, nullptr, widget, nullptr, {}};
    const QString keyPath = row->valueKeyPath();

    auto addTitle = [&] {
        binding.titleLabel = new QLabel(row->title());
        line->addWidget(binding.titleLabel, 1);
    };

    if (isTappable(*row)) {
        auto *button = new QPushButton;
        button->setObjectName(row->title());
        button->setFlat(true);
        button->setStyleSheet(QStringLiteral("text-align: left; padding: 6px;"));
        line->addWidget(button, 1);
        const bool hasArrow = row->kind() != TWRow::Kind::Button;
        auto *choice = dynamic_cast<const TWChoiceRow *>(row);
        binding.update = [this, row, button, hasArrow, choice] {
            QString text = row->displayTitle(m_settings);
            if (choice)
                text += QStringLiteral("    %1").arg(choice->titleForValue(m_settings->valueForKeyPath(row->valueKeyPath())));
            button->setText(ui::buttonText(hasArrow ? text + QStringLiteral("  ›") : text));
        };
        connect(button, &QPushButton::clicked, this, [this, row] { tapRow(row); });
    } else {
        addTitle();
        switch (row->kind()) {
        case TWRow::Kind::Switch: {
            auto *box = new QCheckBox;
            box->setObjectName(keyPath);
            line->addWidget(box);
            binding.update = [this, box, keyPath] {
                QSignalBlocker block(box);
                box->setChecked(m_settings->valueForKeyPath(keyPath).toBool());
            };
            connect(box, &QCheckBox::toggled, this, [this, row](bool on) { setValue(row, on); });
            break;
        }
        case TWRow::Kind::Slider: {
            auto *sliderRow = static_cast<const TWSliderRow *>(row);
            const SliderScale scale(*sliderRow);
            auto *slider = new QSlider(Qt::Horizontal);
            slider->setObjectName(keyPath);
            slider->setRange(0, scale.positions);
            auto *valueLabel = new QLabel;
            valueLabel->setMinimumWidth(48);
            valueLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            line->addWidget(slider, 2);
            line->addWidget(valueLabel);
            binding.update = [this, slider, valueLabel, keyPath, scale] {
                const double value = m_settings->valueForKeyPath(keyPath).toDouble();
                QSignalBlocker block(slider);
                slider->setValue(scale.positionOf(value));
                valueLabel->setText(numberText(value));
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
        case TWRow::Kind::Choice: {
            auto *choice = static_cast<const TWChoiceRow *>(row);
            auto *combo = new QComboBox;
            combo->setObjectName(keyPath);
            combo->addItems(choice->titles());
            line->addWidget(combo);
            binding.update = [this, combo, choice, keyPath] {
                const QVariant value = m_settings->valueForKeyPath(keyPath);
                QSignalBlocker block(combo);
                const int index = choice->indexOfValue(value);
                combo->setCurrentIndex(index);
                combo->setPlaceholderText(index < 0 ? TWSettingValueText(value) : QString());
            };
            connect(combo, &QComboBox::activated, this, [this, row, choice](int index) {
                if (index >= 0 && index < choice->values().size())
                    setValue(row, choice->values()[index]);
            });
            break;
        }
        case TWRow::Kind::EditFloat:
        case TWRow::Kind::EditString: {
            auto *edit = new QLineEdit;
            edit->setObjectName(keyPath);
            const bool number = row->kind() == TWRow::Kind::EditFloat;
            if (number)
                edit->setValidator(new QDoubleValidator(edit));
            line->addWidget(edit, 2);
            binding.update = [this, edit, keyPath, number] {
                if (edit->hasFocus())
                    return;
                const QVariant value = m_settings->valueForKeyPath(keyPath);
                edit->setText(number ? numberText(value.toDouble()) : value.toString());
            };
            connect(edit, &QLineEdit::editingFinished, this, [this, row, edit, number] {
                if (number)
                    setValue(row, QLocale().toDouble(edit->text()));
                else
                    setValue(row, edit->text());
            });
            break;
        }
        case TWRow::Kind::DrillDown:
        case TWRow::Kind::Button:
            break;
        }
    }
    m_rows.push_back(std::move(binding));
    return widget;
}

void TWUISettingsModuleViewController::refresh()
{
    if (!isViewLoaded() && m_rows.empty())
        return;
    for (auto &[section, header] : m_headers)
        header->setVisible(section->isVisible(m_settings));
    for (RowBinding &binding : m_rows) {
        const bool visible = binding.section->isVisible(m_settings) && binding.row->isVisible(m_settings);
        binding.widget->setVisible(visible);
        if (!visible)
            continue;
        if (binding.titleLabel)
            binding.titleLabel->setText(binding.row->displayTitle(m_settings));
        if (binding.update)
            binding.update();
    }
}
