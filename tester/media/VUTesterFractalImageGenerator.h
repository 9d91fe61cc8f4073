#pragma once
// An escape-time picture of the Mandelbrot set: a detailed, non-repeating image whose every pixel
// is computed. The escape count is the colour index; the palette comes from a colour scheme.
//
// The computer's limit is refreshed through a chain: a new maxIterations marks the colour table,
// the next drawing rebuilds and installs it, installing a table discards the computer, and the
// computer is then made again with the new limit.

#include "VUTesterBitmapImageGenerator.h"
#include "VUTesterFractalComputer.h"

#include <memory>

class VUTESTER_EXPORT VUTesterFractalImageGenerator : public VUTesterBitmapImageGenerator {
public:
    double centerX() const { return m_centerX; }
    void setCenterX(double value) { _setContentValue(m_centerX, value); }
    double centerY() const { return m_centerY; }
    void setCenterY(double value) { _setContentValue(m_centerY, value); }
    // Half the extent of the plane across the image's smaller side.
    double innerRadius() const { return m_innerRadius; }
    void setInnerRadius(double value) { _setContentValue(m_innerRadius, value); }
    int64_t maxIterations() const { return m_maxIterations; }
    void setMaxIterations(int64_t value);
    // Only discards the computer: every type draws the same set.
    int64_t fractalType() const { return m_fractalType; }
    void setFractalType(int64_t value);
    // 0 black and white, 1 black-red-yellow ramp, others no table. Only marks the table: the
    // cached image stays until something else invalidates it.
    int64_t fractalColorScheme() const { return m_fractalColorScheme; }
    void setFractalColorScheme(int64_t value);

    void setColorTable(VUTesterRGBAColorTablePtr colorTable) override;
    int64_t colorIndexForPixelAtX(uint64_t x, uint64_t y) final;
    graphics::ImagePtr createImage() override;

    // The palette of a scheme, none for an unknown scheme.
    static VUTesterRGBAColorTablePtr colorTableForScheme(int64_t scheme, int64_t maxIterations);

protected:
    void fillRow(uint64_t y, uint32_t *row, const VUTesterRGBAColorTable &table) override;

private:
    void _setContentValue(double &field, double value);
    void _prepare();
    void _invalidateColorTable() { _needsUpdateColorTable = true; }
    void _invalidateFractalComputer() { _fractalComputer.reset(); }
    void _updateFractalComputerIfNeeded();
    void _updateColorTableIfNeeded();

    double m_centerX = 0.0;
    double m_centerY = 0.0;
    double m_innerRadius = 2.0;
    int64_t m_maxIterations = 100;
    int64_t m_fractalType = 0;
    int64_t m_fractalColorScheme = 0;

    double _ax = 0.0;
    double _bx = 0.0;
    double _ay = 0.0;
    double _by = 0.0;
    std::unique_ptr<VUTesterFractalComputer> _fractalComputer;
    bool _needsUpdateColorTable = true;
};
