#include "TWModuleOutline.h"

#include "TWModule.h"
#include "TWSettings.h"

#include <QTextStream>

QString TWModuleOutline(const TWModule &module, const TWSettings *settings)
{
    QString text;
    QTextStream out(&text);
    out << module.title() << '\n';
    for (const TWSection &section : module.sections()) {
        out << "  section " << (section.title.isEmpty() ? QStringLiteral("(untitled)") : QStringLiteral("\"%1\"").arg(section.title));
        if (!section.condition.format.isEmpty())
            out << " if " << section.condition.format;
        out << '\n';
        for (const TWRowPtr &row : section.rows) {
            out << "    " << row->kindName() << " \"" << row->title() << '"';
            if (!row->liveTitleKeyPath().isEmpty())
                out << " title from " << row->liveTitleKeyPath() << " (now \"" << row->displayTitle(settings) << "\")";
            if (auto *drill = dynamic_cast<const TWDrillDownRow *>(row.get()); drill && drill->foreignSettings())
                out << " -> " << drill->foreignSettings()->metaObject()->className();
            else if (row->kind() == TWRow::Kind::DrillDown)
                out << " -> " << row->valueKeyPath();
            else if (!row->valueKeyPath().isEmpty())
                out << ' ' << row->valueKeyPath() << " = " << TWSettingValueText(settings->valueForKeyPath(row->valueKeyPath()));
            if (auto *slider = dynamic_cast<const TWSliderRow *>(row.get())) {
                out << " [" << slider->minimum() << " to " << slider->maximum();
                if (slider->increment() > 0)
                    out << " step " << slider->increment();
                out << ']';
            }
            if (row->rowAction() && row->kind() != TWRow::Kind::Button)
                out << " (tap: " << row->rowAction()->describe() << ')';
            else if (row->rowAction() && row->rowAction()->describe() != QLatin1String("action"))
                out << " (" << row->rowAction()->describe() << ')';
            if (!row->rowCondition().format.isEmpty())
                out << " if " << row->rowCondition().format;
            out << '\n';
            if (auto *choice = dynamic_cast<const TWChoiceRow *>(row.get())) {
                QStringList choices;
                for (int i = 0; i < choice->values().size(); ++i)
                    choices << QStringLiteral("%1: %2").arg(TWSettingValueText(choice->values()[i]), choice->titles()[i]);
                out << "      choices: " << choices.join(QStringLiteral(", ")) << '\n';
            }
        }
    }
    return text;
}
