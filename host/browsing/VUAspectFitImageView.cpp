#include "VUAspectFitImageView.h"

#include <QPainter>

namespace {
// Above this many device pixels a scaled copy costs more memory than repainting saves.
constexpr qint64 kLargestScaledCopy = 1024 * 1024;
}

VUAspectFitImageView::VUAspectFitImageView(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void VUAspectFitImageView::setImage(graphics::ImagePtr image)
{
    if (image == m_image)
        return;
    m_image = std::move(image);
    m_upright = m_image ? m_image->uprightPixels() : QImage();
    m_scaled = QImage();
    update();
}

QRectF VUAspectFitImageView::imageRect() const
{
    if (m_upright.isNull() || m_upright.width() <= 0 || m_upright.height() <= 0)
        return {};
    const QSizeF fitted = QSizeF(m_upright.size()).scaled(QSizeF(size()), Qt::KeepAspectRatio);
    return QRectF(QPointF((width() - fitted.width()) / 2, (height() - fitted.height()) / 2), fitted);
}

void VUAspectFitImageView::paintEvent(QPaintEvent *)
{
    const QRectF target = imageRect();
    if (target.isEmpty())
        return;
    QPainter painter(this);
    const double ratio = devicePixelRatioF();
    const QSize pixels = (target.size() * ratio).toSize();
    if (qint64(pixels.width()) * pixels.height() > kLargestScaledCopy) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(target, m_upright);
        return;
    }
    if (m_scaled.size() != pixels) {
        m_scaled = m_upright.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        m_scaled.setDevicePixelRatio(ratio);
    }
    painter.drawImage(target.topLeft(), m_scaled);
}
