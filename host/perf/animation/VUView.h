#pragma once
// A view of the animation playgrounds: a rectangle on a graphics scene with a centre, bounds, a
// transform about its centre, a fill, a border and a corner radius (its layer's), animated by
// springs (VUViewAnimation.h). Its position is its centre, so a transform turns and scales it
// about the centre, and what is read back during an animation is what is shown.

#include <QColor>
#include <QGraphicsObject>

class VUViewAnimation;

struct VUViewGeometry {
    QPointF center;
    QRectF bounds;
    QTransform transform;
    double cornerRadius = 0;
};

class VUView : public QGraphicsObject {
    Q_OBJECT
public:
    explicit VUView(QSizeF size, QGraphicsItem *parent = nullptr);

    QPointF center() const { return pos(); }
    void setCenter(QPointF center) { setPos(center); }
    // The origin is the view's own; the size is what is drawn, centred on the centre.
    QRectF bounds() const { return m_bounds; }
    void setBounds(const QRectF &bounds);
    double cornerRadius() const { return m_cornerRadius; }
    void setCornerRadius(double radius);
    VUViewGeometry geometry() const { return {center(), bounds(), transform(), cornerRadius()}; }
    void setGeometry(const VUViewGeometry &geometry);

    void setBackgroundColor(const QColor &color);
    void setBorder(double width, const QColor &color);

    // The running animation, if any; a new one replaces it.
    VUViewAnimation *animation() const { return m_animation; }
    // Stops the running animation where it is; its completion hears it did not finish.
    void removeAllAnimations();

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    friend class VUViewAnimation;

    QRectF m_bounds;
    double m_cornerRadius = 0;
    QColor m_background;
    double m_borderWidth = 0;
    QColor m_borderColor;
    VUViewAnimation *m_animation = nullptr;
};
