#include "qtextfileviewer.h"

#include "managers/qconfigmanager.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "util/qpathresolver.h"

#include <QCoreApplication>
#include <QFileInfo>

QTextFileViewer::QTextFileViewer(const Kind& kind, QTextWorkspace* workspace, QObject* parent)
    : QTextDocumentEditor(workspace, parent)
    , m_kind(kind)
    , m_text(std::make_unique<QSyntaxTextEditor>(nullptr, QProjectFileType(kind.id), false, 0, false))
{
}

QTextFileViewer::~QTextFileViewer() = default;

QString QTextFileViewer::title() const
{
    return QCoreApplication::translate("QTextFileViewer", m_kind.title);
}

void QTextFileViewer::setProject(QProject* project)
{
    m_text->clear();
    m_loaded = false;
    if (project) {
        const QProjectFiles files = project->definitions()->files();
        const QString relative = m_kind.id == ieAnimations ? files.animations : files.commands;
        const QResolvedPath path = resolvePath(files.baseDir, relative);
        if (path.exists) {
            m_text->setSyntaxVersion(project->definitions()->version());
            m_loaded = m_text->fromFile(path.path, (*configMan)[QStringLiteral("default_codepage")].toUInt(), false);
        }
    }
    QTextDocumentEditor::setProject(project);
}

int QTextFileViewer::documentCount() const
{
    return m_loaded ? 1 : 0;
}

QTextDocument* QTextFileViewer::documentAt(int index) const
{
    return index == 0 && m_loaded ? m_text->document() : nullptr;
}

QString QTextFileViewer::documentTitle(int) const
{
    return tr("%1 (read-only)").arg(QFileInfo(m_text->fileName()).fileName());
}

QString QTextFileViewer::panelNote() const
{
    if (!m_loaded)
        return tr("The definitions name no such file, or it is missing.");
    return tr("Shown read-only: this file is edited in its own editor in a later version.");
}
