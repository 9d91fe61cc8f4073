#include "VUTesterConcentricRectsImageGenerator.h"

void VUTesterConcentricRectsImageGenerator::setRectsColor(const graphics::Color &color)
{
    if (color == m_rectsColor)
        return;
    m_rectsColor = color;
    _updateColorTable();
    invalidateBitmapContent();
}

void VUTesterConcentricRectsImageGenerator::_updateColorTable()
{
    const graphics::Color rectsColor = m_rectsColor;
    setColorTable(std::make_shared<VUTesterRGBAColorTable>(2, [rectsColor](int64_t index) {
        return index == 0 ? rectsColor : graphics::Color::white();
    }));
}

int64_t VUTesterConcentricRectsImageGenerator::colorIndexForPixelAtX(uint64_t x, uint64_t y)
{
    return ringIndex(double(x), double(y), imageSize().width(), imageSize().height());
}

void VUTesterConcentricRectsImageGenerator::fillRow(uint64_t y, uint32_t *row, const VUTesterRGBAColorTable &table)
{
    const double width = imageSize().width();
    const double height = imageSize().height();
    const double yd = double(y);
    fillRowWith(row, pixelWidth(), table, [=](uint64_t x) { return ringIndex(double(x), yd, width, height); });
}
