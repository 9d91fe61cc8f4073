#pragma once
// Alternate filled wedges about the centre, white at the centre fading to `color` at half the
// radius, over `backgroundColor`. A turning `phase` makes the video generator's moving pattern.

#include "VUTesterImageGenerator.h"

#include <graphics/Color.h>

#include <cstdint>

class VUTESTER_EXPORT VUTesterRadialPatternImageGenerator : public VUTesterImageGenerator {
public:
    const graphics::Color &color() const { return m_color; }
    void setColor(const graphics::Color &color) { _setValue(m_color, color); }
    const graphics::Color &backgroundColor() const { return m_backgroundColor; }
    void setBackgroundColor(const graphics::Color &color) { _setValue(m_backgroundColor, color); }
    int64_t numberOfSectors() const { return m_numberOfSectors; }
    void setNumberOfSectors(int64_t count) { _setValue(m_numberOfSectors, count); }
    // In sectors: 1 swaps filled and empty sectors.
    double phase() const { return m_phase; }
    void setPhase(double phase) { _setValue(m_phase, phase); }

    graphics::ImagePtr createImage() override;

private:
    graphics::Color m_color = graphics::Color::red();
    graphics::Color m_backgroundColor = graphics::Color::white();
    int64_t m_numberOfSectors = 54;
    double m_phase = 0.0;
};
