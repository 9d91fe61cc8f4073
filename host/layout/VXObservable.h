#pragma once
// The host's observable: observers register with a context of their choosing and hear of changes
// as a bit mask, synchronously, on the thread that made them.

#include <QtGlobal>

#include <functional>
#include <vector>

class VXObservable;

class VXChangeObserver {
public:
    virtual ~VXChangeObserver() = default;
    // `context` is the one the observer registered with.
    virtual void didChange(VXObservable *observable, quint64 change, void *context) = 0;
};

class VXObservable {
public:
    VXObservable() = default;
    VXObservable(const VXObservable &) = delete;
    VXObservable &operator=(const VXObservable &) = delete;
    virtual ~VXObservable() = default;

    // Registering the same observer with the same context twice registers it once.
    void registerChangeObserver(VXChangeObserver *observer, void *context);
    void unregisterChangeObserver(VXChangeObserver *observer, void *context);
    bool hasChangeObserver(const VXChangeObserver *observer, const void *context) const;

    // Runs `changes`. Whatever they signal reaches the observers once, as one mask, when the
    // outermost performChanges returns, so observers never see a half-made change.
    void performChanges(const std::function<void()> &changes);
    // Inside performChanges the change joins the pending mask; outside, observers hear it at once.
    void signalChange(quint64 change);

private:
    struct Registration {
        VXChangeObserver *observer;
        void *context;
    };
    void deliver(quint64 change);

    std::vector<Registration> m_observers;
    int m_changeDepth = 0;
    quint64 m_pendingChange = 0;
};
