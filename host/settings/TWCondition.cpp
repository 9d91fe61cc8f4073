#include "TWCondition.h"

#include "TWSettings.h"

#include <memory>

namespace {

struct Token {
    enum Type { Identifier, Number, Text, Operator, LeftParen, RightParen, And, Or, Not, Nil, End } type;
    QString text;
    double number = 0;
};

class Lexer {
public:
    explicit Lexer(const QString &s) : m_s(s) {}

    bool next(Token *token, QString *error)
    {
        while (m_i < m_s.size() && m_s[m_i].isSpace())
            ++m_i;
        if (m_i >= m_s.size()) {
            *token = {Token::End, {}};
            return true;
        }
        const QChar c = m_s[m_i];
        if (c == QLatin1Char('(') || c == QLatin1Char(')')) {
            ++m_i;
            *token = {c == QLatin1Char('(') ? Token::LeftParen : Token::RightParen, c};
            return true;
        }
        if (c == QLatin1Char('\'') || c == QLatin1Char('"')) {
            const qsizetype end = m_s.indexOf(c, m_i + 1);
            if (end < 0) {
                *error = QStringLiteral("unterminated text");
                return false;
            }
            *token = {Token::Text, m_s.mid(m_i + 1, end - m_i - 1)};
            m_i = end + 1;
            return true;
        }
        static const char *const ops[] = {"==", "!=", "<=", ">=", "&&", "||", "<", ">", "=", "!"};
        for (const char *op : ops) {
            const QLatin1String o(op);
            if (m_s.mid(m_i, o.size()) == o) {
                m_i += o.size();
                if (o == QLatin1String("&&"))
                    *token = {Token::And, o};
                else if (o == QLatin1String("||"))
                    *token = {Token::Or, o};
                else if (o == QLatin1String("!"))
                    *token = {Token::Not, o};
                else
                    *token = {Token::Operator, o == QLatin1String("=") ? QStringLiteral("==") : QString(o)};
                return true;
            }
        }
        if (c.isDigit() || c == QLatin1Char('-') || c == QLatin1Char('.')) {
            qsizetype j = m_i + 1;
            while (j < m_s.size() && (m_s[j].isDigit() || m_s[j] == QLatin1Char('.')))
                ++j;
            // An exponent with its own sign ("1e-5"); the text as a whole is checked below.
            if (j < m_s.size() && (m_s[j] == QLatin1Char('e') || m_s[j] == QLatin1Char('E'))) {
                ++j;
                if (j < m_s.size() && (m_s[j] == QLatin1Char('+') || m_s[j] == QLatin1Char('-')))
                    ++j;
                while (j < m_s.size() && m_s[j].isDigit())
                    ++j;
            }
            bool ok = false;
            const double value = m_s.mid(m_i, j - m_i).toDouble(&ok);
            if (!ok) {
                *error = QStringLiteral("bad number '%1'").arg(m_s.mid(m_i, j - m_i));
                return false;
            }
            *token = {Token::Number, m_s.mid(m_i, j - m_i), value};
            m_i = j;
            return true;
        }
        if (c.isLetter() || c == QLatin1Char('_')) {
            qsizetype j = m_i + 1;
            while (j < m_s.size() && (m_s[j].isLetterOrNumber() || m_s[j] == QLatin1Char('_') || m_s[j] == QLatin1Char('.')))
                ++j;
            const QString word = m_s.mid(m_i, j - m_i);
            m_i = j;
            const QString upper = word.toUpper();
            if (upper == QLatin1String("AND"))
                *token = {Token::And, word};
            else if (upper == QLatin1String("OR"))
                *token = {Token::Or, word};
            else if (upper == QLatin1String("NOT"))
                *token = {Token::Not, word};
            else if (upper == QLatin1String("YES") || upper == QLatin1String("TRUE"))
                *token = {Token::Number, word, 1};
            else if (upper == QLatin1String("NO") || upper == QLatin1String("FALSE"))
                *token = {Token::Number, word, 0};
            else if (upper == QLatin1String("NIL") || upper == QLatin1String("NULL"))
                *token = {Token::Nil, word};
            else
                *token = {Token::Identifier, word};
            return true;
        }
        *error = QStringLiteral("unexpected '%1'").arg(c);
        return false;
    }

private:
    const QString &m_s;
    qsizetype m_i = 0;
};

// Truth of a value as the conditions use it: numbers non-zero, texts non-empty, nil false.
bool truthy(const QVariant &v)
{
    if (v.isNull())
        return false;
    if (v.typeId() == QMetaType::QString)
        return !v.toString().isEmpty();
    if (v.typeId() == QMetaType::QVariantMap)
        return true;
    return v.toDouble() != 0;
}

bool compare(const QVariant &left, const QString &op, const Token &literal)
{
    if (literal.type == Token::Nil) {
        const bool isNil = left.isNull();
        return op == QLatin1String("==") ? isNil : op == QLatin1String("!=") ? !isNil : false;
    }
    if (literal.type == Token::Text) {
        const int c = left.toString().compare(literal.text);
        if (op == QLatin1String("=="))
            return c == 0;
        if (op == QLatin1String("!="))
            return c != 0;
        return op == QLatin1String("<") ? c < 0 : op == QLatin1String("<=") ? c <= 0 : op == QLatin1String(">") ? c > 0 : c >= 0;
    }
    const double l = left.isNull() ? 0 : left.toDouble();
    const double r = literal.number;
    if (op == QLatin1String("=="))
        return l == r;
    if (op == QLatin1String("!="))
        return l != r;
    return op == QLatin1String("<") ? l < r : op == QLatin1String("<=") ? l <= r : op == QLatin1String(">") ? l > r : l >= r;
}

class Parser {
public:
    Parser(const QString &s, QStringList *keys) : m_lexer(s), m_keys(keys) {}

