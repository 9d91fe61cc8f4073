#pragma once
// Option values shared by the commands, parsed with the same messages everywhere. Options are
// named without their dashes; messages add them.

#include <QSizeF>
#include <QString>
#include <QStringList>

class QCommandLineParser;

namespace app {

// The largest side of a picture the commands draw, as the filler's longest "Photo Long Side":
// 15000 x 15000 RGBA is already 900 MB.
constexpr int kMaximumPictureSide = 15000;

// "WxH" with two whole numbers from `minimum` to kMaximumPictureSide; false with a message
// otherwise.
bool parseSizeOption(const QString &option, const QString &text, int minimum, QSizeF *size, QString *message);

struct NumberRange {
    double minimum = 0;
    double maximum = 0;
    bool aboveMinimum = false; // the minimum itself is refused
    bool whole = false;
};
// A finite number within `range`; false with a message otherwise.
bool parseNumberOption(const QString &option, const QString &text, const NumberRange &range, double *value, QString *message);

// The output file `path` must end in one of `suffixes` (lower case, without the dot), matched
// without regard to case: the suffix is what other programs go by.
bool checkOutputSuffix(const QString &path, const QStringList &suffixes, QString *message);

// Parses the command's arguments, of which at most `maxPositional` may be plain words; prints the
// help when asked. Returns -1 to go on, or the exit status to end with (help shown, or a usage
// error reported).
int parseCommandArguments(QCommandLineParser &parser, const char *command, const QStringList &arguments, int maxPositional = 0);

} // namespace app
