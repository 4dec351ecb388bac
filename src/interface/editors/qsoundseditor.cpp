#include "qsoundseditor.h"

#include "interface/workspaces/qviewworkspace.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "util/qpathresolver.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>

QSoundsEditor::QSoundsEditor(QViewWorkspace* workspace, QObject* parent)
    : QInterfaceEditor(parent)
    , m_workspace(workspace)
    , m_view(new QLabel)
{
    m_view->setObjectName(QStringLiteral("soundsView"));
    m_view->setAlignment(Qt::AlignCenter);
    m_view->setWordWrap(true);
}

QSoundsEditor::~QSoundsEditor()
{
    if (!m_view->parent())
        delete m_view;
}

void QSoundsEditor::initialized(QToolBarItems*, QWidget* leftPage)
{
    m_summary = addSummary(leftPage, QStringLiteral("soundsSummary"));
}

void QSoundsEditor::activate(bool switched)
{
    QInterfaceEditor::activate(switched);
    if (switched)
        m_workspace->showView(m_view);
    emit undoStackChanged(nullptr);
}

void QSoundsEditor::setProject(QProject* project)
{
    m_project = project;
    update();
}

void QSoundsEditor::update()
{
    const QProjectFiles files = m_project ? m_project->definitions()->files() : QProjectFiles();
    const QResolvedPath path = resolvePath(files.baseDir, files.sounds);
    QString text;
    if (files.sounds.isEmpty())
        text = tr("The definitions name no sound file.");
    else if (!path.exists)
        text = tr("The sound file %1 is missing.").arg(QDir::toNativeSeparators(path.path));
    else
        text = QDir::toNativeSeparators(path.path) + QLatin1Char('\n')
            + QLocale().formattedDataSize(QFileInfo(path.path).size());
    m_view->setText(text);
    if (m_summary)
        m_summary->setText(tr("<b>Sound file:</b> %1").arg(files.sounds.isEmpty() ? tr("none") : files.sounds.toHtmlEscaped()));
}
