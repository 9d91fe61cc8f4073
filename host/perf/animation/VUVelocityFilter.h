#pragma once
// Estimates the velocity of a value from timed samples of it, in units per second. The estimate is
// the least-squares slope of the samples within a short window of the newest one, fitted against
// their real times, so uneven spacing between samples (a late event, two in one frame) does not
// skew it: any straight motion is measured exactly, however it was sampled.

#include <deque>

class VUVelocityFilter {
public:
    // Tuned for finger positions in points: a window of a tenth of a second, sixteen samples at most.
    static VUVelocityFilter gestureVelocityFilter();
    VUVelocityFilter(double window, int maximumSamples);

    // One sample now, on the display's frame clock.
    void setInputValue(double value);
    // One sample at `time` (seconds). A sample at the time of the previous one replaces it.
    void addSample(double value, double time);
    double inputValue() const { return m_samples.empty() ? 0 : m_samples.back().value; }
    // 0 until two samples at different times have come in.
    double outputValue() const { return m_output; }

private:
    struct Sample {
        double value;
        double time;
    };
    void update();

    double m_window;
    int m_maximumSamples;
    std::deque<Sample> m_samples;
    double m_output = 0;
};
