#pragma once
// A continuous pan: begins once its touches have moved `minimumDistance` points together, then
// reports the translation of their centroid and its velocity in points per second. The
// translation counts from where the pan began, so a view that follows it does not jump.
//
// A pan also takes wheel and touchpad scrolls (not with Ctrl held, which zooms): a touchpad
// scroll is a pan from its first to its last event, a notched wheel one that ends when the
// wheel has been still for a moment, with no velocity, so it never flings.

#include "GestureRecognizer.h"

#include <QTimer>

#include <deque>

namespace ui {

class PanGestureRecognizer : public GestureRecognizer {
    Q_OBJECT
public:
    explicit PanGestureRecognizer(QWidget *view);

    QPointF translation() const { return m_translation; }
    // Sets the translation and starts the velocity afresh from here.
    void setTranslation(QPointF translation);
    QPointF velocity() const;

    int minimumNumberOfTouches() const { return m_minimumTouches; }
    void setMinimumNumberOfTouches(int touches) { m_minimumTouches = qMax(1, touches); }
    int maximumNumberOfTouches() const { return m_maximumTouches; }
    void setMaximumNumberOfTouches(int touches) { m_maximumTouches = qMax(1, touches); }
    double minimumDistance() const { return m_minimumDistance; }
    void setMinimumDistance(double points) { m_minimumDistance = points; }
    // Whether the current pan comes from a wheel or touchpad rather than touches.
    bool isScrolling() const { return m_scrolling; }
    // The travel since the touches went down, including the part before the pan began: what
    // a recogniser's shouldBegin predicate judges the direction by.
    QPointF travel() const { return m_travel; }

protected:
    void touchesBegan(const QList<Touch> &touches, double timestamp) override;
    void touchesMoved(const QList<Touch> &touches, double timestamp) override;
    void touchesEnded(const QList<Touch> &touches, double timestamp) override;
    bool scrolled(QPointF globalPosition, QPointF delta, ScrollPhase phase, double timestamp,
                  Qt::KeyboardModifiers modifiers) override;
    void reset() override;

private:
    void addSample(double timestamp);
    void move(QPointF delta, double timestamp);
    bool beginScrolling(QPointF globalPosition, QPointF travel, double timestamp);

    int m_minimumTouches = 1;
    int m_maximumTouches = 10;
    double m_minimumDistance = 10;
    QPointF m_translation;
    QPointF m_travel;
    QPointF m_lastCentroid;
    struct Sample {
        double time;
        QPointF travel;
    };
    std::deque<Sample> m_samples;
    bool m_scrolling = false;
    QTimer m_wheelEnd;
};

} // namespace ui
