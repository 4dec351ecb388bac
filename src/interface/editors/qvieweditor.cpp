#include "qvieweditor.h"

#include "interface/workspaces/qviewworkspace.h"

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
    emit undoStackChanged(undoStack());
}
