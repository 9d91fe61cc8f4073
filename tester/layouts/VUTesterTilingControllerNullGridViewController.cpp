#include "VUTesterTilingControllerNullGridViewController.h"

#include "VUTesterNullGridLayout.h"
#include "VUTesterNullTile.h"

#include "tiling/VXBasicUIViewTileAnimator.h"
#include "tiling/VXTilingController.h"
#include "tiling/VXUIScrollViewController.h"
#include "ui/Autoresizing.h"
#include "ui/BackgroundColor.h"
#include "ui/ScrollView.h"

namespace {

constexpr qint64 kTileReuseIdentifier = 42;

QWidget *viewOf(VXReusableObject *object)
{
    return static_cast<VUTesterNullTile *>(object)->view();
}

} // namespace

VUTesterTilingControllerNullGridViewController::VUTesterTilingControllerNullGridViewController() = default;

VUTesterTilingControllerNullGridViewController::~VUTesterTilingControllerNullGridViewController()
{
    // Tiles go back to the pool, the pool takes them off the content, and only then does the
    // view (with the scroll view in it) go.
    m_tilingController.reset();
    m_viewTileReusePool.reset();
}

ui::ScrollView *VUTesterTilingControllerNullGridViewController::scrollView() const
{
    return m_scrollViewController ? m_scrollViewController->scrollView() : nullptr;
}

void VUTesterTilingControllerNullGridViewController::viewDidLoad()
{
    ui::ViewController::viewDidLoad();
    QWidget *root = view();
    ui::setBackgroundColor(root, Qt::white);

    m_scrollViewController = std::make_unique<VXUIScrollViewController>(QRectF(root->rect()));
    ui::ScrollView *scroll = m_scrollViewController->scrollView();
    scroll->setParent(root);
    ui::setAutoresizingMask(scroll, ui::Autoresizing::FlexibleWidth | ui::Autoresizing::FlexibleHeight);

    auto layout = std::make_unique<VUTesterNullGridLayout>();
    layout->setColumns(10);
    layout->setDesiredContentLength(300000);

    m_tileAnimator = std::make_unique<VXBasicUIViewTileAnimator>();

    m_tilingController = std::make_unique<VXTilingController>(std::move(layout));
    m_tilingController->setTileSource(this);
    m_tilingController->setScrollController(m_scrollViewController.get());
    m_tilingController->setTileAnimator(m_tileAnimator.get());
    m_tilingController->registerPreheatHandler(this, {2000, 0, 2000, 0}, 0, this);

    m_viewTileReusePool = std::make_unique<VXReusableObjectPool>();
    m_viewTileReusePool->setDelegate(this);
    m_viewTileReusePool->registerReuseIdentifier(kTileReuseIdentifier, [] {
        auto tile = std::make_unique<VUTesterNullTile>();
        // The colour a tile shows until its first check-out recolours it.
        ui::setBackgroundColor(tile.get(), QColor(128, 0, 128));
        return tile;
    });
}

VXTile *VUTesterTilingControllerNullGridViewController::checkOutTileForIdentifier(const VXTileIdentifier &identifier, VXTilingLayout *)
{
    auto *tile = static_cast<VUTesterNullTile *>(m_viewTileReusePool->checkOutReusableObjectWithReuseIdentifier(kTileReuseIdentifier));
    const qint64 item = qint64(identifier.indexes[3]);
    // Single precision, as the hue has always been computed: the circle repeats every 255 items.
    const float hue = float(item % 255) / 255.0f;
    ui::setBackgroundColor(tile->view(), QColor::fromHsvF(hue, 0.8f, 1.0f, 1.0f));
    m_tilesInUse.insert(tile);
    return tile;
}

void VUTesterTilingControllerNullGridViewController::checkInTile(VXTile *tile, const VXTileIdentifier &)
{
    auto *nullTile = static_cast<VUTesterNullTile *>(tile);
    m_viewTileReusePool->checkInReusableObject(nullTile);
    m_tilesInUse.remove(tile);
}

void VUTesterTilingControllerNullGridViewController::didCreateReusableObject(VXReusableObjectPool *, VXReusableObject *object)
{
    m_scrollViewController->addSubview(viewOf(object));
}

void VUTesterTilingControllerNullGridViewController::objectPreparedForReuse(VXReusableObjectPool *, VXReusableObject *object)
{
    // Hidden until the animator places it, so it never flashes where it was before.
    viewOf(object)->hide();
}

void VUTesterTilingControllerNullGridViewController::objectBecameReusable(VXReusableObjectPool *, VXReusableObject *object)
{
    viewOf(object)->show();
}

void VUTesterTilingControllerNullGridViewController::didEvictReusableObject(VXReusableObjectPool *, VXReusableObject *object)
{
    viewOf(object)->setParent(nullptr);
}
