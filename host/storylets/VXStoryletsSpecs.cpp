#include "VXStoryletsSpecs.h"

VXStoryletsSpec::VXStoryletsSpec(const VXExtendedTraitCollection &traits, quint64, int)
{
    const bool compact = traits.layoutSizeClass() == VXLayoutSizeClass::Compact;
    m_interItemSpacing = compact ? 10 : 20;
    // Phones in portrait show a square hero; wider screens a 3:2 one.
    m_heroAspect = compact && traits.layoutOrientation() != VXLayoutOrientation::Landscape ? 1.0 : 1.5;
}

VXRelatedSpec::VXRelatedSpec(const VXExtendedTraitCollection &traits)
{
    const double width = traits.layoutReferenceSize().width();
    m_columns = width >= 1000 ? 4 : width >= 700 ? 3 : 2;
}

VXDetailsHeaderSpec::VXDetailsHeaderSpec(const VXExtendedTraitCollection &traits)
{
    // Headers run edge to edge on phones; on wider screens they keep to the content guide.
    m_edges = traits.layoutSizeClass() == VXLayoutSizeClass::Compact ? Qt::Edges() : (Qt::LeftEdge | Qt::RightEdge);
}

QStringList VXStoryletsFontsSpec::supportedTitleFontNames()
{
    return {QStringLiteral("Noto Serif Display"), QStringLiteral("Noto Sans Display"), QStringLiteral("Noto Serif"),
            QStringLiteral("Noto Sans"),          QStringLiteral("FreeSerif"),         QStringLiteral("FreeSans"),
            QStringLiteral("DejaVu Serif"),       QStringLiteral("DejaVu Sans"),       QStringLiteral("WenQuanYi Micro Hei")};
}
