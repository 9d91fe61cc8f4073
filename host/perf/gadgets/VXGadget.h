#pragma once
// One card of the host's gadget collection: a text card, a picture card, or a card holding a
// row of its own that scrolls sideways.

#include <QString>

struct VXGadget {
    enum class Kind { Text, Image, NestedRow };

    Kind kind = Kind::Text;
    QString title;
    QString body;          // text cards
    quint32 seed = 0;      // what a picture shows; the colours of a row's tiles
    int nestedItemCount = 0; // nested rows
};
