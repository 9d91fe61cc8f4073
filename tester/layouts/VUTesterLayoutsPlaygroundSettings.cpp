#include "layouts/VUTesterLayoutsPlaygroundSettings.h"

VUTesterLayoutsPlaygroundSettings::VUTesterLayoutsPlaygroundSettings()
{
    declareKey(QStringLiteral("referenceWidth"), Kind::Double);
    declareKey(QStringLiteral("referenceAspectRatio"), Kind::Double);
    declareKey(QStringLiteral("maximumNumberOfItems"), Kind::Int64);
    declareKey(QStringLiteral("maximumTotalNumberOfItems"), Kind::Int64);
    declareKey(QStringLiteral("keyItemIndex"), Kind::Int64);
    declareKey(QStringLiteral("itemWeightsOrdering"), Kind::Int64);
    declareKey(QStringLiteral("colorScheme"), Kind::Int64);
    declareKey(QStringLiteral("displayedIndexesStartAtZero"), Kind::Bool);
    declareKey(QStringLiteral("showsReferenceSize"), Kind::Bool);
    declareKey(QStringLiteral("showsCorners"), Kind::Bool);
    declareKey(QStringLiteral("showsBuildingBlockSize"), Kind::Bool);
    declareKey(QStringLiteral("defaultInputKind"), Kind::Int64);
    declareKey(QStringLiteral("tapBehavior"), Kind::Int64);
}

void VUTesterLayoutsPlaygroundSettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    setReferenceWidth(50.0);
    setReferenceAspectRatio(1.0);
    setMaximumNumberOfItems(12);
    setMaximumTotalNumberOfItems(2000);
    setKeyItemIndex(1);
    setItemWeightsOrdering(0);
    setColorScheme(ColorByIndex);
    setDisplayedIndexesStartAtZero(false);
    setShowsReferenceSize(false);
    setShowsCorners(false);
    setShowsBuildingBlockSize(false);
    setDefaultInputKind(Squares);
    setTapBehavior(TapTogglePanos);
}

QStringList VUTesterLayoutsPlaygroundSettings::itemKindTitles()
{
    return {QStringLiteral("Squares"), QStringLiteral("Portraits"), QStringLiteral("Landscapes"), QStringLiteral("Panos"),
            QStringLiteral("Vertical Panos")};
}

TWSection VUTesterLayoutsPlaygroundSettings::playgroundSettingsSection()
{
    auto width = TWSliderRow::rowWithTitle(QStringLiteral("Width"), QStringLiteral("referenceWidth"));
    width->minValue(50, 350);
    auto aspectRatio = TWSliderRow::rowWithTitle(QStringLiteral("Aspect Ratio"), QStringLiteral("referenceAspectRatio"));
    aspectRatio->minValue(0.5, 2.0);
    auto items = TWChoiceRow::rowWithTitle(QStringLiteral("Up to Items"), QStringLiteral("maximumNumberOfItems"));
    items->vu_possibleValues(VUTesterIntegerValues({12, 20, 30, 40, 50, 60, 70, 80, 90, 100}));
    auto total = TWChoiceRow::rowWithTitle(QStringLiteral("Max Total"), QStringLiteral("maximumTotalNumberOfItems"));
    total->vu_possibleValues(VUTesterIntegerValues({200, 500, 1000, 2000, 3000, 4000, 5000}));
    auto key = TWChoiceRow::rowWithTitle(QStringLiteral("Key Item"), QStringLiteral("keyItemIndex"));
    key->vu_possibleValues(VUTesterIntegerValues({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
    auto weights = TWChoiceRow::rowWithTitle(QStringLiteral("Weights"), QStringLiteral("itemWeightsOrdering"));
    weights->possibleValues(VUTesterIntegerValues({-1, 0, 1}), {QStringLiteral("Increasing"), QStringLiteral("Constant"), QStringLiteral("Decreasing")});
    auto color = TWChoiceRow::rowWithTitle(QStringLiteral("Color"), QStringLiteral("colorScheme"));
    color->possibleValues(VUTesterIntegerValues({ColorNone, ColorByIndex, ColorByKind, ColorByWeight}),
                          {QStringLiteral("None"), QStringLiteral("Index"), QStringLiteral("Kind"), QStringLiteral("Weight")});
    auto input = TWChoiceRow::rowWithTitle(QStringLiteral("Input"), QStringLiteral("defaultInputKind"));
    input->possibleValues(VUTesterIntegerValues({Squares, Portraits, Landscapes, Panos, VerticalPanos}), itemKindTitles());
    auto tap = TWChoiceRow::rowWithTitle(QStringLiteral("Tap Behavior"), QStringLiteral("tapBehavior"));
    tap->possibleValues(VUTesterIntegerValues({TapNone, TapTogglePanos, TapRotate, TapCycleNonPanos, TapCycleThrough, TapChangeWeight, TapIncreaseWeight,
                                  TapDecreaseWeight}),
                        {QStringLiteral("None"), QStringLiteral("Toggle Panos"), QStringLiteral("Rotate"), QStringLiteral("Cycle Non Panos"),
                         QStringLiteral("Cycle Through"), QStringLiteral("Change Weight"), QStringLiteral("Increase Weight"),
                         QStringLiteral("Decrease Weight")});
    return TWSection::sectionWithRows(
        {width, aspectRatio, items, total, key, weights, color,
         TWSwitchRow::rowWithTitle(QStringLiteral("Displayed Indexes Start at 0"), QStringLiteral("displayedIndexesStartAtZero")),
         TWSwitchRow::rowWithTitle(QStringLiteral("Show Reference Size"), QStringLiteral("showsReferenceSize")),
         TWSwitchRow::rowWithTitle(QStringLiteral("Show Corners"), QStringLiteral("showsCorners")),
         TWSwitchRow::rowWithTitle(QStringLiteral("Building Block Size"), QStringLiteral("showsBuildingBlockSize")), input, tap},
        QStringLiteral("Playground Settings"));
}
