// The project flows of the window: new, open, the tabs, save and close, the
// files handed over by other instances, and the status of the current project.
#include "qinterface.h"

#include "dialogs/errordlg.h"
#include "dialogs/savespr.h"
#include "managers/gui/qhistorymanager.h"
#include "managers/qconfigmanager.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "model/qsprites.h"
#include "qclickablelabel.h"
#include "qprogress.h"
#include "util/qengineversion.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QIcon>
#include <QMainWindow>
#include <QMessageBox>
#include <QTabBar>

namespace {

QStreamCacheType cacheType()
{
    return QStreamCacheType((*configMan)[QStringLiteral("cache_type")].toInt());
}

bool cacheCompression()
{
    return (*configMan)[QStringLiteral("cache_compression")].toBool();
}

unsigned int defaultCodec()
{
    return (*configMan)[QStringLiteral("default_codepage")].toUInt();
}

} // namespace

int QInterface::currentIndex() const
{
    return int(m_projects.indexOf(m_project));
}

void QInterface::setupProject(QProject* project)
{
    connect(project, &QProject::saveFileName, this, &QInterface::saveFileName, Qt::DirectConnection);
    connect(project, &QProject::spritesVersionToSave, this, &QInterface::spritesVersionToSave, Qt::DirectConnection);
    QDefinitions* definitions = project->definitions();
    connect(definitions, &QDefinitions::nameChanged, this, &QInterface::changeTabName, Qt::DirectConnection);
    connect(definitions, &QDefinitions::typeChanged, this, &QInterface::projTypeChanged, Qt::DirectConnection);
    connect(definitions, &QDefinitions::versionChanged, this, &QInterface::projVerChanged, Qt::DirectConnection);
}

void QInterface::addProject(QProject* project, const QString& title)
{
    m_projects.append(project);
    const int tab = m_tabs->addTab(title);
    m_tabs->setTabToolTip(tab, QDir::toNativeSeparators(project->definitions()->fileName()));
    m_tabs->setCurrentIndex(tab);
}

void QInterface::newProject(bool fromTemplate)
{
    auto* project = new QProject(cacheType(), cacheCompression());
    if (fromTemplate && !fillFromTemplate(project)) {
        delete project;
        return;
    }
    setupProject(project);
    // The number only grows, so a closed "Project 2" never comes back as another.
    addProject(project, tr("Project %1").arg(++m_projectCounter));
}

void QInterface::checkProject(QProject* project)
{
    project->definitions()->checkErrors();
    for (int i = 0; i < project->statesCount(); ++i)
        project->states(i)->checkErrors();
}

bool QInterface::openProject(const QString& fileName)
{
    auto* project = new QProject(cacheType(), cacheCompression());
    setupProject(project);
    bool opened;
    {
        QProgress progress(tr("Loading project..."), m_window);
        connect(project, &QProject::progress, &progress, &QProgress::onProgress, Qt::DirectConnection);
        opened = project->open(fileName, defaultCodec(), (*configMan)[QStringLiteral("backup_onload")].toBool(), false);
    }
    if (!opened) {
        delete project;
        QMessageBox::warning(m_window, tr("Open project"),
                             tr("The project '%1' could not be opened.").arg(QDir::toNativeSeparators(fileName)));
        return false;
    }
    checkProject(project);
    const QString name = project->definitions()->name();
    addProject(project, name.isEmpty() ? QFileInfo(fileName).completeBaseName() : name);
    const QString absolute = QFileInfo(fileName).absoluteFilePath();
    historyMan->addEntry(absolute, name);
    project->paths().setPath(QStringLiteral("proj_path"), QFileInfo(absolute).absolutePath());
    // The fresh project of start-up gives way to the first real one.
    if (m_projects.size() == 2 && m_projects.first()->isEmpty())
        projTabsClosed(0);
    emit projectOpened(project);
    return true;
}

