#pragma once
// The eight image orientations, their EXIF numbers and the geometry that goes with them. The one
// place for orientation arithmetic: generators, the photo and movie writers and the filler use it.

#include <QSizeF>
#include <QString>
#include <QTransform>

namespace graphics {

// The module's own numbering (the filler stores these values); not the EXIF numbers.
enum class ImageOrientation : int {
    Up = 0,
    Down = 1,
    Left = 2,
    Right = 3,
    UpMirrored = 4,
    DownMirrored = 5,
    LeftMirrored = 6,
    RightMirrored = 7,
};

inline constexpr int kImageOrientationCount = 8;

// False for values outside 0..7.
bool isValidImageOrientation(long long value);
// "Up", "Down", "Left", "Right", "Up Mirrored", ...
QString imageOrientationLabel(ImageOrientation orientation);
// The orientation whose label matches (case-insensitive, spaces or dashes between words); false
// when none does.
bool imageOrientationFromLabel(const QString &label, ImageOrientation *orientation);

// EXIF orientation numbers 1..8.
int exifOrientation(ImageOrientation orientation);
// The EXIF number of a stored orientation value; Up (1) for values outside 0..7.
int exifOrientationForValue(long long value);
// The orientation for an EXIF number; Up for numbers outside 1..8.
ImageOrientation imageOrientationFromExif(int exif);
// 6 and 8 undo each other; every other orientation is its own inverse.
int inverseExifOrientation(int exif);
// EXIF 5 to 8 turn the picture a quarter, so they swap width and height.
bool exifOrientationSwapsSize(int exif);
QSizeF transformedSize(const QSizeF &size, int exif);

// The rotation and/or mirroring, about the origin, that turns stored pixels into the upright
// picture for EXIF orientation `exif` (y grows downward, so a positive quarter turn is clockwise).
QTransform exifOrientationTransform(int exif);

} // namespace graphics
