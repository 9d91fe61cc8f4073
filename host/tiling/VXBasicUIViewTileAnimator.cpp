#include "VXBasicUIViewTileAnimator.h"

#include "ui/Geometry.h"

#include <QWidget>

void VXBasicUIViewTileAnimator::applyGeometry(VXTile *tile, const VXTileGeometry &geometry, const void *userData)
{
    auto *viewTile = dynamic_cast<VXUIViewBasicTile *>(tile);
    if (!viewTile)
        qFatal("VXBasicUIViewTileAnimator: a tile that is not a view tile");
    QWidget *view = viewTile->view();
    view->setGeometry(ui::pixelRect(geometry.frame));
    view->setVisible(!geometry.hidden);
    viewTile->didApplyGeometry(geometry, userData);
}
