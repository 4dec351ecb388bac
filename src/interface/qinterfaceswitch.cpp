// Switching editors, extra editors and workspaces in and out as the author
// moves between editors, tabs and project types.
#include "qinterface.h"

#include "managers/gui/qtoolbaritems.h"
#include "managers/gui/qtoolbarmanager.h"
#include "managers/qactionlist.h"
#include "managers/qactionmanager.h"
#include "managers/qpresetmanager.h"
#include "model/qproject.h"
#include "qpanelwidget.h"

#include <QAction>
#include <QActionGroup>
#include <QDockWidget>
#include <QStackedLayout>
#include <QToolBar>
#include <QUndoGroup>

void QInterface::connectEditor(QInterfaceEditor* editor, bool on)
{
    if (!editor)
        return;
    if (on) {
        connect(editor, &QInterfaceEditor::undoStackChanged, this, &QInterface::editorUndoStackChanged);
        connect(editor, &QInterfaceEditor::modifiedChanged, this, &QInterface::updateEditorName);
    } else {
        disconnect(editor, &QInterfaceEditor::undoStackChanged, this, &QInterface::editorUndoStackChanged);
        disconnect(editor, &QInterfaceEditor::modifiedChanged, this, &QInterface::updateEditorName);
    }
}

void QInterface::switchEditor(QInterfaceEditors id)
{
    QInterfaceEditor* old = m_editors.value(m_currentEditor);
    if (old && id != m_currentEditor)
        connectEditor(old, false);
    if (old)
        old->deactivate();
    QInterfaceEditor* editor = m_editors.value(id);
    if (id != m_currentEditor) {
        connectEditor(editor, true);
        m_currentEditor = editor ? id : ieNone;
        if (QAction* action = m_editorActions.value(id))
            action->setChecked(true);
    }
    if (!editor) {
        if (QInterfaceWorkspace* workspace = m_workspaces.value(m_currentWorkspace))
            workspace->deactivate();
        m_currentWorkspace = iwNone;
        m_extraTools->setItems(nullptr);
        m_leftPanel->hide();
        m_rightPanel->hide();
        m_undoGroup->setActiveStack(nullptr);
        m_actionList->setFilter(ieNone);
        m_actions->editorSwitched(ieNone);
        emit editorSwitched(ieNone);
        return;
    }

    const auto workspaceId = QInterfaceWorkspaces(editor->workspace());
    QInterfaceWorkspace* workspace = m_workspaces.value(workspaceId);
    if (workspaceId != m_currentWorkspace && workspace) {
        if (QInterfaceWorkspace* previous = m_workspaces.value(m_currentWorkspace))
            previous->deactivate();
        m_workspaceStack->setCurrentWidget(workspace->widget());
        m_currentWorkspace = workspaceId;
        workspace->activate();
    }

    const int areas = editor->areas();
    if (areas & QInterfaceEditor::ExtraToolBar) {
        m_extraTools->setItems(m_toolBarItems.value(QStringLiteral("extra")));
        m_extraTools->setItems(m_toolBarItems.value(editor->name()), true);
        if (workspace)
            m_extraTools->setItems(m_toolBarItems.value(workspace->name()), true);
    } else {
        m_extraTools->setItems(nullptr);
    }
    m_extraBar->setVisible(areas & QInterfaceEditor::ExtraToolBar);

    const bool left = m_actions->fromName(QStringLiteral("view_left_panel"))->isChecked()
        && (areas & QInterfaceEditor::LeftPanel);
    // An extra editor may have nothing for this editor (palettes beside sounds):
    // the first one that has takes its place, and the author's choice stays.
    QInterfaceExtraEditor* extra = m_extraEditors.value(m_currentExtra);
    if (extra && !extra->serves(id)) {
        extra = nullptr;
        for (QInterfaceExtraEditor* each : std::as_const(m_extraEditors)) {
            if (each->serves(id)) {
                extra = each;
                break;
            }
        }
    }
    if (extra) {
        m_rightPanel->stack()->setCurrentWidget(m_rightPages.value(extra->name()));
        m_rightPanel->setTitle(extra->title());
        extra->showFor(id);
    }
    const bool right = extra && m_actions->fromName(QStringLiteral("view_right_panel"))->isChecked()
        && (areas & QInterfaceEditor::RightPanel);
    m_leftPanel->setVisible(left);
    m_rightPanel->setVisible(right);
    if (QWidget* page = m_leftPages.value(editor->name()))
        m_leftPanel->stack()->setCurrentWidget(page);
    const QSize metric = presetMan->panelMetric(QStringLiteral("editor"), editor->name());
    if (m_leftPanel->minimumWidth() != metric.width())
        m_leftPanel->setMinimumWidth(metric.width());
    m_leftPanel->setTitleMetric(metric.height());
    updateEditorName();

    m_actionList->setFilter(id);
    m_actionDock->setVisible(m_actions->fromName(QStringLiteral("view_actions"))->isChecked());
    m_actions->editorSwitched(id);
    editor->activate(true);
    editorUndoStackChanged(editor->undoStack());
    emit editorSwitched(id);
}

