#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

/**
 * The tests' stand-in for "wine": a shell script first on PATH that records
 * what it was given (arguments, working folder, the copies under
 * "chars/pf3_0", "stages" and "data" with their MD5 sums) and then does what
 * the environment asks: STANDIN_EXIT (exit code), STANDIN_SLEEP (seconds),
 * STANDIN_CRASH (dies by a signal), STANDIN_LOG (text written to mugen.log),
 * STANDIN_KEEP (a folder that receives a copy of "chars/pf3_0" as it was found).
 */
namespace enginekit {

/// Writes the stand-in into `binDir` and puts that folder first on PATH.
void installLauncher(const QString& binDir, const QString& recordFile);

/// What the stand-in recorded at its last start.
struct Record
{
    QStringList arguments;
    QString workingDirectory;
    QMap<QString, QByteArray> files; ///< relative name -> MD5 (hex)
};
Record readRecord(const QString& recordFile);

/// Every file under `dir` (relative name -> its bytes), the folders included as empty entries.
QMap<QString, QByteArray> snapshot(const QString& dir);
/// MD5 (hex) of every file under `dir`, by relative name.
QMap<QString, QByteArray> checksums(const QString& dir);

} // namespace enginekit