    TWPredicate parse(QString *error)
    {
        m_error = error;
        if (!advance())
            return {};
        TWPredicate p = parseOr();
        if (p && m_token.type != Token::End)
            return fail(QStringLiteral("unexpected '%1'").arg(m_token.text));
        return p;
    }

private:
    bool advance() { return m_lexer.next(&m_token, m_error); }
    TWPredicate fail(const QString &message)
    {
        if (m_error->isEmpty())
            *m_error = message;
        return {};
    }

    TWPredicate parseOr()
    {
        TWPredicate left = parseAnd();
        while (left && m_token.type == Token::Or) {
            if (!advance())
                return {};
            TWPredicate right = parseAnd();
            if (!right)
                return {};
            left = [l = left, r = right](const TWSettings *s) { return l(s) || r(s); };
        }
        return left;
    }

    TWPredicate parseAnd()
    {
        TWPredicate left = parseUnary();
        while (left && m_token.type == Token::And) {
            if (!advance())
                return {};
            TWPredicate right = parseUnary();
            if (!right)
                return {};
            left = [l = left, r = right](const TWSettings *s) { return l(s) && r(s); };
        }
        return left;
    }

    TWPredicate parseUnary()
    {
        if (m_token.type == Token::Not) {
            if (!advance())
                return {};
            TWPredicate inner = parseUnary();
            if (!inner)
                return {};
            return [inner](const TWSettings *s) { return !inner(s); };
        }
        if (m_token.type == Token::LeftParen) {
            if (!advance())
                return {};
            TWPredicate inner = parseOr();
            if (!inner)
                return {};
            if (m_token.type != Token::RightParen)
                return fail(QStringLiteral("missing ')'"));
            if (!advance())
                return {};
            return inner;
        }
        if (m_token.type != Token::Identifier)
            return fail(m_token.type == Token::End ? QStringLiteral("condition ends too early") : QStringLiteral("expected a key, not '%1'").arg(m_token.text));
        const QString key = m_token.text;
        if (!m_keys->contains(key))
            *m_keys << key;
        if (!advance())
            return {};
        if (m_token.type != Token::Operator)
            return [key](const TWSettings *s) { return truthy(s->valueForKeyPath(key)); };
        const QString op = m_token.text;
        if (!advance())
            return {};
        if (m_token.type != Token::Number && m_token.type != Token::Text && m_token.type != Token::Nil)
            return fail(QStringLiteral("expected a value after '%1'").arg(op));
        const Token literal = m_token;
        if (!advance())
            return {};
        return [key, op, literal](const TWSettings *s) { return compare(s->valueForKeyPath(key), op, literal); };
    }

    Lexer m_lexer;
    QStringList *m_keys;
    Token m_token{Token::End, {}};
    QString *m_error = nullptr;
};

} // namespace

TWCondition TWCondition::parse(const QString &format, QString *error)
{
    TWCondition condition;
    condition.format = format;
    QString message;
    condition.predicate = Parser(format, &condition.keys).parse(&message);
    if (!condition.predicate && error)
        *error = QStringLiteral("bad condition \"%1\": %2").arg(format, message);
    return condition;
}
