#include "CliHome.h"

#include <QDir>

#include <gtest/gtest.h>

namespace cli {

Home::Home()
{
    EXPECT_TRUE(m_dir.isValid());
    QDir().mkpath(temporary());
}

void Home::prepare(QProcess &process, const QStringList &arguments) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), path(QStringLiteral("config")));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), path(QStringLiteral("data")));
    environment.insert(QStringLiteral("TMPDIR"), temporary());
    environment.insert(QStringLiteral("TZ"), QStringLiteral("UTC"));
    process.setProcessEnvironment(environment);
    process.setProgram(QStringLiteral(VISTRA_TESTER_PATH));
    process.setArguments(arguments);
}

Result Home::run(const QStringList &arguments, const std::function<void()> &modifier) const
{
    QProcess process;
    prepare(process, arguments);
    if (modifier)
        process.setChildProcessModifier(modifier);
    process.start();
    EXPECT_TRUE(process.waitForFinished(120000)) << arguments.join(QLatin1Char(' ')).toStdString();
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1, QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

} // namespace cli
