#pragma once
// The gadget collection's layout: cards one under another across the width, each as tall as its
// sizing delegate says for that width, with a gap between cards and a wider one between sections.
// Frames are computed once per pass; a rectangle query finds its first card by binary search.

#include "ui/CollectionViewLayout.h"
#include "ui/Geometry.h"

#include <vector>

class VXGadgetLayoutSizing {
public:
    virtual ~VXGadgetLayoutSizing() = default;
    virtual double heightForGadgetAtIndexPath(const ui::IndexPath &indexPath, double width) = 0;
};

class VXGadgetCollectionViewLayout : public ui::CollectionViewLayout {
    Q_OBJECT
public:
    static constexpr double CardSpacing = 12;
    static constexpr double SectionSpacing = 28;
    static constexpr ui::EdgeInsets Margins{16, 16, 16, 16};

    explicit VXGadgetCollectionViewLayout(QObject *parent = nullptr);

    VXGadgetLayoutSizing *sizing() const { return m_sizing; }
    void setSizing(VXGadgetLayoutSizing *sizing);

    void prepareLayout() override;
    QList<ui::CollectionViewLayoutAttributes> layoutAttributesForElementsInRect(const QRectF &rect) override;
    std::optional<ui::CollectionViewLayoutAttributes> layoutAttributesForItemAtIndexPath(const ui::IndexPath &indexPath) override;
    QSizeF collectionViewContentSize() override { return m_contentSize; }
    bool shouldInvalidateLayoutForBoundsChange(const QRectF &newBounds) override;

private:
    VXGadgetLayoutSizing *m_sizing = nullptr;
    std::vector<QRectF> m_frames;             // by global item index, top to bottom
    std::vector<ui::IndexPath> m_indexPaths;  // the same order
    std::vector<qint64> m_sectionStarts;      // global index of each section's first card
    QSizeF m_contentSize;
    double m_preparedWidth = -1;
};
