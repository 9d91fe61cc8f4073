#include "TWModuleOutline.h"

#include "TWModule.h"
#include "TWSettings.h"

#include <QJsonArray>
#include <QTextStream>

QJsonValue TWSettingValueJson(const QVariant &value)
{
    if (value.isNull())
        return QJsonValue::Null;
    if (value.typeId() == QMetaType::LongLong || value.typeId() == QMetaType::Int)
        return QJsonValue(value.toLongLong());
    return QJsonValue::fromVariant(value);
}

namespace {

QJsonObject rowJson(const TWRow &row, const TWSettings *settings)
{
    QJsonObject json{{QStringLiteral("kind"), row.kindName()}, {QStringLiteral("title"), row.title()}};
    if (!row.liveTitleKeyPath().isEmpty()) {
        json.insert(QStringLiteral("titleKeyPath"), row.liveTitleKeyPath());
        json.insert(QStringLiteral("shownTitle"), row.displayTitle(settings));
    }
    if (auto *drill = dynamic_cast<const TWDrillDownRow *>(&row); drill && drill->foreignSettings())
        json.insert(QStringLiteral("target"), QString::fromLatin1(drill->foreignSettings()->metaObject()->className()));
    else if (row.kind() == TWRow::Kind::DrillDown && !row.valueKeyPath().isEmpty())
        json.insert(QStringLiteral("target"), row.valueKeyPath());
    else if (row.editsValue()) {
        json.insert(QStringLiteral("keyPath"), row.valueKeyPath());
        json.insert(QStringLiteral("value"), TWSettingValueJson(settings->valueForKeyPath(row.valueKeyPath())));
    }
    if (auto *slider = dynamic_cast<const TWSliderRow *>(&row)) {
        json.insert(QStringLiteral("minimum"), slider->minimum());
        json.insert(QStringLiteral("maximum"), slider->maximum());
        if (slider->increment() > 0)
            json.insert(QStringLiteral("step"), slider->increment());
    }
    if (row.rowAction())
        json.insert(QStringLiteral("action"), row.rowAction()->describe());
    if (!row.rowCondition().format.isEmpty())
        json.insert(QStringLiteral("condition"), row.rowCondition().format);
    if (auto *choice = dynamic_cast<const TWChoiceRow *>(&row)) {
        QJsonArray choices;
        for (int i = 0; i < choice->values().size(); ++i)
            choices.append(QJsonObject{{QStringLiteral("value"), TWSettingValueJson(choice->values()[i])}, {QStringLiteral("title"), choice->titles()[i]}});
        json.insert(QStringLiteral("choices"), choices);
    }
    return json;
}

QString valueText(const QJsonValue &value)
{
    return TWSettingValueText(value.toVariant());
}

} // namespace

QJsonObject TWModuleOutlineJson(const TWModule &module, const TWSettings *settings)
{
    QJsonArray sections;
    for (const TWSection &section : module.sections()) {
        QJsonArray rows;
        for (const TWRowPtr &row : section.rows)
            rows.append(rowJson(*row, settings));
        QJsonObject json{{QStringLiteral("title"), section.title}, {QStringLiteral("rows"), rows}};
        if (!section.condition.format.isEmpty())
            json.insert(QStringLiteral("condition"), section.condition.format);
        sections.append(json);
    }
    return {{QStringLiteral("title"), module.title()}, {QStringLiteral("sections"), sections}};
}

QString TWModuleOutline(const TWModule &module, const TWSettings *settings)
{
    const QJsonObject outline = TWModuleOutlineJson(module, settings);
    QString text;
    QTextStream out(&text);
    out << outline.value(QStringLiteral("title")).toString() << '\n';
    for (const QJsonValue &sectionValue : outline.value(QStringLiteral("sections")).toArray()) {
        const QJsonObject section = sectionValue.toObject();
        const QString title = section.value(QStringLiteral("title")).toString();
        out << "  section " << (title.isEmpty() ? QStringLiteral("(untitled)") : QStringLiteral("\"%1\"").arg(title));
        if (section.contains(QStringLiteral("condition")))
            out << " if " << section.value(QStringLiteral("condition")).toString();
        out << '\n';
        for (const QJsonValue &rowValue : section.value(QStringLiteral("rows")).toArray()) {
            const QJsonObject row = rowValue.toObject();
            const QString kind = row.value(QStringLiteral("kind")).toString();
            out << "    " << kind << " \"" << row.value(QStringLiteral("title")).toString() << '"';
            if (row.contains(QStringLiteral("titleKeyPath")))
                out << " title from " << row.value(QStringLiteral("titleKeyPath")).toString() << " (now \"" << row.value(QStringLiteral("shownTitle")).toString() << "\")";
            if (row.contains(QStringLiteral("target")))
                out << " -> " << row.value(QStringLiteral("target")).toString();
            if (row.contains(QStringLiteral("keyPath")))
                out << ' ' << row.value(QStringLiteral("keyPath")).toString() << " = " << valueText(row.value(QStringLiteral("value")));
            if (row.contains(QStringLiteral("minimum"))) {
                out << " [" << row.value(QStringLiteral("minimum")).toDouble() << " to " << row.value(QStringLiteral("maximum")).toDouble();
                if (row.contains(QStringLiteral("step")))
                    out << " step " << row.value(QStringLiteral("step")).toDouble();
                out << ']';
            }
            const QString action = row.value(QStringLiteral("action")).toString();
            if (!action.isEmpty() && kind != QLatin1String("button"))
                out << " (tap: " << action << ')';
            else if (!action.isEmpty() && action != QLatin1String("action"))
                out << " (" << action << ')';
            if (row.contains(QStringLiteral("condition")))
                out << " if " << row.value(QStringLiteral("condition")).toString();
            out << '\n';
            if (row.contains(QStringLiteral("choices"))) {
                QStringList choices;
                for (const QJsonValue &choice : row.value(QStringLiteral("choices")).toArray())
                    choices << QStringLiteral("%1: %2").arg(valueText(choice.toObject().value(QStringLiteral("value"))), choice.toObject().value(QStringLiteral("title")).toString());
                out << "      choices: " << choices.join(QStringLiteral(", ")) << '\n';
            }
        }
    }
    return text;
}
