#include "VUTesterWatermarkImageGenerator.h"

#include <graphics/Canvas.h>

graphics::ImagePtr VUTesterWatermarkImageGenerator::createImage()
{
    const QSizeF size = imageSize();
    graphics::Canvas canvas(size);
    const QSizeF textSize = m_watermarkAttributedString.size();
    // Text larger than the canvas gets a negative origin and is clipped evenly on both sides.
    const QPointF origin = m_watermarkLocation == 0
                               ? QPointF((size.width() - textSize.width()) * 0.5, (size.height() - textSize.height()) * 0.5)
                               : QPointF(0, 0);
    canvas.drawText(m_watermarkAttributedString, origin);
    return canvas.makeImage();
}
