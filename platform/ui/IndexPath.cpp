#include "IndexPath.h"

#include <algorithm>

namespace ui {

IndexPath::IndexPath(std::initializer_list<qint64> indexes)
{
    if (indexes.size() > size_t(kMaximumLength))
        qFatal("IndexPath: more than %d indexes", kMaximumLength);
    std::copy(indexes.begin(), indexes.end(), m_indexes.begin());
    m_length = int(indexes.size());
}

qint64 IndexPath::indexAtPosition(int position) const
{
    if (position < 0 || position >= m_length)
        qFatal("IndexPath: position %d of a path of length %d", position, m_length);
    return m_indexes[position];
}

IndexPath IndexPath::byAppendingIndex(qint64 index) const
{
    if (m_length == kMaximumLength)
        qFatal("IndexPath: more than %d indexes", kMaximumLength);
    IndexPath path = *this;
    path.m_indexes[path.m_length++] = index;
    return path;
}

std::strong_ordering operator<=>(const IndexPath &a, const IndexPath &b)
{
    return std::lexicographical_compare_three_way(a.m_indexes.begin(), a.m_indexes.begin() + a.m_length,
                                                  b.m_indexes.begin(), b.m_indexes.begin() + b.m_length);
}

QDebug operator<<(QDebug debug, const IndexPath &path)
{
    QDebugStateSaver saver(debug);
    debug.nospace() << "IndexPath(";
    for (int i = 0; i < path.length(); ++i)
        debug << (i ? "." : "") << path.indexAtPosition(i);
    return debug << ')';
}

} // namespace ui
