#pragma once

#include "qinterfaceeditor.h"
#include "qinterfaceworkspace.h"

#include <QFileSystemWatcher>
#include <QList>
#include <QMap>
#include <QObject>
#include <QPointer>

#include "util/qprojecttypes.h"

class Calculator;
class ClipDlg;
class ErrorDlg;
class QAction;
class QActionGroup;
class QActionList;
class QActionManager;
class QClickableLabel;
class QDockWidget;
class QLabel;
class QListView;
class QMainWindow;
class QMenu;
class QMugenRun;
class QPanelWidget;
class QProject;
class ScriptEd;
class QStackedLayout;
class QTabBar;
class QToolBar;
class QToolBarItems;
class QToolBarManager;
class QUndoGroup;
class QVBoxLayout;

/**
 * The controller of the window: the project tabs, the editors, extra editors
 * and workspaces that plug into it, the tool bars, both side panels, the
 * action list and the status bar. It draws nothing itself; it switches the
 * editors in and out as the author moves between editors, tabs and project
 * types, and runs the open, save and close flows. It is the global `intf`.
 *
 * There is always at least one project once run() has passed: closing the
 * last one leaves a fresh empty project, and the first real project opened
 * replaces a pristine one.
 */
class QInterface : public QObject
{
    Q_OBJECT
public:
    QInterface(QMainWindow* window, QDockWidget* actionDock, QListView* actionView);
    ~QInterface() override;

    void registerEditor(QInterfaceEditor* editor);
    void registerExtraEditor(QInterfaceExtraEditor* editor);
    void registerWorkspace(QInterfaceWorkspace* workspace);
    /// Loads the window's state and makes the first project; the master
    /// instance also opens what was handed over and watches the hand-over file.
    void run(bool master);

    int projectCount() const { return int(m_projects.size()); }
    QProject* project(int index) const { return m_projects.value(index); }
    QProject* currentProject() const { return m_project; }
    int currentIndex() const;
    QTabBar* tabs() const { return m_tabs; }
    QInterfaceEditors currentEditor() const { return m_currentEditor; }
    QInterfaceEditor* editor(QInterfaceEditors id) const { return m_editors.value(id); }
    QAction* editorAction(QInterfaceEditors id) const { return m_editorActions.value(id); }
    QInterfaceExtraEditor* extraEditor(QInterfaceExtraEditors id) const { return m_extraEditors.value(id); }
    QActionManager* actions() const { return m_actions; }
    QUndoGroup* undoGroup() const { return m_undoGroup; }
    ErrorDlg* errorDialog() const { return m_errorDlg; }
    Calculator* calculator() const { return m_calculator; }
    ClipDlg* clipboardDialog() const { return m_clipDlg; }
    QClickableLabel* errorIcon() const { return m_errorIcon; }
    QClickableLabel* projectLabel() const { return m_projectLabel; }
    QPanelWidget* leftPanel() const { return m_leftPanel; }
    QPanelWidget* rightPanel() const { return m_rightPanel; }

    /// Opens a project in a new tab; false, with the tabs as they were, when it can't be read.
    bool openProject(const QString& fileName);
    void newProject(bool fromTemplate);
    /// Consumes the hand-over file: opens each file it lists, then empties it.
    void openPendingFiles();

    void switchEditor(QInterfaceEditors id);
    void switchExtraEditor(QInterfaceExtraEditors id);
    void navigateTo(QProjectFileType file, int fileIndex, int index, int line);
    void setStatusText(const QString& text);

    /// Asks where to save a file of the type; empty when the author cancels.
    QString saveFileName(QProjectFileType file, const QString& path);
    quint32 spritesVersionToSave(quint32 currentVersion);
    bool saveAsUnicode();

    /// Applies language, look and shortcuts from the configuration.
    void applyConfig();
    void retranslate();
    void loadConfig();
    void saveConfig();

