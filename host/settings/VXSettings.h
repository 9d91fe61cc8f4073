#pragma once
// The host core's settings base; it adds nothing to the framework's.

#include "TWSettings.h"

class VXSettings : public TWSettings {
    Q_OBJECT
public:
    using TWSettings::TWSettings;
};
