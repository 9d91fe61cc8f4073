#pragma once
// vistra-tester run as a user would, in a home of its own: config, data and temporary folders
// inside a fresh temporary folder, the clock in UTC.

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>

namespace cli {

struct Result {
    int status = -1;
    QString out;
    QString err;
};

class Home {
public:
    Home();

    QString path(const QString &name) const { return m_dir.filePath(name); }
    // The folder given as TMPDIR.
    QString temporary() const { return path(QStringLiteral("tmp")); }

    // Sets up the process with this home's environment and the arguments; starting is the caller's.
    void prepare(QProcess &process, const QStringList &arguments) const;
    // Runs to the end; `modifier`, when given, runs in the child before the program starts.
    Result run(const QStringList &arguments, const std::function<void()> &modifier = {}) const;

private:
    QTemporaryDir m_dir;
};

} // namespace cli
