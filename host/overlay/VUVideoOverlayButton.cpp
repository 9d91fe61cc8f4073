#include "overlay/VUVideoOverlayButton.h"

#include "ui/DisplayLink.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace {

// One turn a second, as the host's other spinners.
constexpr double kDegreesPerSecond = 360;

struct Palette {
    QColor disc;
    QColor ring;
    QColor glyph;
    bool glyphShadow;
};

Palette paletteFor(VUVideoOverlayButton::Style style)
{
    switch (style) {
    case VUVideoOverlayButton::Style::DarkDisc:
        return {QColor(0, 0, 0, 115), Qt::transparent, Qt::white, false};
    case VUVideoOverlayButton::Style::LightDisc:
        return {QColor(255, 255, 255, 217), Qt::transparent, QColor(28, 28, 30), false};
    case VUVideoOverlayButton::Style::Outline:
        return {QColor(0, 0, 0, 40), Qt::white, Qt::white, true};
    case VUVideoOverlayButton::Style::GlyphOnly:
        return {Qt::transparent, Qt::transparent, Qt::white, true};
    }
    return {};
}

// The glyph in a unit box centred on the origin: a triangle nudged right so it looks centred, or
// two bars.
QPainterPath glyphPath(VUVideoOverlayButton::Mode mode)
{
    QPainterPath path;
    if (mode == VUVideoOverlayButton::Mode::Play) {
        path.moveTo(-0.38, -0.5);
        path.lineTo(0.5, 0);
        path.lineTo(-0.38, 0.5);
        path.closeSubpath();
        path.translate(0.06, 0);
    } else {
        path.addRoundedRect(QRectF(-0.42, -0.5, 0.3, 1.0), 0.06, 0.06);
        path.addRoundedRect(QRectF(0.12, -0.5, 0.3, 1.0), 0.06, 0.06);
    }
    return path;
}

} // namespace

double VUVideoOverlayButton::diameterForSize(Size size)
{
    switch (size) {
    case Size::Small:
        return 28;
    case Size::Medium:
        return 48;
    case Size::Large:
        return 76;
    }
    return 48;
}

VUVideoOverlayButton::VUVideoOverlayButton(QWidget *parent)
    : QAbstractButton(parent)
{
    setCursor(Qt::PointingHandCursor);
    setAccessibleName(QStringLiteral("Play"));
    resize(sizeHint());
}

void VUVideoOverlayButton::setOverlayStyle(Style style)
{
    if (style == m_style)
        return;
    m_style = style;
    update();
}

void VUVideoOverlayButton::setMode(Mode mode)
{
    if (mode == m_mode)
        return;
    m_mode = mode;
    static const char *const names[] = {"Play", "Pause", "Loading"};
    setAccessibleName(QString::fromLatin1(names[int(mode)]));
    _updateSpinner();
    update();
}

void VUVideoOverlayButton::setDiameter(double diameter)
{
    if (diameter == m_diameter)
        return;
    m_diameter = diameter;
    updateGeometry();
    resize(sizeHint());
    update();
}

QSize VUVideoOverlayButton::sizeHint() const
{
    const int side = int(std::ceil(m_diameter));
    return QSize(side, side);
}

bool VUVideoOverlayButton::isSpinning() const
{
    return m_spinner && !m_spinner->isPaused();
}

void VUVideoOverlayButton::showEvent(QShowEvent *event)
{
    QAbstractButton::showEvent(event);
    _updateSpinner();
}

void VUVideoOverlayButton::hideEvent(QHideEvent *event)
{
    QAbstractButton::hideEvent(event);
    _updateSpinner();
}

bool VUVideoOverlayButton::hitButton(const QPoint &position) const
{
    const QPointF offset = QPointF(position) - QRectF(rect()).center();
    return offset.x() * offset.x() + offset.y() * offset.y() <= m_diameter * m_diameter / 4;
}

void VUVideoOverlayButton::_updateSpinner()
{
    const bool wanted = m_mode == Mode::Loading && isVisible();
    if (!wanted) {
        if (m_spinner)
            m_spinner->setPaused(true);
        return;
    }
    if (!m_spinner) {
        m_spinner = new ui::DisplayLink([this](ui::DisplayLink &link) {
            if (m_spinnerStart < 0)
                m_spinnerStart = link.timestamp();
            m_spinnerAngle = std::fmod((link.timestamp() - m_spinnerStart) * kDegreesPerSecond, 360.0);
            update();
        }, this);
        m_spinner->schedule(this);
    }
    m_spinner->setPaused(false);
}

void VUVideoOverlayButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Palette palette = paletteFor(m_style);
    const QPointF centre = QRectF(rect()).center();
    const double radius = m_diameter / 2;
    if (!isEnabled())
        painter.setOpacity(0.35);
    else if (isDown())
        painter.setOpacity(0.7);

    if (palette.disc.alpha() > 0) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette.disc);
        painter.drawEllipse(centre, radius, radius);
    }
    const double line = std::max(1.5, m_diameter / 18);
    if (palette.ring.alpha() > 0) {
        painter.setPen(QPen(palette.ring, line));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(centre, radius - line / 2, radius - line / 2);
    }

    if (m_mode == Mode::Loading) {
        // Three quarters of a circle, turning.
        const double r = radius * 0.5;
        const QRectF arc(centre.x() - r, centre.y() - r, 2 * r, 2 * r);
        if (palette.glyphShadow) {
            painter.setPen(QPen(QColor(0, 0, 0, 90), line, Qt::SolidLine, Qt::RoundCap));
            painter.drawArc(arc.translated(0, line / 2), int(-m_spinnerAngle * 16), 270 * 16);
        }
        painter.setPen(QPen(palette.glyph, line, Qt::SolidLine, Qt::RoundCap));
        painter.drawArc(arc, int(-m_spinnerAngle * 16), 270 * 16);
        return;
    }
    const double glyphSize = m_diameter * (m_mode == Mode::Play ? 0.38 : 0.34);
    const QPainterPath glyph = QTransform::fromTranslate(centre.x(), centre.y()).scale(glyphSize, glyphSize).map(glyphPath(m_mode));
    painter.setPen(Qt::NoPen);
    if (palette.glyphShadow) {
        painter.setBrush(QColor(0, 0, 0, 90));
        painter.drawPath(glyph.translated(0, std::max(1.0, m_diameter / 40)));
    }
    painter.setBrush(palette.glyph);
    painter.drawPath(glyph);
}
