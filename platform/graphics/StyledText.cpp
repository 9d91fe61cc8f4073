#include "StyledText.h"

#include <QFile>
#include <QGlyphRun>
#include <QPainter>
#include <QRawFont>

#include <algorithm>
#include <mutex>

static void initFontResources()
{
    Q_INIT_RESOURCE(vut_fonts);
}

namespace graphics {
namespace {

const QByteArray &fontData()
{
    static std::once_flag once;
    static QByteArray data;
    std::call_once(once, [] {
        initFontResources();
        QFile file(QStringLiteral(":/fonts/DejaVuSans.ttf"));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("graphics: the bundled font is missing from the resources");
        data = file.readAll();
    });
    return data;
}

// QRawFont is not shared between threads; each drawing thread keeps its own.
QRawFont &rawFont(double pixelSize)
{
    thread_local QRawFont font(fontData(), 12.0, QFont::PreferNoHinting);
    if (font.pixelSize() != pixelSize)
        font.setPixelSize(pixelSize);
    return font;
}

struct PlacedRun {
    const TextRun *run;
    QString text;
    QList<quint32> glyphs;
    QList<QPointF> advances;
    double width = 0;
    double ascent = 0;
    double descent = 0;
};

struct Line {
    std::vector<PlacedRun> runs;
    double width = 0;
    double ascent = 0;
    double descent = 0;
    double height() const { return ascent + descent; }
};

std::vector<Line> layOut(const std::vector<TextRun> &runs)
{
    std::vector<Line> lines(1);
    for (const TextRun &run : runs) {
        const QStringList pieces = run.text.split(QLatin1Char('\n'));
        for (qsizetype i = 0; i < pieces.size(); ++i) {
            if (i > 0)
                lines.emplace_back();
            const double size = std::max(1.0, run.attributes.fontSize);
            QRawFont &font = rawFont(size);
            PlacedRun placed{&run, pieces[i], font.glyphIndexesForString(pieces[i]), {}, 0, font.ascent(), font.descent()};
            placed.advances = font.advancesForGlyphIndexes(placed.glyphs, QRawFont::KernedAdvances);
            for (const QPointF &advance : placed.advances)
                placed.width += advance.x();
            Line &line = lines.back();
            line.width += placed.width;
            line.ascent = std::max(line.ascent, placed.ascent);
            line.descent = std::max(line.descent, placed.descent);
            line.runs.push_back(std::move(placed));
        }
    }
    return lines;
}

} // namespace

StyledText::StyledText(QString text, TextAttributes attributes)
{
    append(std::move(text), attributes);
}

void StyledText::append(QString text, TextAttributes attributes)
{
    m_runs.push_back({std::move(text), attributes});
}

QString StyledText::string() const
{
    QString text;
    for (const TextRun &run : m_runs)
        text += run.text;
    return text;
}

bool StyledText::isEmpty() const
{
    return string().isEmpty();
}

QSizeF StyledText::size() const
{
    QSizeF size(0, 0);
    if (m_runs.empty())
        return size;
    for (const Line &line : layOut(m_runs)) {
        size.setWidth(std::max(size.width(), line.width));
        size.setHeight(size.height() + line.height());
    }
    return size;
}

void StyledText::draw(QPainter &painter, QPointF origin) const
{
    double top = origin.y();
    for (const Line &line : layOut(m_runs)) {
        double x = origin.x();
        const double baseline = top + line.ascent;
        for (const PlacedRun &placed : line.runs) {
            const TextAttributes &attributes = placed.run->attributes;
            if (attributes.backgroundColor.isValid())
                painter.fillRect(QRectF(x, top, placed.width, line.height()), attributes.backgroundColor.toQColor());
            QList<QPointF> positions;
            positions.reserve(placed.advances.size());
            double pen = 0;
            for (const QPointF &advance : placed.advances) {
                positions.append(QPointF(pen, 0));
                pen += advance.x();
            }
            QGlyphRun glyphRun;
            glyphRun.setRawFont(rawFont(std::max(1.0, attributes.fontSize)));
            glyphRun.setGlyphIndexes(placed.glyphs);
            glyphRun.setPositions(positions);
            painter.setPen(attributes.foregroundColor.toQColor());
            painter.drawGlyphRun(QPointF(x, baseline), glyphRun);
            x += placed.width;
        }
        top += line.height();
    }
}

QString bundledFontFamily()
{
    return rawFont(12.0).familyName();
}

} // namespace graphics
