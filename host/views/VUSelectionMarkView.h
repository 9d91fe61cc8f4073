#pragma once
// The mark of a picture in a selection, at its bottom right: an empty ring over a light shade
// while it is not selected, a disc in the selection colour with a check once it is. A mark that
// cannot be selected is dimmed.

#include "VUBadgeView.h"

class VUSelectionMarkView : public VUBadgeView {
    Q_OBJECT
public:
    static constexpr double kDefaultSize = 24;

    explicit VUSelectionMarkView(QWidget *parent = nullptr);

    // `color` fills the selected disc; the ring and check are white.
    static void paintSelectionMark(QPainter &painter, const QRectF &rect, const QColor &color, bool selected, bool enabled = true);

    bool isSelected() const { return m_selected; }
    void setSelected(bool selected);
    // QWidget's own enabled state dims the mark.

protected:
    void paintGlyph(QPainter &painter, const QRectF &rect) const override;
    void changeEvent(QEvent *event) override;

private:
    bool m_selected = false;
};
