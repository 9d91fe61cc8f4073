#include "VXPerfScrollDriver.h"

#include "ui/DisplayLink.h"
#include "ui/ScrollView.h"

#include <algorithm>
#include <cmath>

VXPerfScrollDriver::VXPerfScrollDriver(ui::ScrollView *scrollView, double speed, double duration, std::function<void()> finished,
                                       QObject *parent)
    : QObject(parent), m_scrollView(scrollView), m_speed(speed), m_duration(duration), m_finished(std::move(finished))
{
}

double VXPerfScrollDriver::distanceAt(double time, double speed, double duration, double range)
{
    if (range <= 0)
        return 0;
    const double travelled = speed * std::clamp(std::min(time, duration - time), 0.0, duration);
    // Folded at both ends of the content: down, back up, down again...
    const double folded = std::fmod(travelled, 2 * range);
    return folded <= range ? folded : 2 * range - folded;
}

void VXPerfScrollDriver::start()
{
    m_link = new ui::DisplayLink([this](ui::DisplayLink &link) { step(link.timestamp()); }, this);
    m_link->schedule(m_scrollView);
}

void VXPerfScrollDriver::step(double timestamp)
{
    if (!m_scrollView) {
        m_link->invalidate();
        if (m_finished)
            m_finished();
        return;
    }
    if (m_startTime < 0)
        m_startTime = timestamp;
    const double time = timestamp - m_startTime;
    const QPointF top = m_scrollView->minimumContentOffset();
    const double range = m_scrollView->maximumContentOffset().y() - top.y();
    m_scrollView->setContentOffset(QPointF(top.x(), top.y() + distanceAt(time, m_speed, m_duration, range)));
    // Frame times are sums of intervals: the frame due at the end may come a hair short of it.
    if (time >= m_duration - 1e-9) {
        m_link->invalidate();
        if (m_finished)
            m_finished();
    }
}
