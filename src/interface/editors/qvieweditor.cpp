#include "qvieweditor.h"

#include "interface/workspaces/qviewworkspace.h"
#include "managers/qiconmanager.h"

#include <QAction>
#include <QToolBar>
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
    // The view's own tool bars take their icons from the set in use, which may have changed since.
    // Their actions are walked, not the page's: an action whose keys work in one widget only
    // (the animations list's Rename) lives on that widget, not on the page.
    if (iconMan) {
        QList<QAction*> actions = m_view->actions();
        for (const QToolBar* bar : m_view->findChildren<QToolBar*>())
            actions += bar->actions();
        for (QAction* action : std::as_const(actions))
            if (!action->objectName().isEmpty())
                action->setIcon(iconMan->icon(action->objectName()));
    }
    emit undoStackChanged(undoStack());
}
