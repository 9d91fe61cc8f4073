#pragma once
// The host's extended traits of a view controller: the layout size class its screens are laid
// out for. A controller asks for them once (vx_enableExtendedTraitCollection); until then, or
// before its view has a size, the class is unspecified.

namespace ui {
class ViewController;
}

enum class VXLayoutSizeClass { Unspecified = 0, Compact = 1, Large = 2 };

struct VXExtendedTraitCollection {
    VXLayoutSizeClass layoutSizeClass = VXLayoutSizeClass::Unspecified;
};

// Screens at least this wide are laid out as large ones.
inline constexpr double VXLargeLayoutMinimumWidth = 700;

void vx_enableExtendedTraitCollection(ui::ViewController *controller);
VXExtendedTraitCollection vx_extendedTraitCollection(ui::ViewController *controller);
