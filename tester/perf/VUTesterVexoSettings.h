#pragma once
// The performance harness's screen: two baselines to open by hand, and every test the application
// defines, listed in its order or sorted by name; a test row runs its test through the harness.

#include "shell/VUTesterSettings.h"

#include <QVariantMap>

class VUTESTER_EXPORT VUTesterVexoSettings : public VUTesterChildSettings<VUTesterVexoSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "vexoSettings";
    VUTesterVexoSettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    bool sortAlphabetically() const { return boolValue(QStringLiteral("sortAlphabetically")); }
    void setSortAlphabetically(bool sort) { setValue(QStringLiteral("sortAlphabetically"), sort); }

private:
    static TWSection _sectionForTestsWithDefinitions(const QList<QVariantMap> &definitions, const QString &conditionFormat);
};
