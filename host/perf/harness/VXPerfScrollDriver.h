#pragma once
// Scrolls a scroll view in code at a fixed speed, down and then back up, for a fixed time, one
// step per display frame: down for the first half of the time and back for the second, turning
// at the end of the content if it comes first, so the run ends where it began.

#include <QObject>
#include <QPointer>

#include <functional>

namespace ui {
class DisplayLink;
class ScrollView;
} // namespace ui

class VXPerfScrollDriver : public QObject {
    Q_OBJECT
public:
    VXPerfScrollDriver(ui::ScrollView *scrollView, double speed, double duration, std::function<void()> finished, QObject *parent = nullptr);

    void start();
    // How far from the top the content is `time` seconds in, for a scrollable `range`.
    static double distanceAt(double time, double speed, double duration, double range);

private:
    void step(double timestamp);

    QPointer<ui::ScrollView> m_scrollView;
    double m_speed;
    double m_duration;
    std::function<void()> m_finished;
    ui::DisplayLink *m_link = nullptr;
    double m_startTime = -1;
};
