#pragma once
// Items of the synthetic data source: opaque values, strings in practice ("12:3"). A null
// QVariant is no item at all.
//
// An item's hash must not change between runs or machines, since it decides how its asset is
// oriented on screen. Strings hash as 64-bit FNV-1a over their UTF-8 bytes followed by the
// MurmurHash3 64-bit finaliser, which spreads every input byte over every bit, the lowest one
// included (FNV-1a alone makes the parity depend only on how many bytes are odd). Other values
// hash as their description does; no item hashes as 0.

#include "shell/VUTesterExport.h"

#include <QString>
#include <QVariant>

VUTESTER_EXPORT quint64 VUTesterItemHash(const QVariant &item);
// Whether `item` is an item equal to `other`: never for no item, not even to no item.
VUTESTER_EXPORT bool VUTesterItemIsEqual(const QVariant &item, const QVariant &other);
// The text an item gives of itself: the string itself for a string, "(null)" for no item.
VUTESTER_EXPORT QString VUTesterItemDescription(const QVariant &item);
