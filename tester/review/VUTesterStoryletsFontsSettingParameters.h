#pragma once
// The six dimensions of a Storylet title card under review: font, title, subtitle, tile kind,
// form factor and orientation.

#include "review/VUTesterSettingParameter.h"

#include <memory>
#include <vector>

class VUTESTER_EXPORT VUTesterStoryletsTitleFontNameParameter : public VUTesterSettingParameter {
public:
    QString name() const override { return QStringLiteral("Font"); }
    QString key() const override { return QStringLiteral("titleFontName"); }
    // The host's title fonts of categories 1 to 6, the fonts the feed supports, and one font that
    // no machine here has.
    VUTesterGroupedValues groupedValues() const override;
};

class VUTESTER_EXPORT VUTesterStoryletsSubtitleParameter : public VUTesterSettingParameter {
public:
    QString name() const override { return QStringLiteral("Subtitle"); }
    QString key() const override { return QStringLiteral("subtitleText"); }
    std::optional<QVariantList> values() const override;
    bool allowStringEdit() const override { return true; }
};

// Tile kinds: 0 today widget, 1 related, 2 feed small, 3 feed big, 4 header.
class VUTESTER_EXPORT VUTesterStoryletsTileKindParameter : public VUTesterSettingParameter {
public:
    QString name() const override { return QStringLiteral("Tile Kind"); }
    QString key() const override { return QStringLiteral("tileKind"); }
    VUTesterGroupedValues groupedValues() const override;
    QMap<QString, QString> valueTitles() const override;
};

// Form factors: 0 to 2 phones, 3 and 4 tablets, 5 a TV.
class VUTESTER_EXPORT VUTesterStoryletsFormFactorParameter : public VUTesterSettingParameter {
public:
    QString name() const override { return QStringLiteral("Form Factor"); }
    QString key() const override { return QStringLiteral("formFactor"); }
    VUTesterGroupedValues groupedValues() const override;
    QMap<QString, QString> valueTitles() const override;
};

// Orientations: 1 portrait, 2 landscape.
class VUTESTER_EXPORT VUTesterStoryletsOrientationParameter : public VUTesterSettingParameter {
public:
    QString name() const override { return QStringLiteral("Orientation"); }
    QString key() const override { return QStringLiteral("orientation"); }
    VUTesterGroupedValues groupedValues() const override;
    QMap<QString, QString> valueTitles() const override;
};

// Six new parameters, in order: title font name, title, subtitle, tile kind, form factor,
// orientation.
VUTESTER_EXPORT std::vector<std::unique_ptr<VUTesterSettingParameter>> VUTesterStoryletsFontsSettingParameters();
