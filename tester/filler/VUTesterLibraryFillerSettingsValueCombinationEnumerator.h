#pragma once
// Turns one snapshot of the filler settings into a stream of concrete combinations, one per asset:
// enumerated settings advance like an odometer ("imageOrientation" fastest, "media" slowest),
// random ones are drawn afresh on every read, plain ones pass through; each combination gets a
// location scattered within the chosen radius.

#include "filler/VUTesterLibraryFillerSettings.h"

#include <QHash>

#include <memory>

class VUTESTER_EXPORT VUTesterLibraryFillerSettingsValueCombinationEnumerator {
public:
    // A copy of `settings` (the shared instance when null) is taken now; later changes to the live
    // settings do not reach the enumerator.
    explicit VUTesterLibraryFillerSettingsValueCombinationEnumerator(const VUTesterLibraryFillerSettings *settings = nullptr);
    ~VUTesterLibraryFillerSettingsValueCombinationEnumerator();

    // Advances to the next combination and picks a new location. Never ends: the count bounds the
    // walk, and after the last combination the first comes again.
    void nextCombination();

    qint64 fillDestination() const;
    // The settings' count, or for "Automatic (One of Each)" one asset per combination of the
    // enumerated settings.
    qint64 numberOfAssetsToAdd() const;
    qint64 media() const;
    qint64 orientation() const;
    // Single precision, as stored by the screen, widened.
    double aspectRatio() const;
    qint64 longSide() const;
    qint64 content() const;
    qint64 imageOrientation() const;
    // The location of the current combination (see TWLocationValue), or nil.
    QVariant location() const { return m_location; }
    qint64 locationRadius() const;

    // The enumeration order, slowest first.
    static const QStringList &settingsEnumerationOrder();

private:
    QVariant _valueForSetting(const QString &key) const;
    void _selectNextLocation();

    std::unique_ptr<VUTesterLibraryFillerSettings> m_settings;
    QHash<QString, QVariantList> m_values;
    QHash<QString, int> m_indexes;
    QVariant m_location;
};
