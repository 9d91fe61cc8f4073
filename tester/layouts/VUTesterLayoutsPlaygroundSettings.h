#pragma once
// Options of a layouts playground: the reference size of its views, how many items and views it
// shows, what the items are and how they look, and what a tap on an item does. Each layout
// generator's playground keeps its own values in an object of a subclass, a child of the root
// with its own screen; this class has neither, only the keys and their section of rows.

#include "shell/VUTesterSettings.h"

class VUTESTER_EXPORT VUTesterLayoutsPlaygroundSettings : public VUTesterSettings {
    Q_OBJECT
public:
    // Kinds of input item; any other value is sized like a square and has no symbol.
    enum ItemKind : qint64 { Squares = 0, Portraits = 1, Landscapes = 2, Panos = 3, VerticalPanos = 4 };
    enum ColorScheme : qint64 { ColorNone = 0, ColorByIndex = 1, ColorByKind = 2, ColorByWeight = 3 };
    enum TapBehavior : qint64 {
        TapNone = 0,
        TapTogglePanos = 1,
        TapRotate = 2,
        TapCycleNonPanos = 3,
        TapCycleThrough = 4,
        TapChangeWeight = 5,
        TapIncreaseWeight = 6,
        TapDecreaseWeight = 7,
    };

    VUTesterLayoutsPlaygroundSettings();
    void setDefaultValues() override;

    // The section titled "Playground Settings": one row per key.
    static TWSection playgroundSettingsSection();
    // The titles of the item kinds, in the order of their values.
    static QStringList itemKindTitles();

    double referenceWidth() const { return doubleValue(QStringLiteral("referenceWidth")); }
    void setReferenceWidth(double width) { setValue(QStringLiteral("referenceWidth"), width); }
    double referenceAspectRatio() const { return doubleValue(QStringLiteral("referenceAspectRatio")); }
    void setReferenceAspectRatio(double ratio) { setValue(QStringLiteral("referenceAspectRatio"), ratio); }
    qint64 maximumNumberOfItems() const { return int64Value(QStringLiteral("maximumNumberOfItems")); }
    void setMaximumNumberOfItems(qint64 count) { setValue(QStringLiteral("maximumNumberOfItems"), QVariant::fromValue(count)); }
    qint64 maximumTotalNumberOfItems() const { return int64Value(QStringLiteral("maximumTotalNumberOfItems")); }
    void setMaximumTotalNumberOfItems(qint64 count) { setValue(QStringLiteral("maximumTotalNumberOfItems"), QVariant::fromValue(count)); }
    // Counts from 1; 0 means no key item.
    qint64 keyItemIndex() const { return int64Value(QStringLiteral("keyItemIndex")); }
    void setKeyItemIndex(qint64 index) { setValue(QStringLiteral("keyItemIndex"), QVariant::fromValue(index)); }
    // -1 increasing, 0 constant, 1 decreasing.
    qint64 itemWeightsOrdering() const { return int64Value(QStringLiteral("itemWeightsOrdering")); }
    void setItemWeightsOrdering(qint64 ordering) { setValue(QStringLiteral("itemWeightsOrdering"), QVariant::fromValue(ordering)); }
    qint64 colorScheme() const { return int64Value(QStringLiteral("colorScheme")); }
    void setColorScheme(qint64 scheme) { setValue(QStringLiteral("colorScheme"), QVariant::fromValue(scheme)); }
    bool displayedIndexesStartAtZero() const { return boolValue(QStringLiteral("displayedIndexesStartAtZero")); }
    void setDisplayedIndexesStartAtZero(bool start) { setValue(QStringLiteral("displayedIndexesStartAtZero"), start); }
    bool showsReferenceSize() const { return boolValue(QStringLiteral("showsReferenceSize")); }
    void setShowsReferenceSize(bool shows) { setValue(QStringLiteral("showsReferenceSize"), shows); }
    bool showsCorners() const { return boolValue(QStringLiteral("showsCorners")); }
    void setShowsCorners(bool shows) { setValue(QStringLiteral("showsCorners"), shows); }
    bool showsBuildingBlockSize() const { return boolValue(QStringLiteral("showsBuildingBlockSize")); }
    void setShowsBuildingBlockSize(bool shows) { setValue(QStringLiteral("showsBuildingBlockSize"), shows); }
    qint64 defaultInputKind() const { return int64Value(QStringLiteral("defaultInputKind")); }
    void setDefaultInputKind(qint64 kind) { setValue(QStringLiteral("defaultInputKind"), QVariant::fromValue(kind)); }
    qint64 tapBehavior() const { return int64Value(QStringLiteral("tapBehavior")); }
    void setTapBehavior(qint64 behavior) { setValue(QStringLiteral("tapBehavior"), QVariant::fromValue(behavior)); }
};
