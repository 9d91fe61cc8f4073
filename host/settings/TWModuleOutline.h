#pragma once

#include <QString>

class TWModule;
class TWSettings;

// A module as indented text: its title, each section with its title and condition, each row with
// its kind, title, key, current value and choices ("value: title").
QString TWModuleOutline(const TWModule &module, const TWSettings *settings);
