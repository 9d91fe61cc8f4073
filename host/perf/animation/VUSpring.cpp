#include "VUSpring.h"

#include <algorithm>
#include <cmath>

VUSpring::VUSpring(double duration, double dampingRatio) : m_duration(std::max(0.0, duration)), m_zeta(std::clamp(dampingRatio, 0.0, 1.0))
{
    // The envelope exp(-zeta omega t) falls to 1/1000 at the duration. A spring with almost no
    // damping would need an unbounded frequency for that, so its frequency is that of 0.1.
    const double settlingZeta = std::max(m_zeta, 0.1);
    m_omega = m_duration > 0 ? std::log(1000.0) / (settlingZeta * m_duration) : 0;
}

double VUSpring::displacement(double t) const
{
    if (t <= 0)
        return 1;
    if (t >= m_duration)
        return 0;
    const double decay = std::exp(-m_zeta * m_omega * t);
    if (m_zeta >= 1)
        return decay * (1 + m_omega * t);
    const double damped = m_omega * std::sqrt(1 - m_zeta * m_zeta);
    return decay * (std::cos(damped * t) + m_zeta * m_omega / damped * std::sin(damped * t));
}

double VUSpring::impulse(double t) const
{
    if (t <= 0 || t >= m_duration)
        return 0;
    const double decay = std::exp(-m_zeta * m_omega * t);
    if (m_zeta >= 1)
        return t * decay;
    const double damped = m_omega * std::sqrt(1 - m_zeta * m_zeta);
    return decay * std::sin(damped * t) / damped;
}
