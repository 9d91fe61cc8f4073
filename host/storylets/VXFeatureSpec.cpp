#include "VXFeatureSpec.h"

#include <algorithm>

VXFeatureSpec::VXFeatureSpec(const VXExtendedTraitCollection &traits) : m_traits(traits) {}

QMarginsF VXFeatureSpec::contentGuideInsetsForScrollAxis(VXScrollAxis axis) const
{
    const double width = m_traits.layoutReferenceSize().width();
    double side;
    if (m_traits.userInterfaceIdiom() == VXUserInterfaceIdiom::TV)
        side = 90;
    else if (m_traits.layoutSizeClass() == VXLayoutSizeClass::Compact)
        side = width >= 414 ? 20 : 16;
    else
        side = width >= 1024 ? 64 : 40;
    // Content that scrolls sideways runs to the edges; the guide insets only the scrolling ends.
    return axis == VXScrollAxis::Vertical ? QMarginsF(side, 0, side, 0) : QMarginsF(0, 0, 0, 0);
}

VXImageViewSpec VXFeatureSpec::imageViewSpecForTileStyle(VXTileStyle style, QSizeF size) const
{
    VXImageViewSpec spec;
    spec.backgroundColor = QColor(229, 229, 234);
    switch (style) {
    case VXTileStyle::Header: spec.cornerRadius = 0; break;
    case VXTileStyle::Widget: spec.cornerRadius = 4; break;
    case VXTileStyle::Small: spec.cornerRadius = std::min(8.0, size.width() * 0.05); break;
    default: spec.cornerRadius = std::min(12.0, size.width() * 0.03); break;
    }
    return spec;
}

VXTitleSubtitleSpec VXFeatureSpec::titleSubtitleSpecForContext(VXTitleContext, VXTileStyle style, QSizeF size,
                                                               const VXTitleSubtitleSpecOptions &options) const
{
    // Title sizes follow the tile's width within bounds per style: big tiles get display sizes,
    // small ones stay readable.
    struct Measures {
        double share, minimum, maximum;
        int lines;
    };
    Measures m{0.08, 14, 36, 3};
    switch (style) {
    case VXTileStyle::FeedBigSquare:
    case VXTileStyle::FeedBigWide: m = {0.09, 24, 54, 3}; break;
    case VXTileStyle::Small: m = {0.1, 14, 30, 2}; break;
    case VXTileStyle::Header: m = {0.06, 26, 64, 2}; break;
    case VXTileStyle::Widget: m = {0.11, 12, 20, 2}; break;
    case VXTileStyle::Default: break;
    }
    VXTitleSubtitleSpec spec;
    spec.titleFontName = options.titleFontName.isEmpty() ? QStringLiteral("Noto Serif Display") : options.titleFontName;
    spec.titleFontSize = std::clamp(size.width() * m.share, m.minimum, m.maximum);
    spec.subtitleFontSize = std::max(10.0, spec.titleFontSize * 0.42);
    spec.titleSubtitleSpacing = spec.titleFontSize * 0.2;
    spec.maximumTitleLines = m.lines;
    return spec;
}
