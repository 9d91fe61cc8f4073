#pragma once
// The sub-commands of vistra-tester. Each lives in its own file under commands/ and is listed once
// in the table of Commands.cpp.

#include <QStringList>

#include <cstdio>

namespace app {

// Exit statuses shared by every sub-command.
enum ExitStatus {
    ExitOk = 0,
    ExitFailure = 1, // the work itself failed
    ExitUsage = 2,   // bad arguments or values; nothing was changed
    ExitCancelled = 130,
};

struct Command {
    const char *name;
    const char *synopsis; // one line for --help
    int (*run)(const QStringList &arguments);
};

const Command *commands(int *count);
const Command *findCommand(const QString &name);

// A usage error: prints "vistra-tester NAME: MESSAGE" to stderr (without NAME when it is empty)
// and returns ExitUsage.
int usageError(const char *command, const QString &message);
int failure(const char *command, const QString &message);

// "1 photo", "2 photos": the count with the noun that goes with it.
QString countText(qint64 count, const char *singular, const char *plural);

} // namespace app
