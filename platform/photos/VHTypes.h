#pragma once
// Values shared by the photo library's public classes: statuses, media kinds, collection kinds,
// resource kinds, a place and the error value. Times are movie::MediaTime.

#include <QString>

#include <cstdint>

enum class VHAuthorizationStatus : int {
    NotDetermined = 0,
    Restricted = 1,
    Denied = 2,
    Authorized = 3,
};

enum class VHAssetMediaType : int {
    Unknown = 0,
    Image = 1,
    Video = 2,
};

// Bit flags of VHAsset::mediaSubtypes().
enum VHAssetMediaSubtype : std::uint64_t {
    VHAssetMediaSubtypeNone = 0,
    // A photo at least twice as long as it is high (or the other way round).
    VHAssetMediaSubtypePhotoPanorama = 1 << 0,
    // A still photo paired with a short movie (a moving photo).
    VHAssetMediaSubtypePhotoMoving = 1 << 3,
};

enum class VHAssetCollectionType : int {
    Highlight = 6,
};

enum VHAssetCollectionSubtype : int {
    VHAssetCollectionSubtypeHighlightDays = 1000000301,
    VHAssetCollectionSubtypeHighlightMonths = 1000000302,
    VHAssetCollectionSubtypeHighlightYears = 1000000303,
    VHAssetCollectionSubtypeHighlightDayGroups = 1000000304,
    VHAssetCollectionSubtypeAny = 0x7fffffff,
};

enum class VHHighlightCurationType : int {
    None = 0,
    Summary = 1,
    Extended = 2,
};

enum class VHAssetResourceType : int {
    Photo = 1,
    Video = 2,
    PairedVideo = 9,
};

struct VHLocation {
    double latitude = 0;
    double longitude = 0;
    friend bool operator==(const VHLocation &, const VHLocation &) = default;
};

// A failure as the library reports it: empty when nothing went wrong.
class VHError {
public:
    VHError() = default;
    explicit VHError(QString debugDescription) : m_description(std::move(debugDescription)) {}

    bool isError() const { return !m_description.isEmpty(); }
    explicit operator bool() const { return isError(); }
    const QString &debugDescription() const { return m_description; }

private:
    QString m_description;
};
