#include "VUTesterDateFormatter.h"

VUTesterDateFormatter::VUTesterDateFormatter(const QString &pattern, const QLocale &locale) : m_locale(locale)
{
    QString piece;
    bool quoted = false;
    for (int i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern.at(i);
        if (c == QLatin1Char('\''))
            quoted = !quoted;
        if (c == QLatin1Char('Z') && !quoted) {
            m_pieces.push_back(piece);
            piece.clear();
            while (i + 1 < pattern.size() && pattern.at(i + 1) == QLatin1Char('Z'))
                ++i;
            continue;
        }
        piece.append(c);
    }
    m_pieces.push_back(piece);
}

QString VUTesterDateFormatter::stringFromDate(const QDateTime &date) const
{
    if (!date.isValid())
        return {};
    const QDateTime local = date.toLocalTime();
    const int offset = local.offsetFromUtc();
    const QString zone = QStringLiteral("%1%2%3")
                             .arg(offset < 0 ? QLatin1Char('-') : QLatin1Char('+'))
                             .arg(std::abs(offset) / 3600, 2, 10, QLatin1Char('0'))
                             .arg(std::abs(offset) % 3600 / 60, 2, 10, QLatin1Char('0'));
    QString text;
    for (size_t i = 0; i < m_pieces.size(); ++i) {
        if (i > 0)
            text += zone;
        if (!m_pieces[i].isEmpty())
            text += m_locale.toString(local, m_pieces[i]);
    }
    return text;
}
