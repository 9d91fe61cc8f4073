#include "playgrounds/VUTesterPlaygroundViews.h"

QLabel *VUTesterPlaygroundHeading(const QString &text)
{
    auto *label = new QLabel(text);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

VUTesterEventLogLabel::VUTesterEventLogLabel(const QString &placeholder, int visibleLines, QWidget *parent)
    : QLabel(placeholder, parent)
    , m_visibleLines(visibleLines)
{
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // Room for every visible line from the start, so the screen does not move as lines come.
    setMinimumHeight(fontMetrics().lineSpacing() * visibleLines);
}

void VUTesterEventLogLabel::addLine(const QString &line)
{
    m_lines.append(line);
    setText(m_lines.mid(std::max<qsizetype>(0, m_lines.size() - m_visibleLines)).join(QLatin1Char('\n')));
}
