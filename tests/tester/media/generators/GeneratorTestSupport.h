#pragma once

#include <graphics/Image.h>

#include <QImage>

#include <string>

// "r,g,b,a" of one pixel, premultiplied as stored, for readable failures.
inline std::string rgbaAt(const QImage &image, int x, int y)
{
    const uchar *p = image.constScanLine(y) + x * 4;
    return std::to_string(p[0]) + "," + std::to_string(p[1]) + "," + std::to_string(p[2]) + "," + std::to_string(p[3]);
}

inline std::string rgbaAt(const graphics::ImagePtr &image, int x, int y)
{
    return rgbaAt(image->pixels(), x, y);
}
