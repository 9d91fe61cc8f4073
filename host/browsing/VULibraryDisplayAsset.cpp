#include "VULibraryDisplayAsset.h"

#include <photos/PlaceNames.h>

#include <QFileInfo>
#include <QMimeDatabase>

namespace {

VUMediaTime mediaTime(const movie::MediaTime &time)
{
    return {time.value, time.timescale, VUMediaTime::kValid, 0};
}

} // namespace

QString VULibraryDisplayAsset::localizedGeoDescription() const
{
    const std::optional<VHLocation> place = m_asset.location();
    return place ? photos::detail::PlaceNames::nameOfPlace(place->latitude, place->longitude) : QString();
}

QString VULibraryDisplayAsset::originalPath() const
{
    return m_asset.resourcePath(m_asset.mediaType() == VHAssetMediaType::Video ? VHAssetResourceType::Video : VHAssetResourceType::Photo);
}

QString VULibraryDisplayAsset::uniformTypeIdentifier() const
{
    const QString path = originalPath();
    return path.isEmpty() ? QString() : QMimeDatabase().mimeTypeForFile(path).name();
}

quint64 VULibraryDisplayAsset::originalFilesize() const
{
    const QString path = originalPath();
    return path.isEmpty() ? 0 : quint64(QFileInfo(path).size());
}

VUMediaTime VULibraryDisplayAsset::photoLumoStillDisplayTime() const
{
    return m_asset.isMovingPhoto() ? mediaTime(m_asset.imageDisplayTime()) : VUMediaTime();
}

VUMediaTime VULibraryDisplayAsset::photoLumoVideoDuration() const
{
    return m_asset.isMovingPhoto() ? mediaTime(movie::MediaTime::fromSeconds(m_asset.duration(), 600)) : VUMediaTime();
}

bool VULibraryDisplayAsset::isEqual(const VUDisplayAsset *other) const
{
    const auto *library = dynamic_cast<const VULibraryDisplayAsset *>(other);
    return library && library->m_asset == m_asset;
}
