#pragma once
// The library filler's recipe (how many assets, which media, orientation, aspect ratio, size,
// content, image orientation, location), its presets and its screen. Several choices also accept
// the sentinels Enumerate (step through every value) and Random (draw one value per asset).

#include "filler/VUTesterLocationSelectionViewController.h"
#include "shell/VUTesterSettings.h"

#include <limits>
#include <memory>
#include <vector>

class VUTesterLibraryFillOperation;

class VUTESTER_EXPORT VUTesterLibraryFillerSettings : public VUTesterChildSettings<VUTesterLibraryFillerSettings>,
                                                      public VUTesterLocationSelectorDelegate {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "libraryFillerSettings";
    static constexpr qint64 kEnumerate = 1000;
    static constexpr qint64 kRandom = 1001;
    static constexpr qint64 kAutomaticNumberOfAssets = std::numeric_limits<qint64>::max();

    VUTesterLibraryFillerSettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    // The plain values of an enumerable or choice setting and their titles, without the
    // sentinels. Keys: "media", "orientation", "aspectRatio", "imageOrientation",
    // "fillDestination", "locationRadius"; any other key gives two empty lists. Either output may
    // be null.
    static void getPossibleValues(QVariantList *values, QStringList *titles, const QString &setting);

    // The values and titles of "content", which is a plain choice with no sentinels.
    static void getContentChoices(QVariantList *values, QStringList *titles);

    // The presets, by title, in screen order.
    static QStringList presetTitles();
    // Applies a preset, its title in any case; false for an unknown title.
    bool applyPreset(const QString &title);

    qint64 fillDestination() const { return int64Value(QStringLiteral("fillDestination")); }
    void setFillDestination(qint64 v) { setValue(QStringLiteral("fillDestination"), QVariant::fromValue(v)); }
    qint64 numberOfAssetsToAdd() const { return int64Value(QStringLiteral("numberOfAssetsToAdd")); }
    void setNumberOfAssetsToAdd(qint64 v) { setValue(QStringLiteral("numberOfAssetsToAdd"), QVariant::fromValue(v)); }
    qint64 media() const { return int64Value(QStringLiteral("media")); }
    void setMedia(qint64 v) { setValue(QStringLiteral("media"), QVariant::fromValue(v)); }
    qint64 orientation() const { return int64Value(QStringLiteral("orientation")); }
    void setOrientation(qint64 v) { setValue(QStringLiteral("orientation"), QVariant::fromValue(v)); }
    double aspectRatio() const { return doubleValue(QStringLiteral("aspectRatio")); }
    void setAspectRatio(double v) { setValue(QStringLiteral("aspectRatio"), v); }
    qint64 longSide() const { return int64Value(QStringLiteral("longSide")); }
    void setLongSide(qint64 v) { setValue(QStringLiteral("longSide"), QVariant::fromValue(v)); }
    qint64 content() const { return int64Value(QStringLiteral("content")); }
    void setContent(qint64 v) { setValue(QStringLiteral("content"), QVariant::fromValue(v)); }
    qint64 imageOrientation() const { return int64Value(QStringLiteral("imageOrientation")); }
    void setImageOrientation(qint64 v) { setValue(QStringLiteral("imageOrientation"), QVariant::fromValue(v)); }
    // A location value (see TWLocationValue) or nil.
    QVariant location() const { return valueForKey(QStringLiteral("location")); }
    void setLocation(const QVariant &v) { setValue(QStringLiteral("location"), v); }
    // Metres; 0 keeps every asset at the location itself.
    qint64 locationRadius() const { return int64Value(QStringLiteral("locationRadius")); }
    void setLocationRadius(qint64 v) { setValue(QStringLiteral("locationRadius"), QVariant::fromValue(v)); }

    // Whether `location` is set; it follows every change of the location.
    bool internalLocationIsSet() const { return boolValue(QStringLiteral("internalLocationIsSet")); }
    QString internalProgressTitle() const { return stringValue(QStringLiteral("internalProgressTitle")); }
    bool internalCancelable() const { return boolValue(QStringLiteral("internalCancelable")); }

    // The location selection screen reports the place picked there.
    void locationDidChange(VUTesterLocationSelectionViewController *selector, const QVariant &location) override;

    // Starts one more fill operation from these settings on the global queue (main thread).
    void _startOperation();
    // Refreshes the combined progress title; repeats every 0.25 s while operations run.
    void _updateProgress();
    // Cancels every running operation; each leaves the set when it has finished its asset.
    void _cancelOperations();
    // Removes the file-backed debug directory, if there is one (a link there: the link only).
    // False with the reason, which is also logged, when that fails.
    static bool _clearFileBacked(QString *error = nullptr);
    int numberOfRunningOperations() const { return int(_operations.size()); }

private:
    std::vector<std::shared_ptr<VUTesterLibraryFillOperation>> _operations;
    qint64 _numberOfCompletedOperations = 0;
    bool _isUpdateScheduled = false;

    static TWRowPtr _choiceRowForSettingWithTitle(const QString &title, const QString &key, bool isEnumerable);
};
