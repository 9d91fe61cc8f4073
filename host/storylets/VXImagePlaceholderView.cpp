#include "VXImagePlaceholderView.h"

#include <QPainter>

void VXImagePlaceholderView::setSpec(const VXImageViewSpec &spec)
{
    m_spec = spec;
    update();
}

void VXImagePlaceholderView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_spec.backgroundColor);
    painter.drawRoundedRect(QRectF(rect()), m_spec.cornerRadius, m_spec.cornerRadius);
}
