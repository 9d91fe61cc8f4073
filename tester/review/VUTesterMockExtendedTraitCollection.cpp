#include "review/VUTesterMockExtendedTraitCollection.h"

#include "storylets/VXFeatureSpec.h"
#include "storylets/VXStoryletsSpecs.h"

#include <array>
#include <cmath>

QSizeF VUTesterMockExtendedTraitCollection::portraitReferenceSize(qint64 formFactor)
{
    static const std::array<QSizeF, 6> sizes = {QSizeF(320, 568),  QSizeF(375, 667),   QSizeF(414, 736),
                                                QSizeF(768, 1024), QSizeF(1024, 1366), QSizeF(1920, 1080)};
    return sizes[size_t(std::clamp<qint64>(formFactor, 0, 5))];
}

VUTesterMockExtendedTraitCollection::VUTesterMockExtendedTraitCollection(qint64 formFactor, qint64 orientation)
{
    QSizeF size = portraitReferenceSize(formFactor);
    if (orientation == 2 && formFactor != 5)
        size.transpose();
    const VXUserInterfaceIdiom idiom = formFactor == 5 ? VXUserInterfaceIdiom::TV
        : formFactor >= 3                              ? VXUserInterfaceIdiom::Pad
                                                       : VXUserInterfaceIdiom::Phone;
    updateWithReferenceSize(size, idiom);
}

VUTesterStoryletsTile VUTesterStoryletsTileForKind(qint64 tileKind, qint64 formFactor, qint64 orientation)
{
    const VUTesterMockExtendedTraitCollection traits(formFactor, orientation);
    const VXFeatureSpec featureSpec(traits);
    const VXStoryletsSpec storyletsSpec(traits, 0, 0);
    double width = traits.layoutReferenceSize().width();
    const double guide = featureSpec.contentGuideInsetsForScrollAxis(VXScrollAxis::Vertical).left();
    // 16:9 as the host stores it, in single precision.
    const double wide = double(float(16.0 / 9.0));
    double margin = guide, spacing = 0, columns = 1, aspect = wide;
    VXTileStyle style = VXTileStyle::Default;
    switch (tileKind) {
    case 0: {
        static const std::array<double, 6> widgetWidths = {304, 359, 398, 420, 556, 0};
        width = widgetWidths[size_t(std::clamp<qint64>(formFactor, 0, 5))];
        margin = formFactor < 3 ? 16 : 20;
        spacing = formFactor < 3 ? 5 : 6;
        columns = formFactor == 4 ? 6 : 4;
        aspect = 1;
        style = VXTileStyle::Widget;
        break;
    }
    case 1:
        columns = VXRelatedSpec(traits).numberOfColumns();
        aspect = 1;
        style = VXTileStyle::Small;
        break;
    case 2:
        spacing = storyletsSpec.feedInterItemSpacing();
        columns = 2;
        aspect = 1;
        style = VXTileStyle::Small;
        break;
    case 3:
        aspect = storyletsSpec.feedHeroImageAspectRatio();
        style = std::abs(aspect - 1) <= 0.00001 ? VXTileStyle::FeedBigSquare : VXTileStyle::FeedBigWide;
        break;
    case 4:
        margin = VXDetailsHeaderSpec(traits).contentInsetEdges().testFlag(Qt::LeftEdge) ? guide : 0;
        style = VXTileStyle::Header;
        break;
    default:
        break;
    }
    VUTesterStoryletsTile tile;
    tile.style = style;
    const double w = (width - 2 * margin - spacing * (columns - 1)) / columns;
    tile.size = QSizeF(w, w / aspect);
    // A TV's tiles have sizes of their own.
    if (formFactor == 5) {
        static const std::array<QSizeF, 5> tv = {QSizeF(0, 0), QSizeF(397, 397), QSizeF(300, 300), QSizeF(650, 650), QSizeF(1740, 720)};
        if (tileKind >= 0 && tileKind <= 4)
            tile.size = tv[size_t(tileKind)];
    }
    return tile;
}
