#include "VXPerfFrameRecorder.h"

#include <QApplication>
#include <QWidget>

VXPerfFrameRecorder::VXPerfFrameRecorder(QWidget *view, QObject *parent)
    : QObject(parent), m_view(view), m_link([](ui::DisplayLink &) {})
{
}

VXPerfFrameRecorder::~VXPerfFrameRecorder()
{
    stop();
}

void VXPerfFrameRecorder::start()
{
    if (m_recording)
        return;
    m_recording = true;
    ui::DisplayLink::addFrameObserver(this);
    m_link.schedule(m_view);
    m_link.setPaused(false);
}

void VXPerfFrameRecorder::stop()
{
    if (!m_recording)
        return;
    // What a frame's timers did belongs to that frame, the last one included.
    if (m_inFrame) {
        m_stopAtFrameEnd = true;
        return;
    }
    m_recording = false;
    ui::DisplayLink::removeFrameObserver(this);
    m_link.setPaused(true);
    Q_EMIT stopped();
}

void VXPerfFrameRecorder::frameWillBegin(double, double)
{
    m_inFrame = true;
    m_frameStart = ui::DisplayLink::monotonicTime();
}

void VXPerfFrameRecorder::frameDidEnd(double timestamp, double duration)
{
    m_inFrame = false;
    QCoreApplication::sendPostedEvents();
    m_work.push_back(ui::DisplayLink::monotonicTime() - m_frameStart);
    m_timestamps.push_back(timestamp);
    m_refreshInterval = duration;
    m_peakWidgets = std::max<qint64>(m_peakWidgets, QApplication::allWidgets().size());
    Q_EMIT frameRecorded();
    if (std::exchange(m_stopAtFrameEnd, false))
        stop();
}
