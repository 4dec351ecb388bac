#include "clirunner.h"

#include <QProcess>

int CliResult::faultLines() const
{
    int count = 0;
    for (const QByteArray& line : err.split('\n'))
        count += line.startsWith("pugilforge-cli: ") ? 1 : 0;
    return count;
}

CliResult runCli(const QStringList& arguments)
{
    QProcess process;
    process.start(qEnvironmentVariable("PF_BIN_DIR") + QStringLiteral("/pugilforge-cli"), arguments);
    CliResult result;
    if (!process.waitForFinished(60000))
        return result;
    result.exitCode = process.exitCode();
    result.out = process.readAllStandardOutput();
    result.err = process.readAllStandardError();
    return result;
}
