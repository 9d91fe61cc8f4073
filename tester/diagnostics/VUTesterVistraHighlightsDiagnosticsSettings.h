#pragma once
// The highlights diagnostics screen: one row per highlight level, each listing the library's
// highlight collections of that subtype.

#include "shell/VUTesterSettings.h"

#include <photos/VHAssetCollection.h>

class VUTESTER_EXPORT VUTesterVistraHighlightsDiagnosticsSettings : public VUTesterChildSettings<VUTesterVistraHighlightsDiagnosticsSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "vistraHighlightsDiagnosticsSettings";
    static TWModulePtr settingsControllerModule();

    // The rows in order with the highlight subtype each fetches.
    struct Level {
        const char *title;
        qint64 subtype;
    };
    static const Level kLevels[4];
    // The shared library's highlights of one subtype, by start date.
    static VHFetchResult<VHAssetCollection> fetchHighlights(qint64 subtype);
};
