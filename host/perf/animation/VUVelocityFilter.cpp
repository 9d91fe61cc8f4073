#include "VUVelocityFilter.h"

#include "ui/DisplayLink.h"

VUVelocityFilter VUVelocityFilter::gestureVelocityFilter()
{
    return VUVelocityFilter(0.1, 16);
}

VUVelocityFilter::VUVelocityFilter(double window, int maximumSamples) : m_window(window), m_maximumSamples(maximumSamples) {}

void VUVelocityFilter::setInputValue(double value)
{
    addSample(value, ui::DisplayLink::currentTime());
}

void VUVelocityFilter::addSample(double value, double time)
{
    if (!m_samples.empty() && time <= m_samples.back().time) {
        // A clock that did not move: the newer value stands for that moment.
        m_samples.back().value = value;
    } else {
        m_samples.push_back({value, time});
    }
    while (int(m_samples.size()) > m_maximumSamples || (m_samples.size() > 2 && time - m_samples.front().time > m_window))
        m_samples.pop_front();
    update();
}

void VUVelocityFilter::update()
{
    const size_t n = m_samples.size();
    if (n < 2)
        return;
    // Relative to the newest sample, so large clock and position values lose no precision.
    const Sample &origin = m_samples.back();
    double meanT = 0, meanV = 0;
    for (const Sample &s : m_samples) {
        meanT += s.time - origin.time;
        meanV += s.value - origin.value;
    }
    meanT /= double(n);
    meanV /= double(n);
    double covariance = 0, variance = 0;
    for (const Sample &s : m_samples) {
        const double dt = s.time - origin.time - meanT;
        covariance += dt * (s.value - origin.value - meanV);
        variance += dt * dt;
    }
    if (variance > 0)
        m_output = covariance / variance;
}
