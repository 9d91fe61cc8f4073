#pragma once
// The identity of one tile: a length and up to ten indexes, whose meaning belongs to the layout
// that made it (by convention index 0 is the tile's kind).

#include <QHashFunctions>
#include <QtGlobal>

#include <algorithm>
#include <array>

// Kinds of tile, the first index of an identifier. Zero is no kind.
inline constexpr quint64 VXAssetContentTileKind = 1;
// The index that stands for "none".
inline constexpr quint64 VXTileIndexNotFound = 0x7FFFFFFFFFFFFFFF;

struct VXTileIdentifier {
    static constexpr int kCapacity = 10;
    quint64 length = 0;
    std::array<quint64, kCapacity> indexes{};

    friend bool operator==(const VXTileIdentifier &a, const VXTileIdentifier &b)
    {
        return a.length == b.length && std::equal(a.indexes.begin(), a.indexes.begin() + a.length, b.indexes.begin());
    }
    friend size_t qHash(const VXTileIdentifier &identifier, size_t seed = 0)
    {
        return qHashRange(identifier.indexes.begin(), identifier.indexes.begin() + identifier.length, seed);
    }
};
