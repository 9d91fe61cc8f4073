#pragma once
// Settings of the component playgrounds. Each screen opens with the row that starts its
// playground and closes with "Restore Defaults".

#include "shell/VUTesterSettings.h"

// A playground module: one untitled section with the row that starts the playground, then the
// closing section.
TWModulePtr VUTesterPlaygroundModule(const QString &title, std::vector<TWSection> extraSections = {});

class VUTESTER_EXPORT VUTesterImagePickerSettings : public VUTesterChildSettings<VUTesterImagePickerSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "imagePickerSettings";
    static TWModulePtr settingsControllerModule();
};

class VUTESTER_EXPORT VUTesterVideoEditorSettings : public VUTesterChildSettings<VUTesterVideoEditorSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "videoEditorSettings";
    static TWModulePtr settingsControllerModule();
};

class VUTESTER_EXPORT VUTesterImageManagerSettings : public VUTesterChildSettings<VUTesterImageManagerSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "imageManagerSettings";
    static TWModulePtr settingsControllerModule();
};

class VUTESTER_EXPORT VUTesterSharingSettings : public VUTesterChildSettings<VUTesterSharingSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "sharingSettings";
    static TWModulePtr settingsControllerModule();
};

class VUTESTER_EXPORT VUTesterVistraPickerSettings : public VUTesterChildSettings<VUTesterVistraPickerSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "vistraPickerSettings";
    static TWModulePtr settingsControllerModule();
};

class VUTESTER_EXPORT VUTesterLumoSettings : public VUTesterChildSettings<VUTesterLumoSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "lumoSettings";
    static TWModulePtr settingsControllerModule();
};

class VUTESTER_EXPORT VUTesterSampleAccessoryViewSettings : public VUTesterChildSettings<VUTesterSampleAccessoryViewSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "sampleAccessorViewSettings";
    static TWModulePtr settingsControllerModule();
};

// The Stir Shot view playground lays its pages out with one of two collection layouts.
class VUTESTER_EXPORT VUTesterStirShotViewSettings : public VUTesterChildSettings<VUTesterStirShotViewSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "stirShotViewSettings";
    VUTesterStirShotViewSettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    // 0: one-up pages, 1: the sharing strip; any other value: no layout.
    qint64 layout() const { return int64Value(QStringLiteral("layout")); }
    void setLayout(qint64 layout) { setValue(QStringLiteral("layout"), QVariant::fromValue(layout)); }
    double spacing() const { return doubleValue(QStringLiteral("spacing")); }
    void setSpacing(double spacing) { setValue(QStringLiteral("spacing"), spacing); }
    double margin() const { return doubleValue(QStringLiteral("margin")); }
    void setMargin(double margin) { setValue(QStringLiteral("margin"), margin); }
    double verticalFraction() const { return doubleValue(QStringLiteral("verticalFraction")); }
    void setVerticalFraction(double fraction) { setValue(QStringLiteral("verticalFraction"), fraction); }
};
