#pragma once
// The module's exported symbols.

#include "shell/VUTesterExport.h"

extern "C" {
VUTESTER_EXPORT extern const char VistraUITesterVersionString[];
VUTESTER_EXPORT extern const double VistraUITesterVersionNumber;
VUTESTER_EXPORT extern const double VUTesterBeamcastScreenBorderSize;
VUTESTER_EXPORT extern const char VUTesterSharingSettingsPickedAssetLocalIdentifiersKey[];
VUTESTER_EXPORT extern const char VUTesterStirShotViewSettingsPickedAssetLocalIdentifiersKey[];
}
