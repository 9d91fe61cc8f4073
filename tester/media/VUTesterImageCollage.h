#pragma once
// Joins keyed images side by side into one strip, 10 points apart, top-aligned, in the order their
// keys were first set.

#include "shell/VUTesterExport.h"

#include <graphics/Image.h>

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>

class VUTESTER_EXPORT VUTesterImageCollage {
public:
    // Replacing the image of a key keeps the key's first position.
    void setImage(graphics::ImagePtr image, const QString &key);
    // None when there are no images.
    graphics::ImagePtr collageImage() const;
    void _enumerateImagesUsingBlock(const std::function<void(const graphics::ImagePtr &image)> &block) const;

private:
    QStringList _keys;
    QHash<QString, graphics::ImagePtr> _images;
};