void QInterface::projTabsClosed(int index)
{
    if (index < 0 || index >= m_projects.size())
        return;
    QProject* project = m_projects.at(index);
    if (m_projects.size() == 1 && project->isEmpty())
        return;
    if (!project->canDiscard())
        return;
    if (m_projects.size() == 1)
        newProject(false);
    // Editors let go of the project before it goes.
    if (project == m_project) {
        const int next = index + 1 < m_projects.size() ? index + 1 : index - 1;
        m_tabs->setCurrentIndex(next);
    }
    m_projects.removeAt(index);
    m_tabs->removeTab(index);
    delete project;
}

void QInterface::projTabsChanged(int index)
{
    if (index < 0 || index >= m_projects.size() || m_projects.at(index) == m_project)
        return;
    if (m_project)
        disconnect(m_project->messages(), &QMessageList::updated, this, &QInterface::updateErrorStatus);
    m_project = m_projects.at(index);
    updateCurrentProject();
    connect(m_project->messages(), &QMessageList::updated, this, &QInterface::updateErrorStatus);
    m_errorDlg->setMessages(m_project->messages());
    updateErrorStatus();
    updateWindowTitle();
}

void QInterface::updateWindowTitle()
{
    const int index = currentIndex();
    m_window->setWindowTitle(index < 0 ? m_baseTitle : QStringLiteral("%1 - %2").arg(m_tabs->tabText(index), m_baseTitle));
}

void QInterface::projTabsMoved(int from, int to)
{
    m_projects.move(from, to);
}

void QInterface::changeTabName(QProject* project, const QString& name)
{
    const int index = int(m_projects.indexOf(project));
    if (index < 0)
        return;
    m_tabs->setTabText(index, name);
    updateWindowTitle();
    historyMan->updateEntry(project->definitions()->fileName(), name);
}

void QInterface::projVerChanged(QProject* project)
{
    if (project == m_project)
        updateProjStatus();
}

void QInterface::updateProjStatus()
{
    if (!m_project)
        return;
    m_projectLabel->setText(tr("Project: %1, Version: M.U.G.E.N. %2")
                                .arg(QProject::typeLabel(m_project->type()),
                                     engineVersion::label(m_project->definitions()->version())));
}

void QInterface::updateErrorStatus()
{
    const QMessageList* messages = m_project ? m_project->messages() : nullptr;
    const int errors = messages ? messages->errors() : 0;
    const int warnings = messages ? messages->warnings() : 0;
    QString icon = QStringLiteral(":/imgs/Imgs/ok.svg");
    QString tip = tr("No issues found!");
    if (errors > 0) {
        icon = QStringLiteral(":/imgs/Imgs/error.png");
        tip = tr("%n error(s) found!", nullptr, errors);
    } else if (warnings > 0) {
        icon = QStringLiteral(":/imgs/Imgs/warn.png");
        tip = tr("%n warnings found!", nullptr, warnings);
    }
    m_errorIcon->setPixmap(QIcon(icon).pixmap(16, 16));
    m_errorIcon->setToolTip(tip);
    m_errorIcon->setProperty("errors", errors);
    m_errorIcon->setProperty("warnings", warnings);
}

void QInterface::fileNew()
{
    newProject(true);
}

void QInterface::fileOpen()
{
    const QString fileName = QFileDialog::getOpenFileName(m_window, tr("Open project"),
                                                          (*configMan)[QStringLiteral("proj_path")].toString(),
                                                          tr("Definitions or Font (*.def *.fnt)"));
    if (!fileName.isEmpty())
        openProject(fileName);
}

void QInterface::fileClose()
{
    projTabsClosed(currentIndex());
}

void QInterface::fileCloseAll()
{
    for (int i = int(m_projects.size()) - 1; i >= 0; --i)
        projTabsClosed(i);
}

void QInterface::fileCloseAllCurr()
{
    const QProject* keep = m_project;
    for (int i = int(m_projects.size()) - 1; i >= 0; --i) {
        if (m_projects.at(i) != keep)
            projTabsClosed(i);
    }
}

