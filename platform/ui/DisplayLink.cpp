#include "DisplayLink.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <vector>

namespace ui {

namespace {

double monotonicSeconds()
{
    static QElapsedTimer clock = [] {
        QElapsedTimer timer;
        timer.start();
        return timer;
    }();
    return double(clock.nsecsElapsed()) * 1e-9;
}

double refreshRateOf(const QScreen *screen)
{
    const double rate = screen ? screen->refreshRate() : 0;
    return rate > 1 ? rate : 60.0;
}

DisplayLink::ManualStepping *g_manual = nullptr;
double g_manualTime = 0;
DisplayLink::Pacing g_pacing = DisplayLink::Pacing::Automatic;
std::vector<DisplayLink::FrameObserver *> g_observers;

// Tells the observers of a frame around the firing of its links.
template <typename Fire>
void observeFrame(double timestamp, double duration, Fire fire)
{
    if (g_observers.empty()) {
        fire();
        return;
    }
    // Copies: an observer may add or remove observers, itself included, while it is told.
    for (DisplayLink::FrameObserver *observer : std::vector(g_observers))
        if (std::find(g_observers.begin(), g_observers.end(), observer) != g_observers.end())
            observer->frameWillBegin(timestamp, duration);
    fire();
    for (DisplayLink::FrameObserver *observer : std::vector(g_observers))
        if (std::find(g_observers.begin(), g_observers.end(), observer) != g_observers.end())
            observer->frameDidEnd(timestamp, duration);
}

} // namespace

// Delivers frames to the links of one display or window. Links fire in the order they were
// scheduled; a handler may schedule, pause, invalidate or delete any link, itself included.
class FrameSource : public QObject {
public:
    using QObject::QObject;

    void add(DisplayLink *link)
    {
        m_links.push_back(link);
        wake();
    }
    void remove(DisplayLink *link)
    {
        m_links.erase(std::remove(m_links.begin(), m_links.end(), link), m_links.end());
    }
    bool hasActiveLinks() const
    {
        return std::any_of(m_links.begin(), m_links.end(), [](const QPointer<DisplayLink> &l) { return l && !l->isPaused(); });
    }
    void fire(double timestamp, double duration)
    {
        observeFrame(timestamp, duration, [&] {
            const std::vector<QPointer<DisplayLink>> links = m_links;
            for (const QPointer<DisplayLink> &link : links)
                if (link && link->m_source == this && link->isScheduled() && !link->isPaused())
                    link->deliver(timestamp, duration);
        });
    }
    // Starts frame delivery when there is someone to deliver to.
    virtual void wake() = 0;
    virtual double interval() const = 0;

protected:
    std::vector<QPointer<DisplayLink>> m_links;
};

namespace {

// A precise single-shot timer re-armed for each tick of a fixed grid at the screen's refresh
// interval. A late tick is stamped with its grid time; ticks that were missed are skipped.
class TimerFrameSource : public FrameSource {
public:
    explicit TimerFrameSource(QScreen *screen) : m_screen(screen)
    {
        m_timer.setSingleShot(true);
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, this, [this] { tick(); });
        m_origin = monotonicSeconds();
    }
    double interval() const override { return 1.0 / refreshRateOf(m_screen); }
    void wake() override
    {
        if (!g_manual && !m_timer.isActive() && hasActiveLinks())
            arm();
    }

private:
    void arm()
    {
        const double step = interval();
        const double now = monotonicSeconds();
        double next = m_origin + std::ceil((now - m_origin) / step) * step;
        if (next <= m_lastFrame + step * 0.5)
            next += step;
        m_timer.start(std::max(0, int(std::ceil((next - now) * 1000))));
    }
    void tick()
    {
        if (g_manual)
            return;
        const double step = interval();
        const double now = monotonicSeconds();
        m_lastFrame = m_origin + std::floor((now - m_origin) / step + 1e-6) * step;
        fire(m_lastFrame, step);
        wake();
    }

    QPointer<QScreen> m_screen;
    QTimer m_timer;
    double m_origin = 0;
    double m_lastFrame = -1;
};

// Frames paced by the window's update requests. Where the platform answers a request without
// waiting for a frame callback, a request that comes back early is deferred to the rest of
// the refresh interval, so the rate never runs far above the display's.
class WindowFrameSource : public FrameSource {
public:
    explicit WindowFrameSource(QWindow *window) : m_window(window)
    {
        window->installEventFilter(this);
        m_retry.setSingleShot(true);
        m_retry.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_retry, &QTimer::timeout, this, [this] { request(); });
    }
    double interval() const override { return 1.0 / refreshRateOf(m_window ? m_window->screen() : nullptr); }
    void wake() override
    {
        if (!g_manual && !m_requested && hasActiveLinks())
            request();
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == m_window && event->type() == QEvent::UpdateRequest && m_requested) {
            m_requested = false;
            const double now = monotonicSeconds();
            const double step = interval();
            if (now - m_lastFrame < step * 0.5) {
                m_requested = true;
                m_retry.start(std::max(0, int(std::ceil((m_lastFrame + step - now) * 1000))));
            } else if (!g_manual) {
                m_lastFrame = now;
                fire(now, step);
                wake();
            }
        }
        return false;
    }

private:
    void request()
    {
        m_requested = true;
        if (m_window)
            m_window->requestUpdate();
    }

    QPointer<QWindow> m_window;
    QTimer m_retry;
    bool m_requested = false;
    double m_lastFrame = -1;
};

