#pragma once
// Traits of a device the review shows titles for, whatever screen the review runs on: one of six
// form factors (0 to 2 phones, 3 and 4 tablets, 5 a TV) in portrait (1) or landscape (2), each
// with the reference size its layouts are made for.

#include "shell/VUTesterExport.h"
#include "storylets/VXFeatureSpec.h"

class VUTESTER_EXPORT VUTesterMockExtendedTraitCollection : public VXExtendedTraitCollection {
public:
    VUTesterMockExtendedTraitCollection(qint64 formFactor, qint64 orientation);
    // The portrait reference size of a form factor (landscape swaps it; the TV is always wide).
    static QSizeF portraitReferenceSize(qint64 formFactor);
};

// A tile of the review: its size and the host's style for it.
struct VUTesterStoryletsTile {
    QSizeF size;
    VXTileStyle style = VXTileStyle::Default;
    // Tiles that are not at least a point wide are not drawn (a TV has no today widget).
    bool isDrawn() const { return size.width() > 0; }
};

// The tile of a kind (0 today widget, 1 related, 2 feed small, 3 feed big, 4 header) on a form
// factor in an orientation, as the host's specs size it.
VUTESTER_EXPORT VUTesterStoryletsTile VUTesterStoryletsTileForKind(qint64 tileKind, qint64 formFactor, qint64 orientation);
