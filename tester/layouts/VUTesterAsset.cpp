#include "layouts/VUTesterAsset.h"

VUTesterAsset::VUTesterAsset(QVariant item)
    : _item(std::move(item))
{
    const bool landscape = (VUTesterItemHash(_item) & 1) != 0;
    _pixelWidth = landscape ? 300 : 200;
    _pixelHeight = landscape ? 200 : 300;
}

QString VUTesterAsset::uuid() const
{
    return _item.isValid() ? VUTesterItemDescription(_item) : QString();
}

bool VUTesterAsset::isEqual(const VUDisplayAsset *other) const
{
    const auto *asset = dynamic_cast<const VUTesterAsset *>(other);
    return asset && VUTesterItemIsEqual(_item, asset->_item);
}
