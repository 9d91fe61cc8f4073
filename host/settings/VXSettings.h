#pragma once
// The host core's settings base; it adds nothing to the framework's. While the settings tree is
// being indexed for search its modules' rows are walked, and rows whose actions would open screens
// or start work do nothing.

#include "TWSettings.h"

class VXSettings : public TWSettings {
    Q_OBJECT
public:
    using TWSettings::TWSettings;
};

bool VXSettingsIsIndexing();
// Indexing lasts as long as the scope.
class VXSettingsIndexingScope {
public:
    VXSettingsIndexingScope();
    ~VXSettingsIndexingScope();
    VXSettingsIndexingScope(const VXSettingsIndexingScope &) = delete;
    VXSettingsIndexingScope &operator=(const VXSettingsIndexingScope &) = delete;
};
