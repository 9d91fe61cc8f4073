#include "Canvas.h"

#include "PixelBuffer.h"
#include "StyledText.h"

#include <cmath>
#include <cstring>

namespace graphics {

Canvas::Canvas(const QSizeF &size)
    : m_size(size)
{
    if (!(size.width() > 0 && size.height() > 0))
        return;
    m_pixels = newPixelImage(QSize(int(std::ceil(size.width())), int(std::ceil(size.height()))));
    if (m_pixels.isNull())
        return;
    std::memset(m_pixels.bits(), 0, size_t(m_pixels.sizeInBytes()));
    m_painter.begin(&m_pixels);
    m_painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}

Canvas::~Canvas()
{
    if (m_painter.isActive())
        m_painter.end();
}

void Canvas::setBlendMode(BlendMode mode)
{
    m_painter.setCompositionMode(mode == BlendMode::Overlay ? QPainter::CompositionMode_Overlay
                                                            : QPainter::CompositionMode_SourceOver);
}

void Canvas::fillRect(const QRectF &rect, const Color &color, BlendMode mode)
{
    if (!m_painter.isActive())
        return;
    setBlendMode(mode);
    m_painter.fillRect(rect, color.toQColor());
    m_pristine = false;
}

void Canvas::drawImage(const Image &image, const QRectF &rect, BlendMode mode, double alpha)
{
    if (!m_painter.isActive() || image.pixels().isNull())
        return;
    const QImage pixels = image.uprightPixels();
    const bool wholeCanvas = rect == QRectF(QPointF(0, 0), QSizeF(m_pixels.size())) && pixels.size() == m_pixels.size()
                             && m_painter.transform().isIdentity();
    if (m_pristine && wholeCanvas && mode == BlendMode::Normal && alpha >= 1.0
        && pixels.bytesPerLine() == m_pixels.bytesPerLine()) {
        std::memcpy(m_pixels.bits(), pixels.constBits(), size_t(m_pixels.sizeInBytes()));
        m_pristine = false;
        return;
    }
    setBlendMode(mode);
    m_painter.setOpacity(alpha);
    if (rect.size() == QSizeF(pixels.size()))
        m_painter.drawImage(rect.topLeft(), pixels);
    else
        m_painter.drawImage(rect, pixels);
    m_painter.setOpacity(1.0);
    m_pristine = false;
}

void Canvas::drawText(const StyledText &text, QPointF origin)
{
    if (!m_painter.isActive())
        return;
    setBlendMode(BlendMode::Normal);
    text.draw(m_painter, origin);
    m_pristine = false;
}

ImagePtr Canvas::makeImage(ImageOrientation orientation)
{
    if (m_painter.isActive())
        m_painter.end();
    if (m_pixels.isNull())
        return nullptr;
    return std::make_shared<const Image>(m_pixels, orientation, 1.0);
}

} // namespace graphics
