#include "VGStringTable.h"

#include <QFile>
#include <QStringDecoder>

namespace {

class Parser {
public:
    explicit Parser(const QString &text) : m_text(text) {}

    bool parse(QStringList *keys, QHash<QString, QString> *values)
    {
        for (;;) {
            if (!skipSpaceAndComments())
                return false;
            if (atEnd())
                return true;
            QString key;
            if (!readString(&key, "a key"))
                return false;
            if (!skipSpaceAndComments())
                return false;
            QString value = key;
            if (peek() == QLatin1Char('=')) {
                advance();
                if (!skipSpaceAndComments())
                    return false;
                if (atEnd())
                    return fail(QStringLiteral("the file ends where the value of \"%1\" should be").arg(key));
                value.clear();
                if (!readString(&value, "a value"))
                    return false;
                if (!skipSpaceAndComments())
                    return false;
            }
            if (peek() != QLatin1Char(';'))
                return fail(atEnd() ? QStringLiteral("missing ';' after the entry \"%1\" at the end of the file").arg(key)
                                    : QStringLiteral("expected ';' after the entry \"%1\", found '%2'").arg(key, peek()));
            advance();
            if (!values->contains(key))
                keys->append(key);
            values->insert(key, value);
        }
    }

    const QString &error() const { return m_error; }

private:
    bool atEnd() const { return m_pos >= m_text.size(); }
    QChar peek(qsizetype ahead = 0) const { return m_pos + ahead < m_text.size() ? m_text[m_pos + ahead] : QChar(); }
    void advance()
    {
        if (m_text[m_pos] == QLatin1Char('\n')) {
            ++m_line;
            m_lineStart = m_pos + 1;
        }
        ++m_pos;
    }

    bool fail(const QString &message)
    {
        m_error = QStringLiteral("line %1, column %2: %3").arg(m_line).arg(m_pos - m_lineStart + 1).arg(message);
        return false;
    }

    bool skipSpaceAndComments()
    {
        while (!atEnd()) {
            if (peek().isSpace()) {
                advance();
            } else if (peek() == QLatin1Char('/') && peek(1) == QLatin1Char('*')) {
                const qsizetype line = m_line, column = m_pos - m_lineStart + 1;
                advance();
                advance();
                while (!atEnd() && !(peek() == QLatin1Char('*') && peek(1) == QLatin1Char('/')))
                    advance();
                if (atEnd()) {
                    m_error = QStringLiteral("line %1, column %2: the comment is never closed with */").arg(line).arg(column);
                    return false;
                }
                advance();
                advance();
            } else if (peek() == QLatin1Char('/') && peek(1) == QLatin1Char('/')) {
                while (!atEnd() && peek() != QLatin1Char('\n'))
                    advance();
            } else {
                break;
            }
        }
        return true;
    }

    static bool isUnquotedCharacter(QChar c)
    {
        return c.isLetterOrNumber() || QStringView(u"_$.:/-").contains(c);
    }

    bool readString(QString *out, const char *what)
    {
        if (peek() == QLatin1Char('"'))
            return readQuoted(out);
        if (!isUnquotedCharacter(peek()))
            return fail(QStringLiteral("expected %1 (a quoted string), found '%2'").arg(QLatin1String(what), peek()));
        while (!atEnd() && isUnquotedCharacter(peek())) {
            out->append(peek());
            advance();
        }
        return true;
    }

    // Reads `count` hexadecimal digits; false when there are fewer.
    bool readHex(int count, char32_t *code)
    {
        *code = 0;
        for (int i = 0; i < count; ++i) {
            const int digit = QStringView(u"0123456789abcdef").indexOf(peek().toLower());
            if (digit < 0)
                return false;
            *code = *code * 16 + char32_t(digit);
            advance();
        }
        return true;
    }

