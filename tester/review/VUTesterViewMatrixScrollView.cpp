#include "review/VUTesterViewMatrixScrollView.h"

#include "ui/TapGestureRecognizer.h"

#include <QPaintEvent>
#include <QPainter>

namespace {

// Paints the sheet scaled to its own size over the sheet's natural size.
class ZoomingView : public QWidget {
public:
    ZoomingView(QWidget *parent, const QWidget *sheet, const QSizeF *naturalSize) : QWidget(parent), m_sheet(sheet), m_naturalSize(naturalSize) {}

protected:
    void paintEvent(QPaintEvent *event) override
    {
        if (m_naturalSize->isEmpty())
            return;
        const double scale = width() / m_naturalSize->width();
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.scale(scale, scale);
        const QRect exposed = QRectF(QRectF(event->rect()).topLeft() / scale, QRectF(event->rect()).size() / scale).toAlignedRect();
        const_cast<QWidget *>(m_sheet)->render(&painter, exposed.topLeft(), QRegion(exposed), QWidget::DrawChildren);
    }

private:
    const QWidget *m_sheet;
    const QSizeF *m_naturalSize;
};

} // namespace

VUTesterViewMatrixScrollView::VUTesterViewMatrixScrollView(QWidget *parent) : ui::ScrollView(parent)
{
    setDelegate(this);
    // Shown but never on screen, so its cells count as visible when the zooming view paints it.
    m_sheet = new QWidget;
    m_sheet->setAttribute(Qt::WA_DontShowOnScreen);
    m_sheet->show();
    m_zoomingView = new ZoomingView(ui::ScrollView::contentView(), m_sheet, &m_naturalSize);
    m_doubleTap = new ui::TapGestureRecognizer(this);
    m_doubleTap->setNumberOfTapsRequired(2);
    connect(m_doubleTap, &ui::GestureRecognizer::action, this, &VUTesterViewMatrixScrollView::_handleDoubleTap);
    setMinimumZoomScale(0);
}

VUTesterViewMatrixScrollView::~VUTesterViewMatrixScrollView()
{
    delete m_sheet;
}

QWidget *VUTesterViewMatrixScrollView::viewForZooming(ui::ScrollView *)
{
    return m_zoomingView;
}

void VUTesterViewMatrixScrollView::setNaturalContentFrame(const QRectF &frame)
{
    m_naturalSize = frame.size();
    m_sheet->resize(frame.size().toSize());
    m_zoomingView->setGeometry(frame.toAlignedRect());
    setContentSize(frame.size());
}

QImage VUTesterViewMatrixScrollView::renderContent(const QColor &background) const
{
    // An opaque picture is stored without alpha: PNG encodes it faster and smaller.
    const bool opaque = background.isValid() && background.alpha() == 255;
    QImage image(m_naturalSize.toSize(), opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(background.isValid() ? background : QColor(Qt::transparent));
    QPainter painter(&image);
    m_sheet->render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

void VUTesterViewMatrixScrollView::_handleDoubleTap(ui::GestureRecognizer *recognizer)
{
    if (recognizer->state() != ui::GestureRecognizer::State::Ended)
        return;
    setZoomScale(zoomScale() == 1.0 ? 0.5 : 1.0, true);
}
