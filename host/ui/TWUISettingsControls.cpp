#include "TWUISettingsControls.h"

#include "TWUISettingsAppearance.h"

#include <QEvent>
#include <QPainter>

TWUISwitch::TWUISwitch(QWidget *parent) : QAbstractButton(parent)
{
    setCheckable(true);
    setCursor(Qt::PointingHandCursor);
    // Keyboard focus only, so a click leaves no focus ring behind.
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize TWUISwitch::sizeHint() const
{
    return {51, 31};
}

bool TWUISwitch::hitButton(const QPoint &pos) const
{
    return rect().contains(pos);
}

void TWUISwitch::paintEvent(QPaintEvent *)
{
    const TWUISettingsAppearance appearance = TWUISettingsAppearance::forWidget(this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QSizeF size(sizeHint());
    const QRectF track(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size);
    const double radius = track.height() / 2;
    if (!isEnabled())
        painter.setOpacity(0.5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChecked() ? appearance.switchOn : appearance.track);
    painter.drawRoundedRect(track, radius, radius);
    const double inset = 2;
    const double knob = track.height() - 2 * inset;
    const QRectF knobRect(isChecked() ? track.right() - inset - knob : track.left() + inset, track.top() + inset, knob, knob);
    // A soft shadow: a slightly larger translucent disc just below the knob.
    painter.setBrush(QColor(0, 0, 0, appearance.dark ? 90 : 40));
    painter.drawEllipse(knobRect.translated(0, 1).adjusted(-0.5, -0.5, 0.5, 0.5));
    painter.setBrush(appearance.knob);
    painter.drawEllipse(knobRect);
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(appearance.accent, 2));
        painter.drawRoundedRect(track.adjusted(1, 1, -1, -1), radius - 1, radius - 1);
    }
}

TWUISettingsSlider::TWUISettingsSlider(QWidget *parent) : QSlider(Qt::Horizontal, parent)
{
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    // A fixed height, so the row's size does not change when the style sheet is applied.
    setFixedHeight(32);
    applyAppearance();
}

void TWUISettingsSlider::applyAppearance()
{
    const TWUISettingsAppearance appearance = TWUISettingsAppearance::forWidget(this);
    // Through a style sheet, so the handle the user grabs is the one drawn.
    const QString sheet = QStringLiteral(
        "QSlider::groove:horizontal { height: 4px; border-radius: 2px; background: %1; }"
        "QSlider::sub-page:horizontal { height: 4px; border-radius: 2px; background: %2; }"
        "QSlider::add-page:horizontal { height: 4px; border-radius: 2px; background: %1; }"
        "QSlider::handle:horizontal { width: 26px; height: 26px; margin: -11px 0; border-radius: 13px;"
        " background: %3; border: 1px solid %4; }"
        "QSlider::handle:horizontal:focus { border: 2px solid %2; }")
                              .arg(appearance.track.name(), appearance.accent.name(), appearance.knob.name(),
                                   appearance.dark ? QStringLiteral("#48484a") : QStringLiteral("#d1d1d6"));
    // Setting a sheet polishes the widget again, which can report a palette change: set it once.
    if (sheet != styleSheet())
        setStyleSheet(sheet);
}

void TWUISettingsSlider::changeEvent(QEvent *event)
{
    QSlider::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyAppearance();
}

TWUISettingsTextField::TWUISettingsTextField(QWidget *parent) : QLineEdit(parent)
{
    setFrame(false);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // Flush with the values of other rows: a field keeps a small inner margin of its own.
    setTextMargins(0, 0, -3, 0);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    applyAppearance();
}

void TWUISettingsTextField::applyAppearance()
{
    const TWUISettingsAppearance appearance = TWUISettingsAppearance::forWidget(this);
    setFont(TWUISettingsAppearance::rowFont(parentWidget() ? parentWidget()->font() : QFont()));
    QPalette palette = this->palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, appearance.secondaryLabel);
    palette.setColor(QPalette::PlaceholderText, appearance.chevron);
    palette.setColor(QPalette::Highlight, appearance.accent);
    setPalette(palette);
}

void TWUISettingsTextField::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ParentChange)
        applyAppearance();
}
