#pragma once
// The three layout generator playgrounds of the root's "Playgrounds" section. Each keeps its own
// playground settings, and its screen starts the playground with its generator.

#include "layouts/VUTesterLayoutInput.h"
#include "layouts/VUTesterLayoutsPlaygroundSettings.h"

#include "layout/VXLayoutGenerator.h"

class VUTESTER_EXPORT VUTesterLatticerPlaygroundSettings
    : public VUTesterChildSettings<VUTesterLatticerPlaygroundSettings, VUTesterLayoutsPlaygroundSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "latticerPlaygroundSettings";
    static TWModulePtr settingsControllerModule();
    static VXLayoutGeneratorFactory layoutGeneratorFactory();
};

class VUTESTER_EXPORT VUTesterExploreLayoutSettings
    : public VUTesterChildSettings<VUTesterExploreLayoutSettings, VUTesterLayoutsPlaygroundSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "exploreLayoutPlaygroundSettings";
    static TWModulePtr settingsControllerModule();
    static VXLayoutGeneratorFactory layoutGeneratorFactory();
    // A few heavier items from the start, so the mosaic shows its larger spans.
    static VUTesterLayoutInput::IndexMap initialWeights();
};

class VUTESTER_EXPORT VUTesterYearsMonthsLayoutsSettings
    : public VUTesterChildSettings<VUTesterYearsMonthsLayoutsSettings, VUTesterLayoutsPlaygroundSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "yearsMonthsLayoutsPlaygroundSettings";
    static TWModulePtr settingsControllerModule();
    static VXLayoutGeneratorFactory layoutGeneratorFactory();
};
