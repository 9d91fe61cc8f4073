#include "TWModule.h"

#include "TWSettings.h"

#include "ui/NavigationController.h"
#include "ui/ViewController.h"

#include <QLoggingCategory>

#include <cmath>

Q_DECLARE_LOGGING_CATEGORY(lcSettings)

std::shared_ptr<TWRowAction> TWRowAction::actionWithHandler(Handler handler)
{
    auto action = std::make_shared<TWRowAction>();
    action->m_handler = std::move(handler);
    return action;
}

void TWRowAction::perform(const TWRowActionContext &context) const
{
    if (m_handler)
        m_handler(context);
}

std::shared_ptr<TWUIPushViewControllerRowAction> TWUIPushViewControllerRowAction::actionWithViewControllerCreator(Creator creator)
{
    auto action = std::make_shared<TWUIPushViewControllerRowAction>();
    action->m_creator = std::move(creator);
    return action;
}

void TWUIPushViewControllerRowAction::perform(const TWRowActionContext &context) const
{
    ui::NavigationController *navigation = context.viewController ? context.viewController->navigationController() : nullptr;
    if (!navigation || !m_creator)
        return;
    if (ui::ViewController *controller = m_creator(context))
        navigation->pushViewController(controller, true);
}

std::shared_ptr<TWRestoreDefaultSettingsRowAction> TWRestoreDefaultSettingsRowAction::actionWithSettingsKeyPath(const QString &keyPath)
{
    auto action = std::make_shared<TWRestoreDefaultSettingsRowAction>();
    action->m_keyPath = keyPath;
    return action;
}

void TWRestoreDefaultSettingsRowAction::perform(const TWRowActionContext &context) const
{
    if (!context.settings)
        return;
    if (TWSettings *target = context.settings->settingsForKeyPath(m_keyPath))
        target->restoreDefaultValuesRecursively();
}

QString TWRow::kindName() const
{
    static const char *const names[] = {"switch", "slider", "choice", "number", "text", "drill-down", "button"};
    return QString::fromLatin1(names[int(m_kind)]);
}

TWRow *TWRow::conditionFormat(const QString &format)
{
    QString error;
    m_condition = TWCondition::parse(format, &error);
    if (!m_condition.isValid())
        qFatal("%s", qPrintable(error));
    return this;
}

TWRow *TWRow::condition(TWPredicate predicate)
{
    m_condition = TWCondition{std::move(predicate), QString(), QStringList()};
    return this;
}

TWRow *TWRow::titleKeyPath(const QString &keyPath)
{
    m_titleKeyPath = keyPath;
    return this;
}

TWRow *TWRow::action(std::shared_ptr<TWRowAction> action)
{
    m_action = std::move(action);
    return this;
}

QString TWRow::displayTitle(const TWSettings *settings) const
{
    if (m_titleKeyPath.isEmpty() || !settings)
        return m_title;
    const QVariant v = settings->valueForKeyPath(m_titleKeyPath);
    return v.isNull() ? QString() : v.toString();
}

bool TWRow::editsValue() const
{
    switch (m_kind) {
    case Kind::Switch: case Kind::Slider: case Kind::Choice: case Kind::EditFloat: case Kind::EditString:
        return true;
    case Kind::DrillDown: case Kind::Button:
        return false;
    }
    return false;
}

bool TWSwitchRow::offersValue(const QVariant &value) const
{
    return value.typeId() == QMetaType::Bool;
}

std::shared_ptr<TWSwitchRow> TWSwitchRow::rowWithTitle(const QString &title, const QString &valueKeyPath)
{
    return std::shared_ptr<TWSwitchRow>(new TWSwitchRow(Kind::Switch, title, valueKeyPath));
}

std::shared_ptr<TWSliderRow> TWSliderRow::rowWithTitle(const QString &title, const QString &valueKeyPath)
{
    return std::shared_ptr<TWSliderRow>(new TWSliderRow(Kind::Slider, title, valueKeyPath));
}

TWSliderRow *TWSliderRow::minValue(double minimum, double maximum)
{
    m_min = minimum;
    m_max = maximum;
    return this;
}

bool TWSliderRow::offersValue(const QVariant &value) const
{
    bool ok = false;
    const double number = value.toDouble(&ok);
    return ok && value.typeId() != QMetaType::QString && number >= m_min && number <= m_max;
}

QString TWSliderRow::offeredValuesText() const
{
    return QStringLiteral("within %1 to %2").arg(TWSettingValueText(m_min), TWSettingValueText(m_max));
}

TWSliderRow *TWSliderRow::vu_increment(double step)
{
    m_increment = step;
    return this;
}

std::shared_ptr<TWChoiceRow> TWChoiceRow::rowWithTitle(const QString &title, const QString &valueKeyPath)
{
    return std::shared_ptr<TWChoiceRow>(new TWChoiceRow(Kind::Choice, title, valueKeyPath));
}

TWChoiceRow *TWChoiceRow::possibleValues(const QVariantList &values, const QStringList &titles)
{
    if (values.size() != titles.size())
        qFatal("TWChoiceRow %s: %lld values but %lld titles", qPrintable(title()), qlonglong(values.size()), qlonglong(titles.size()));
    m_values = values;
    m_titles = titles;
    return this;
}

