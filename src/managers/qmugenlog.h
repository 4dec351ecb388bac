#pragma once

#include <QList>
#include <QString>

/// One fault the engine wrote into its log during a run of the project's copies.
struct QMugenLogError
{
    QString text; ///< the engine's own words, its lines joined by blanks
    QString copyFile; ///< the file as the engine named it ("chars/pf3_0/hero.cns"), empty when none
    int number = -1; ///< the N of the copy "pf3_N" that file belongs to, -1 when none
    int line = 0; ///< the line the engine named, 0 when none
    QString file; ///< the project's own file behind copyFile, once mapped
};

/**
 * Reads the faults out of what the engine writes into its folder ("mugen.log",
 * "stderr.txt"). The engine has no fixed format for them: a fault is a line
 * that speaks of an error, taken together with the lines that follow it up to
 * a blank one, since the engine often names the file and line on the next
 * line. A file is recognised by the copies' names (chars/, stages/ or data/
 * followed by "pf3_N"), a line by "line N" or "FILE:N".
 */
namespace mugenLog {

QList<QMugenLogError> parse(const QString& text);

} // namespace mugenLog
