#pragma once
// The null grid screen: the host's tiling controller, scroll view controller, basic animator and
// reusable-object pool around a VUTesterNullGridLayout of bare coloured tiles, so scrolling it
// costs what the tiling machinery costs and nothing more. Ten columns over the screen's width
// and at least 300,000 points of content: 76,930 tiles on a 390-point-wide screen, of which only
// those on screen exist as views.

#include "shell/VUTesterExport.h"

#include "tiling/VXReusableObjectPool.h"
#include "tiling/VXTilingProtocols.h"
#include "ui/ViewController.h"

#include <QSet>

#include <memory>

class VXBasicUIViewTileAnimator;
class VXTilingController;
class VXUIScrollViewController;

namespace ui {
class ScrollView;
}

class VUTESTER_EXPORT VUTesterTilingControllerNullGridViewController : public ui::ViewController,
                                                                        public VXTileSource,
                                                                        public VXTilingControllerPreheatHandler,
                                                                        public VXReusableObjectPoolDelegate {
    Q_OBJECT
public:
    VUTesterTilingControllerNullGridViewController();
    ~VUTesterTilingControllerNullGridViewController() override;

    // Null until the view has loaded.
    ui::ScrollView *scrollView() const;
    // The tiles checked out now, one per tile on screen.
    const QSet<VXTile *> &tilesInUse() const { return m_tilesInUse; }

    VXTile *checkOutTileForIdentifier(const VXTileIdentifier &identifier, VXTilingLayout *layout) override;
    void checkInTile(VXTile *tile, const VXTileIdentifier &identifier) override;
    // Nothing to preload; registering only makes the tiling controller keep its books.
    void startPreheatingTilesForIdentifiers(const VXTileIdentifier *, const VXTileGeometry *, qsizetype, void *) override {}
    void stopPreheatingTilesForIdentifiers(const VXTileIdentifier *, const VXTileGeometry *, qsizetype, void *) override {}

    void didCreateReusableObject(VXReusableObjectPool *pool, VXReusableObject *object) override;
    void objectPreparedForReuse(VXReusableObjectPool *pool, VXReusableObject *object) override;
    void objectBecameReusable(VXReusableObjectPool *pool, VXReusableObject *object) override;
    void didEvictReusableObject(VXReusableObjectPool *pool, VXReusableObject *object) override;

protected:
    void viewDidLoad() override;

private:
    std::unique_ptr<VXTilingController> m_tilingController;
    std::unique_ptr<VXUIScrollViewController> m_scrollViewController;
    std::unique_ptr<VXReusableObjectPool> m_viewTileReusePool;
    std::unique_ptr<VXBasicUIViewTileAnimator> m_tileAnimator;
    QSet<VXTile *> m_tilesInUse;
};
