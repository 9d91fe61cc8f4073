#pragma once
// Options of the 1-Up Presentation playground: how the browser is presented, where it starts, and
// how large the simulated external screen is that the current item can be sent to.

#include "shell/VUTesterSettings.h"

class VUTESTER_EXPORT VUTesterOneUpPresentationSettings : public VUTesterChildSettings<VUTesterOneUpPresentationSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "oneUpPresentationSettings";
    enum PresentationStyle : qint64 { PresentationStylePush = 0, PresentationStyleModal = 1 };

    VUTesterOneUpPresentationSettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    qint64 presentationStyle() const { return int64Value(QStringLiteral("presentationStyle")); }
    void setPresentationStyle(qint64 style) { setValue(QStringLiteral("presentationStyle"), QVariant::fromValue(style)); }
    // The item of the first section the browser opens on.
    qint64 initialItem() const { return int64Value(QStringLiteral("initialItem")); }
    void setInitialItem(qint64 item) { setValue(QStringLiteral("initialItem"), QVariant::fromValue(item)); }
    // Points; the simulated screen is 16:9.
    double beamcastScreenWidth() const { return doubleValue(QStringLiteral("beamcastScreenWidth")); }
    void setBeamcastScreenWidth(double width) { setValue(QStringLiteral("beamcastScreenWidth"), width); }
};
