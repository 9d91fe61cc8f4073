#include "VUTesterFractalImageGenerator.h"

#include <algorithm>

void VUTesterFractalImageGenerator::_setContentValue(double &field, double value)
{
    if (field == value)
        return;
    field = value;
    invalidateBitmapContent();
}

void VUTesterFractalImageGenerator::setMaxIterations(int64_t value)
{
    if (value == m_maxIterations)
        return;
    m_maxIterations = value;
    _invalidateColorTable();
    invalidateBitmapContent();
}

void VUTesterFractalImageGenerator::setFractalType(int64_t value)
{
    if (value == m_fractalType)
        return;
    m_fractalType = value;
    _invalidateFractalComputer();
}

void VUTesterFractalImageGenerator::setFractalColorScheme(int64_t value)
{
    if (value == m_fractalColorScheme)
        return;
    m_fractalColorScheme = value;
    _invalidateColorTable();
}

void VUTesterFractalImageGenerator::setColorTable(VUTesterRGBAColorTablePtr colorTable)
{
    VUTesterBitmapImageGenerator::setColorTable(std::move(colorTable));
    _invalidateFractalComputer();
}

VUTesterRGBAColorTablePtr VUTesterFractalImageGenerator::colorTableForScheme(int64_t scheme, int64_t maxIterations)
{
    if (scheme == 0)
        return std::make_shared<VUTesterRGBAColorTable>();
    if (scheme != 1)
        return nullptr;
    const int64_t n = maxIterations;
    return std::make_shared<VUTesterRGBAColorTable>(n, [n](int64_t i) {
        if (n < 2 || i >= n - 1)
            return graphics::Color::black();
        // Black rising to full red over the first half, then red turning toward yellow.
        const double t = double(i) / double(n - 1);
        const double hue = t < 0.5 ? 0.0 : (t - 0.5) / 3.0;
        const double brightness = t < 0.5 ? 2.0 * t : 1.0;
        return graphics::Color::hsb(hue, 1.0, brightness, 1.0);
    });
}

void VUTesterFractalImageGenerator::_updateColorTableIfNeeded()
{
    if (!_needsUpdateColorTable)
        return;
    _needsUpdateColorTable = false;
    setColorTable(colorTableForScheme(m_fractalColorScheme, m_maxIterations));
}

void VUTesterFractalImageGenerator::_updateFractalComputerIfNeeded()
{
    if (_fractalComputer)
        return;
    _fractalComputer = std::make_unique<VUTesterFractalComputer>();
    _fractalComputer->setMaxValue(m_maxIterations);
}

void VUTesterFractalImageGenerator::_prepare()
{
    const QSizeF size = imageSize();
    const double a = 2.0 * m_innerRadius / std::min(size.width(), size.height());
    _ax = a;
    _ay = a;
    _bx = -0.5 * size.width() * a + m_centerX;
    _by = -0.5 * size.height() * a + m_centerY;
    // The table first: installing it discards the computer, which then picks up the new limit.
    _updateColorTableIfNeeded();
    _updateFractalComputerIfNeeded();
}

int64_t VUTesterFractalImageGenerator::colorIndexForPixelAtX(uint64_t x, uint64_t y)
{
    // Callers may ask before any drawing has made the computer.
    _updateFractalComputerIfNeeded();
    return _fractalComputer->valueAtX(_ax * double(x) + _bx, _ay * double(y) + _by);
}

void VUTesterFractalImageGenerator::fillRow(uint64_t y, uint32_t *row, const VUTesterRGBAColorTable &table)
{
    const VUTesterFractalComputer &computer = *_fractalComputer;
    const double cy = _ay * double(y) + _by;
    const double ax = _ax;
    const double bx = _bx;
    fillRowWith(row, pixelWidth(), table, [&](uint64_t x) { return computer.valueAtX(ax * double(x) + bx, cy); });
}

graphics::ImagePtr VUTesterFractalImageGenerator::createImage()
{
    _prepare();
    return VUTesterBitmapImageGenerator::createImage();
}
