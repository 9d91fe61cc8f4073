#pragma once
// Options of the Views playground: the size and colour of the host's badges, selection marks and
// progress rings, the progress a determinate ring shows, and what the specimens sit on.

#include "shell/VUTesterSettings.h"

#include <QColor>

class VUTESTER_EXPORT VUTesterViewSettings : public VUTesterChildSettings<VUTesterViewSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "viewSettings";
    // The colours a colour row offers, by value.
    enum Color : qint64 { ColorWhite = 0, ColorBlack, ColorBlue, ColorRed, ColorYellow, ColorGreen };
    enum Background : qint64 { BackgroundPicture = 0, BackgroundLight = 1, BackgroundDark = 2 };

    VUTesterViewSettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    // White for a value outside the table.
    static QColor colorForValue(qint64 value);

    // Points across a favourite heart and a Stir Shot mark.
    double badgeSize() const { return doubleValue(QStringLiteral("badgeSize")); }
    void setBadgeSize(double size) { setValue(QStringLiteral("badgeSize"), size); }
    qint64 badgeColor() const { return int64Value(QStringLiteral("badgeColor")); }
    void setBadgeColor(qint64 color) { setValue(QStringLiteral("badgeColor"), QVariant::fromValue(color)); }
    // Pixels of a duration's text.
    double durationFontSize() const { return doubleValue(QStringLiteral("durationFontSize")); }
    void setDurationFontSize(double size) { setValue(QStringLiteral("durationFontSize"), size); }
    double selectionMarkSize() const { return doubleValue(QStringLiteral("selectionMarkSize")); }
    void setSelectionMarkSize(double size) { setValue(QStringLiteral("selectionMarkSize"), size); }
    qint64 selectionColor() const { return int64Value(QStringLiteral("selectionColor")); }
    void setSelectionColor(qint64 color) { setValue(QStringLiteral("selectionColor"), QVariant::fromValue(color)); }
    double progressRingSize() const { return doubleValue(QStringLiteral("progressRingSize")); }
    void setProgressRingSize(double size) { setValue(QStringLiteral("progressRingSize"), size); }
    double progressLineWidth() const { return doubleValue(QStringLiteral("progressLineWidth")); }
    void setProgressLineWidth(double width) { setValue(QStringLiteral("progressLineWidth"), width); }
    qint64 progressColor() const { return int64Value(QStringLiteral("progressColor")); }
    void setProgressColor(qint64 color) { setValue(QStringLiteral("progressColor"), QVariant::fromValue(color)); }
    // What the determinate ring shows, 0 to 1.
    double progress() const { return doubleValue(QStringLiteral("progress")); }
    void setProgress(double progress) { setValue(QStringLiteral("progress"), progress); }
    qint64 background() const { return int64Value(QStringLiteral("background")); }
    void setBackground(qint64 background) { setValue(QStringLiteral("background"), QVariant::fromValue(background)); }
};
