#pragma once
// The base of the host's small views that sit over pictures (badges, selection marks, progress
// rings): a glyph of a given size in a given colour, centred in the view. Each kind draws through
// a static function as well, so a list delegate that paints thousands of cells draws exactly what
// the view draws, without a widget per cell.

#include <QColor>
#include <QWidget>

class VUBadgeView : public QWidget {
    Q_OBJECT
public:
    explicit VUBadgeView(double glyphSize, QWidget *parent = nullptr);

    QColor color() const { return m_color; }
    void setColor(const QColor &color);
    // Points across the glyph.
    double glyphSize() const { return m_glyphSize; }
    void setGlyphSize(double size);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    // Draws the glyph into `rect`, a square of glyphSize() centred in the view.
    virtual void paintGlyph(QPainter &painter, const QRectF &rect) const = 0;
    // A change of what the glyph shows.
    void glyphChanged();

private:
    QColor m_color = Qt::white;
    double m_glyphSize;
};

// The soft dark edge glyphs over pictures get, so white stays readable on light pictures too.
inline QColor VUBadgeOutlineColor()
{
    return QColor(0, 0, 0, 90);
}
