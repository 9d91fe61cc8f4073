#include "review/VUTesterStoryletsFontsSettingParameters.h"

#include "review/VUTesterStoryletsTitleParameter.h"
#include "shell/VUTesterSettings.h"
#include "storylets/VXStoryletsSpecs.h"

#include <photos/VHAssetCollection.h>

VUTesterGroupedValues VUTesterStoryletsTitleFontNameParameter::groupedValues() const
{
    // The host's fonts do not change while the process runs.
    static const QVariantList neutral = [] {
        QVariantList fonts;
        for (int category = 1; category <= 6; ++category)
            fonts << VHAssetCollection::titleFontNameForTitleCategory(category);
        return fonts;
    }();
    QVariantList supported;
    for (const QString &font : VXStoryletsFontsSpec::supportedTitleFontNames())
        supported << font;
    return {{QStringLiteral("10. Neutral Fonts"), neutral},
            {QStringLiteral("20. Supported Fonts"), supported},
            {QStringLiteral("30. Other"), {QStringLiteral("Chalkduster")}}};
}

std::optional<QVariantList> VUTesterStoryletsSubtitleParameter::values() const
{
    return QVariantList{
        QStringLiteral("Minneapolis, MN"),
        QString(""),
        QStringLiteral("2016"),
        QStringLiteral("Switzerland"),
        QStringLiteral("La Cañada Flintridge, CA"),
        QStringLiteral("United States & Australia"),
        QStringLiteral("January 1 – December 31, 2016"),
        VUTesterStoryletsTitleParameter::longWelshName(),
        QStringLiteral("יְרוּשָׁלַיִם"),
        QStringLiteral("القُدس"),
    };
}

VUTesterGroupedValues VUTesterStoryletsTileKindParameter::groupedValues() const
{
    // Largest first, on purpose: the header leads the sheet.
    return {{QStringLiteral("10. All"), VUTesterIntegerValues({4, 3, 2, 1, 0})}};
}

QMap<QString, QString> VUTesterStoryletsTileKindParameter::valueTitles() const
{
    return {{"0", QStringLiteral("Today Widget")}, {"1", QStringLiteral("Related")}, {"2", QStringLiteral("Feed Small")},
            {"3", QStringLiteral("Feed Big")},     {"4", QStringLiteral("Header")}};
}

VUTesterGroupedValues VUTesterStoryletsFormFactorParameter::groupedValues() const
{
    return {{kDefaultGroupLabel, VUTesterIntegerValues({0})}, {QStringLiteral("10. All"), VUTesterIntegerValues({0, 1, 2, 3, 4, 5})}};
}

QMap<QString, QString> VUTesterStoryletsFormFactorParameter::valueTitles() const
{
    return {{"0", QStringLiteral("4” Corvel")},    {"1", QStringLiteral("4.7” Corvel")},   {"2", QStringLiteral("5.5” Corvel")},
            {"3", QStringLiteral("9.7” Plenna")},  {"4", QStringLiteral("12.9” Plenna")}, {"5", QStringLiteral("TV")}};
}

VUTesterGroupedValues VUTesterStoryletsOrientationParameter::groupedValues() const
{
    return {{kDefaultGroupLabel, VUTesterIntegerValues({1})}, {QStringLiteral("10. All"), VUTesterIntegerValues({1, 2})}};
}

QMap<QString, QString> VUTesterStoryletsOrientationParameter::valueTitles() const
{
    // "Lanscape" is how the reviewers know the row; kept as it is.
    return {{"1", QStringLiteral("Portrait")}, {"2", QStringLiteral("Lanscape")}};
}

std::vector<std::unique_ptr<VUTesterSettingParameter>> VUTesterStoryletsFontsSettingParameters()
{
    std::vector<std::unique_ptr<VUTesterSettingParameter>> parameters;
    parameters.push_back(std::make_unique<VUTesterStoryletsTitleFontNameParameter>());
    parameters.push_back(std::make_unique<VUTesterStoryletsTitleParameter>());
    parameters.push_back(std::make_unique<VUTesterStoryletsSubtitleParameter>());
    parameters.push_back(std::make_unique<VUTesterStoryletsTileKindParameter>());
    parameters.push_back(std::make_unique<VUTesterStoryletsFormFactorParameter>());
    parameters.push_back(std::make_unique<VUTesterStoryletsOrientationParameter>());
    return parameters;
}
