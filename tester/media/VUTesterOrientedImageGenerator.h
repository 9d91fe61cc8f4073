#pragma once
// Re-encodes another generator's picture under one of the eight image orientations: the pixels are
// the picture turned by the inverse orientation and the image is tagged with the orientation, so a
// viewer that honours the tag shows the picture upright and one that ignores it does not.

#include "VUTesterImageGenerator.h"

#include <cstdint>

class VUTESTER_EXPORT VUTesterOrientedImageGenerator : public VUTesterImageGenerator {
public:
    const VUTesterImageGeneratorPtr &imageGenerator() const { return m_imageGenerator; }
    // Takes the generator's size. A generator must never be its own source.
    void setImageGenerator(VUTesterImageGeneratorPtr imageGenerator);
    // A graphics::ImageOrientation value (0 "Up" ... 7 "Right Mirrored"); others draw as "Up".
    int64_t imageOrientation() const { return m_imageOrientation; }
    void setImageOrientation(int64_t orientation) { _setValue(m_imageOrientation, orientation); }

    void setImageSize(QSizeF imageSize) override;
    graphics::ImagePtr createImage() override;

private:
    VUTesterImageGeneratorPtr m_imageGenerator;
    int64_t m_imageOrientation = 0;
};
