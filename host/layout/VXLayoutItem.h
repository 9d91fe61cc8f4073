#pragma once
// One item a layout generator places: the size of its content (only the aspect ratio matters) and
// a weight, where heavier items matter more.

#include <QSizeF>

#include <cmath>

class VXLayoutItem {
public:
    VXLayoutItem() = default;
    VXLayoutItem(QSizeF size, double weight) : m_size(size), m_weight(weight) {}

    QSizeF size() const { return m_size; }
    double weight() const { return m_weight; }

    // Width over height; 1 for a size without a positive, finite width and height, so a bad size
    // lays out as a square rather than poisoning the layout.
    double aspectRatio() const
    {
        const double ratio = m_size.width() / m_size.height();
        return m_size.width() > 0 && m_size.height() > 0 && std::isfinite(ratio) && ratio > 0 ? ratio : 1.0;
    }

private:
    QSizeF m_size{1, 1};
    double m_weight = 0;
};
