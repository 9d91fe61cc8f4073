#pragma once
// A path of indexes into a tree of nested lists: () the whole tree, (s) section s, (s, i) item i
// of section s. Compared index by index, shorter first on a tie.

#include <QVarLengthArray>
#include <QtGlobal>

#include <algorithm>
#include <initializer_list>

class QDebug;

class VUIndexPath {
public:
    VUIndexPath() = default;
    VUIndexPath(std::initializer_list<qint64> indexes) : m_indexes(indexes) {}
    static VUIndexPath indexPathForItem(qint64 item, qint64 section) { return {section, item}; }

    qsizetype length() const { return m_indexes.size(); }
    // `position` below length() is the caller's promise.
    qint64 indexAtPosition(qsizetype position) const { return m_indexes[position]; }
    qint64 section() const { return m_indexes[0]; }
    qint64 item() const { return m_indexes[1]; }
    VUIndexPath indexPathByAddingIndex(qint64 index) const
    {
        VUIndexPath path = *this;
        path.m_indexes.append(index);
        return path;
    }

    friend bool operator==(const VUIndexPath &a, const VUIndexPath &b) { return a.m_indexes == b.m_indexes; }
    friend bool operator<(const VUIndexPath &a, const VUIndexPath &b)
    {
        return std::lexicographical_compare(a.m_indexes.begin(), a.m_indexes.end(), b.m_indexes.begin(), b.m_indexes.end());
    }
    friend size_t qHash(const VUIndexPath &path, size_t seed = 0) { return qHashRange(path.m_indexes.begin(), path.m_indexes.end(), seed); }

private:
    QVarLengthArray<qint64, 2> m_indexes;
};

// "(2, 14)", for log lines and test output.
QDebug operator<<(QDebug debug, const VUIndexPath &path);
