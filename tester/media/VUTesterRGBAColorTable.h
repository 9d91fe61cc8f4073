#pragma once
// A palette of RGBA bytes. Indices at or above the length wrap round, which is how bitmap
// generators cycle through their colours.

#include "shell/VUTesterExport.h"

#include <graphics/Color.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <vector>

class VUTESTER_EXPORT VUTesterRGBAColorTable {
public:
    using ColorFunction = std::function<graphics::Color(int64_t index)>;

    // Black for index 0, white for every other index, length 2.
    VUTesterRGBAColorTable();
    // Asks `colors` for each entry in order; a colour without RGB components gives a zero entry.
    // A length below 1 gives an empty table.
    VUTesterRGBAColorTable(int64_t length, const ColorFunction &colors);

    int64_t length() const { return m_length; }

    // Copies the 4 bytes (R, G, B, A) of entry index mod length. Indices must not be negative.
    void writeRGBAValues(uint8_t *destination, int64_t index) const
    {
        if (m_length > 0)
            std::memcpy(destination, &m_entries[entryIndex(index)], 4);
    }
    // The entry's 4 bytes as they lie in memory; the inner loops of bitmap generators use it.
    uint32_t rgbaValue(int64_t index) const { return m_entries[entryIndex(index)]; }

private:
    size_t entryIndex(int64_t index) const
    {
        // A mask for power-of-two lengths saves a division per pixel in the common 2-entry case.
        return m_mask ? size_t(index & m_mask) : size_t(index % m_length);
    }

    int64_t m_length = 0;
    int64_t m_mask = 0;
    std::vector<uint32_t> m_entries;
};

using VUTesterRGBAColorTablePtr = std::shared_ptr<VUTesterRGBAColorTable>;
