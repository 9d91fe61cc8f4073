#include "ProcessMemory.h"

#include <graphics/PixelBuffer.h>

#include <chrono>
#include <fstream>
#include <string>
#include <thread>

namespace {

double statusMB(const char *field)
{
    std::ifstream status("/proc/self/status");
    const std::string prefix = std::string(field) + ':';
    std::string line;
    while (std::getline(status, line))
        if (line.rfind(prefix, 0) == 0)
            return std::stod(line.substr(prefix.size())) / 1024.0;
    return 0;
}

} // namespace

double residentMB()
{
    return statusMB("VmRSS");
}

double peakResidentMB()
{
    return statusMB("VmHWM");
}

void resetPeakResident()
{
    std::ofstream("/proc/self/clear_refs") << "5";
}

double idleResidentMB()
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (graphics::retainedPixelBytes() > 0 && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    return residentMB();
}
