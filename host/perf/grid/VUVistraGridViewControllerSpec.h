#pragma once
// How the photo grid looks on a kind of device: given the width it has and the safe-area insets,
// a spec sets a VUSectionedGridLayout's columns, item size, spacing and section insets. Items are
// square, in whole points, and take the fewest columns that keep them no wider than the spec's
// preferred width: a phone 390 points wide shows four columns of 96, a pad 1024 wide six of 157.

#include "VXExtendedTraitCollection.h"

#include "ui/Geometry.h"

class VUSectionedGridLayout;

class VUVistraGridViewControllerSpec {
public:
    struct Metrics {
        int minimumColumns;
        double preferredItemWidth; // more columns as soon as items would be wider than this
        double spacing;            // between items and between rows
        ui::EdgeInsets margins;    // the section inset, besides the safe area
    };
    explicit VUVistraGridViewControllerSpec(const Metrics &metrics) : m_metrics(metrics) {}
    virtual ~VUVistraGridViewControllerSpec() = default;

    void configureGridLayout(VUSectionedGridLayout *layout, double width, const ui::EdgeInsets &safeAreaInsets) const;
    const Metrics &metrics() const { return m_metrics; }

private:
    Metrics m_metrics;
};

class VUVistraGridViewControllerPhoneSpec : public VUVistraGridViewControllerSpec {
public:
    VUVistraGridViewControllerPhoneSpec();
};

class VUVistraGridViewControllerPadSpec : public VUVistraGridViewControllerSpec {
public:
    VUVistraGridViewControllerPadSpec();
};

// The pad's spec for the large layout size class, the phone's otherwise.
const VUVistraGridViewControllerSpec &VUVistraGridViewControllerSpecForLayoutSizeClass(VXLayoutSizeClass sizeClass);
