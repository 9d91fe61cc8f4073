#include "VUSpringDriver.h"

#include "ui/DisplayLink.h"

#include <QWidget>

VUSpringDriver *VUSpringDriver::start(QWidget *view, const VUSpring &spring, double velocity, Step step, Completion completion)
{
    return new VUSpringDriver(view, spring, velocity, std::move(step), std::move(completion));
}

VUSpringDriver::VUSpringDriver(QWidget *view, const VUSpring &spring, double velocity, Step step, Completion completion)
    : QObject(view)
    , m_spring(spring)
    , m_velocity(velocity)
    , m_step(std::move(step))
    , m_completion(std::move(completion))
{
    m_link = new ui::DisplayLink([this](ui::DisplayLink &link) { _frame(link.timestamp()); }, this);
    m_link->schedule(view);
}

void VUSpringDriver::_frame(double time)
{
    // Time counts from the first frame, so a driver started between frames does not jump.
    if (m_startTime < 0)
        m_startTime = time;
    const double t = time - m_startTime;
    if (t >= m_spring.duration()) {
        m_step(1);
        _end(true);
        return;
    }
    m_step(m_spring.value(0, 1, m_velocity, t));
}

void VUSpringDriver::cancel()
{
    _end(false);
}

bool VUSpringDriver::isRunning() const
{
    return m_link->isValid();
}

void VUSpringDriver::_end(bool finished)
{
    if (!m_link->isValid())
        return;
    m_link->invalidate();
    m_pending.end();
    if (m_completion)
        m_completion(finished);
    deleteLater();
}
