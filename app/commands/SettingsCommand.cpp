// vistra-tester settings list | get KEYPATH | set KEYPATH VALUE | reset [KEYPATH]
// vistra-tester screen [KEYPATH]
// Both work on the same archive as the window.

#include "Commands.h"

#include "settings/TWModuleOutline.h"
#include "shell/VUTesterRootSettings.h"

#include <QTextStream>

namespace app {
namespace {

const char *const kSettings = "settings";
const char *const kScreen = "screen";

void listSettings(const TWSettings *settings, QTextStream &out)
{
    const QString prefix = settings->keyPath().isEmpty() ? QString() : settings->keyPath() + QLatin1Char('.');
    for (const TWSettings::KeyInfo &info : settings->keys()) {
        if (info.kind == TWSettings::Kind::Child)
            continue;
        out << prefix << info.key << " = " << TWSettingValueText(settings->valueForKey(info.key)) << "  (" << TWSettings::kindName(info.kind);
        if (VUTesterSettings::isTransientKey(info.key))
            out << ", internal: not saved";
        out << ")\n";
    }
    for (const TWSettings *child : settings->childSettingsList())
        listSettings(child, out);
}

int settingsHelp()
{
    QTextStream(stdout) << "usage: vistra-tester settings list\n"
                           "       vistra-tester settings get KEYPATH\n"
                           "       vistra-tester settings set KEYPATH VALUE\n"
                           "       vistra-tester settings reset [KEYPATH]\n\n"
                           "KEYPATH names a key from 'settings list' (libraryFillerSettings.media) or, for reset, a\n"
                           "settings object (libraryFillerSettings); reset without one restores the whole tree.\n"
                           "Values are typed: true/false, whole numbers, numbers, text, LAT,LON or nil for locations.\n"
                           "A key that a row of the settings screen edits takes only what that row offers: one of a\n"
                           "choice's values, a number within a slider's bounds ('vistra-tester screen' lists them).\n";
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
        if (arguments.size() != 1)
            return usageError(kSettings, QStringLiteral("list takes no arguments"));
        listSettings(root, out);
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
        QTextStream(stdout) << "usage: vistra-tester screen [KEYPATH]\n\n"
                               "Prints the screen of the settings object at KEYPATH (the root screen without one):\n"
                               "its sections, and each row with its kind, title, key, value and choices.\n";
        return ExitOk;
    }
    if (arguments.size() > 1)
        return usageError(kScreen, QStringLiteral("takes at most one KEYPATH"));
    TWSettings *settings = VUTesterRootSettings::sharedInstance()->settingsForKeyPath(arguments.value(0));
    if (!settings || !settings->settingsModule())
        return usageError(kScreen, QStringLiteral("'%1' is not a settings object with a screen").arg(arguments.value(0)));
    QTextStream(stdout) << TWModuleOutline(*settings->settingsModule(), settings);
    return ExitOk;
}

} // namespace app
