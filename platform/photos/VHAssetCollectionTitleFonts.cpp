#include "VHAssetCollection.h"

#include <array>

QString VHAssetCollection::titleFontNameForTitleCategory(int category)
{
    // A face per category, so the kinds of story read differently at a glance.
    static const std::array<const char *, 6> kFamilies = {
        "Noto Serif Display", // 1: best of a period
        "Noto Sans",          // 2: people
        "Noto Serif",         // 3: places
        "FreeSerif",          // 4: trips
        "Noto Sans Display",  // 5: relative dates
        "DejaVu Serif",       // 6: generic
    };
    if (category < 1 || category > int(kFamilies.size()))
        return QString();
    return QString::fromLatin1(kFamilies[size_t(category - 1)]);
}
