#pragma once
// The base of generators that compute every pixel: it owns an RGBA buffer, asks the subclass for a
// colour index per pixel and looks the colour up in its colour table.
//
// Two levels of cache: the buffer's geometry and its content. Invalidating the geometry invalidates
// the content, which drops the cached image.
//
// Speed: the fill runs a row at a time through fillRow(). Its default calls colorIndexForPixelAtX
// per pixel; a subclass whose pixel function is known at compile time overrides fillRow with
// fillRowWith(), which inlines the function into the loop.

#include "VUTesterImageGenerator.h"
#include "VUTesterRGBAColorTable.h"

#include <QImage>

#include <cstdint>

class VUTESTER_EXPORT VUTesterBitmapImageGenerator : public VUTesterImageGenerator {
public:
    VUTesterBitmapImageGenerator();

    void setImageSize(QSizeF imageSize) override;

    // The per-pixel hook; the base gives x + y, a one-pixel checkerboard with the default table.
    virtual int64_t colorIndexForPixelAtX(uint64_t x, uint64_t y);

    const VUTesterRGBAColorTablePtr &colorTable() const { return m_colorTable; }
    // A plain property: setting it invalidates nothing by itself.
    virtual void setColorTable(VUTesterRGBAColorTablePtr colorTable);

    void invalidateBitmapContent();
    graphics::ImagePtr createImage() override;

    // The buffer geometry as last computed (for callers that inspect the cache).
    uint64_t pixelWidth() const { return _pixelWidth; }
    uint64_t pixelHeight() const { return _pixelHeight; }
    uint64_t bytesPerRow() const { return _bytesPerRow; }

protected:
    // Fills row y (pixelWidth() pixels of 4 bytes) from the colour table.
    virtual void fillRow(uint64_t y, uint32_t *row, const VUTesterRGBAColorTable &table);

    template <typename IndexFunction>
    static void fillRowWith(uint32_t *row, uint64_t width, const VUTesterRGBAColorTable &table, IndexFunction index)
    {
        for (uint64_t x = 0; x < width; ++x)
            row[x] = table.rgbaValue(index(x));
    }

    void _invalidateBitmapData();
    void _updateBitmapDataIfNeeded();
    void _updateBitmapContentIfNeeded();

private:
    bool _needsUpdateBitmapData = true;
    bool _needsUpdateBitmapContent = true;
    uint64_t _pixelWidth = 0;
    uint64_t _pixelHeight = 0;
    uint64_t _bitsPerComponent = 8;
    uint64_t _bytesPerPixel = 4;
    uint64_t _bytesPerRow = 0;
    // Premultiplied RGBA8888 in a recycled buffer. An image made from it shares it; the next fill
    // then moves to a buffer of its own, so a handed-out image never changes.
    QImage _bitmapData;
    VUTesterRGBAColorTablePtr m_colorTable;
};
