#pragma once
// Options of the transition playground: which container its numbered screens live in (the one a
// pan drives, or the standard one, to compare) and whether each screen shows how far the current
// pan has gone.

#include "shell/VUTesterSettings.h"

class VUTESTER_EXPORT VUTesterTransitionSettings : public VUTesterChildSettings<VUTesterTransitionSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "transitionSettings";
    enum TransitionKind : qint64 { TransitionKindInteractiveCrossfade = 0, TransitionKindStandardSlide = 1 };

    VUTesterTransitionSettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    qint64 transitionKind() const { return int64Value(QStringLiteral("transitionKind")); }
    void setTransitionKind(qint64 kind) { setValue(QStringLiteral("transitionKind"), QVariant::fromValue(kind)); }
    bool showsPanDistance() const { return boolValue(QStringLiteral("showsPanDistance")); }
    void setShowsPanDistance(bool shows) { setValue(QStringLiteral("showsPanDistance"), shows); }
};
