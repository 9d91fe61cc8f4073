#include "perf/vexo/VUTesterGridMetrics.h"

#include "perf/grid/VUVistraGridViewControllerSpec.h"
#include "perf/grid/VXExtendedTraitCollection.h"
#include "ui/CollectionViewFlowLayout.h"

VUSectionedGridLayout VUTesterGridLayoutForController(ui::ViewController *controller, double width)
{
    VUSectionedGridLayout grid;
    VUVistraGridViewControllerSpecForLayoutSizeClass(vx_extendedTraitCollection(controller).layoutSizeClass).configureGridLayout(&grid, width, {});
    return grid;
}

void VUTesterApplyGridLayout(ui::CollectionViewFlowLayout *layout, const VUSectionedGridLayout &grid, double extraBottomInset)
{
    layout->setItemSize(grid.itemSize());
    layout->setMinimumInteritemSpacing(grid.interItemSpacing().width());
    layout->setMinimumLineSpacing(grid.interItemSpacing().height());
    ui::EdgeInsets inset = grid.sectionContentInset();
    inset.bottom += extraBottomInset;
    layout->setSectionInset(inset);
}
