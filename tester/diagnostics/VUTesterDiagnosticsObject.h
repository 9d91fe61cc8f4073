#pragma once
// What a diagnostics cell shows: nothing, an asset collection, an asset, or an object of another
// kind, known only by its description.

#include <photos/VHAsset.h>
#include <photos/VHAssetCollection.h>

#include <QString>

#include <variant>

struct VUTesterDiagnosticsOtherObject {
    QString description;
    friend bool operator==(const VUTesterDiagnosticsOtherObject &, const VUTesterDiagnosticsOtherObject &) = default;
};

using VUTesterDiagnosticsObject = std::variant<std::monostate, VHAssetCollection, VHAsset, VUTesterDiagnosticsOtherObject>;
