#pragma once
// A meter that samples itself on every display refresh, so its rate is the rate at which the main
// run loop really delivers refreshes. Labelled "Display Link". start() must be called on the main
// thread; after invalidate() its frame timer is gone for good, so it cannot be started again.

#include "perf/meters/VUTesterFPSMeter.h"

namespace ui {
class DisplayLink;
}

class VUTESTER_EXPORT VUTesterDisplayLinkFPSMeter : public VUTesterFPSMeter {
public:
    VUTesterDisplayLinkFPSMeter();
    ~VUTesterDisplayLinkFPSMeter() override;

    // Registers the meter, then schedules its timer.
    void start() override;
    // Unregisters it, then invalidates the timer.
    void invalidate() override;

private:
    void _handleDisplayLink(ui::DisplayLink &displayLink);
    ui::DisplayLink *_displayLink() const { return m_displayLink.get(); }

    std::unique_ptr<ui::DisplayLink> m_displayLink;
};
