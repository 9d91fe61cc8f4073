#include "TWUISettingsAppearance.h"

#include <QPalette>
#include <QWidget>

TWUISettingsAppearance TWUISettingsAppearance::forPalette(const QPalette &palette)
{
    TWUISettingsAppearance a;
    a.dark = palette.color(QPalette::Window).lightness() < 128;
    if (a.dark) {
        a.background = QColor(0x00, 0x00, 0x00);
        a.cell = QColor(0x1c, 0x1c, 0x1e);
        a.pressedCell = QColor(0x3a, 0x3a, 0x3c);
        a.label = QColor(0xff, 0xff, 0xff);
        a.secondaryLabel = QColor(0x98, 0x98, 0x9f);
        a.header = QColor(0x8d, 0x8d, 0x93);
        a.chevron = QColor(0x5a, 0x5a, 0x5f);
        a.separator = QColor(0x38, 0x38, 0x3a);
        a.accent = QColor(0x0a, 0x84, 0xff);
        a.switchOn = QColor(0x30, 0xd1, 0x58);
        a.track = QColor(0x39, 0x39, 0x3d);
    } else {
        a.background = QColor(0xf2, 0xf2, 0xf7);
        a.cell = QColor(0xff, 0xff, 0xff);
        a.pressedCell = QColor(0xd1, 0xd1, 0xd6);
        a.label = QColor(0x00, 0x00, 0x00);
        a.secondaryLabel = QColor(0x8a, 0x8a, 0x8e);
        a.header = QColor(0x6d, 0x6d, 0x72);
        a.chevron = QColor(0xc4, 0xc4, 0xc7);
        a.separator = QColor(0xc6, 0xc6, 0xc8);
        a.accent = QColor(0x00, 0x7a, 0xff);
        a.switchOn = QColor(0x34, 0xc7, 0x59);
        a.track = QColor(0xe5, 0xe5, 0xea);
    }
    a.knob = QColor(0xff, 0xff, 0xff);
    return a;
}

TWUISettingsAppearance TWUISettingsAppearance::forWidget(const QWidget *widget)
{
    return forPalette(widget->palette());
}

namespace {

QFont scaled(const QFont &base, double factor)
{
    QFont font = base;
    if (base.pointSizeF() > 0)
        font.setPointSizeF(base.pointSizeF() * factor);
    else
        font.setPixelSize(qRound(base.pixelSize() * factor));
    return font;
}

} // namespace

QFont TWUISettingsAppearance::rowFont(const QFont &base)
{
    return scaled(base, 1.25);
}

QFont TWUISettingsAppearance::headerFont(const QFont &base)
{
    return scaled(base, 0.95);
}
