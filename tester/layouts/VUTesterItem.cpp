#include "layouts/VUTesterItem.h"

namespace {

quint64 stringHash(const QString &string)
{
    quint64 hash = 0xcbf29ce484222325ull;
    for (const char byte : string.toUtf8()) {
        hash ^= quint8(byte);
        hash *= 0x100000001b3ull;
    }
    hash ^= hash >> 33;
    hash *= 0xff51afd7ed558ccdull;
    hash ^= hash >> 33;
    hash *= 0xc4ceb9fe1a85ec53ull;
    hash ^= hash >> 33;
    return hash;
}

} // namespace

quint64 VUTesterItemHash(const QVariant &item)
{
    return item.isValid() ? stringHash(VUTesterItemDescription(item)) : 0;
}

bool VUTesterItemIsEqual(const QVariant &item, const QVariant &other)
{
    return item.isValid() && other.isValid() && item == other;
}

QString VUTesterItemDescription(const QVariant &item)
{
    return item.isValid() ? item.toString() : QStringLiteral("(null)");
}
