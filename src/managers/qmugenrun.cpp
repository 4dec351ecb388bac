#include "qmugenrun.h"

#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "util/qpathresolver.h"
#include "util/qpaths.h"
#include "util/qprompt.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

/// The run alive in this process, if any: the engine is one window at a time.
bool s_active = false;

/// How much of what the launcher writes on its error channel is kept.
constexpr qsizetype launcherWordsKept = 2048;

/// The logs the engine writes into its folder during a run.
const char* const engineLogs[] = { "mugen.log", "stderr.txt" };

/// Writable by this process and not marked read-only by its owner: an
/// administrator may write anywhere, but a folder the author made read-only
/// is not meant to receive copies.
bool folderWritable(const QString& path)
{
    const QFileInfo info(path);
    return info.isDir() && info.isWritable()
        && (info.permissions() & (QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther));
}

/// The nearest folder on the way to `path` that exists already.
QString existingFolder(QString path)
{
    while (!QFileInfo(path).exists()) {
        const QString parent = QFileInfo(path).path();
        if (parent == path)
            break;
        path = parent;
    }
    return path;
}

QString withoutSlash(const QString& path)
{
    return path.endsWith(QLatin1Char('/')) ? path.chopped(1) : path;
}

/// Marks a run active for as long as it lives.
struct ActiveRun
{
    ActiveRun() { s_active = true; }
    ~ActiveRun() { s_active = false; }
};

} // namespace

QMugenRun::QMugenRun(
    const QString& executable, const QString& parameters, const QList<QProject*>& projects, QObject* parent)
    : QObject(parent)
    , m_executable(executable)
    , m_parameters(parameters)
    , m_projects(projects)
    , m_engineDir(QFileInfo(executable).absolutePath())
{
}

QMugenRun::~QMugenRun()
{
    removeCopies();
}

QString QMugenRun::launcher()
{
    return QStringLiteral("wine");
}

QList<int> QMugenRun::projectNumbers(const QString& parameters)
{
    static const QRegularExpression token(QStringLiteral("%(\\d{1,2})"));
    QList<int> numbers;
    for (const QRegularExpressionMatch& match : token.globalMatch(parameters)) {
        const int number = match.captured(1).toInt();
        if (!numbers.contains(number))
            numbers.append(number);
    }
    return numbers;
}

bool QMugenRun::isActive()
{
    return s_active;
}

bool QMugenRun::refuseWhileActive()
{
    if (!s_active)
        return false;
    prompt().warning(
        tr("Warning!"), tr("Oops, you can run only one instance of M.U.G.E.N. at the same time."));
    return true;
}

bool QMugenRun::prepare()
{
    m_copies.clear();
    m_commandLine = m_parameters;
    const QList<int> numbers = projectNumbers(m_parameters);
    if (numbers.isEmpty()) {
        prompt().warning(tr("Warning!"),
            tr("Oops, wrong parameters on the M.U.G.E.N. configuration. Check it in the Tools / Options."));
        return false;
    }
    for (int number : numbers) {
        // A number past the open projects goes to the engine as it stands.
        QProject* project = m_projects.value(number);
        if (!project)
            continue;
        QMugenRunCopy copy;
        copy.number = number;
        copy.project = project;
        copy.name = QStringLiteral("pf3_%1").arg(number);
        copy.text = copy.name;
        switch (project->type()) {
        case ptStage:
            copy.directory = QStringLiteral("stages/");
            break;
        case ptMotif: {
            // The engine finds a motif by its folder and the DEF inside it.
            copy.directory = QStringLiteral("data/") + copy.name + QLatin1Char('/');
            copy.name = QFileInfo(project->definitions()->fileName()).completeBaseName();
            if (copy.name.isEmpty())
                copy.name = QStringLiteral("system");
            copy.text += QLatin1Char('/') + copy.name + QStringLiteral(".def");
            break;
        }
        case ptCharacter:
            copy.directory = QStringLiteral("chars/") + copy.name + QLatin1Char('/');
            break;
        default:
            prompt().warning(tr("Warning!"), tr("Oops, you can't run Storyboard, Font or Fight FX."));
            continue;
        }
        // "%1" must not eat the start of "%10".
        m_commandLine.replace(QRegularExpression(QStringLiteral("%%1(?!\\d)").arg(number)), copy.text);
        m_copies.append(copy);
    }
    return true;
}

