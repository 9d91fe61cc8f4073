#include "VUTesterBitmapImageGenerator.h"

#include <graphics/PixelBuffer.h>

#include <cstring>
#include <typeinfo>

VUTesterBitmapImageGenerator::VUTesterBitmapImageGenerator()
    : m_colorTable(std::make_shared<VUTesterRGBAColorTable>())
{
}

void VUTesterBitmapImageGenerator::setImageSize(QSizeF imageSize)
{
    VUTesterImageGenerator::setImageSize(imageSize);
    if (_pixelWidth == uint64_t(imageSize.width()) && _pixelHeight == uint64_t(imageSize.height()))
        return;
    _invalidateBitmapData();
}

int64_t VUTesterBitmapImageGenerator::colorIndexForPixelAtX(uint64_t x, uint64_t y)
{
    return int64_t(x + y);
}

void VUTesterBitmapImageGenerator::setColorTable(VUTesterRGBAColorTablePtr colorTable)
{
    m_colorTable = std::move(colorTable);
}

void VUTesterBitmapImageGenerator::invalidateBitmapContent()
{
    _needsUpdateBitmapContent = true;
    invalidateImage();
}

void VUTesterBitmapImageGenerator::_invalidateBitmapData()
{
    _needsUpdateBitmapData = true;
    invalidateBitmapContent();
}

void VUTesterBitmapImageGenerator::_updateBitmapDataIfNeeded()
{
    if (!_needsUpdateBitmapData)
        return;
    _needsUpdateBitmapData = false;
    const QSizeF size = imageSize();
    _pixelWidth = size.width() > 0 ? uint64_t(size.width()) : 0;
    _pixelHeight = size.height() > 0 ? uint64_t(size.height()) : 0;
    _bitsPerComponent = 8;
    _bytesPerPixel = 4;
    _bytesPerRow = _pixelWidth * _bytesPerPixel;
    if (_bitmapData.width() != int(_pixelWidth) || _bitmapData.height() != int(_pixelHeight))
        _bitmapData = graphics::newPixelImage(QSize(int(_pixelWidth), int(_pixelHeight)));
}

void VUTesterBitmapImageGenerator::fillRow(uint64_t y, uint32_t *row, const VUTesterRGBAColorTable &table)
{
    // The plain checkerboard's own pixel function, inlined; subclasses go through the hook.
    if (typeid(*this) == typeid(VUTesterBitmapImageGenerator)) {
        fillRowWith(row, _pixelWidth, table, [y](uint64_t x) { return int64_t(x + y); });
        return;
    }
    for (uint64_t x = 0; x < _pixelWidth; ++x)
        table.writeRGBAValues(reinterpret_cast<uint8_t *>(row + x), colorIndexForPixelAtX(x, y));
}

void VUTesterBitmapImageGenerator::_updateBitmapContentIfNeeded()
{
    if (!_needsUpdateBitmapContent)
        return;
    _needsUpdateBitmapContent = false;
    _updateBitmapDataIfNeeded();
    if (_bitmapData.isNull() || _pixelHeight == 0)
        return;
    // An image handed out earlier still shares the buffer: move to a recycled one of our own,
    // keeping the old pixels (rows left unwritten keep them).
    if (!_bitmapData.isDetached()) {
        QImage own = graphics::newPixelImage(_bitmapData.size());
        if (own.isNull())
            return;
        std::memcpy(own.bits(), _bitmapData.constBits(), size_t(own.sizeInBytes()));
        _bitmapData = own;
    }
    const VUTesterRGBAColorTablePtr table = m_colorTable;
    if (!table || table->length() < 1)
        return;
    uchar *pixels = _bitmapData.bits();
    for (uint64_t y = 0; y < _pixelHeight; ++y) {
        fillRow(y, reinterpret_cast<uint32_t *>(pixels + y * _bytesPerRow), *table);
        if (shouldCancel())
            break;
    }
}

graphics::ImagePtr VUTesterBitmapImageGenerator::createImage()
{
    _updateBitmapContentIfNeeded();
    if (_bitmapData.isNull())
        return nullptr;
    return std::make_shared<const graphics::Image>(_bitmapData, graphics::ImageOrientation::Up, 1.0);
}
