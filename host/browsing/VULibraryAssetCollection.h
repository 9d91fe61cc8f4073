#pragma once
// The collection library assets are shown in: one of the library's day highlights, or the whole
// library (no title, its first and last capture dates).

#include "VUDisplayAssetCollection.h"

#include <photos/VHAssetCollection.h>

class VULibraryAssetCollection : public VUDisplayAssetCollection {
public:
    explicit VULibraryAssetCollection(VHAssetCollection highlight)
        : m_title(highlight.localizedTitle())
        , m_subtitle(highlight.localizedSubtitle())
        , m_start(highlight.startDate())
        , m_end(highlight.endDate())
    {
    }
    VULibraryAssetCollection(QDateTime start, QDateTime end) : m_start(std::move(start)), m_end(std::move(end)) {}

    QString localizedTitle() const override { return m_title; }
    QString localizedSubtitle() const override { return m_subtitle; }
    QDateTime startDate() const override { return m_start; }
    QDateTime endDate() const override { return m_end; }

private:
    QString m_title;
    QString m_subtitle;
    QDateTime m_start;
    QDateTime m_end;
};
