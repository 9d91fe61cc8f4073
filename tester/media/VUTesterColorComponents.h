#pragma once
// Reading a colour back as device-RGB components.

#include "shell/VUTesterExport.h"

#include <graphics/Color.h>

// Converts the colour to device RGB; when that gives exactly four components, writes red, green,
// blue and alpha (0..1) into the out-pointers that are present and returns true. Otherwise
// returns false and writes nothing.
VUTESTER_EXPORT bool vutester_getRed(const graphics::Color &color, double *red, double *green, double *blue,
                                     double *alpha);
