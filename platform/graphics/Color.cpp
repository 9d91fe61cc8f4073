#include "Color.h"

#include <algorithm>
#include <cmath>

namespace graphics {
namespace {

struct NamedColor {
    const char *name;
    double red, green, blue, alpha;
};

// The platform's named colours; names compare without case and spaces.
constexpr NamedColor kNamedColors[] = {
    {"black", 0, 0, 0, 1},
    {"darkgray", 1.0 / 3.0, 1.0 / 3.0, 1.0 / 3.0, 1},
    {"gray", 0.5, 0.5, 0.5, 1},
    {"lightgray", 2.0 / 3.0, 2.0 / 3.0, 2.0 / 3.0, 1},
    {"white", 1, 1, 1, 1},
    {"red", 1, 0, 0, 1},
    {"green", 0, 1, 0, 1},
    {"blue", 0, 0, 1, 1},
    {"cyan", 0, 1, 1, 1},
    {"yellow", 1, 1, 0, 1},
    {"magenta", 1, 0, 1, 1},
    {"orange", 1, 0.5, 0, 1},
    {"purple", 0.5, 0, 0.5, 1},
    {"brown", 0.6, 0.4, 0.2, 1},
    {"clear", 0, 0, 0, 0},
};

double clamp01(double v)
{
    return std::clamp(v, 0.0, 1.0);
}

} // namespace

Color Color::rgb(double red, double green, double blue, double alpha)
{
    Color c;
    c.m_space = Space::DeviceRGB;
    c.m_components = {clamp01(red), clamp01(green), clamp01(blue), clamp01(alpha)};
    return c;
}

Color Color::gray(double white, double alpha)
{
    Color c;
    c.m_space = Space::Gray;
    c.m_components = {clamp01(white), clamp01(alpha), 0.0, 0.0};
    return c;
}

Color Color::hsb(double hue, double saturation, double brightness, double alpha)
{
    const double s = clamp01(saturation);
    const double v = clamp01(brightness);
    if (s == 0.0)
        return rgb(v, v, v, alpha);
    double h = (hue - std::floor(hue)) * 6.0; // 0 <= h < 6
    const int sector = std::min(5, static_cast<int>(h));
    const double f = h - sector;
    const double p = v * (1.0 - s);
    const double q = v * (1.0 - s * f);
    const double t = v * (1.0 - s * (1.0 - f));
    switch (sector) {
    case 0: return rgb(v, t, p, alpha);
    case 1: return rgb(q, v, p, alpha);
    case 2: return rgb(p, v, t, alpha);
    case 3: return rgb(p, q, v, alpha);
    case 4: return rgb(t, p, v, alpha);
    default: return rgb(v, p, q, alpha);
    }
}

Color Color::fromName(const QString &name)
{
    QString key = name.trimmed().toLower();
    key.remove(QLatin1Char(' '));
    key.replace(QLatin1String("grey"), QLatin1String("gray"));
    for (const NamedColor &named : kNamedColors)
        if (key == QLatin1String(named.name))
            return rgb(named.red, named.green, named.blue, named.alpha);
    if (!key.startsWith(QLatin1Char('#')) || (key.size() != 7 && key.size() != 9))
        return {};
    bool ok = false;
    const uint value = key.mid(1).toUInt(&ok, 16);
    if (!ok)
        return {};
    const bool hasAlpha = key.size() == 9;
    const uint rgba = hasAlpha ? value : (value << 8) | 0xffu;
    return rgb(((rgba >> 24) & 0xff) / 255.0, ((rgba >> 16) & 0xff) / 255.0, ((rgba >> 8) & 0xff) / 255.0,
               (rgba & 0xff) / 255.0);
}

int Color::componentCount() const
{
    switch (m_space) {
    case Space::Gray: return 2;
    case Space::DeviceRGB: return 4;
    case Space::Invalid: break;
    }
    return 0;
}

Color Color::convertedToDeviceRGB() const
{
    if (m_space == Space::Gray)
        return rgb(m_components[0], m_components[0], m_components[0], m_components[1]);
    return *this;
}

QColor Color::toQColor() const
{
    if (!isValid())
        return QColor();
    const Color c = convertedToDeviceRGB();
    return QColor::fromRgbF(float(c.m_components[0]), float(c.m_components[1]), float(c.m_components[2]),
                            float(c.m_components[3]));
}

QString Color::description() const
{
    QString text;
    switch (m_space) {
    case Space::Invalid: return QStringLiteral("invalid colour");
    case Space::Gray: text = QStringLiteral("gray("); break;
    case Space::DeviceRGB: text = QStringLiteral("rgb("); break;
    }
    for (int i = 0; i < componentCount(); ++i)
        text += (i ? QStringLiteral(" ") : QString()) + QString::number(m_components[i]);
    return text + QLatin1Char(')');
}

} // namespace graphics
