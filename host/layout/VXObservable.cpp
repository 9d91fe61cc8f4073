#include "VXObservable.h"

#include <algorithm>
#include <utility>

void VXObservable::registerChangeObserver(VXChangeObserver *observer, void *context)
{
    if (!observer || hasChangeObserver(observer, context))
        return;
    m_observers.push_back({observer, context});
}

void VXObservable::unregisterChangeObserver(VXChangeObserver *observer, void *context)
{
    std::erase_if(m_observers, [&](const Registration &r) { return r.observer == observer && r.context == context; });
}

bool VXObservable::hasChangeObserver(const VXChangeObserver *observer, const void *context) const
{
    return std::any_of(m_observers.begin(), m_observers.end(),
                       [&](const Registration &r) { return r.observer == observer && r.context == context; });
}

void VXObservable::performChanges(const std::function<void()> &changes)
{
    ++m_changeDepth;
    if (changes)
        changes();
    if (--m_changeDepth > 0)
        return;
    const quint64 change = std::exchange(m_pendingChange, 0);
    if (change)
        deliver(change);
}

void VXObservable::signalChange(quint64 change)
{
    if (m_changeDepth > 0) {
        m_pendingChange |= change;
        return;
    }
    if (change)
        deliver(change);
}

void VXObservable::deliver(quint64 change)
{
    // An observer may unregister itself or another while hearing of the change: each one still
    // registered when its turn comes is told, and no one twice.
    const std::vector<Registration> observers = m_observers;
    for (const Registration &r : observers)
        if (hasChangeObserver(r.observer, r.context))
            r.observer->didChange(this, change, r.context);
}
