#include "VXExtendedTraitCollection.h"

#include "ui/ViewController.h"

#include <QWidget>

namespace {
const char *const kEnabledProperty = "vx_extendedTraitCollectionEnabled";
}

void vx_enableExtendedTraitCollection(ui::ViewController *controller)
{
    controller->setProperty(kEnabledProperty, true);
}

VXExtendedTraitCollection vx_extendedTraitCollection(ui::ViewController *controller)
{
    if (!controller->property(kEnabledProperty).toBool())
        return {};
    const int width = controller->view()->width();
    if (width <= 0)
        return {};
    return {width >= VXLargeLayoutMinimumWidth ? VXLayoutSizeClass::Large : VXLayoutSizeClass::Compact};
}
