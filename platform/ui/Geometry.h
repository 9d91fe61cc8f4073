#pragma once
// Geometry shared by scrolling, layouts and tiling: the one intersection rule, edge insets and
// the rounding layouts use.

#include <QRectF>

#include <cmath>

namespace ui {

// The intersection rule used by every layout query, visible-cell pass and tile enumeration:
// two rectangles intersect when they overlap in a region of positive area. Rectangles that only
// share an edge or a corner do not intersect, and a rectangle of zero width or height intersects
// nothing. This is Qt's own rule (QRectF::intersects), named here so the choice is explicit.
inline bool intersects(const QRectF &a, const QRectF &b)
{
    return a.intersects(b);
}

// Distances inward from the edges of a rectangle, in the order top, left, bottom, right.
struct EdgeInsets {
    double top = 0;
    double left = 0;
    double bottom = 0;
    double right = 0;

    friend bool operator==(const EdgeInsets &, const EdgeInsets &) = default;
    double horizontal() const { return left + right; }
    double vertical() const { return top + bottom; }
};

inline QRectF insetRect(const QRectF &rect, const EdgeInsets &insets)
{
    return rect.adjusted(insets.left, insets.top, -insets.right, -insets.bottom);
}

// The widget rectangle for a frame: each edge rounds to the nearest pixel, so frames that meet
// give widgets that meet, without gaps or overlaps.
inline QRect pixelRect(const QRectF &frame)
{
    const int left = qRound(frame.left()), top = qRound(frame.top());
    return QRect(left, top, qRound(frame.right()) - left, qRound(frame.bottom()) - top);
}

// Rounds half away from zero to a whole point (2.5 -> 3, -2.5 -> -3).
inline double roundToPoint(double value)
{
    return std::round(value);
}

} // namespace ui
