#pragma once

#include "shell/VUTesterExport.h"

extern "C" {
VUTESTER_EXPORT extern const char VistraUITesterVersionString[];
VUTESTER_EXPORT extern const double VistraUITesterVersionNumber;
}
