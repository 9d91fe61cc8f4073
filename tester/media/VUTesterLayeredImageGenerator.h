#pragma once
// Stacks the images of other generators, first at the bottom, each scaled to this generator's size.
// The children draw on their own queues at the same time; this generator waits for all of them.

#include "VUTesterImageGenerator.h"

#include <vector>

class VUTESTER_EXPORT VUTesterLayeredImageGenerator : public VUTesterImageGenerator {
public:
    const std::vector<VUTesterImageGeneratorPtr> &imageGenerators() const { return m_imageGenerators; }
    // Takes the first generator's size when the list is not empty. A generator must never be in
    // its own list.
    void setImageGenerators(const std::vector<VUTesterImageGeneratorPtr> &imageGenerators);

    graphics::ImagePtr createImage() override;

private:
    std::vector<VUTesterImageGeneratorPtr> m_imageGenerators;
};
