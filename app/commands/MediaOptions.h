#pragma once
// Option values shared by the media commands, parsed with the same messages everywhere.

#include <QSizeF>
#include <QString>
#include <QStringList>

class QCommandLineParser;

namespace app {

// "WxH" with two positive whole numbers; false with a message otherwise.
bool parseSizeOption(const QString &text, QSizeF *size, QString *message);
// A finite number above `minimum`, or equal to it too when `inclusive`.
bool parseNumberOption(const QString &option, const QString &text, double minimum, bool inclusive, double *value, QString *message);

// Parses the command's arguments, of which at most `maxPositional` may be plain words; prints the
// help when asked. Returns -1 to go on, or the exit status to end with (help shown, or a usage
// error reported).
int parseCommandArguments(QCommandLineParser &parser, const char *command, const QStringList &arguments, int maxPositional = 0);

} // namespace app
