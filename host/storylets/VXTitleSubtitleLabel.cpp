#include "VXTitleSubtitleLabel.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <cmath>

namespace {

constexpr double kScaleStep = 0.05;

QFont fontOfSize(const QString &family, double size)
{
    QFont font(family);
    font.setPixelSize(std::max(1, int(std::lround(size))));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

// One paragraph laid out into lines of a width: a whole layout, or one line cut short.
struct Paragraph {
    std::unique_ptr<QTextLayout> layout;
    int lineCount = 0;
    double height = 0;
    bool overflows = false; // a line wider than the width, or more text than lines allowed
};

Paragraph layOut(const QString &text, const QFont &font, double width, int maximumLines, QTextOption::WrapMode wrap)
{
    Paragraph p;
    p.layout = std::make_unique<QTextLayout>(text, font);
    QTextOption option(Qt::AlignHCenter);
    option.setWrapMode(wrap);
    option.setTextDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    p.layout->setTextOption(option);
    p.layout->setCacheEnabled(true);
    p.layout->beginLayout();
    for (QTextLine line = p.layout->createLine(); line.isValid(); line = p.layout->createLine()) {
        if (p.lineCount == maximumLines) {
            // Lines beyond the limit are not drawn; the text did not fit.
            line.setNumColumns(0);
            p.overflows = true;
            break;
        }
        line.setLineWidth(width);
        line.setPosition(QPointF(0, p.height));
        p.height += line.height();
        ++p.lineCount;
        if (line.naturalTextWidth() > width + 0.5)
            p.overflows = true;
    }
    p.layout->endLayout();
    return p;
}

QString visibleLineText(const QString &text, const QTextLine &line)
{
    QString piece = text.mid(line.textStart(), line.textLength());
    while (!piece.isEmpty() && (piece.back().isSpace() || piece.back() == QChar::LineSeparator))
        piece.chop(1);
    const bool brokeAtSoftHyphen = piece.endsWith(QChar::SoftHyphen);
    piece.remove(QChar::SoftHyphen);
    if (brokeAtSoftHyphen)
        piece += QLatin1Char('-');
    return piece;
}

} // namespace

struct VXTitleSubtitleLabel::Layout {
    QSizeF size;
    double scale = 1;
    Paragraph title;
    QStringList titleLines;
    // Replaces the title's last line when the title was cut.
    std::unique_ptr<QTextLayout> cutLine;
    std::unique_ptr<QTextLayout> subtitle;
    double subtitleHeight = 0;
    double spacing = 0;

    double height() const { return title.height + (subtitle ? spacing + subtitleHeight : 0); }
};

VXTitleSubtitleLabel::VXTitleSubtitleLabel(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TranslucentBackground);
}

VXTitleSubtitleLabel::~VXTitleSubtitleLabel() = default;

void VXTitleSubtitleLabel::invalidate()
{
    m_layout.reset();
    update();
}

void VXTitleSubtitleLabel::setSpec(const VXTitleSubtitleSpec &spec)
{
    m_spec = spec;
    invalidate();
}

void VXTitleSubtitleLabel::setTitleText(const QString &text)
{
    if (text == m_title)
        return;
    m_title = text;
    invalidate();
}

void VXTitleSubtitleLabel::setSubtitleText(const QString &text)
{
    if (text == m_subtitle)
        return;
    m_subtitle = text;
    invalidate();
}

void VXTitleSubtitleLabel::setDiagnosticsEnabled(bool enabled)
{
    m_diagnostics = enabled;
}

void VXTitleSubtitleLabel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_layout.reset();
}

