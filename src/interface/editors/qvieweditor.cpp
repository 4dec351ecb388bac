#include "qvieweditor.h"

#include "interface/workspaces/qviewworkspace.h"
#include "managers/qiconmanager.h"

#include <QAction>

#include <QWidget>

QViewEditor::QViewEditor(QViewWorkspace* workspace, QWidget* view, QObject* parent)
    : QInterfaceEditor(parent)
    , m_workspace(workspace)
    , m_view(view)
{
}

QViewEditor::~QViewEditor()
{
    if (!m_view->parent())
        delete m_view;
}

void QViewEditor::initialized(QToolBarItems*, QWidget* leftPage)
{
    m_summary = addSummary(leftPage, name() + QStringLiteral("Summary"));
}

void QViewEditor::activate(bool switched)
{
    QInterfaceEditor::activate(switched);
    if (switched)
        m_workspace->showView(m_view);
    // The view's own tool bar takes its icons from the set in use, which may have changed since.
    for (QAction* action : m_view->actions())
        if (iconMan)
            action->setIcon(iconMan->icon(action->objectName()));
    emit undoStackChanged(undoStack());
}
