#pragma once

#include <QByteArray>
#include <QStringList>

/// What one run of pugilforge-cli printed and returned.
struct CliResult
{
    int exitCode = -1; ///< -1 when it did not finish in time
    QByteArray out;
    QByteArray err;

    /// The lines of standard error that the tool itself wrote as faults.
    int faultLines() const;
};

/// Runs the command-line tool of this build (PF_BIN_DIR) and waits for it.
CliResult runCli(const QStringList& arguments);
