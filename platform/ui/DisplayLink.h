#pragma once
// A display-synchronised frame timer: calls its handler on the main thread once per refresh of
// the display that shows a view. Every link on one display fires in the same tick with the same
// time stamp, so animations and frame meters agree on what a frame is.
//
// Frames come from the window's own update requests on platforms where those follow the
// display's frame callbacks (Wayland), and otherwise from a precise timer at the screen's refresh
// rate (QScreen::refreshRate, 60 Hz when unknown) whose ticks stay on a fixed grid, so the
// average rate is exact even though one tick may be up to a millisecond late.
//
// While a DisplayLink::ManualStepping object lives, no link fires on its own: frames happen only
// when it steps, with a clock of its own, so tests and harnesses drive animations frame by frame.
//
// Frame observers hear of every frame before its first link fires and after its last one, so a
// harness can time a whole frame whatever links the screen under test has.

#include <QObject>
#include <QPointer>

#include <functional>

class QWidget;

namespace ui {

class DisplayLink : public QObject {
    Q_OBJECT
public:
    using Handler = std::function<void(DisplayLink &link)>;

    enum class Pacing {
        Automatic,     // window updates where they follow frame callbacks, else the timer
        Timer,         // always the refresh-rate timer
        WindowUpdates, // always the window's update requests, when the view has a window
    };

    explicit DisplayLink(Handler handler, QObject *parent = nullptr);
    ~DisplayLink() override;

    // Starts firing once per refresh of the display showing `view` (the primary screen when
    // null or not shown yet). Scheduling a scheduled link moves it to that view's display.
    // An invalidated link cannot be scheduled again.
    void schedule(QWidget *view = nullptr);
    // Stops the link for good.
    void invalidate();
    bool isValid() const { return m_valid; }
    bool isScheduled() const { return m_scheduled; }
    // A paused link stays scheduled but skips frames.
    void setPaused(bool paused);
    bool isPaused() const { return m_paused; }

    // Time of the frame being delivered (or last delivered), in seconds of currentTime().
    double timestamp() const { return m_timestamp; }
    // Time of the next frame.
    double targetTimestamp() const { return m_timestamp + m_duration; }
    // The frame interval, in seconds.
    double duration() const { return m_duration; }

    // The clock frames are stamped with: monotonic seconds, or the stepped clock while a
    // ManualStepping object lives.
    static double currentTime();
    // Monotonic seconds, stepping or not: how long work really took.
    static double monotonicTime();

    static void setPacing(Pacing pacing);
    static Pacing pacing();

    class FrameObserver {
    public:
        virtual ~FrameObserver() = default;
        virtual void frameWillBegin(double timestamp, double duration) {}
        virtual void frameDidEnd(double timestamp, double duration) {}
    };
    // The observer is not owned; remove it before it goes.
    static void addFrameObserver(FrameObserver *observer);
    static void removeFrameObserver(FrameObserver *observer);

    class ManualStepping {
    public:
        explicit ManualStepping(double refreshRate = 60);
        ~ManualStepping();
        ManualStepping(const ManualStepping &) = delete;
        ManualStepping &operator=(const ManualStepping &) = delete;
        // Advances the clock by one frame interval and fires every scheduled, unpaused link,
        // `frames` times.
        void step(int frames = 1);
        double interval() const { return m_interval; }
        double time() const;

    private:
        double m_interval;
    };

private:
    friend class FrameSource;
    void deliver(double timestamp, double duration);

    Handler m_handler;
    class FrameSource *m_source = nullptr;
    QMetaObject::Connection m_sourceGone;
    bool m_valid = true;
    bool m_scheduled = false;
    bool m_paused = false;
    double m_timestamp = 0;
    double m_duration = 1.0 / 60;
};

} // namespace ui