    /// The hand-over file of the instances ("open.pf3" in the temporary folder).
    static QString handOverFileName();

public slots:
    void fileNew();
    void fileOpen();
    void fileClose();
    void fileCloseAll();
    void fileCloseAllCurr();
    void fileSave();
    void fileSaveAs();
    /// Every fault of every file of the current project, in the non-modal error list.
    void fileCheck();
    /// A dated copy of the current project, unsaved edits included, in "backup" beside its DEF.
    void fileBackup();
    /// Loads a backup chosen in BakDlg over the current project; a save then writes its own files.
    void fileLoadBackup();
    /**
     * Tests the current project in an engine: picks the engine (MugRunDlg
     * with several), writes the copies, starts it and waits with the window
     * alive, then removes the copies. A second run while one is active is refused.
     */
    void fileRunMugen();
    /// The engine of the run has ended and its copies are gone: the editor shows the project afresh.
    void mugenFinished(int exitCode);
    /// Ends the engine of an active run; its copies go as after any run.
    void cancelRun();
    void editorNew();
    void editorOpen();
    void editorSave();
    void editorSaveAs();
    void editUndo();
    void editRedo();
    void editCut();
    void editCopy();
    void editPaste();
    void viewLeftPanel(bool visible);
    void viewRightPanel(bool visible);
    void viewActions(bool visible);
    void viewCalculator();
    void viewClipboard();
    /// Runs a shared Edit command ("edit_cut", "edit_copy", "edit_paste") in the current editor.
    void execAction(const QString& action);
    void toolsOptions();
    void toolsScript();
    void toolActivated();
    void helpAbout();
    /// Closes the tab; the last tab of an empty project stays.
    void projTabsClosed(int index);

signals:
    void projectOpened(QProject* project);
    /// The editor `id` has come forward (ieNone when none is left).
    void editorSwitched(QInterfaceEditors id);

private slots:
    void projTabsChanged(int index);
    void projTabsMoved(int from, int to);
    void editorSwitch(QAction* action);
    void fileChanged(const QString& path);
    void changeTabName(QProject* project, const QString& name);
    void projTypeChanged(QProject* project);
    void projVerChanged(QProject* project);
    void updateErrorStatus();
    void updateEditorName();
    void actionChanged(const QModelIndex& index);
    void editorUndoStackChanged(QUndoStack* stack);

private:
    void initStatus();
    void initMenus();
    void initToolBars(QVBoxLayout* layout);
    /// The actions of backups and engine runs, in the Project menu and on the main tool bar.
    void initRunActions();
    void initPanels();
    void initWorkspace(QVBoxLayout* layout);
    void setupProject(QProject* project);
    void addProject(QProject* project, const QString& title);
    void updateCurrentProject();
    void updateCurrEd();
    void updateProjStatus();
    void updateWindowTitle();
    void connectEditor(QInterfaceEditor* editor, bool on);
    void checkProject(QProject* project);
    /// Scripts: the projects and dialogs they see, and the Tools menu's entries.
    void initScripts();
    /// Takes back what initScripts() gave the scripts: a script run after
    /// the window went finds no projects instead of a dangling interface.
    void releaseScripts();
    void updateToolsMenu();
    /// Asks for a template and runs it on `project`; false when the author
    /// cancels or the script fails or answers false.
    bool fillFromTemplate(QProject* project);
    QMenu* menu(const char* name) const;
    /// The shared Edit commands: the window asks, the current editor acts.
    void forCurrentEditor(void (QInterfaceEditor::*call)());

    QFileSystemWatcher m_watcher;
    QActionManager* m_actions;
    QActionList* m_actionList;
    QDockWidget* m_actionDock;
    QListView* m_actionView;
    QMainWindow* m_window;
    ErrorDlg* m_errorDlg;
    Calculator* m_calculator;
    ClipDlg* m_clipDlg;
    QUndoGroup* m_undoGroup;
    QToolBar* m_mainBar = nullptr;
    QToolBar* m_extraBar = nullptr;
    QToolBarManager* m_mainTools = nullptr;
    QToolBarManager* m_extraTools = nullptr;
    QMap<QString, QToolBarItems*> m_toolBarItems;
    QPanelWidget* m_leftPanel = nullptr;
    QPanelWidget* m_rightPanel = nullptr;
    QMap<QString, QWidget*> m_leftPages;
    QMap<QString, QWidget*> m_rightPages;
    QClickableLabel* m_projectLabel = nullptr;
    QClickableLabel* m_errorIcon = nullptr;
    QLabel* m_statusText = nullptr;
    QActionGroup* m_editorGroup;
    /// The View menu's choice of the right panel's editor, one action each.
    QActionGroup* m_extraGroup;
    QMap<QInterfaceExtraEditors, QAction*> m_extraActions;
    QTabBar* m_tabs = nullptr;
    QProject* m_project = nullptr;
    QList<QProject*> m_projects;
    QInterfaceEditors m_currentEditor = ieNone;
    QMap<QInterfaceEditors, QInterfaceEditor*> m_editors;
    QMap<QInterfaceEditors, QAction*> m_editorActions;
    QInterfaceExtraEditors m_currentExtra = ieeNone;
    QMap<QInterfaceExtraEditors, QInterfaceExtraEditor*> m_extraEditors;
    QStackedLayout* m_workspaceStack = nullptr;
    QInterfaceWorkspaces m_currentWorkspace = iwNone;
    QMap<QInterfaceWorkspaces, QInterfaceWorkspace*> m_workspaces;
    int m_projectCounter = 0;
    QMugenRun* m_run = nullptr; ///< the engine run under way, if any
    QPointer<ScriptEd> m_scriptEd;
    QList<QAction*> m_toolScripts;
    QString m_baseTitle; ///< the window's title without a project
};

extern QInterface* intf;
