#pragma once
// One colour, optionally inside a frame of `borderColor` that is `borderSize` wide on the left and
// right and high at the top and bottom.

#include "VUTesterImageGenerator.h"

#include <graphics/Color.h>

class VUTESTER_EXPORT VUTesterSolidColorImageGenerator : public VUTesterImageGenerator {
public:
    // None (invalid) fills opaque black, the canvas's default fill.
    const graphics::Color &color() const { return m_color; }
    void setColor(const graphics::Color &color) { _setValue(m_color, color); }
    const graphics::Color &borderColor() const { return m_borderColor; }
    void setBorderColor(const graphics::Color &color) { _setValue(m_borderColor, color); }
    QSizeF borderSize() const { return m_borderSize; }
    void setBorderSize(QSizeF size) { _setValue(m_borderSize, size); }

    graphics::ImagePtr createImage() override;

private:
    graphics::Color m_color;
    graphics::Color m_borderColor;
    QSizeF m_borderSize{0.0, 0.0};
};
