// vistra-tester settings list [--json] | get KEYPATH | set KEYPATH VALUE | reset [KEYPATH]
// vistra-tester screen [--json] [KEYPATH]
// Both work on the same archive as the window.

#include "Commands.h"

#include "settings/TWModuleOutline.h"
#include "shell/VUTesterRootSettings.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

namespace app {
namespace {

const char *const kSettings = "settings";
const char *const kScreen = "screen";

// One object per key, in tree order: {"keyPath", "value", "kind", "internal"}.
void collectSettings(const TWSettings *settings, QJsonArray *list)
{
    const QString prefix = settings->keyPath().isEmpty() ? QString() : settings->keyPath() + QLatin1Char('.');
    for (const TWSettings::KeyInfo &info : settings->keys()) {
        if (info.kind == TWSettings::Kind::Child)
            continue;
        list->append(QJsonObject{{QStringLiteral("keyPath"), prefix + info.key},
                                 {QStringLiteral("value"), TWSettingValueJson(settings->valueForKey(info.key))},
                                 {QStringLiteral("kind"), TWSettings::kindName(info.kind)},
                                 {QStringLiteral("internal"), VUTesterSettings::isTransientKey(info.key)}});
    }
    for (const TWSettings *child : settings->childSettingsList())
        collectSettings(child, list);
}

void printSettings(const QJsonArray &list, QTextStream &out)
{
    for (const QJsonValue &entry : list) {
        const QJsonObject setting = entry.toObject();
        out << setting.value(QStringLiteral("keyPath")).toString() << " = " << TWSettingValueText(setting.value(QStringLiteral("value")).toVariant())
            << "  (" << setting.value(QStringLiteral("kind")).toString();
        if (setting.value(QStringLiteral("internal")).toBool())
            out << ", internal: not saved";
        out << ")\n";
    }
}

// Machine-readable output: an array of objects with fixed key names, indented.
void printJson(const QJsonArray &array)
{
    QTextStream(stdout) << QJsonDocument(array).toJson(QJsonDocument::Indented);
}

int settingsHelp()
{
    QTextStream(stdout) << "usage: vistra-tester settings list [--json]\n"
                           "       vistra-tester settings get KEYPATH\n"
                           "       vistra-tester settings set KEYPATH VALUE\n"
                           "       vistra-tester settings reset [KEYPATH]\n\n"
                           "KEYPATH names a key from 'settings list' (libraryFillerSettings.media) or, for reset, a\n"
                           "settings object (libraryFillerSettings); reset without one restores the whole tree.\n"
                           "Values are typed: true/false, whole numbers, numbers, text, LAT,LON or nil for locations.\n"
                           "A key that a row of the settings screen edits takes only what that row offers: one of a\n"
                           "choice's values, a number within a slider's bounds ('vistra-tester screen' lists them).\n\n"
                           "list --json prints an array with one object per key, with the names of the text output:\n"
                           "  keyPath   the key path, as 'get' and 'set' take it\n"
                           "  value     its value: a number, true/false, a text, null for nil, or a location as\n"
                           "            {\"latitude\": ..., \"longitude\": ...}\n"
                           "  kind      bool, int64, int32, double, string, location or value (any of these)\n"
                           "  internal  true for run-time state, which is never saved\n";
    return ExitOk;
}

int save(VUTesterRootSettings *root)
{
    QString error;
    if (!root->save(&error))
        return failure(kSettings, error);
    return ExitOk;
}

} // namespace

int runSettingsCommand(const QStringList &arguments)
{
    const QString verb = arguments.value(0);
    if (verb.isEmpty() || verb == QLatin1String("--help") || verb == QLatin1String("-h"))
        return verb.isEmpty() ? usageError(kSettings, QStringLiteral("say list, get, set or reset (see --help)")) : settingsHelp();
    VUTesterRootSettings *root = VUTesterRootSettings::sharedInstance();
    QTextStream out(stdout);

    if (verb == QLatin1String("list")) {
        const bool json = arguments.value(1) == QLatin1String("--json");
        if (arguments.size() != (json ? 2 : 1))
            return usageError(kSettings, QStringLiteral("list takes no arguments but --json"));
        QJsonArray list;
        collectSettings(root, &list);
        if (json)
            printJson(list);
        else
            printSettings(list, out);
        return ExitOk;
    }
    if (verb == QLatin1String("get")) {
        if (arguments.size() != 2)
            return usageError(kSettings, QStringLiteral("get takes one KEYPATH"));
        QString key;
        TWSettings *owner = root->resolveKeyPath(arguments[1], &key);
        if (!owner || owner->kindOfKey(key) == TWSettings::Kind::Child)
            return usageError(kSettings, QStringLiteral("unknown key path '%1'").arg(arguments[1]));
        out << TWSettingValueText(owner->valueForKey(key)) << '\n';
        return ExitOk;
    }
    if (verb == QLatin1String("set")) {
        if (arguments.size() != 3)
            return usageError(kSettings, QStringLiteral("set takes a KEYPATH and a VALUE"));
        QString key;
        TWSettings *owner = root->resolveKeyPath(arguments[1], &key);
        if (!owner || owner->kindOfKey(key) == TWSettings::Kind::Child)
            return usageError(kSettings, QStringLiteral("unknown key path '%1'").arg(arguments[1]));
        if (VUTesterSettings::isTransientKey(key))
            return usageError(kSettings, QStringLiteral("%1 is run-time state and is never saved").arg(arguments[1]));
        QVariant value;
        QString error;
        if (!TWParseSettingValue(owner->kindOfKey(key), arguments[2], &value, &error) || !owner->validateAndSetValueForKeyPath(value, key, &error))
            return usageError(kSettings, QStringLiteral("%1 (%2): %3").arg(arguments[1], TWSettings::kindName(owner->kindOfKey(key)), error));
        return save(root);
    }
    if (verb == QLatin1String("reset")) {
        if (arguments.size() > 2)
            return usageError(kSettings, QStringLiteral("reset takes at most one KEYPATH"));
        TWSettings *target = root->settingsForKeyPath(arguments.value(1));
        if (!target)
            return usageError(kSettings, QStringLiteral("'%1' is not a settings object").arg(arguments.value(1)));
        target->restoreDefaultValuesRecursively();
        return save(root);
    }
    return usageError(kSettings, QStringLiteral("unknown verb '%1' (see --help)").arg(verb));
}

int runScreenCommand(const QStringList &arguments)
{
    if (arguments.value(0) == QLatin1String("--help") || arguments.value(0) == QLatin1String("-h")) {
        QTextStream(stdout) << "usage: vistra-tester screen [--json] [KEYPATH]\n\n"
                               "Prints the screen of the settings object at KEYPATH (the root screen without one):\n"
                               "its sections, and each row with its kind, title, key, value and choices.\n\n"
                               "--json prints an array holding one object for the screen:\n"
                               "  title, sections    the screen's title and its sections in order\n"
                               "  section:           title (\"\" when untitled), condition, rows\n"
                               "  row:               kind (switch, slider, choice, number, text, drill-down, button)\n"
                               "                     and title; where they apply: titleKeyPath and shownTitle (a\n"
                               "                     title read from a key), target (what a drill-down opens), keyPath\n"
                               "                     and value (the key it edits), minimum, maximum and step (a\n"
                               "                     slider), action, condition, and choices as [{value, title}]\n"
                               "Names that do not apply to a row or section are left out.\n";
        return ExitOk;
    }
    QStringList rest = arguments;
    const bool json = rest.removeAll(QStringLiteral("--json")) > 0;
    if (rest.size() > 1)
        return usageError(kScreen, QStringLiteral("takes at most one KEYPATH"));
    TWSettings *settings = VUTesterRootSettings::sharedInstance()->settingsForKeyPath(rest.value(0));
    if (!settings || !settings->settingsModule())
        return usageError(kScreen, QStringLiteral("'%1' is not a settings object with a screen").arg(rest.value(0)));
    if (json)
        printJson(QJsonArray{TWModuleOutlineJson(*settings->settingsModule(), settings)});
    else
        QTextStream(stdout) << TWModuleOutline(*settings->settingsModule(), settings);
    return ExitOk;
}

} // namespace app
