#pragma once
// A colour of the drawing platform: device RGB or grey with alpha, as doubles in 0..1
// (not premultiplied). A colour made from an unknown name is invalid and has no components.

#include <QColor>
#include <QString>

#include <array>

namespace graphics {

class Color {
public:
    enum class Space { Invalid, Gray, DeviceRGB };

    // An invalid colour.
    Color() = default;
    static Color rgb(double red, double green, double blue, double alpha = 1.0);
    static Color gray(double white, double alpha = 1.0);
    // Hue in 0..1 of a turn (1 wraps to 0), saturation and brightness in 0..1: the hexcone model.
    static Color hsb(double hue, double saturation, double brightness, double alpha = 1.0);
    // "red", "light gray", "clear", ... or #RRGGBB / #RRGGBBAA; invalid when neither.
    static Color fromName(const QString &name);

    static Color black() { return gray(0.0); }
    static Color white() { return gray(1.0); }
    static Color clear() { return gray(0.0, 0.0); }
    static Color red() { return rgb(1.0, 0.0, 0.0); }
    static Color green() { return rgb(0.0, 1.0, 0.0); }
    static Color blue() { return rgb(0.0, 0.0, 1.0); }
    // Two-thirds white, the platform's light grey.
    static Color lightGray() { return gray(2.0 / 3.0); }

    Space space() const { return m_space; }
    bool isValid() const { return m_space != Space::Invalid; }
    // 2 components for grey (white, alpha), 4 for RGB (red, green, blue, alpha), 0 when invalid.
    int componentCount() const;
    double component(int i) const { return m_components[i]; }
    // The same colour in device RGB; invalid stays invalid.
    Color convertedToDeviceRGB() const;

    QColor toQColor() const;
    // "rgb(1 0 0 1)", "gray(0.5 1)" or "invalid colour", for log lines.
    QString description() const;

    friend bool operator==(const Color &a, const Color &b)
    {
        return a.m_space == b.m_space && a.m_components == b.m_components;
    }

private:
    Space m_space = Space::Invalid;
    std::array<double, 4> m_components{};
};

} // namespace graphics