QStringList QMugenRun::arguments() const
{
    return QStringList { m_executable } + m_commandLine.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

bool QMugenRun::namesStayInside(const QMugenRunCopy& copy)
{
    const QProjectFiles files = copy.project->definitions()->files();
    QStringList names = files.states;
    names << files.sprites << files.animations << files.sounds << files.commands;
    for (const QString& palette : files.palettes)
        names << palette;
    for (const QString& name : std::as_const(names)) {
        const QString clean = QDir::cleanPath(name);
        if (clean == QLatin1String("..") || clean.startsWith(QLatin1String("../"))
            || QDir::isAbsolutePath(clean)) {
            m_error = tr(
                "The project names \"%1\", outside its folder: its copy would be written outside \"%2\".")
                          .arg(name, m_engineDir + QLatin1Char('/') + copy.directory);
            return false;
        }
    }
    return true;
}

bool QMugenRun::checkTargets()
{
    if (!QFileInfo(m_engineDir).isDir()) {
        m_error = tr("The engine's folder \"%1\" doesn't exist.").arg(m_engineDir);
        return false;
    }
    for (const QMugenRunCopy& copy : std::as_const(m_copies)) {
        const QString directory = m_engineDir + QLatin1Char('/') + copy.directory;
        // The clean-up removes these whole: anything already there is not ours to remove.
        const QStringList targets = copy.project->type() == ptStage
            ? QStringList { directory + copy.name + QStringLiteral(".def"),
                  directory + copy.name + QStringLiteral(".sff") }
            : QStringList { withoutSlash(directory) };
        for (const QString& target : targets) {
            if (QFileInfo::exists(target)) {
                m_error = tr(
                    "\"%1\" is already in the engine's folder. A run writes its copies there and removes "
                    "them afterwards: move it away and run again.")
                              .arg(target);
                return false;
            }
        }
        const QString folder = existingFolder(withoutSlash(directory));
        if (!folderWritable(folder)) {
            m_error = tr(
                "The engine's folder \"%1\" is read-only: the copies for the run can't be written there.")
                          .arg(folder);
            return false;
        }
        if (copy.project->type() != ptStage && !namesStayInside(copy))
            return false;
    }
    return true;
}

bool QMugenRun::writeCopy(const QString& root, const QMugenRunCopy& copy)
{
    const QString directory = root + QLatin1Char('/') + copy.directory;
    // Folders made on the way go after the run too, deepest first.
    QStringList made;
    for (QString folder = withoutSlash(directory);
         !QFileInfo::exists(folder) && folder.length() > root.length(); folder = QFileInfo(folder).path())
        made.append(folder);
    m_madeFolders = made + m_madeFolders;
    if (copy.project->type() != ptStage)
        m_cleanup.append(directory);
    QStringList created;
    const bool written = copy.project->saveToRun(directory, copy.name, created);
    for (const QString& file : std::as_const(created)) {
        if (!m_cleanup.contains(file))
            m_cleanup.append(file);
    }
    return written;
}

bool QMugenRun::writeCopies(const QString& root, QStringList* written)
{
    removeCopies();
    for (const QMugenRunCopy& copy : std::as_const(m_copies)) {
        if (!writeCopy(root, copy)) {
            removeCopies();
            m_error = tr("The copy of the project for the run couldn't be written into \"%1\": nothing was "
                         "left there.")
                          .arg(root + QLatin1Char('/') + copy.directory);
            return false;
        }
    }
    if (!written)
        return true;
    written->clear();
    const QDir base(root);
    for (const QString& entry : std::as_const(m_cleanup)) {
        if (!entry.endsWith(QLatin1Char('/'))) {
            *written << base.relativeFilePath(entry);
            continue;
        }
        QDirIterator files(entry, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext())
            *written << base.relativeFilePath(files.next());
    }
    written->sort();
    return true;
}

void QMugenRun::removeCopies()
{
    for (auto entry = m_cleanup.crbegin(); entry != m_cleanup.crend(); ++entry) {
        if (entry->endsWith(QLatin1Char('/')))
            removeDir(*entry);
        else
            QFile::remove(*entry);
    }
    // Only empty folders go: whatever the engine put into them stays.
    for (const QString& folder : std::as_const(m_madeFolders))
        QDir().rmdir(folder);
    m_cleanup.clear();
    m_madeFolders.clear();
}

void QMugenRun::waitForEngine(QProcess& process)
{
    bool ended = false;
    connect(&process, &QProcess::finished, this, [&ended] { ended = true; });
    connect(&process, &QProcess::errorOccurred, this, [&ended](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            ended = true;
    });
    connect(&process, &QProcess::started, this, &QMugenRun::started);
    process.start(launcher(), arguments(), QIODevice::ReadWrite);
    // Polling keeps the window alive through the run, saving included,
    // without a nested event loop; a process that is gone ends the wait even
    // when no signal says so.
    while (!ended && process.state() != QProcess::NotRunning) {
        process.waitForFinished(10);
        keepLauncherWords(process);
        QCoreApplication::processEvents();
    }
}

void QMugenRun::keepLauncherWords(QProcess& process)
{
    // Wine talks a lot on its error channel over a long session: only the
    // last words are kept, for the message when the engine fails.
    m_launcherWords.append(process.readAllStandardError());
    if (m_launcherWords.size() > launcherWordsKept)
        m_launcherWords = m_launcherWords.right(launcherWordsKept);
}

int QMugenRun::exec()
{
    if (refuseWhileActive())
        return -1;
    const ActiveRun active;
    m_logErrors.clear();
    m_error.clear();
    m_cancelled = false;
    m_launcherWords.clear();
    if (!QFileInfo(m_executable).isFile() || !prepare())
        return -1;
    const bool written = checkTargets() && writeCopies(m_engineDir);
    emit copiesWritten(written);
    if (!written) {
        prompt().critical(tr("Run in M.U.G.E.N."), m_error);
        return -1;
    }
    m_logStamps.clear();
    for (const char* log : engineLogs) {
        const QFileInfo info(m_engineDir + QLatin1Char('/') + QLatin1String(log));
        m_logStamps.insert(QLatin1String(log), LogStamp { info.exists(), info.size(), info.lastModified() });
    }

    QProcess process;
    process.setWorkingDirectory(m_engineDir);
    process.setProcessChannelMode(QProcess::ForwardedOutputChannel);
    m_process = &process;
    waitForEngine(process);
    m_process = nullptr;
    removeCopies();

    if (process.error() == QProcess::FailedToStart) {
        m_error = tr("The engine couldn't be started with \"%1 %2\": %3")
                      .arg(launcher(), m_executable, process.errorString());
        prompt().critical(tr("Run in M.U.G.E.N."), m_error);
        return -1;
    }
    emit finished(process.exitStatus() == QProcess::NormalExit && !m_cancelled ? process.exitCode() : -1);
    readLogs();
    if (m_cancelled)
        return -1;
    if (process.exitStatus() == QProcess::CrashExit) {
        m_error = tr("The engine stopped unexpectedly: %1").arg(process.errorString());
        prompt().warning(tr("Run in M.U.G.E.N."), m_error);
        return -1;
    }
    keepLauncherWords(process);
    if (process.exitCode() != 0) {
        // Wine refusing the executable ends here too, at once and with its reason on the error channel.
        m_error
            = tr("\"%1 %2\" ended with the code %3.").arg(launcher(), m_executable).arg(process.exitCode());
        const QString words = QString::fromLocal8Bit(m_launcherWords).trimmed();
        if (!words.isEmpty())
            m_error += QLatin1Char('\n') + words;
        prompt().warning(tr("Run in M.U.G.E.N."), m_error);
    }
    return process.exitCode();
}

void QMugenRun::cancel()
{
    m_cancelled = true;
    if (m_process)
        m_process->kill();
}

void QMugenRun::readLogs()
{
    QStringList report;
    for (const char* log : engineLogs) {
        const QString name = QLatin1String(log);
        const QFileInfo info(m_engineDir + QLatin1Char('/') + name);
        const LogStamp before = m_logStamps.value(name);
        // A log left from an earlier run says nothing about this one.
        if (!info.exists()
            || (before.exists && before.size == info.size() && before.modified == info.lastModified()))
            continue;
        QFile file(info.filePath());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        for (QMugenLogError error : mugenLog::parse(QString::fromLocal8Bit(file.readAll()))) {
            error.file = projectFile(error.copyFile, error.number);
            m_logErrors.append(error);
            report << (error.file.isEmpty()
                    ? error.text
                    : tr("%1\n    in %2, line %3").arg(error.text, error.file).arg(error.line));
        }
    }
    if (!report.isEmpty())
        prompt().warning(tr("M.U.G.E.N. errors"), report.join(QLatin1Char('\n')));
}

QString QMugenRun::projectFile(const QString& copyFile, int number) const
{
    for (const QMugenRunCopy& copy : m_copies) {
        // The author may have closed the project while the engine ran.
        if (copy.number != number || !copy.project
            || !copyFile.startsWith(copy.directory, Qt::CaseInsensitive))
            continue;
        const QString rest = copyFile.mid(copy.directory.length());
        const QProjectFiles files = copy.project->definitions()->files();
        if (rest.compare(copy.name + QStringLiteral(".def"), Qt::CaseInsensitive) == 0)
            return copy.project->definitions()->fileName();
        if (copy.project->type() == ptStage) {
            return rest.compare(copy.name + QStringLiteral(".sff"), Qt::CaseInsensitive) == 0
                ? resolvePath(files.baseDir, files.sprites).path
                : QString();
        }
        return resolvePath(files.baseDir, rest).path;
    }
    return QString();
}
