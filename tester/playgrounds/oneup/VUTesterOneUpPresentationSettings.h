#pragma once
// Options of the 1-Up Presentation playground: what the browser shows (the synthetic browsing
// session or the photo library, by day or in one section), how it is presented, where it starts,
// and how large the simulated external screen is that the current item can be sent to.

#include "shell/VUTesterSettings.h"

class VUTESTER_EXPORT VUTesterOneUpPresentationSettings : public VUTesterChildSettings<VUTesterOneUpPresentationSettings> {
    Q_OBJECT
public:
    static constexpr const char *kRootKey = "oneUpPresentationSettings";
    enum PresentationStyle : qint64 { PresentationStylePush = 0, PresentationStyleModal = 1 };
    enum DataSource : qint64 { DataSourceSynthetic = 0, DataSourcePhotoLibrary = 1 };
    // The values of VULibraryAssetsDataSource::Sectioning.
    enum LibrarySections : qint64 { LibrarySectionsByDay = 0, LibrarySectionsOne = 1 };

    VUTesterOneUpPresentationSettings();
    static TWModulePtr settingsControllerModule();
    void setDefaultValues() override;

    qint64 dataSource() const { return int64Value(QStringLiteral("dataSource")); }
    void setDataSource(qint64 source) { setValue(QStringLiteral("dataSource"), QVariant::fromValue(source)); }
    qint64 librarySections() const { return int64Value(QStringLiteral("librarySections")); }
    void setLibrarySections(qint64 sections) { setValue(QStringLiteral("librarySections"), QVariant::fromValue(sections)); }
    qint64 presentationStyle() const { return int64Value(QStringLiteral("presentationStyle")); }
    void setPresentationStyle(qint64 style) { setValue(QStringLiteral("presentationStyle"), QVariant::fromValue(style)); }
    // The item of the first section the browser opens on.
    qint64 initialItem() const { return int64Value(QStringLiteral("initialItem")); }
    void setInitialItem(qint64 item) { setValue(QStringLiteral("initialItem"), QVariant::fromValue(item)); }
    // Points; the simulated screen is 16:9.
    double beamcastScreenWidth() const { return doubleValue(QStringLiteral("beamcastScreenWidth")); }
    void setBeamcastScreenWidth(double width) { setValue(QStringLiteral("beamcastScreenWidth"), width); }
};
