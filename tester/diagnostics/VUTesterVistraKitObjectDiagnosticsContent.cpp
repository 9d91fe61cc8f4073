#include "diagnostics/VUTesterVistraKitObjectDiagnosticsContent.h"

namespace {

QString flagText(bool flag)
{
    return flag ? QStringLiteral("✅") : QStringLiteral("❌");
}

QString dateText(const QDateTime &date, const VUTesterDateFormatter &formatter)
{
    return date.isValid() ? formatter.stringFromDate(date) : QStringLiteral("<no date>");
}

QString mediaText(const VHAsset &asset)
{
    if (asset.mediaType() == VHAssetMediaType::Video)
        return QStringLiteral("Video %1 × %2, %3 s").arg(asset.pixelWidth()).arg(asset.pixelHeight()).arg(asset.duration(), 0, 'f', 1);
    return QStringLiteral("%1 %2 × %3")
        .arg(asset.isMovingPhoto() ? QStringLiteral("Stir Shot") : QStringLiteral("Photo"))
        .arg(asset.pixelWidth())
        .arg(asset.pixelHeight());
}

} // namespace

VUTesterDateFormatter VUTesterVistraKitObjectDiagnosticsContent::defaultDateFormatter()
{
    return VUTesterDateFormatter(QStringLiteral("MMM d, yyyy"));
}

VUTesterVistraKitObjectDiagnosticsContent VUTesterVistraKitObjectDiagnosticsContent::contentForObject(
    const VUTesterDiagnosticsObject &object, qint64 index, qint64 count, const VUTesterDateFormatter &dateFormatter)
{
    VUTesterVistraKitObjectDiagnosticsContent content;
    if (const auto *collection = std::get_if<VHAssetCollection>(&object); collection && collection->isValid()) {
        content.title = collection->localizedTitle().isEmpty() ? QStringLiteral("<no title>") : collection->localizedTitle();
        content.subtitle = collection->localizedSubtitle().isEmpty() ? QStringLiteral("<no subtitle>") : collection->localizedSubtitle();
        content.propertyLines << QStringLiteral("Date Range: %1 - %2")
                                     .arg(dateText(collection->startDate(), dateFormatter), dateText(collection->endDate(), dateFormatter));
        if (collection->assetCollectionType() == VHAssetCollectionType::Highlight) {
            content.propertyLines << QStringLiteral("%1: %2 %3: %4")
                                         .arg(QStringLiteral("curated"), flagText(collection->isCurated()), QStringLiteral("enriched"),
                                              flagText(collection->isEnriched()));
            content.propertyLines << QStringLiteral("promotionScore: %1").arg(collection->promotionScore(), 0, 'f', 3);
        }
        content.thumbnailAsset = VHAsset::fetchKeyCuratedAssetInAssetCollection(*collection, nullptr).firstObject();
    } else if (const auto *asset = std::get_if<VHAsset>(&object); asset && asset->isValid()) {
        // An asset has no title of its own; its lines say what and when it is, and it is its own
        // thumbnail.
        content.propertyLines << mediaText(*asset) << QStringLiteral("Date: %1").arg(dateText(asset->creationDate(), dateFormatter))
                              << QStringLiteral("%1: %2").arg(QStringLiteral("favorite"), flagText(asset->isFavorite()));
        content.thumbnailAsset = *asset;
    } else if (const auto *other = std::get_if<VUTesterDiagnosticsOtherObject>(&object)) {
        content.title = QStringLiteral("<Unknown Object Type>");
        content.propertyLines << other->description;
    }
    if (count >= 1) {
        const QString previous = content.title;
        content.title = QStringLiteral("#%1").arg(index);
        if (!previous.isEmpty())
            content.title += QStringLiteral(": %1").arg(previous);
    }
    return content;
}
