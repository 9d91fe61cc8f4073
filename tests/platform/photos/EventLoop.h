#pragma once
// Tests that wait for work delivered on the main queue: an application object to own the event
// loop, and a bounded spin of that loop.

#include <QCoreApplication>
#include <QElapsedTimer>

namespace photos::testing {

// Creates the process's application object (QCoreApplication or QApplication) once.
template <typename Application>
void ensureApplication()
{
    static int argc = 1;
    static char name[] = "vut-test";
    static char *argv[] = {name, nullptr};
    if (!QCoreApplication::instance())
        new Application(argc, argv);
}

// Runs the event loop until `done` holds or the time is up; returns `done()`.
template <typename F>
bool spinUntil(F done, int milliseconds = 10000)
{
    QElapsedTimer timer;
    timer.start();
    while (!done() && timer.elapsed() < milliseconds)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return done();
}

} // namespace photos::testing
