#include "MediaOptions.h"

#include "Commands.h"

#include <QCommandLineParser>
#include <QTextStream>

#include <QRegularExpression>

#include <cmath>

namespace app {

bool parseSizeOption(const QString &text, QSizeF *size, QString *message)
{
    static const QRegularExpression pattern(QStringLiteral("^(\\d{1,5})[xX](\\d{1,5})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    const int width = match.captured(1).toInt(), height = match.captured(2).toInt();
    if (!match.hasMatch() || width < 1 || height < 1) {
        *message = QStringLiteral("--size wants WIDTHxHEIGHT in whole pixels, such as 1920x1080 (got '%1')").arg(text);
        return false;
    }
    *size = QSizeF(width, height);
    return true;
}

bool parseNumberOption(const QString &option, const QString &text, double minimum, bool inclusive, double *value, QString *message)
{
    bool ok = false;
    const double number = text.toDouble(&ok);
    if (!ok || !std::isfinite(number) || number < minimum || (!inclusive && number == minimum)) {
        *message = QStringLiteral("%1 wants a number %2 %3 (got '%4')")
                       .arg(option, inclusive ? QStringLiteral("of at least") : QStringLiteral("above"))
                       .arg(minimum)
                       .arg(text);
        return false;
    }
    *value = number;
    return true;
}

int parseCommandArguments(QCommandLineParser &parser, const char *command, const QStringList &arguments, int maxPositional)
{
    const QString name = QString::fromLatin1(command);
    if (!parser.parse(QStringList{name} + arguments))
        return usageError(command, parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        // The parser names the executable's path; the user typed the command.
        static const QRegularExpression program(QStringLiteral("^Usage: \\S+"));
        QTextStream(stdout) << parser.helpText().replace(program, QStringLiteral("Usage: vistra-tester ") + name);
        return ExitOk;
    }
    if (parser.positionalArguments().size() > maxPositional)
        return usageError(command, QStringLiteral("unexpected argument '%1'").arg(parser.positionalArguments().value(maxPositional)));
    return -1;
}

} // namespace app
