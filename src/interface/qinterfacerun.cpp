// The flows around the project's life that leave its own files alone: the
// error list, dated backups beside the DEF, and tests in the engine.
#include "qinterface.h"

#include "dialogs/bakdlg.h"
#include "dialogs/errordlg.h"
#include "dialogs/mugrundlg.h"
#include "managers/gui/qtoolbaritems.h"
#include "managers/qactionmanager.h"
#include "managers/qconfigmanager.h"
#include "managers/qmugenrun.h"
#include "model/qanimations.h"
#include "model/qbakmanager.h"
#include "model/qcommands.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "model/qsounds.h"
#include "model/qsprites.h"
#include "qprogress.h"
#include "util/qprompt.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>

#include <memory>

namespace {

unsigned int configCodec()
{
    return (*configMan)[QStringLiteral("default_codepage")].toUInt();
}

/// The action that follows `action` in `menu`, null at its end.
QAction* actionAfter(QMenu* menu, QAction* action)
{
    const QList<QAction*> actions = menu->actions();
    return actions.value(actions.indexOf(action) + 1);
}

bool sameFile(const QString& a, const QString& b)
{
    return !a.isEmpty() && !b.isEmpty()
        && QFileInfo(a).canonicalFilePath() == QFileInfo(b).canonicalFilePath();
}

/// Which text file of `project` is `fileName`: its file type and index; false when none is.
bool textFileOf(QProject* project, const QString& fileName, QProjectFileType& file, int& index)
{
    index = 0;
    file = pftDefinitions;
    if (sameFile(fileName, project->definitions()->fileName()))
        return true;
    file = pftCommands;
    if (sameFile(fileName, project->commands()->fileName()))
        return true;
    file = pftStates;
    for (index = 0; index < project->statesCount(); ++index) {
        if (sameFile(fileName, project->states(index)->fileName()))
            return true;
    }
    return false;
}

} // namespace

void QInterface::initRunActions()
{
    const int everywhere = QActionManager::global;
    QAction* backup = m_actions->add({ everywhere }, QStringLiteral("file_backup"),
        QT_TRANSLATE_NOOP("QActionManager", "Create &backup"), false, this, SLOT(fileBackup()));
    QAction* loadBackup = m_actions->add({ everywhere }, QStringLiteral("file_load_backup"),
        QT_TRANSLATE_NOOP("QActionManager", "&Load backup..."), false, this, SLOT(fileLoadBackup()));
    QAction* run = m_actions->add({ everywhere }, QStringLiteral("file_run_mugen"),
        QT_TRANSLATE_NOOP("QActionManager", "&Run in M.U.G.E.N."), false, this, SLOT(fileRunMugen()));

    // Backups sit with saving, the run with the error check: both are about
    // the project as it stands, unsaved edits included.
    QMenu* file = menu("menuFile");
    QAction* close = m_actions->fromName(QStringLiteral("file_close"));
    file->insertAction(close, backup);
    file->insertAction(close, loadBackup);
    file->insertSeparator(close);
    file->insertAction(actionAfter(file, m_actions->fromName(QStringLiteral("file_check_errors"))), run);

    QToolBarItems* main = m_toolBarItems.value(QStringLiteral("main"));
    main->addAction(run);
    main->addSeparator();

    m_actions->setShortcut(run, QKeySequence(Qt::Key_F9));
    m_actions->setShortcut(backup, QKeySequence(Qt::CTRL | Qt::Key_B));
    m_actions->setShortcut(loadBackup, QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_B));
}

void QInterface::fileCheck()
{
    if (m_project) {
        checkProject(m_project);
        // The binary files are checked on request only: their rules walk every sprite and sound.
        // An empty model may hold the fault of a file that couldn't be read: that stays.
        if (!m_project->sprites()->isEmpty())
            m_project->sprites()->checkErrors();
        if (!m_project->sounds()->isEmpty())
            m_project->sounds()->checkErrors();
        if (!m_project->commands()->isEmpty())
            m_project->commands()->checkErrors();
        if (m_project->type() == ptCharacter && !m_project->animations()->isEmpty())
            m_project->animations()->checkErrors();
    }
    m_errorDlg->show();
    m_errorDlg->raise();
}

