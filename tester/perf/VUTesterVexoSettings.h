#pragma once
// The performance harness's screen: the baseline environments and every test the application
// defines, listed as defined or sorted by name.

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

    // The application's test definitions (each with at least "testName"), in its order.
    static void setTestDefinitions(const QList<QVariantMap> &definitions);
    static QList<QVariantMap> testDefinitions();

private:
    static TWSection _sectionForTestsWithDefinitions(const QList<QVariantMap> &definitions, const QString &conditionFormat);
};
