#pragma once

#include "qmugenlog.h"
#include "model/qproject.h"

#include <QDateTime>
#include <QList>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QProcess>
#include <QString>
#include <QStringList>

/// One project written into the engine's folders for a run: "%N" on the
/// command line becomes `text`.
struct QMugenRunCopy
{
    int number = 0; ///< N of "%N"
    QPointer<QProject> project;
    QString directory; ///< relative to the engine folder, ending in "/"
    QString name; ///< the copy's DEF without ".def"
    QString text; ///< what the engine is given for "%N"
};

/**
 * Tests projects in an engine installation without touching the author's
 * files: writes copies of the projects as the models hold them, unsaved
 * edits included, into the engine's "chars", "stages" or "data" under the
 * names "pf3_N", starts the engine through "wine" in its own folder, waits
 * while the event loop keeps running, and removes exactly what it wrote,
 * also when the engine crashes, the launcher can't start or the run is
 * cancelled. Afterwards the faults the engine logged are read and tied back
 * to the project's own files.
 *
 * Only one run lives in the process at a time. Everything the author must
 * hear goes through prompt(); the window and the command-line tool both
 * drive this class.
 */
class QMugenRun : public QObject
{
    Q_OBJECT
public:
    /// `projects` holds the current project first, then the project of every
    /// tab in order: "%N" for N > 0 is the project at tab N - 1.
    QMugenRun(const QString& executable, const QString& parameters, const QList<QProject*>& projects,
        QObject* parent = nullptr);
    ~QMugenRun() override;

    /// The command every engine is started through.
    static QString launcher();
    /// The N of every "%N" of a command line, each once, in order of first appearance.
    static QList<int> projectNumbers(const QString& parameters);
    /// True while a run is writing, running or cleaning up.
    static bool isActive();
    /// Says, through prompt(), that a run is active; true when it did.
    static bool refuseWhileActive();

    /**
     * Works out the copies and the command line without writing anything.
     * False, said through prompt(), when there is nothing to run; a project
     * of a kind the engine doesn't start is left out with a warning.
     */
    bool prepare();
    const QList<QMugenRunCopy>& copies() const { return m_copies; }
    /// The engine's folder, where it runs and where the copies go.
    QString engineDirectory() const { return m_engineDir; }
    /// What the launcher is given: the executable, then the engine's arguments.
    QStringList arguments() const;

    /**
     * Writes the copies of prepare() under `root` in the engine's layout and
     * lists the files written, relative to `root`. A copy that fails is
     * removed again; false then, with the reason in errorString().
     */
    bool writeCopies(const QString& root, QStringList* written = nullptr);

    /// The whole run: prepare, write, start, wait, clean up, read the logs.
    /// The engine's exit code, or -1 when it did not run (the reason said through prompt()).
    int exec();
    QString errorString() const { return m_error; }
    /// The faults the engine logged during the last exec(), mapped to the projects' files.
    const QList<QMugenLogError>& logErrors() const { return m_logErrors; }

public slots:
    /// Ends the engine; the copies are removed as after any run.
    void cancel();

signals:
    /// The copies are written, or failed to be (the run then ends at once).
    void copiesWritten(bool written);
    /// The engine is running and its copies are in place.
    void started();
    /// The engine has ended and its copies are gone; -1 for a crash or a
    /// cancelled run. What it logged is read after this.
    void finished(int exitCode);

private:
    struct LogStamp
    {
        bool exists = false;
        qint64 size = 0;
        QDateTime modified;
    };

    /// False, with errorString(), when a copy's place is taken or can't be written.
    bool checkTargets();
    /// Files of a character that lead out of its folder: its copy would write there.
    bool namesStayInside(const QMugenRunCopy& copy);
    bool writeCopy(const QString& root, const QMugenRunCopy& copy);
    /// Removes what writeCopies() wrote under `root`, and the folders it made.
    void removeCopies();
    void waitForEngine(QProcess& process);
    void keepLauncherWords(QProcess& process);
    void readLogs();
    /// The project's own file behind a file of a copy, empty when none.
    QString projectFile(const QString& copyFile, int number) const;

    QString m_executable;
    QString m_parameters;
    QList<QProject*> m_projects;
    QString m_engineDir;
    QList<QMugenRunCopy> m_copies;
    QString m_commandLine;
    /// What the clean-up removes: folders end in "/", anything else is a file.
    QStringList m_cleanup;
    /// Folders made on the way to a copy, deepest last.
    QStringList m_madeFolders;
    QMap<QString, LogStamp> m_logStamps;
    QList<QMugenLogError> m_logErrors;
    QString m_error;
    QProcess* m_process = nullptr;
    /// The last of what the launcher wrote on its error channel.
    QByteArray m_launcherWords;
    bool m_cancelled = false;
};