void VXTitleSubtitleLabel::layoutIfNeeded()
{
    if (m_layout && m_layout->size == QSizeF(size()))
        return;
    auto layout = std::make_unique<Layout>();
    layout->size = size();
    const double width = std::max(1.0, double(this->width()));
    const double height = this->height();
    QString title = m_title;
    title.replace(QLatin1Char('\n'), QChar::LineSeparator);
    const int lines = std::max(1, m_spec.maximumTitleLines);
    const double minimum = std::clamp(m_spec.minimumScaleFactor, 0.05, 1.0);

    // The largest scale at which every line fits the width, within the line limit and the height.
    const auto build = [&](double scale, QTextOption::WrapMode wrap) {
        layout->scale = scale;
        layout->title = layOut(title, fontOfSize(m_spec.titleFontName, m_spec.titleFontSize * scale), width, lines, wrap);
        layout->subtitle.reset();
        if (!m_subtitle.isEmpty()) {
            const QFont font = fontOfSize(m_spec.titleFontName, m_spec.subtitleFontSize * scale);
            const QString elided = QFontMetricsF(font).elidedText(m_subtitle, Qt::ElideRight, width);
            Paragraph subtitle = layOut(elided, font, width, 1, QTextOption::NoWrap);
            layout->subtitleHeight = subtitle.height;
            layout->subtitle = std::move(subtitle.layout);
        }
        layout->spacing = m_spec.titleSubtitleSpacing * scale;
        return !layout->title.overflows && layout->height() <= height + 0.5;
    };
    bool fits = false;
    for (double scale = 1.0; scale >= minimum - 1e-9 && !fits; scale -= kScaleStep)
        fits = build(std::max(scale, minimum), QTextOption::WordWrap);
    if (!fits && build(minimum, QTextOption::WrapAtWordBoundaryOrAnywhere) == false && layout->title.overflows) {
        // Still too long: the last line shows what fits of the rest, cut with an ellipsis.
        const QTextLine last = layout->title.layout->lineAt(layout->title.lineCount - 1);
        const QFont font = fontOfSize(m_spec.titleFontName, m_spec.titleFontSize * minimum);
        QString rest = title.mid(last.textStart());
        rest.replace(QChar::LineSeparator, QLatin1Char(' '));
        Paragraph cut = layOut(QFontMetricsF(font).elidedText(rest, Qt::ElideRight, width), font, width, 1, QTextOption::NoWrap);
        cut.layout->lineAt(0).setPosition(last.position());
        layout->cutLine = std::move(cut.layout);
    }
    if (m_diagnostics) {
        for (int i = 0; i < layout->title.lineCount; ++i) {
            if (layout->cutLine && i == layout->title.lineCount - 1)
                layout->titleLines << visibleLineText(layout->cutLine->text(), layout->cutLine->lineAt(0));
            else
                layout->titleLines << visibleLineText(title, layout->title.layout->lineAt(i));
        }
    }
    m_layout = std::move(layout);
}

QStringList VXTitleSubtitleLabel::renderedLines() const
{
    return m_layout ? m_layout->titleLines : QStringList();
}

double VXTitleSubtitleLabel::appliedScaleFactor()
{
    layoutIfNeeded();
    return m_layout->scale;
}

double VXTitleSubtitleLabel::textHeight()
{
    layoutIfNeeded();
    return m_layout->height();
}

void VXTitleSubtitleLabel::paintEvent(QPaintEvent *)
{
    layoutIfNeeded();
    QPainter painter(this);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setPen(m_spec.textColor);
    // The block of title and subtitle is centred vertically in the label.
    const QPointF origin(0, std::max(0.0, (height() - m_layout->height()) / 2));
    const Paragraph &title = m_layout->title;
    for (int i = 0; i < title.lineCount; ++i) {
        if (m_layout->cutLine && i == title.lineCount - 1)
            m_layout->cutLine->draw(&painter, origin);
        else
            title.layout->lineAt(i).draw(&painter, origin);
    }
    if (m_layout->subtitle) {
        painter.setPen(m_spec.textColor.lighter(160));
        m_layout->subtitle->draw(&painter, origin + QPointF(0, title.height + m_layout->spacing));
    }
}
