#include "VUTesterRadialPatternImageGenerator.h"

#include <graphics/Canvas.h>

#include <QPainterPath>
#include <QRadialGradient>

#include <cmath>
#include <numbers>

graphics::ImagePtr VUTesterRadialPatternImageGenerator::createImage()
{
    const QSizeF size = imageSize();
    graphics::Canvas canvas(size);
    if (!canvas.isValid())
        return nullptr;
    const QRectF bounds(QPointF(0, 0), size);
    if (m_backgroundColor.isValid())
        canvas.fillRect(bounds, m_backgroundColor);

    const QPointF centre = bounds.center();
    const double radius = std::hypot(size.width(), size.height()) * 0.5;
    const QRectF circle(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    QPainterPath wedges;
    if (m_numberOfSectors >= 1) {
        // Qt's arc angles are degrees counter-clockwise on screen; ours grow from +x toward +y.
        const double step = 360.0 / double(m_numberOfSectors);
        for (int64_t i = 0; i < m_numberOfSectors; i += 2) {
            wedges.moveTo(centre);
            wedges.arcTo(circle, -step * (m_phase + double(i)), -step);
            wedges.closeSubpath();
        }
    }
    if (wedges.isEmpty())
        return canvas.makeImage();

    QRadialGradient gradient(centre, radius * 0.5);
    gradient.setColorAt(0.0, Qt::white);
    gradient.setColorAt(1.0, m_color.isValid() ? m_color.toQColor() : QColor(Qt::transparent));
    canvas.painter().fillPath(wedges, gradient);
    return canvas.makeImage();
}
