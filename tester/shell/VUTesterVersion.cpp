#include "shell/VUTesterVersion.h"

extern "C" {
const char VistraUITesterVersionString[] = "@(#)PROGRAM:VistraUITester  PROJECT:Fotoreel-1\n";
const double VistraUITesterVersionNumber = 1.0;
const double VUTesterBeamcastScreenBorderSize = 1.0;
const char VUTesterSharingSettingsPickedAssetLocalIdentifiersKey[] = "VUTesterSharingSettingsPickedAssetLocalIdentifiersKey";
const char VUTesterStirShotViewSettingsPickedAssetLocalIdentifiersKey[] = "VUTesterStirShotViewSettingsPickedAssetLocalIdentifiersKey";
}
