#pragma once
// The smaller specs of the Storylet screens: the feed (spacing, hero aspect), related stories
// (columns), the details header (which edges the content guide insets) and the title fonts the
// feed supports.

#include "VXExtendedTraitCollection.h"

#include <QStringList>

class VXStoryletsSpec {
public:
    VXStoryletsSpec(const VXExtendedTraitCollection &traits, quint64 options, int style);
    double feedInterItemSpacing() const { return m_interItemSpacing; }
    // Width over height of the feed's hero image.
    double feedHeroImageAspectRatio() const { return m_heroAspect; }

private:
    double m_interItemSpacing;
    double m_heroAspect;
};

class VXRelatedSpec {
public:
    explicit VXRelatedSpec(const VXExtendedTraitCollection &traits);
    int numberOfColumns() const { return m_columns; }

private:
    int m_columns;
};

class VXDetailsHeaderSpec {
public:
    explicit VXDetailsHeaderSpec(const VXExtendedTraitCollection &traits);
    Qt::Edges contentInsetEdges() const { return m_edges; }

private:
    Qt::Edges m_edges;
};

class VXStoryletsFontsSpec {
public:
    // Families a Storylet title may be set in; all come from fonts the application installs.
    static QStringList supportedTitleFontNames();
};
