#include "perf/meters/VUTesterDisplayLinkFPSMeter.h"

#include "ui/DisplayLink.h"

VUTesterDisplayLinkFPSMeter::VUTesterDisplayLinkFPSMeter()
    : m_displayLink(std::make_unique<ui::DisplayLink>([this](ui::DisplayLink &link) { _handleDisplayLink(link); }))
{
    setLabel(QStringLiteral("Display Link"));
}

VUTesterDisplayLinkFPSMeter::~VUTesterDisplayLinkFPSMeter() = default;

void VUTesterDisplayLinkFPSMeter::start()
{
    VUTesterFPSMeter::start();
    _displayLink()->schedule();
}

void VUTesterDisplayLinkFPSMeter::invalidate()
{
    VUTesterFPSMeter::invalidate();
    _displayLink()->invalidate();
}

void VUTesterDisplayLinkFPSMeter::_handleDisplayLink(ui::DisplayLink &)
{
    sample();
}
