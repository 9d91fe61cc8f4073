#pragma once
// Drives tiles from a layout over a scroll controller. Whenever the visible rectangle changes
// (a scroll, a new size) or the layout is invalidated, it asks the layout for the tiles in the
// visible rectangle, checks in from its tile source the tiles that left it, checks out tiles
// for those that entered it, and has its animator apply their geometries. Tiles leave before
// others enter, so a source with a pool reuses them in the same update.
//
// Preheat handlers registered with padding insets hear, per tile group, of tiles entering and
// leaving the visible rectangle grown by their padding.
//
// One enumeration of the layout over the largest padded rectangle serves both, and each known
// tile costs one hash lookup per update, so an update costs what the layout's enumeration does
// plus the tiles that change.

#include "VXTileGeometry.h"
#include "VXTileIdentifier.h"
#include "VXTilingLayout.h"
#include "VXTilingProtocols.h"

#include "ui/Geometry.h"

#include <QHash>
#include <QObject>

#include <memory>
#include <vector>

class VXUIScrollViewController;

class VXTilingController : public QObject {
    Q_OBJECT
public:
    explicit VXTilingController(std::unique_ptr<VXTilingLayout> layout, QObject *parent = nullptr);
    // Checks every tile in.
    ~VXTilingController() override;

    VXTilingLayout *layout() const { return m_layout.get(); }
    VXTileSource *tileSource() const { return m_tileSource; }
    void setTileSource(VXTileSource *source);
    VXUIScrollViewController *scrollController() const { return m_scrollController; }
    void setScrollController(VXUIScrollViewController *controller);
    VXTileAnimator *tileAnimator() const { return m_tileAnimator; }
    void setTileAnimator(VXTileAnimator *animator);
    void registerPreheatHandler(VXTilingControllerPreheatHandler *handler, const ui::EdgeInsets &paddingInsets,
                                VXTileGroup tileGroup, void *context);

    // Brings the tiles up to date now.
    void update();
    // An update is due soon (the layout was invalidated).
    void setNeedsUpdate();

    qsizetype numberOfActiveTiles() const { return m_active.size(); }
    VXTile *tileForIdentifier(const VXTileIdentifier &identifier) const;

private:
    struct ActiveTile {
        VXTile *tile;
        quint64 generation;
    };
    struct Preheated {
        VXTileGeometry geometry;
        quint64 generation;
    };
    struct PreheatRegistration {
        VXTilingControllerPreheatHandler *handler;
        ui::EdgeInsets padding;
        VXTileGroup group;
        void *context;
        QRectF area;
        QHash<VXTileIdentifier, Preheated> tiles;
        std::vector<VXTileIdentifier> identifiers;
        std::vector<VXTileGeometry> geometries;
    };
    struct Entering {
        VXTileIdentifier identifier;
        VXTileGeometry geometry;
        const void *userData;
    };
    void checkInAll();

    std::unique_ptr<VXTilingLayout> m_layout;
    VXTileSource *m_tileSource = nullptr;
    VXUIScrollViewController *m_scrollController = nullptr;
    VXTileAnimator *m_tileAnimator = nullptr;
    std::vector<PreheatRegistration> m_preheat;
    QHash<VXTileIdentifier, ActiveTile> m_active;
    std::vector<Entering> m_entering;
    quint64 m_generation = 0;
    bool m_updating = false;
    bool m_updatePosted = false;
};