void QInterface::fileBackup()
{
    if (!m_project)
        return;
    const QString def = m_project->definitions()->fileName();
    if (!QFileInfo(def).isFile()) {
        prompt().information(tr("Create backup"),
            tr("The project has no folder yet: save it once, and its backups go into \"backup\" beside "
               "its DEF."));
        return;
    }
    bool made;
    bool cancelled;
    {
        QProgress progress(tr("Creating backup..."), m_window);
        connect(m_project, &QProject::progress, &progress, &QProgress::onProgress, Qt::DirectConnection);
        made = m_project->backup();
        cancelled = progress.wasCanceled();
    }
    if (made) {
        QBakManager backups(def);
        setStatusText(
            tr("Backup written to %1")
                .arg(QDir::toNativeSeparators(QFileInfo(backups.getFileName(backups.index(0))).path())));
    } else if (!cancelled) {
        prompt().warning(tr("Create backup"),
            tr("The backup couldn't be written into \"%1\".")
                .arg(QDir::toNativeSeparators(QFileInfo(def).path() + QStringLiteral("/backup"))));
    }
}

void QInterface::fileLoadBackup()
{
    if (!m_project)
        return;
    const QString def = m_project->definitions()->fileName();
    BakDlg dialog(m_window, def);
    if (dialog.exec() != QDialog::Accepted || dialog.fileName().isEmpty())
        return;
    // The backup takes the place of what the models hold now.
    if (!m_project->canDiscard())
        return;
    bool loaded;
    {
        QProgress progress(tr("Loading backup..."), m_window);
        connect(m_project, &QProject::progress, &progress, &QProgress::onProgress, Qt::DirectConnection);
        loaded = m_project->open(dialog.fileName(), configCodec(), false, true);
    }
    if (!loaded) {
        // A load cut short leaves the models empty: the project's own files come back.
        QProgress progress(tr("Loading project..."), m_window);
        progress.setCancelButton(nullptr);
        connect(m_project, &QProject::progress, &progress, &QProgress::onProgress, Qt::DirectConnection);
        m_project->open(def, configCodec(), false, false);
        setStatusText(tr("Loading the backup was cancelled: the project's own files are loaded."));
    } else {
        setStatusText(tr("Backup loaded: saving writes it to the project's own files."));
    }
    checkProject(m_project);
    updateCurrentProject();
}

void QInterface::fileRunMugen()
{
    if (QMugenRun::refuseWhileActive() || !m_project)
        return;
    QString executable;
    QString parameters;
    if (!MugRunDlg::chooseEngine(m_window, configMan, executable, parameters))
        return;
    // "%0" is the current project, "%N" the project of tab N.
    QList<QProject*> projects { m_project };
    projects += m_projects;
    QMugenRun run(executable, parameters, projects);
    // Writing big sprite files takes a moment; the dialog comes with the first
    // step of it, so that warnings before it stand alone, and goes when the copies are there.
    std::unique_ptr<QProgress> saving;
    for (QProject* project : std::as_const(m_projects)) {
        connect(
            project, &QProject::progress, &run,
            [this, &saving](uint position, uint maximum, bool& allow) {
                if (!saving) {
                    saving = std::make_unique<QProgress>(tr("Saving project for testing..."), m_window);
                    saving->setCancelButton(nullptr);
                }
                saving->onProgress(position, maximum, allow);
            },
            Qt::DirectConnection);
    }
    connect(&run, &QMugenRun::copiesWritten, this, [&saving] { saving.reset(); });
    connect(&run, &QMugenRun::started, this,
        [this] { setStatusText(tr("M.U.G.E.N. is running; the copies go when it ends.")); });
    // The editor is refreshed before the engine's faults are told.
    connect(&run, &QMugenRun::finished, this, &QInterface::mugenFinished);
    m_run = &run;
    run.exec();
    m_run = nullptr;
    // The engine's first fault in a text file of the current project: the author lands on its line.
    for (const QMugenLogError& error : run.logErrors()) {
        QProjectFileType file;
        int index;
        if (m_project && error.line > 0 && textFileOf(m_project, error.file, file, index)) {
            navigateTo(file, index, 0, error.line - 1);
            break;
        }
    }
}

void QInterface::mugenFinished(int exitCode)
{
    setStatusText(
        exitCode < 0 ? tr("M.U.G.E.N. has ended.") : tr("M.U.G.E.N. ended with the code %1.").arg(exitCode));
    // The author may have edited on while the engine ran: the editor shows the project afresh.
    if (QInterfaceEditor* editor = m_editors.value(m_currentEditor)) {
        editor->deactivate();
        editor->activate(false);
    }
}

void QInterface::cancelRun()
{
    if (m_run)
        m_run->cancel();
}
