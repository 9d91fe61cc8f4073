#pragma once
// The favourite badge at the bottom left of a picture: a heart, filled for a favourite and only
// outlined for an asset that is not one (as an editor shows the choice).

#include "VUBadgeView.h"

class QPainterPath;

class VUFavoriteBadgeView : public VUBadgeView {
    Q_OBJECT
public:
    static constexpr double kDefaultSize = 16;

    explicit VUFavoriteBadgeView(QWidget *parent = nullptr);

    // The heart that fills `rect`, a square.
    static QPainterPath heartPath(const QRectF &rect);
    static void paintFavoriteBadge(QPainter &painter, const QRectF &rect, const QColor &color, bool favorite = true);

    bool isFavorite() const { return m_favorite; }
    void setFavorite(bool favorite);

protected:
    void paintGlyph(QPainter &painter, const QRectF &rect) const override;

private:
    bool m_favorite = true;
};