TWChoiceRow *TWChoiceRow::vu_possibleValues(const QVariantList &values)
{
    QStringList titles;
    for (const QVariant &v : values)
        titles << TWSettingValueText(v);
    return possibleValues(values, titles);
}

int TWChoiceRow::indexOfValue(const QVariant &value) const
{
    for (int i = 0; i < m_values.size(); ++i) {
        const QVariant &candidate = m_values[i];
        const bool bothNumbers = candidate.canConvert<double>() && value.canConvert<double>()
            && candidate.typeId() != QMetaType::QString && value.typeId() != QMetaType::QString;
        if (bothNumbers ? candidate.toDouble() == value.toDouble() : candidate == value)
            return i;
    }
    return -1;
}

QString TWChoiceRow::titleForValue(const QVariant &value) const
{
    const int i = indexOfValue(value);
    return i >= 0 ? m_titles[i] : TWSettingValueText(value);
}

QString TWChoiceRow::offeredValuesText() const
{
    QStringList choices;
    for (int i = 0; i < m_values.size(); ++i) {
        const QString value = TWSettingValueText(m_values[i]);
        choices << (m_titles[i] == value ? value : QStringLiteral("%1 (%2)").arg(value, m_titles[i]));
    }
    return QStringLiteral("one of ") + choices.join(QStringLiteral(", "));
}

bool TWEditFloatRow::offersValue(const QVariant &value) const
{
    bool ok = false;
    return value.typeId() != QMetaType::QString && std::isfinite(value.toDouble(&ok)) && ok;
}

std::shared_ptr<TWEditFloatRow> TWEditFloatRow::rowWithTitle(const QString &title, const QString &valueKeyPath)
{
    return std::shared_ptr<TWEditFloatRow>(new TWEditFloatRow(Kind::EditFloat, title, valueKeyPath));
}

std::shared_ptr<TWEditStringRow> TWEditStringRow::rowWithTitle(const QString &title, const QString &valueKeyPath)
{
    return std::shared_ptr<TWEditStringRow>(new TWEditStringRow(Kind::EditString, title, valueKeyPath));
}

TWEditStringRow *TWEditStringRow::setRequiresText(bool requiresText)
{
    m_requiresText = requiresText;
    return this;
}

bool TWEditStringRow::offersValue(const QVariant &value) const
{
    return value.typeId() == QMetaType::QString && (!m_requiresText || !value.toString().trimmed().isEmpty());
}

QString TWEditStringRow::offeredValuesText() const
{
    return m_requiresText ? QStringLiteral("a non-blank text") : QStringLiteral("a text");
}

std::shared_ptr<TWDrillDownRow> TWDrillDownRow::rowWithTitle(const QString &title, const QString &childSettingsKeyPath)
{
    return std::shared_ptr<TWDrillDownRow>(new TWDrillDownRow(Kind::DrillDown, title, childSettingsKeyPath));
}

std::shared_ptr<TWDrillDownRow> TWDrillDownRow::vu_rowWithTitle(const QString &title, TWSettings *settings)
{
    auto row = std::shared_ptr<TWDrillDownRow>(new TWDrillDownRow(Kind::DrillDown, title, QString()));
    row->m_foreign = settings;
    return row;
}

std::shared_ptr<TWButtonRow> TWButtonRow::rowWithTitle(const QString &title, std::shared_ptr<TWRowAction> action)
{
    auto row = std::shared_ptr<TWButtonRow>(new TWButtonRow(Kind::Button, title, QString()));
    row->action(std::move(action));
    return row;
}

std::shared_ptr<TWButtonRow> TWButtonRow::vu_rowWithTitle(const QString &title, std::function<void(ui::ViewController *)> block)
{
    return rowWithTitle(title, TWRowAction::actionWithHandler([block = std::move(block)](const TWRowActionContext &context) {
        if (block)
            block(context.viewController);
    }));
}

TWSection TWSection::sectionWithRows(std::vector<TWRowPtr> rows, const QString &title, const QString &conditionFormat)
{
    TWSection section;
    section.rows = std::move(rows);
    section.title = title;
    if (!conditionFormat.isEmpty()) {
        QString error;
        section.condition = TWCondition::parse(conditionFormat, &error);
        if (!section.condition.isValid())
            qFatal("%s", qPrintable(error));
    }
    return section;
}

std::shared_ptr<TWModule> TWModule::moduleWithTitle(const QString &title, std::vector<TWSection> contents)
{
    auto module = std::make_shared<TWModule>();
    module->m_title = title;
    module->m_sections = std::move(contents);
    return module;
}

TWRow *TWModule::rowWithTitle(const QString &title) const
{
    for (const TWSection &section : m_sections)
        for (const TWRowPtr &row : section.rows)
            if (row->title() == title)
                return row.get();
    return nullptr;
}

std::vector<const TWRow *> TWModule::rowsEditingKeyPath(const QString &keyPath) const
{
    std::vector<const TWRow *> rows;
    for (const TWSection &section : m_sections)
        for (const TWRowPtr &row : section.rows)
            if (row->editsValue() && row->valueKeyPath() == keyPath)
                rows.push_back(row.get());
    return rows;
}
