#pragma once
// The play button drawn over video thumbnails and players. It shows what tapping it does (play,
// or pause while the video plays) or a turning spinner while the video loads; a disabled button
// is dimmed and takes no taps. Four styles suit different pictures: a dark disc, a light disc, a
// white outline, or the glyph alone with a shadow.
//
// The spinner turns on the display's frame timer only while it is shown.

#include <QAbstractButton>

namespace ui {
class DisplayLink;
}

class VUVideoOverlayButton : public QAbstractButton {
    Q_OBJECT
public:
    enum class Style { DarkDisc, LightDisc, Outline, GlyphOnly };
    enum class Mode { Play, Pause, Loading };
    // Diameters in points of the three sizes the host uses: grid thumbnails, cards, players.
    enum class Size { Small, Medium, Large };
    static double diameterForSize(Size size);

    explicit VUVideoOverlayButton(QWidget *parent = nullptr);

    Style overlayStyle() const { return m_style; }
    void setOverlayStyle(Style style);
    Mode mode() const { return m_mode; }
    void setMode(Mode mode);
    double diameter() const { return m_diameter; }
    void setDiameter(double diameter);
    void setSize(Size size) { setDiameter(diameterForSize(size)); }

    // The spinner's turn in degrees, and whether it is turning now.
    double spinnerAngle() const { return m_spinnerAngle; }
    bool isSpinning() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    bool hitButton(const QPoint &position) const override;

private:
    void _updateSpinner();

    Style m_style = Style::DarkDisc;
    Mode m_mode = Mode::Play;
    double m_diameter = 48;
    double m_spinnerAngle = 0;
    double m_spinnerStart = -1;
    ui::DisplayLink *m_spinner = nullptr;
};
