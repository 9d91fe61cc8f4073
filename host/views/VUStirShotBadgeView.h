#pragma once
// The Stir Shot mark at the top left of a Stir Shot's picture: a dotted ring around a ring around
// a dot. Struck through, it says the Stir Shot is off (it shows as a still).

#include "VUBadgeView.h"

class VUStirShotBadgeView : public VUBadgeView {
    Q_OBJECT
public:
    static constexpr double kDefaultSize = 16;

    explicit VUStirShotBadgeView(QWidget *parent = nullptr);

    // The mark across `diameter` points round `centre`, with its soft outline.
    static void paintStirShotBadge(QPainter &painter, QPointF centre, double diameter, const QColor &color, bool off = false);

    bool isOff() const { return m_off; }
    void setOff(bool off);

protected:
    void paintGlyph(QPainter &painter, const QRectF &rect) const override;

private:
    bool m_off = false;
};
