#pragma once
// Runs one spring (VUSpring) from 0 to 1 once per display frame and hands each step's fraction
// to a function, for views that animate what a gesture left behind: a photo settling back or
// flying off, a zoom easing in. The fraction may overshoot 1 on the way when the spring is
// underdamped; the last step is exactly 1. Pending work (ui::Settle) while it runs.

#include "VUSpring.h"

#include "ui/Settle.h"

#include <QObject>

#include <functional>

class QWidget;
namespace ui {
class DisplayLink;
}

class VUSpringDriver : public QObject {
    Q_OBJECT
public:
    using Step = std::function<void(double fraction)>;
    using Completion = std::function<void(bool finished)>;

    // Starts on the next frame of `view`'s display; `velocity` is the initial velocity in
    // travels per second (a finger's speed divided by the distance left to go). The driver
    // belongs to `view` and deletes itself once it ends.
    static VUSpringDriver *start(QWidget *view, const VUSpring &spring, double velocity, Step step, Completion completion = {});

    // Stops where it is; the completion hears it did not finish.
    void cancel();
    // False once it has ended, though it may not have been deleted yet.
    bool isRunning() const;

private:
    VUSpringDriver(QWidget *view, const VUSpring &spring, double velocity, Step step, Completion completion);
    void _frame(double time);
    void _end(bool finished);

    VUSpring m_spring;
    double m_velocity;
    Step m_step;
    Completion m_completion;
    double m_startTime = -1;
    ui::DisplayLink *m_link;
    ui::PendingWork m_pending{QStringLiteral("a spring")};
};
