#include "qsoundseditor.h"

#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "util/qpathresolver.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>

QSoundsEditor::QSoundsEditor(QViewWorkspace* workspace, QObject* parent)
    : QViewEditor(workspace, new QLabel, parent)
    , m_view(static_cast<QLabel*>(view()))
{
    m_view->setObjectName(QStringLiteral("soundsView"));
    m_view->setAlignment(Qt::AlignCenter);
    m_view->setWordWrap(true);
}

void QSoundsEditor::initialized(QToolBarItems* items, QWidget* leftPage)
{
    QViewEditor::initialized(items, leftPage);
    update();
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
    if (summary())
        summary()->setText(tr("<b>Sound file:</b> %1").arg(files.sounds.isEmpty() ? tr("none") : files.sounds.toHtmlEscaped()));
}
