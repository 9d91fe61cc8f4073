#pragma once
// Styled text on a transparent image, centred or at the top-left corner: a layer for the layered
// generator (time stamps and labels over test content).

#include "VUTesterImageGenerator.h"

#include <graphics/StyledText.h>

#include <cstdint>

class VUTESTER_EXPORT VUTesterWatermarkImageGenerator : public VUTesterImageGenerator {
public:
    const graphics::StyledText &watermarkAttributedString() const { return m_watermarkAttributedString; }
    void setWatermarkAttributedString(const graphics::StyledText &text) { _setValue(m_watermarkAttributedString, text); }
    // 0 centres the text; any other value puts it at the top-left corner.
    int64_t watermarkLocation() const { return m_watermarkLocation; }
    void setWatermarkLocation(int64_t location) { _setValue(m_watermarkLocation, location); }

    graphics::ImagePtr createImage() override;

private:
    graphics::StyledText m_watermarkAttributedString;
    int64_t m_watermarkLocation = 0;
};