    bool readQuoted(QString *out)
    {
        const qsizetype line = m_line, column = m_pos - m_lineStart + 1;
        advance(); // the opening quote
        while (!atEnd() && peek() != QLatin1Char('"')) {
            if (peek() != QLatin1Char('\\')) {
                out->append(peek());
                advance();
                continue;
            }
            advance();
            if (atEnd())
                break;
            const QChar c = peek();
            switch (c.unicode()) {
            case u'n': out->append(QLatin1Char('\n')); advance(); break;
            case u't': out->append(QLatin1Char('\t')); advance(); break;
            case u'r': out->append(QLatin1Char('\r')); advance(); break;
            case u'a': out->append(QChar(0x07)); advance(); break;
            case u'b': out->append(QChar(0x08)); advance(); break;
            case u'f': out->append(QChar(0x0c)); advance(); break;
            case u'v': out->append(QChar(0x0b)); advance(); break;
            case u'"': case u'\'': case u'\\': case u'\n': out->append(c); advance(); break;
            case u'U': case u'u': {
                advance();
                char32_t code;
                if (!readHex(4, &code))
                    return fail(QStringLiteral("\\%1 must be followed by four hexadecimal digits").arg(c));
                // A high surrogate takes the low one from the escape that follows.
                if (QChar::isHighSurrogate(code)) {
                    char32_t low = 0;
                    if (peek() != QLatin1Char('\\') || (peek(1) != QLatin1Char('U') && peek(1) != QLatin1Char('u')))
                        return fail(QStringLiteral("a high surrogate must be followed by a \\U escape of its low surrogate"));
                    advance();
                    advance();
                    if (!readHex(4, &low) || !QChar::isLowSurrogate(low))
                        return fail(QStringLiteral("a high surrogate must be followed by a \\U escape of its low surrogate"));
                    code = QChar::surrogateToUcs4(char16_t(code), char16_t(low));
                } else if (QChar::isLowSurrogate(code)) {
                    return fail(QStringLiteral("a low surrogate without a high one before it"));
                }
                out->append(QString::fromUcs4(&code, 1));
                break;
            }
            default:
                if (c >= QLatin1Char('0') && c <= QLatin1Char('7')) {
                    char32_t code = 0;
                    for (int i = 0; i < 3 && peek() >= QLatin1Char('0') && peek() <= QLatin1Char('7'); ++i) {
                        code = code * 8 + char32_t(peek().unicode() - u'0');
                        advance();
                    }
                    out->append(QChar(char16_t(code)));
                    break;
                }
                return fail(QStringLiteral("unknown escape '\\%1'").arg(c));
            }
        }
        if (atEnd()) {
            m_error = QStringLiteral("line %1, column %2: the string is never closed with '\"'").arg(line).arg(column);
            return false;
        }
        advance(); // the closing quote
        return true;
    }

    const QString &m_text;
    qsizetype m_pos = 0;
    qsizetype m_line = 1;
    qsizetype m_lineStart = 0;
    QString m_error;
};

} // namespace

bool VGStringTable::parse(const QString &text, VGStringTable *table, QString *error)
{
    VGStringTable parsed;
    Parser parser(text);
    if (!parser.parse(&parsed.m_keys, &parsed.m_values)) {
        if (error)
            *error = parser.error();
        return false;
    }
    *table = std::move(parsed);
    return true;
}

bool VGStringTable::load(const QString &path, VGStringTable *table, QString *error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("%1: %2").arg(path, file.errorString());
        return false;
    }
    const QByteArray data = file.readAll();
    // UTF-16 only with its byte order mark; everything else must be UTF-8.
    const auto encoding = QStringConverter::encodingForData(data).value_or(QStringConverter::Utf8);
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
    QString text = decoder.decode(data);
    if (decoder.hasError()) {
        if (error)
            *error = QStringLiteral("%1: not valid UTF-8 or UTF-16 text").arg(path);
        return false;
    }
    if (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    QString message;
    if (!parse(text, table, &message)) {
        if (error)
            *error = QStringLiteral("%1: %2").arg(path, message);
        return false;
    }
    return true;
}
