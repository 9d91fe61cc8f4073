#pragma once
// The host's grid metrics for a controller's screen, and a flow layout that follows them.

#include "perf/grid/VUSectionedGridLayout.h"

namespace ui {
class CollectionViewFlowLayout;
class ViewController;
} // namespace ui

// From the pad's spec when the controller's extended traits say large, the phone's otherwise,
// for `width` and no safe-area insets.
VUSectionedGridLayout VUTesterGridLayoutForController(ui::ViewController *controller, double width);
// Item size, spacing and section inset from `grid`, the inset's bottom grown by `extraBottomInset`.
void VUTesterApplyGridLayout(ui::CollectionViewFlowLayout *layout, const VUSectionedGridLayout &grid, double extraBottomInset = 0);
