#pragma once
// What a fetch returns and in which order. Sort keys name properties of the fetched class:
// assets "creationDate", "pixelWidth", "pixelHeight", "duration", "localIdentifier", "favorite";
// collections "startDate", "endDate", "promotionScore", "localizedTitle", "estimatedAssetCount".
// An unknown key is a programming error and ends the process.

#include "VHTypes.h"

#include <QList>
#include <QString>

#include <memory>

class VHPhotoLibrary;

struct VHSortDescriptor {
    QString key;
    bool ascending = true;
};

class VHFetchOptions {
public:
    // Null means the shared library.
    std::shared_ptr<VHPhotoLibrary> photoLibrary() const { return m_photoLibrary; }
    void setPhotoLibrary(std::shared_ptr<VHPhotoLibrary> library) { m_photoLibrary = std::move(library); }

    const QList<VHSortDescriptor> &sortDescriptors() const { return m_sortDescriptors; }
    void setSortDescriptors(const QList<VHSortDescriptor> &descriptors) { m_sortDescriptors = descriptors; }

    // 0 fetches everything.
    int fetchLimit() const { return m_fetchLimit; }
    void setFetchLimit(int limit) { m_fetchLimit = limit; }

    bool includeHiddenAssets() const { return m_includeHiddenAssets; }
    void setIncludeHiddenAssets(bool include) { m_includeHiddenAssets = include; }

    // For assets in a highlight: its summary or extended curation instead of every asset.
    VHHighlightCurationType highlightCurationType() const { return m_highlightCurationType; }
    void setHighlightCurationType(VHHighlightCurationType type) { m_highlightCurationType = type; }

private:
    std::shared_ptr<VHPhotoLibrary> m_photoLibrary;
    QList<VHSortDescriptor> m_sortDescriptors;
    int m_fetchLimit = 0;
    bool m_includeHiddenAssets = false;
    VHHighlightCurationType m_highlightCurationType = VHHighlightCurationType::None;
};
