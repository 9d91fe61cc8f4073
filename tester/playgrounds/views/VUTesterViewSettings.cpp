#include "playgrounds/views/VUTesterViewSettings.h"

#include "playgrounds/views/VUTesterViewsPlaygroundViewController.h"

#include <array>

namespace {

struct NamedColor {
    const char *title;
    QColor color;
};

const std::array<NamedColor, 6> kColors{{
    {"White", QColor(255, 255, 255)},
    {"Black", QColor(0, 0, 0)},
    {"Blue", QColor(0, 122, 255)},
    {"Red", QColor(255, 59, 48)},
    {"Yellow", QColor(255, 204, 0)},
    {"Green", QColor(52, 199, 89)},
}};

TWRowPtr colorRow(const QString &title, const QString &key)
{
    QVariantList values;
    QStringList titles;
    for (size_t i = 0; i < kColors.size(); ++i) {
        values << QVariant::fromValue(qint64(i));
        titles << QString::fromLatin1(kColors[i].title);
    }
    auto row = TWChoiceRow::rowWithTitle(title, key);
    row->possibleValues(values, titles);
    return row;
}

} // namespace

VUTesterViewSettings::VUTesterViewSettings()
{
    declareKey(QStringLiteral("badgeSize"), Kind::Double);
    declareKey(QStringLiteral("badgeColor"), Kind::Int64);
    declareKey(QStringLiteral("durationFontSize"), Kind::Double);
    declareKey(QStringLiteral("selectionMarkSize"), Kind::Double);
    declareKey(QStringLiteral("selectionColor"), Kind::Int64);
    declareKey(QStringLiteral("progressRingSize"), Kind::Double);
    declareKey(QStringLiteral("progressLineWidth"), Kind::Double);
    declareKey(QStringLiteral("progressColor"), Kind::Int64);
    declareKey(QStringLiteral("progress"), Kind::Double);
    declareKey(QStringLiteral("background"), Kind::Int64);
}

void VUTesterViewSettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    setBadgeSize(16);
    setBadgeColor(ColorWhite);
    setDurationFontSize(11);
    setSelectionMarkSize(24);
    setSelectionColor(ColorBlue);
    setProgressRingSize(40);
    setProgressLineWidth(3);
    setProgressColor(ColorBlue);
    setProgress(0.4);
    setBackground(BackgroundPicture);
}

QColor VUTesterViewSettings::colorForValue(qint64 value)
{
    return value >= 0 && value < qint64(kColors.size()) ? kColors[size_t(value)].color : kColors[ColorWhite].color;
}

TWModulePtr VUTesterViewSettings::settingsControllerModule()
{
    auto background = TWChoiceRow::rowWithTitle(QStringLiteral("Background"), QStringLiteral("background"));
    background->possibleValues(VUTesterIntegerValues({BackgroundPicture, BackgroundLight, BackgroundDark}),
                               {QStringLiteral("Picture"), QStringLiteral("Light"), QStringLiteral("Dark")});
    return TWModule::moduleWithTitle(QStringLiteral("Views"), {
        TWSection::sectionWithRows({playgroundRow(QStringLiteral("Test Views"), [] { return new VUTesterViewsPlaygroundViewController; })}),
        TWSection::sectionWithRows({sliderRow(QStringLiteral("Badge Size"), QStringLiteral("badgeSize"), 8, 48, 1),
                                    colorRow(QStringLiteral("Badge Color"), QStringLiteral("badgeColor")),
                                    sliderRow(QStringLiteral("Duration Font Size"), QStringLiteral("durationFontSize"), 8, 24, 1)},
                                   QStringLiteral("Badges")),
        TWSection::sectionWithRows({sliderRow(QStringLiteral("Selection Mark Size"), QStringLiteral("selectionMarkSize"), 12, 60, 1),
                                    colorRow(QStringLiteral("Selection Color"), QStringLiteral("selectionColor"))},
                                   QStringLiteral("Selection Marks")),
        TWSection::sectionWithRows({sliderRow(QStringLiteral("Ring Size"), QStringLiteral("progressRingSize"), 16, 120, 1),
                                    sliderRow(QStringLiteral("Line Width"), QStringLiteral("progressLineWidth"), 1, 12, 0.5),
                                    colorRow(QStringLiteral("Ring Color"), QStringLiteral("progressColor")),
                                    sliderRow(QStringLiteral("Progress"), QStringLiteral("progress"), 0, 1, 0.05)},
                                   QStringLiteral("Progress Rings")),
        TWSection::sectionWithRows({background}, QStringLiteral("Specimens")),
        restoreDefaultsSection(),
    });
}
