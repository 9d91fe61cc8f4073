#pragma once
// A horizontal strip of aspect-fitted items: each as tall as the share `verticalFraction` of
// the view allows less the top and bottom insets, as wide as its aspect ratio makes it (but no
// wider than the view less the left and the bottom inset: the right inset is never used), with
// the strip's very first item centred and room after the last to scroll it to the centre.

#include "VUTesterContinuousCollectionViewLayout.h"

#include "ui/Geometry.h"

class VUTESTER_EXPORT VUTesterSharingCollectionViewLayout : public VUTesterContinuousCollectionViewLayout {
    Q_OBJECT
public:
    explicit VUTesterSharingCollectionViewLayout(QObject *parent = nullptr);

    double verticalFraction() const { return m_verticalFraction; }
    // Invalidates the layout on a change.
    void setVerticalFraction(double fraction);
    // Only the width counts: the gap between neighbours.
    QSizeF interItemSpacing() const { return m_interItemSpacing; }
    // Only stores it: it takes effect at the next pass something else starts.
    void setInterItemSpacing(QSizeF spacing) { m_interItemSpacing = spacing; }
    ui::EdgeInsets insets() const { return m_insets; }
    // Invalidates the layout on a change.
    void setInsets(const ui::EdgeInsets &insets);

    QSizeF _visibleSize() const { return m_visibleSize; }
    void _setVisibleSize(QSizeF size) { m_visibleSize = size; }

    void prepareLayout() override;
    QSizeF collectionViewContentSize() override;
    bool shouldInvalidateLayoutForBoundsChange(const QRectF &newBounds) override;

private:
    double m_verticalFraction = 1.0;
    QSizeF m_interItemSpacing{0, 0};
    ui::EdgeInsets m_insets;
    QSizeF m_visibleSize;
};
