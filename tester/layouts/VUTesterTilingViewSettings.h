#pragma once
// Options of the tiling view playground and of the synthetic data source that feeds it.

#include "shell/VUTesterSettings.h"

class VUTESTER_EXPORT VUTesterTilingViewSettings : public VUTesterChildSettings<VUTesterTilingViewSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "tilingViewSettings";
    VUTesterTilingViewSettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    qint64 numberOfSections() const { return int64Value(QStringLiteral("numberOfSections")); }
    void setNumberOfSections(qint64 count) { setValue(QStringLiteral("numberOfSections"), QVariant::fromValue(count)); }
};
