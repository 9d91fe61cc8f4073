#include "VUTesterRGBAColorTable.h"

#include "VUTesterColorComponents.h"
#include "VUTesterMediaLogging.h"

#include <bit>

VUTesterRGBAColorTable::VUTesterRGBAColorTable()
    : VUTesterRGBAColorTable(2, [](int64_t index) {
          return index == 0 ? graphics::Color::black() : graphics::Color::white();
      })
{
}

VUTesterRGBAColorTable::VUTesterRGBAColorTable(int64_t length, const ColorFunction &colors)
    : m_length(length)
{
    if (length < 1)
        return;
    if (std::has_single_bit(uint64_t(length)))
        m_mask = length - 1;
    m_entries.assign(size_t(length), 0);
    for (int64_t i = 0; i < length; ++i) {
        const graphics::Color color = colors(i);
        double rgba[4];
        if (!vutester_getRed(color, &rgba[0], &rgba[1], &rgba[2], &rgba[3])) {
            qCWarning(lcVUTesterGenerators, "couldn't get RGB components for %s", qPrintable(color.description()));
            continue;
        }
        uint8_t bytes[4];
        for (int c = 0; c < 4; ++c)
            bytes[c] = uint8_t(int(rgba[c] * 255.0));
        std::memcpy(&m_entries[size_t(i)], bytes, 4);
    }
}
