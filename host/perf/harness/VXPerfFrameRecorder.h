#pragma once
// Records the frames of the display that shows a view: each frame's refresh time stamp and its
// work, from the refresh until every frame timer has run and what they changed has been laid out
// and painted. Pending paint and layout events are delivered at the end of each frame so that
// they count for the frame that caused them rather than whenever the event loop gets to them.
//
// While recording it keeps a frame timer of its own scheduled, so frames keep coming even when
// nothing else on screen asks for them (a transition between two still screens).

#include "ui/DisplayLink.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <vector>

class QWidget;

class VXPerfFrameRecorder : public QObject, public ui::DisplayLink::FrameObserver {
    Q_OBJECT
public:
    explicit VXPerfFrameRecorder(QWidget *view, QObject *parent = nullptr);
    ~VXPerfFrameRecorder() override;

    void start();
    // Stops at once, or, during a frame, once that frame has been recorded; then tells `stopped`.
    void stop();
    bool isRecording() const { return m_recording; }

    const std::vector<double> &timestamps() const { return m_timestamps; }
    const std::vector<double> &work() const { return m_work; }
    double refreshInterval() const { return m_refreshInterval; }
    qint64 peakWidgets() const { return m_peakWidgets; }

    void frameWillBegin(double timestamp, double duration) override;
    void frameDidEnd(double timestamp, double duration) override;

Q_SIGNALS:
    void frameRecorded();
    void stopped();

private:
    QPointer<QWidget> m_view;
    ui::DisplayLink m_link;
    bool m_recording = false;
    bool m_inFrame = false;
    bool m_stopAtFrameEnd = false;
    double m_frameStart = 0;
    std::vector<double> m_timestamps;
    std::vector<double> m_work;
    double m_refreshInterval = 1.0 / 60;
    qint64 m_peakWidgets = 0;
};
