#include "VXTilingLayout.h"

#include "VXTilingController.h"

VXTilingLayout::VXTilingLayout() = default;

VXTilingLayout::~VXTilingLayout() = default;

void VXTilingLayout::setReferenceSize(QSizeF size)
{
    if (size == m_referenceSize)
        return;
    m_referenceSize = size;
    invalidateLayout();
}

void VXTilingLayout::prepareLayout()
{
    m_prepared = true;
}

void VXTilingLayout::invalidateLayout()
{
    m_prepared = false;
    if (m_controller)
        m_controller->setNeedsUpdate();
}
