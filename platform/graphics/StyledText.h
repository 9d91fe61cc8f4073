#pragma once
// Styled text that measures and draws itself with the bundled font (DejaVu Sans, whose digits are
// all of one width, so a running time stamp does not jitter). The font is read from the library's
// own resources, never from the machine's fonts, so every machine lays text out the same way.

#include "Color.h"

#include <QPointF>
#include <QSizeF>
#include <QString>

#include <vector>

class QPainter;

namespace graphics {

struct TextAttributes {
    double fontSize = 12.0;              // pixels at scale 1
    Color foregroundColor = Color::black();
    Color backgroundColor;               // filled behind the run's box; none when invalid

    friend bool operator==(const TextAttributes &, const TextAttributes &) = default;
};

struct TextRun {
    QString text;
    TextAttributes attributes;

    friend bool operator==(const TextRun &, const TextRun &) = default;
};

class StyledText {
public:
    StyledText() = default;
    StyledText(QString text, TextAttributes attributes);

    void append(QString text, TextAttributes attributes);
    const std::vector<TextRun> &runs() const { return m_runs; }
    QString string() const;
    bool isEmpty() const;

    // The natural size: the widest line by the sum of the line heights ('\n' breaks lines).
    QSizeF size() const;
    // Draws with the top-left corner of the natural box at `origin`; no wrapping, no clipping.
    void draw(QPainter &painter, QPointF origin) const;

    friend bool operator==(const StyledText &, const StyledText &) = default;

private:
    std::vector<TextRun> m_runs;
};

// The bundled font's family name, for widgets that show the same face.
QString bundledFontFamily();

} // namespace graphics
