#include "VUTesterSolidColorImageGenerator.h"

#include <graphics/Canvas.h>

graphics::ImagePtr VUTesterSolidColorImageGenerator::createImage()
{
    const QSizeF size = imageSize();
    graphics::Canvas canvas(size);
    QRectF rect(QPointF(0, 0), size);
    if (m_borderColor.isValid() && m_borderSize != QSizeF(0, 0)) {
        canvas.fillRect(rect, m_borderColor);
        rect.adjust(m_borderSize.width(), m_borderSize.height(), -m_borderSize.width(), -m_borderSize.height());
    }
    // A border wider than half the image leaves no inside: the painter would fill the rectangle
    // turned inside out.
    if (rect.width() > 0 && rect.height() > 0)
        canvas.fillRect(rect, m_color.isValid() ? m_color : graphics::Color::black());
    return canvas.makeImage();
}
