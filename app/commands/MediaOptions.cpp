#include "MediaOptions.h"

#include "Commands.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QTextStream>

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace app {

bool parseSizeOption(const QString &option, const QString &text, int minimum, QSizeF *size, QString *message)
{
    static const QRegularExpression pattern(QStringLiteral("^(\\d{1,5})[xX](\\d{1,5})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    const int width = match.captured(1).toInt(), height = match.captured(2).toInt();
    if (!match.hasMatch() || std::min(width, height) < minimum || std::max(width, height) > kMaximumPictureSide) {
        *message = QStringLiteral("--%1 wants WIDTHxHEIGHT in whole pixels from %2 to %3, such as 1920x1080 (got '%4')")
                       .arg(option)
                       .arg(minimum)
                       .arg(kMaximumPictureSide)
                       .arg(text);
        return false;
    }
    *size = QSizeF(width, height);
    return true;
}

bool parseNumberOption(const QString &option, const QString &text, const NumberRange &range, double *value, QString *message)
{
    bool ok = false;
    const double number = text.toDouble(&ok);
    if (!ok || !std::isfinite(number) || number < range.minimum || (range.aboveMinimum && number == range.minimum)
        || number > range.maximum || (range.whole && number != std::floor(number))) {
        *message = QStringLiteral("--%1 wants a %2 %3 %4 and at most %5 (got '%6')")
                       .arg(option, range.whole ? QStringLiteral("whole number") : QStringLiteral("number"),
                            range.aboveMinimum ? QStringLiteral("above") : QStringLiteral("of at least"))
                       .arg(range.minimum, 0, 'g', 16)
                       .arg(range.maximum, 0, 'g', 16)
                       .arg(text);
        return false;
    }
    *value = number;
    return true;
}

bool checkOutputSuffix(const QString &path, const QStringList &suffixes, QString *message)
{
    if (suffixes.contains(QFileInfo(path).suffix().toLower()))
        return true;
    *message = QStringLiteral("%1 would not be read as what is written: give a name ending in .%2").arg(path, suffixes.join(QStringLiteral(" or .")));
    return false;
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
