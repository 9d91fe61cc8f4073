#pragma once
// Shows an image whole, as large as fits, centred; the rest of the view stays clear. Small
// sizes (grid cells) keep a copy scaled to the view, so a repaint while scrolling only copies
// pixels; large ones (a zoomed page) are scaled as they are painted, clipped to what shows.

#include <graphics/Image.h>

#include <QImage>
#include <QWidget>

class VUAspectFitImageView : public QWidget {
    Q_OBJECT
public:
    explicit VUAspectFitImageView(QWidget *parent = nullptr);

    const graphics::ImagePtr &image() const { return m_image; }
    // Null shows nothing.
    void setImage(graphics::ImagePtr image);
    // Where the image is drawn, in the view's coordinates; empty without an image.
    QRectF imageRect() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    graphics::ImagePtr m_image;
    QImage m_upright;
    QImage m_scaled;
};
