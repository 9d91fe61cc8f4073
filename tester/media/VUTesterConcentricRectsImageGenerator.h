#pragma once
// One-pixel rings measured to the image's edges, alternating `rectsColor` and white
// ("1px Concentric Rects"): every pixel of a scaled or shifted copy shows.

#include "VUTesterBitmapImageGenerator.h"

#include <graphics/Color.h>

#include <algorithm>

class VUTESTER_EXPORT VUTesterConcentricRectsImageGenerator : public VUTesterBitmapImageGenerator {
public:
    const graphics::Color &rectsColor() const { return m_rectsColor; }
    void setRectsColor(const graphics::Color &color);

    int64_t colorIndexForPixelAtX(uint64_t x, uint64_t y) final;

    // The distance to the nearest edge, the far edges measured at width and height (not width - 1),
    // so the right column and bottom row are ring 1 while the left column and top row are ring 0.
    static int64_t ringIndex(double x, double y, double width, double height)
    {
        return int64_t(std::min(std::min(x, width - x), std::min(y, height - y)));
    }

protected:
    void fillRow(uint64_t y, uint32_t *row, const VUTesterRGBAColorTable &table) override;

private:
    void _updateColorTable();

    graphics::Color m_rectsColor;
};
