#pragma once
// Holds the current data source of a browsing session and says when a newer one replaces it.

#include "VUAssetsDataSource.h"

#include <QObject>

class VUAssetsDataSourceManager : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    const VUAssetsDataSourcePtr &assetsDataSource() const { return m_assetsDataSource; }
    // Announces a real change only.
    void setAssetsDataSource(VUAssetsDataSourcePtr assetsDataSource);

Q_SIGNALS:
    void assetsDataSourceChanged();

private:
    VUAssetsDataSourcePtr m_assetsDataSource;
};

using VUAssetsDataSourceManagerPtr = std::shared_ptr<VUAssetsDataSourceManager>;
