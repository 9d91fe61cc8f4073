#pragma once
// A path of indexes into nested collections: (section, item) for a collection view, shorter or
// longer paths for data sources that nest further. A small value: up to four indexes, no heap.

#include <QDebug>
#include <QHashFunctions>

#include <array>
#include <compare>
#include <initializer_list>

namespace ui {

class IndexPath {
public:
    static constexpr int kMaximumLength = 4;

    IndexPath() = default;
    // More than kMaximumLength indexes is a programming error.
    IndexPath(std::initializer_list<qint64> indexes);
    static IndexPath forItem(qint64 item, qint64 section) { return {section, item}; }

    int length() const { return m_length; }
    // A position at or past the length is a programming error.
    qint64 indexAtPosition(int position) const;
    qint64 section() const { return indexAtPosition(0); }
    qint64 item() const { return indexAtPosition(1); }
    IndexPath byAppendingIndex(qint64 index) const;

    // Index by index, then the shorter path first.
    friend std::strong_ordering operator<=>(const IndexPath &a, const IndexPath &b);
    friend bool operator==(const IndexPath &a, const IndexPath &b) { return (a <=> b) == 0; }
    friend size_t qHash(const IndexPath &path, size_t seed = 0)
    {
        return qHashRange(path.m_indexes.begin(), path.m_indexes.begin() + path.m_length, seed);
    }

private:
    std::array<qint64, kMaximumLength> m_indexes{};
    int m_length = 0;
};

QDebug operator<<(QDebug debug, const IndexPath &path);

} // namespace ui
