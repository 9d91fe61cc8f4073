#include "VXTilingController.h"

#include "VXUIScrollViewController.h"

#include <QTimer>

VXTilingController::VXTilingController(std::unique_ptr<VXTilingLayout> layout, QObject *parent)
    : QObject(parent), m_layout(std::move(layout))
{
    m_layout->m_controller = this;
}

VXTilingController::~VXTilingController()
{
    checkInAll();
    m_layout->m_controller = nullptr;
}

void VXTilingController::checkInAll()
{
    const QHash<VXTileIdentifier, ActiveTile> active = std::exchange(m_active, {});
    if (m_tileSource)
        for (auto it = active.cbegin(); it != active.cend(); ++it)
            m_tileSource->checkInTile(it.value().tile, it.key());
}

void VXTilingController::setTileSource(VXTileSource *source)
{
    checkInAll();
    m_tileSource = source;
    setNeedsUpdate();
}

void VXTilingController::setScrollController(VXUIScrollViewController *controller)
{
    if (m_scrollController)
        disconnect(m_scrollController, nullptr, this, nullptr);
    m_scrollController = controller;
    if (controller)
        connect(controller, &VXUIScrollViewController::visibleRectChanged, this, &VXTilingController::update);
    setNeedsUpdate();
}

void VXTilingController::setTileAnimator(VXTileAnimator *animator)
{
    m_tileAnimator = animator;
    setNeedsUpdate();
}

void VXTilingController::registerPreheatHandler(VXTilingControllerPreheatHandler *handler, const ui::EdgeInsets &paddingInsets,
                                                VXTileGroup tileGroup, void *context)
{
    m_preheat.push_back({handler, paddingInsets, tileGroup, context, {}, {}, {}, {}});
    setNeedsUpdate();
}

void VXTilingController::setNeedsUpdate()
{
    if (m_updatePosted)
        return;
    m_updatePosted = true;
    QTimer::singleShot(0, this, [this] {
        m_updatePosted = false;
        update();
    });
}

VXTile *VXTilingController::tileForIdentifier(const VXTileIdentifier &identifier) const
{
    const auto it = m_active.constFind(identifier);
    return it == m_active.cend() ? nullptr : it.value().tile;
}

void VXTilingController::update()
{
    if (m_updating || !m_scrollController || !m_tileSource || !m_tileAnimator)
        return;
    m_updating = true;
    m_layout->setReferenceSize(m_scrollController->viewSize());
    const bool relayout = !m_layout->isPrepared();
    if (relayout) {
        m_layout->prepareLayout();
        m_scrollController->setContentBounds(m_layout->contentBounds());
    }
    const QRectF visible = m_scrollController->visibleRect();
    QRectF area = visible;
    for (PreheatRegistration &p : m_preheat) {
        p.area = ui::insetRect(visible, {-p.padding.top, -p.padding.left, -p.padding.bottom, -p.padding.right});
        area = area.united(p.area);
    }

    const quint64 generation = ++m_generation;
    m_entering.clear();
    m_layout->enumerateTilesInRect(area, 0, [&](const VXTileIdentifier &identifier, const VXTileGeometry &geometry, VXTileGroup group,
                                                const void *userData, bool *) {
        if (ui::intersects(geometry.frame, visible)) {
            const auto it = m_active.find(identifier);
            if (it == m_active.end()) {
                m_entering.push_back({identifier, geometry, userData});
            } else {
                it->generation = generation;
                if (relayout)
                    m_tileAnimator->applyGeometry(it->tile, geometry, userData);
            }
        }
        for (PreheatRegistration &p : m_preheat) {
            if (group != p.group || !ui::intersects(geometry.frame, p.area))
                continue;
            const auto it = p.tiles.find(identifier);
            if (it != p.tiles.end()) {
                it->generation = generation;
            } else {
                p.tiles.insert(identifier, {geometry, generation});
                p.identifiers.push_back(identifier);
                p.geometries.push_back(geometry);
            }
        }
    });

    for (auto it = m_active.begin(); it != m_active.end();) {
        if (it->generation == generation) {
            ++it;
            continue;
        }
        VXTile *tile = it->tile;
        const VXTileIdentifier identifier = it.key();
        it = m_active.erase(it);
        m_tileSource->checkInTile(tile, identifier);
    }
    for (const Entering &e : m_entering) {
        VXTile *tile = m_tileSource->checkOutTileForIdentifier(e.identifier, m_layout.get());
        if (!tile)
            continue;
        m_active.insert(e.identifier, {tile, generation});
        m_tileAnimator->applyGeometry(tile, e.geometry, e.userData);
    }

    for (PreheatRegistration &p : m_preheat) {
        if (!p.identifiers.empty())
            p.handler->startPreheatingTilesForIdentifiers(p.identifiers.data(), p.geometries.data(), qsizetype(p.identifiers.size()), p.context);
        p.identifiers.clear();
        p.geometries.clear();
        for (auto it = p.tiles.begin(); it != p.tiles.end();) {
            if (it->generation == generation) {
                ++it;
                continue;
            }
            p.identifiers.push_back(it.key());
            p.geometries.push_back(it->geometry);
            it = p.tiles.erase(it);
        }
        if (!p.identifiers.empty())
            p.handler->stopPreheatingTilesForIdentifiers(p.identifiers.data(), p.geometries.data(), qsizetype(p.identifiers.size()), p.context);
        p.identifiers.clear();
        p.geometries.clear();
    }
    m_updating = false;
}
