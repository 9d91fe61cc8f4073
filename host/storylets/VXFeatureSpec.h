#pragma once
// The host's feature spec: the measures a screen's tiles follow for one set of traits: the content
// guide's insets, and the specs of a tile's image view and of its title and subtitle for a tile
// style and size.

#include "VXExtendedTraitCollection.h"

#include <QColor>
#include <QMarginsF>
#include <QSizeF>
#include <QString>

// Tile styles: 1 and 2 a big feed tile (square, wide), 3 a small square tile (feed, related),
// 4 a details header, 5 a today widget tile; 0 anything else.
enum class VXTileStyle { Default = 0, FeedBigSquare = 1, FeedBigWide = 2, Small = 3, Header = 4, Widget = 5 };

enum class VXScrollAxis { Horizontal, Vertical };

enum class VXTitleContext { StoryletTile };

struct VXImageViewSpec {
    QColor backgroundColor;
    double cornerRadius = 0;
};

struct VXTitleSubtitleSpec {
    QString titleFontName;
    double titleFontSize = 17;
    double subtitleFontSize = 11;
    double lineSpacing = 0;                // extra points between title lines
    double titleSubtitleSpacing = 4;
    int maximumTitleLines = 3;
    double minimumScaleFactor = 0.6;       // titles shrink down to this share to fit
    QColor textColor = QColor(28, 28, 30);
};

struct VXTitleSubtitleSpecOptions {
    QString titleFontName;                 // the family; the spec's own when empty
};

class VXFeatureSpec {
public:
    explicit VXFeatureSpec(const VXExtendedTraitCollection &traits);

    const VXExtendedTraitCollection &traitCollection() const { return m_traits; }
    QMarginsF contentGuideInsetsForScrollAxis(VXScrollAxis axis) const;
    VXImageViewSpec imageViewSpecForTileStyle(VXTileStyle style, QSizeF size) const;
    VXTitleSubtitleSpec titleSubtitleSpecForContext(VXTitleContext context, VXTileStyle style, QSizeF size,
                                                    const VXTitleSubtitleSpecOptions &options = {}) const;

private:
    const VXExtendedTraitCollection &m_traits;
};