// One source per screen or window, alive as long as what it follows; links of a source that
// goes away move to the primary screen's.
class FrameSources : public QObject {
public:
    static FrameSources &instance()
    {
        static FrameSources *sources = new FrameSources(qApp);
        return *sources;
    }

    FrameSource *sourceFor(QWidget *view)
    {
        QWindow *window = view ? view->window()->windowHandle() : nullptr;
        if (window && usesWindowUpdates())
            return find(window, [window] { return std::make_unique<WindowFrameSource>(window); });
        QScreen *screen = window ? window->screen() : QGuiApplication::primaryScreen();
        return find(screen, [screen] { return std::make_unique<TimerFrameSource>(screen); });
    }
    // Every scheduled link in scheduling order, for manual stepping.
    std::vector<QPointer<DisplayLink>> &allLinks() { return m_all; }
    void wakeAll()
    {
        for (auto &[key, source] : m_sources)
            source->wake();
    }

private:
    using QObject::QObject;

    static bool usesWindowUpdates()
    {
        if (g_pacing == DisplayLink::Pacing::Automatic)
            return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
        return g_pacing == DisplayLink::Pacing::WindowUpdates;
    }

    template <typename Make>
    FrameSource *find(QObject *key, Make make)
    {
        auto it = m_sources.find(key);
        if (it != m_sources.end())
            return it->second.get();
        auto source = make();
        FrameSource *raw = source.get();
        m_sources.emplace(key, std::move(source));
        if (key)
            QObject::connect(key, &QObject::destroyed, this, [this, key] {
                // Taken out first: its links reschedule (and may add sources) while it goes.
                auto node = m_sources.extract(key);
            });
        return raw;
    }

    std::map<QObject *, std::unique_ptr<FrameSource>> m_sources;
    std::vector<QPointer<DisplayLink>> m_all;
};

} // namespace

DisplayLink::DisplayLink(Handler handler, QObject *parent) : QObject(parent), m_handler(std::move(handler)) {}

DisplayLink::~DisplayLink()
{
    invalidate();
}

void DisplayLink::schedule(QWidget *view)
{
    if (!m_valid)
        return;
    FrameSource *source = FrameSources::instance().sourceFor(view);
    if (m_source == source)
        return;
    if (m_source) {
        m_source->remove(this);
        disconnect(m_sourceGone);
    } else {
        FrameSources::instance().allLinks().push_back(this);
    }
    m_source = source;
    m_scheduled = true;
    m_duration = source->interval();
    // Links of a screen or window that goes away move to the primary screen.
    m_sourceGone = connect(source, &QObject::destroyed, this, [this] {
        m_source = nullptr;
        auto &all = FrameSources::instance().allLinks();
        all.erase(std::remove(all.begin(), all.end(), this), all.end());
        schedule(nullptr);
    });
    source->add(this);
}

void DisplayLink::invalidate()
{
    if (m_source) {
        m_source->remove(this);
        disconnect(m_sourceGone);
        auto &all = FrameSources::instance().allLinks();
        all.erase(std::remove(all.begin(), all.end(), this), all.end());
    }
    m_source = nullptr;
    m_scheduled = false;
    m_valid = false;
}

void DisplayLink::setPaused(bool paused)
{
    if (paused == m_paused)
        return;
    m_paused = paused;
    if (!paused && m_source)
        m_source->wake();
}

void DisplayLink::deliver(double timestamp, double duration)
{
    m_timestamp = timestamp;
    m_duration = duration;
    if (m_handler)
        m_handler(*this);
}

double DisplayLink::currentTime()
{
    return g_manual ? g_manualTime : monotonicSeconds();
}

double DisplayLink::monotonicTime()
{
    return monotonicSeconds();
}

void DisplayLink::addFrameObserver(FrameObserver *observer)
{
    if (std::find(g_observers.begin(), g_observers.end(), observer) == g_observers.end())
        g_observers.push_back(observer);
}

void DisplayLink::removeFrameObserver(FrameObserver *observer)
{
    g_observers.erase(std::remove(g_observers.begin(), g_observers.end(), observer), g_observers.end());
}

void DisplayLink::setPacing(Pacing pacing)
{
    g_pacing = pacing;
}

DisplayLink::Pacing DisplayLink::pacing()
{
    return g_pacing;
}

DisplayLink::ManualStepping::ManualStepping(double refreshRate) : m_interval(1.0 / refreshRate)
{
    Q_ASSERT(!g_manual);
    g_manual = this;
    g_manualTime = monotonicSeconds();
}

DisplayLink::ManualStepping::~ManualStepping()
{
    g_manual = nullptr;
    FrameSources::instance().wakeAll();
}

double DisplayLink::ManualStepping::time() const
{
    return g_manualTime;
}

void DisplayLink::ManualStepping::step(int frames)
{
    for (int i = 0; i < frames; ++i) {
        g_manualTime += m_interval;
        observeFrame(g_manualTime, m_interval, [this] {
            const std::vector<QPointer<DisplayLink>> links = FrameSources::instance().allLinks();
            for (const QPointer<DisplayLink> &link : links)
                if (link && link->isScheduled() && !link->isPaused())
                    link->deliver(g_manualTime, m_interval);
        });
    }
}

} // namespace ui
