#pragma once
// The base of every settings class of the module. Keys whose names begin with "internal" hold
// run-time state: they are never written to the archive and never read back from it.

#include "settings/TWModule.h"
#include "settings/VXSettings.h"

#include "shell/VUTesterExport.h"

class VUTESTER_EXPORT VUTesterSettings : public VXSettings {
    Q_OBJECT
public:
    using VXSettings::VXSettings;

    QVariant archiveValueForKey(const QString &key) const override;
    void applyArchiveValue(const QVariant &value, const QString &key) override;

    // Whether a key holds run-time state (a plain, case-sensitive prefix test).
    static bool isTransientKey(const QString &key);

    // The section every module ends with: one "Restore Defaults" row (or another title) restoring
    // the module's own settings object.
    static TWSection restoreDefaultsSection(const QString &title = QStringLiteral("Restore Defaults"));
    // A button row that starts a playground; until the playground exists the row has no action.
    static TWRowPtr playgroundRow(const QString &title, std::function<ui::ViewController *()> creator = {});
    // A slider row on `key` from `minimum` to `maximum` in steps of `step` (0: any value).
    static TWRowPtr sliderRow(const QString &title, const QString &key, double minimum, double maximum, double step);
};

// Whole numbers as a choice row's values, stored as 64-bit integers like the keys they go into.
VUTESTER_EXPORT QVariantList VUTesterIntegerValues(std::initializer_list<qint64> values);

// Child settings of the root: the one instance of each class is the root's child property, and
// the parent of every child is the root. `Derived::kRootKey` names that property. `Base` is
// VUTesterSettings, or a settings class that several children share (with its keys and rows).
VUTESTER_EXPORT TWSettings *VUTesterSharedRootSettings();
VUTESTER_EXPORT TWSettings *VUTesterSharedChildSettings(const char *rootKey);

template <typename Derived, typename Base = VUTesterSettings>
class VUTesterChildSettings : public Base {
public:
    using Base::Base;

    static Derived *sharedInstance()
    {
        // Thread-safe once-only initialisation, then cached for the life of the process.
        static Derived *const instance = static_cast<Derived *>(VUTesterSharedChildSettings(Derived::kRootKey));
        return instance;
    }
    TWSettings *parentSettings() const override { return VUTesterSharedRootSettings(); }
    std::shared_ptr<TWModule> settingsModule() const override { return Derived::settingsControllerModule(); }
};