void QInterface::fileSave()
{
    if (!m_project)
        return;
    QProgress progress(tr("Loading project..."), m_window);
    progress.setCancelButton(nullptr);
    connect(m_project, &QProject::progress, &progress, &QProgress::onProgress, Qt::DirectConnection);
    if (!m_project->save())
        QMessageBox::warning(m_window, tr("Save project"), tr("Not every file of the project could be saved."));
    updateEditorName();
}

void QInterface::fileSaveAs()
{
    if (!m_project)
        return;
    const QString fileName = saveFileName(pftDefinitions, m_project->paths().value(QStringLiteral("proj_path")));
    if (fileName.isEmpty())
        return;
    const bool unicode = saveAsUnicode();
    QProgress progress(tr("Loading project..."), m_window);
    progress.setCancelButton(nullptr);
    connect(m_project, &QProject::progress, &progress, &QProgress::onProgress, Qt::DirectConnection);
    if (!m_project->saveAs(fileName, unicode))
        QMessageBox::warning(m_window, tr("Save project"), tr("Not every file of the project could be saved."));
    m_tabs->setTabToolTip(currentIndex(), QDir::toNativeSeparators(fileName));
    updateEditorName();
}

QString QInterface::saveFileName(QProjectFileType file, const QString& path)
{
    static const char* const filters[] = {
        QT_TR_NOOP("Definitions (*.def)"),
        QT_TR_NOOP("Sprites (*.sff)"),
        QT_TR_NOOP("Animations (*.air)"),
        QT_TR_NOOP("Commands (*.cmd)"),
        QT_TR_NOOP("Constants (*.cns);;States (*.st);;Text (*.txt);;Lua script (*.lua)"),
        QT_TR_NOOP("Sounds (*.snd)"),
    };
    static const char* const titles[] = {
        QT_TR_NOOP("Save definitions"), QT_TR_NOOP("Save sprites"), QT_TR_NOOP("Save animations"),
        QT_TR_NOOP("Save commands"),    QT_TR_NOOP("Save states"),  QT_TR_NOOP("Save sounds"),
    };
    const int type = qBound(0, int(file), 5);
    return QFileDialog::getSaveFileName(m_window, tr(titles[type]), path, tr(filters[type]));
}

quint32 QInterface::spritesVersionToSave(quint32 currentVersion)
{
    SaveSpr dialog(currentVersion, m_window);
    return dialog.exec() == QDialog::Accepted ? dialog.version() : 0;
}

bool QInterface::saveAsUnicode()
{
    return QMessageBox::question(m_window, tr("Save as UTF-8"), tr("Do you want to save the text files as UTF-8?"),
                                 QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
        == QMessageBox::Yes;
}

void QInterface::openPendingFiles()
{
    QFile file(handOverFileName());
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArray content = file.readAll();
    file.close();
    for (const QByteArray& line : content.split('\n')) {
        const QString path = QString::fromLocal8Bit(line);
        if (path.isEmpty())
            continue;
        if (QFileInfo(path).suffix().compare(QLatin1String("def"), Qt::CaseInsensitive) == 0)
            openProject(QFileInfo(path).absoluteFilePath());
        else if (!path.isEmpty())
            setStatusText(tr("Only projects can be handed over for now: %1").arg(QDir::toNativeSeparators(path)));
    }
    if (!content.isEmpty())
        file.open(QIODevice::WriteOnly);
}

void QInterface::fileChanged(const QString& path)
{
    openPendingFiles();
    // Some systems drop the watch when the file is rewritten.
    if (!m_watcher.files().contains(path) && QFile::exists(path))
        m_watcher.addPath(path);
    m_window->raise();
    m_window->activateWindow();
}

void QInterface::setStatusText(const QString& text)
{
    m_statusText->setText(text);
}
