#include "ImageOrientation.h"

#include <array>

namespace graphics {
namespace {

struct OrientationInfo {
    const char *label;
    int exif;
};

// Indexed by ImageOrientation.
constexpr std::array<OrientationInfo, kImageOrientationCount> kOrientations{{
    {"Up", 1},
    {"Down", 3},
    {"Left", 8},
    {"Right", 6},
    {"Up Mirrored", 2},
    {"Down Mirrored", 4},
    {"Left Mirrored", 5},
    {"Right Mirrored", 7},
}};

// Indexed by EXIF number - 1: the 2x2 part (m11, m12, m21, m22) of the upright transform, where
// x' = m11 x + m21 y and y' = m12 x + m22 y.
constexpr std::array<std::array<int, 4>, 8> kExifMatrices{{
    {1, 0, 0, 1},   // 1: as stored
    {-1, 0, 0, 1},  // 2: mirrored left to right
    {-1, 0, 0, -1}, // 3: half turn
    {1, 0, 0, -1},  // 4: mirrored top to bottom
    {0, 1, 1, 0},   // 5: transposed
    {0, 1, -1, 0},  // 6: quarter turn clockwise
    {0, -1, -1, 0}, // 7: transposed across the other diagonal
    {0, -1, 1, 0},  // 8: quarter turn counter-clockwise
}};

QString normalisedLabel(QString text)
{
    text.replace(QLatin1Char('-'), QLatin1Char(' ')).replace(QLatin1Char('_'), QLatin1Char(' '));
    return text.simplified().toLower();
}

} // namespace

bool isValidImageOrientation(long long value)
{
    return value >= 0 && value < kImageOrientationCount;
}

QString imageOrientationLabel(ImageOrientation orientation)
{
    return QString::fromLatin1(kOrientations[static_cast<int>(orientation)].label);
}

bool imageOrientationFromLabel(const QString &label, ImageOrientation *orientation)
{
    const QString wanted = normalisedLabel(label);
    for (int i = 0; i < kImageOrientationCount; ++i) {
        if (normalisedLabel(QString::fromLatin1(kOrientations[i].label)) == wanted) {
            *orientation = static_cast<ImageOrientation>(i);
            return true;
        }
    }
    return false;
}

int exifOrientation(ImageOrientation orientation)
{
    return kOrientations[static_cast<int>(orientation)].exif;
}

int exifOrientationForValue(long long value)
{
    return isValidImageOrientation(value) ? exifOrientation(static_cast<ImageOrientation>(value)) : 1;
}

ImageOrientation imageOrientationFromExif(int exif)
{
    for (int i = 0; i < kImageOrientationCount; ++i)
        if (kOrientations[i].exif == exif)
            return static_cast<ImageOrientation>(i);
    return ImageOrientation::Up;
}

int inverseExifOrientation(int exif)
{
    if (exif == 6)
        return 8;
    if (exif == 8)
        return 6;
    return exif;
}

bool exifOrientationSwapsSize(int exif)
{
    return exif >= 5 && exif <= 8;
}

QSizeF transformedSize(const QSizeF &size, int exif)
{
    return exifOrientationSwapsSize(exif) ? size.transposed() : size;
}

QTransform exifOrientationTransform(int exif)
{
    if (exif < 1 || exif > 8)
        return {};
    const auto &m = kExifMatrices[exif - 1];
    return QTransform(m[0], m[1], m[2], m[3], 0, 0);
}

} // namespace graphics
