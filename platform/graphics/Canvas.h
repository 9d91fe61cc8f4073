#pragma once
// An offscreen drawing canvas: transparent to begin with, origin at the top left, y growing
// downward, scale 1 (one point is one pixel). Draw, then take the image once.

#include "Color.h"
#include "Image.h"

#include <QImage>
#include <QPainter>
#include <QRectF>

namespace graphics {

enum class BlendMode {
    Normal,
    Overlay,
};

class StyledText;

class Canvas {
public:
    // The pixel size is the point size rounded up; an empty or negative size gives a canvas that
    // draws nothing and whose image is none.
    explicit Canvas(const QSizeF &size);
    ~Canvas();
    Canvas(const Canvas &) = delete;
    Canvas &operator=(const Canvas &) = delete;

    bool isValid() const { return !m_pixels.isNull(); }
    QSizeF size() const { return m_size; }
    // Antialiased, smooth image scaling. Only for a valid canvas.
    QPainter &painter() { return m_painter; }

    void fillRect(const QRectF &rect, const Color &color, BlendMode mode = BlendMode::Normal);
    // Draws the image upright (its orientation applied), scaled to `rect`.
    void drawImage(const Image &image, const QRectF &rect, BlendMode mode = BlendMode::Normal, double alpha = 1.0);
    void drawText(const StyledText &text, QPointF origin);

    // Ends drawing and returns the pixels at scale 1, or none for an invalid canvas.
    ImagePtr makeImage(ImageOrientation orientation = ImageOrientation::Up);

private:
    void setBlendMode(BlendMode mode);

    QSizeF m_size;
    QImage m_pixels;
    QPainter m_painter;
    // Nothing drawn yet: a plain copy equals a normal draw onto transparent pixels.
    bool m_pristine = true;
};

} // namespace graphics
