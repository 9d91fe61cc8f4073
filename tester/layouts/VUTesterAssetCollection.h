#pragma once
// The collection synthetic assets are shown in: it has no title, subtitle or dates.

#include "shell/VUTesterExport.h"

#include <browsing/VUDisplayAssetCollection.h>

class VUTESTER_EXPORT VUTesterAssetCollection : public VUDisplayAssetCollection {
public:
    QString localizedTitle() const override { return {}; }
    QString localizedSubtitle() const override { return {}; }
    QDateTime startDate() const override { return {}; }
    QDateTime endDate() const override { return {}; }
};
