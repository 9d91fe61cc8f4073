#include "VXPerfTransitionDriver.h"

#include "ui/DisplayLink.h"

#include <QTimer>

VXPerfTransitionDriver::VXPerfTransitionDriver(ui::NavigationController *navigationController, ui::ViewController *destination,
                                               std::shared_ptr<ui::AnimatedTransitioning> transition, int iterations, double maximumDuration,
                                               std::function<void(int pairs)> finished, QObject *parent)
    : QObject(parent), m_navigationController(navigationController), m_destination(destination), m_transition(std::move(transition)),
      m_iterations(std::max(1, iterations)), m_maximumDuration(maximumDuration), m_finished(std::move(finished))
{
    // Kept between pops, and deleted with the driver unless a navigation controller holds it.
    if (m_destination)
        m_destination->setParent(this);
}

VXPerfTransitionDriver::~VXPerfTransitionDriver()
{
    if (m_running && m_navigationController && m_navigationController->delegate() == this)
        m_navigationController->setDelegate(m_previousDelegate);
}

void VXPerfTransitionDriver::start()
{
    if (!m_navigationController || !m_destination) {
        finish();
        return;
    }
    m_running = true;
    m_previousDelegate = m_navigationController->delegate();
    m_navigationController->setDelegate(this);
    m_startTime = ui::DisplayLink::currentTime();
    m_navigationController->pushViewController(m_destination, true);
}

void VXPerfTransitionDriver::didShowViewController(ui::NavigationController *navigationController, ui::ViewController *viewController, bool)
{
    if (!m_running)
        return;
    if (viewController == m_destination) {
        // The next move starts once this one has fully ended.
        QTimer::singleShot(0, this, [this] {
            if (m_running && m_navigationController)
                m_navigationController->popViewControllerAnimated(true);
        });
        return;
    }
    // Popped: keep it, or the navigation controller deletes it.
    if (m_destination)
        m_destination->setParent(this);
    ++m_pairs;
    if (m_pairs >= m_iterations || ui::DisplayLink::currentTime() - m_startTime >= m_maximumDuration) {
        finish();
        return;
    }
    QTimer::singleShot(0, this, [this] {
        if (m_running && m_navigationController && m_destination)
            m_navigationController->pushViewController(m_destination, true);
    });
}

void VXPerfTransitionDriver::finish()
{
    if (m_running && m_navigationController)
        m_navigationController->setDelegate(m_previousDelegate);
    m_running = false;
    if (m_finished)
        m_finished(m_pairs);
}
