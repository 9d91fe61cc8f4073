#pragma once
// A progress ring: a faint track with an arc that grows clockwise from the top as work advances;
// a quarter arc that turns round while the amount of work is unknown; a full ring with a check
// when the work is done.

#include "VUBadgeView.h"

#include <QPointer>

namespace ui {
class DisplayLink;
}

class VUProgressRingView : public VUBadgeView {
    Q_OBJECT
public:
    enum class State { Determinate, Indeterminate, Completed };
    static constexpr double kDefaultSize = 40;
    static constexpr double kDefaultLineWidth = 3;
    // Turns per second of the indeterminate arc.
    static constexpr double kSpinRate = 1;

    explicit VUProgressRingView(QWidget *parent = nullptr);
    ~VUProgressRingView() override;

    // `progress` is clamped to [0, 1]; `phase` (in turns) is where an indeterminate arc starts.
    static void paintProgressRing(QPainter &painter, const QRectF &rect, State state, double progress, const QColor &color,
                                  double lineWidth = kDefaultLineWidth, double phase = 0);

    State state() const { return m_state; }
    void setState(State state);
    double progress() const { return m_progress; }
    void setProgress(double progress);
    double lineWidth() const { return m_lineWidth; }
    void setLineWidth(double width);
    // Where the indeterminate arc is, in turns: it moves once per display frame while shown.
    double phase() const { return m_phase; }

protected:
    void paintGlyph(QPainter &painter, const QRectF &rect) const override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void updateSpinning();

    State m_state = State::Determinate;
    double m_progress = 0;
    double m_lineWidth = kDefaultLineWidth;
    double m_phase = 0;
    double m_lastFrame = -1;
    QPointer<ui::DisplayLink> m_link;
};
