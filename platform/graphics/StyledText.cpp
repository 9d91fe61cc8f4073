#include "StyledText.h"

#include <QFile>
#include <QFontDatabase>
#include <QFontInfo>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <mutex>

static void initFontResources()
{
    Q_INIT_RESOURCE(vut_fonts);
}

namespace graphics {
namespace {

// Registers the bundled font with the font database once; its family then heads every run's
// family list, and the machine's fonts stand behind it for characters it lacks.
const QString &fontFamily()
{
    static std::once_flag once;
    static QString family;
    std::call_once(once, [] {
        initFontResources();
        QFile file(QStringLiteral(":/fonts/DejaVuSans.ttf"));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("graphics: the bundled font is missing from the resources");
        const int id = QFontDatabase::addApplicationFontFromData(file.readAll());
        const QStringList families = QFontDatabase::applicationFontFamilies(id);
        if (families.isEmpty())
            qFatal("graphics: the bundled font could not be loaded");
        family = families.first();
    });
    return family;
}

// The resolution fonts are laid out at: a point size becomes this many pixels per inch.
double fontResolution()
{
    static const double dpi = [] {
        QFont probe(fontFamily());
        probe.setPointSizeF(72.0);
        return double(QFontInfo(probe).pixelSize());
    }();
    return dpi;
}

QFont runFont(const TextAttributes &attributes)
{
    QFont font(fontFamily());
    const double pixels = std::max(1.0, attributes.fontSize);
    // Whole pixel sizes exactly; a fraction goes through the point size, which QFont keeps fractional.
    if (pixels == std::floor(pixels))
        font.setPixelSize(int(pixels));
    else
        font.setPointSizeF(pixels * 72.0 / fontResolution());
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::PreferAntialias);
    return font;
}

// The whole text laid out by Qt's text engine (shaping, bidi, fallback), one line per '\n' and no
// wrapping: the runs become format ranges over one paragraph.
class Layout {
public:
    explicit Layout(const std::vector<TextRun> &runs)
    {
        QString text;
        QList<QTextLayout::FormatRange> formats;
        for (const TextRun &run : runs) {
            QTextLayout::FormatRange range;
            range.start = int(text.size());
            range.length = int(run.text.size());
            range.format.setFont(runFont(run.attributes));
            range.format.setForeground(run.attributes.foregroundColor.toQColor());
            if (run.attributes.backgroundColor.isValid())
                range.format.setBackground(run.attributes.backgroundColor.toQColor());
            formats.append(range);
            text += run.text;
        }
        // A line separator keeps the text one paragraph, so bidi and formats span the breaks.
        text.replace(QLatin1Char('\n'), QChar::LineSeparator);
        m_layout.setText(text);
        m_layout.setFont(runs.empty() ? QFont(fontFamily()) : runFont(runs.front().attributes));
        m_layout.setFormats(formats);
        QTextOption option;
        option.setWrapMode(QTextOption::NoWrap);
        option.setUseDesignMetrics(true);
        m_layout.setTextOption(option);
        m_layout.setCacheEnabled(true);
        m_layout.beginLayout();
        double y = 0;
        for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
            line.setLineWidth(kUnboundedWidth);
            line.setPosition(QPointF(0, y));
            // Unrounded (height() rounds up), so sizes scale with the font.
            y += line.ascent() + line.descent();
            m_size.setWidth(std::max(m_size.width(), line.naturalTextWidth()));
        }
        m_layout.endLayout();
        m_size.setHeight(y);
    }

    QSizeF size() const { return m_size; }
    void draw(QPainter &painter, QPointF origin) const { m_layout.draw(&painter, origin); }

private:
    // Wide enough that no line ever wraps; the engine's own "unbounded" for unwrapped text.
    static constexpr double kUnboundedWidth = 0x01000000;
    QTextLayout m_layout;
    QSizeF m_size{0, 0};
};

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
    if (m_runs.empty())
        return QSizeF(0, 0);
    return Layout(m_runs).size();
}

void StyledText::draw(QPainter &painter, QPointF origin) const
{
    if (m_runs.empty())
        return;
    Layout(m_runs).draw(painter, origin);
}

QString bundledFontFamily()
{
    return fontFamily();
}

} // namespace graphics