void QInterface::switchExtraEditor(QInterfaceExtraEditors id)
{
    if (QInterfaceExtraEditor* old = m_extraEditors.value(m_currentExtra))
        old->deactivate();
    QInterfaceExtraEditor* editor = m_extraEditors.value(id);
    m_currentExtra = editor ? id : ieeNone;
    if (QAction* action = m_extraActions.value(id))
        action->setChecked(true);
    if (editor) {
        m_rightPanel->stack()->setCurrentWidget(m_rightPages.value(editor->name()));
        m_rightPanel->setTitle(editor->title());
        const QSize metric = presetMan->panelMetric(QStringLiteral("extra"), editor->name());
        m_rightPanel->setMinimumWidth(metric.width());
        m_rightPanel->setTitleMetric(metric.height());
        editor->activate(true);
    }
    switchEditor(m_currentEditor);
}

void QInterface::editorSwitch(QAction* action)
{
    bool ok = false;
    const int id = action->objectName().toInt(&ok);
    if (ok)
        switchEditor(QInterfaceEditors(id));
}

void QInterface::updateEditorName()
{
    QInterfaceEditor* editor = m_editors.value(m_currentEditor);
    if (!editor)
        return;
    m_leftPanel->setTitle(editor->title() + (editor->isModified() ? QStringLiteral("*") : QString()));
}

void QInterface::updateCurrentProject()
{
    for (QInterfaceWorkspace* workspace : std::as_const(m_workspaces))
        workspace->setProject(m_project);
    QInterfaceEditor* current = m_editors.value(m_currentEditor);
    connectEditor(current, false);
    for (QInterfaceEditor* editor : std::as_const(m_editors)) {
        editor->deactivate();
        editor->setProject(m_project);
        editor->activate(false);
    }
    connectEditor(current, true);
    for (QInterfaceExtraEditor* extra : std::as_const(m_extraEditors))
        extra->setProject(m_project);
    projTypeChanged(m_project);
}

void QInterface::projTypeChanged(QProject* project)
{
    if (!project || project != m_project)
        return;
    const unsigned int type = project->type();
    for (QInterfaceEditor* editor : std::as_const(m_editors)) {
        editor->projectTypeChanged();
        const bool visible = (editor->projectTypes() & type) != 0;
        m_editorActions.value(editor->id())->setVisible(visible);
        m_editorActions.value(editor->id())->setEnabled(visible);
    }
    updateCurrEd();
    updateProjStatus();
}

void QInterface::updateCurrEd()
{
    QAction* checked = m_editorGroup->checkedAction();
    if (!checked || !checked->isVisible()) {
        checked = nullptr;
        for (QAction* action : m_editorGroup->actions()) {
            if (action->isCheckable() && action->isVisible()) {
                checked = action;
                break;
            }
        }
    }
    if (!checked) {
        switchEditor(ieNone);
        return;
    }
    checked->setChecked(true);
    editorSwitch(checked);
}

void QInterface::navigateTo(QProjectFileType file, int fileIndex, int index, int line)
{
    for (QInterfaceEditor* editor : std::as_const(m_editors)) {
        if (editor->file() != int(file))
            continue;
        QAction* action = m_editorActions.value(editor->id());
        if (!action || !action->isEnabled())
            return;
        switchEditor(editor->id());
        editor->navigateTo(fileIndex, index, line);
        return;
    }
}
