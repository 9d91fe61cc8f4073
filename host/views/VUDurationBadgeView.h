#pragma once
// A video's length at the bottom right of its picture ("0:05", "1:02:03"), over a shade that
// darkens the picture's bottom edge so the text reads on any picture.

#include "VUBadgeView.h"

class VUDurationBadgeView : public VUBadgeView {
    Q_OBJECT
public:
    static constexpr double kDefaultFontSize = 11;

    explicit VUDurationBadgeView(QWidget *parent = nullptr);

    // Minutes and seconds, with hours in front from an hour on; rounded to the second, never
    // below zero.
    static QString textForDuration(double seconds);
    // Draws `text` at the bottom right of `cell`, in `fontSize` pixels, over the shade when asked.
    static void paintDurationBadge(QPainter &painter, const QRectF &cell, const QString &text, const QColor &color,
                                   double fontSize = kDefaultFontSize, bool shade = true);

    double duration() const { return m_duration; }
    void setDuration(double seconds);
    bool showsShade() const { return m_showsShade; }
    void setShowsShade(bool shows);

    // The glyph size is the text's size in pixels; the view spans the picture's width.
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void paintGlyph(QPainter &, const QRectF &) const override {}

private:
    double m_duration = 0;
    bool m_showsShade = true;
};
