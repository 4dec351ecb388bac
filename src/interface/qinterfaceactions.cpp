// The actions of the window, its menus and its tool bars.
#include "qinterface.h"

#include "managers/gui/qhistorymanager.h"
#include "managers/gui/qtoolbaritems.h"
#include "managers/gui/qtoolbarmanager.h"
#include "managers/qactionmanager.h"
#include "managers/qprogramdirectory.h"

#include <QAction>
#include <QActionGroup>
#include <QMainWindow>
#include <QMenu>
#include <QTabBar>
#include <QToolBar>
#include <QUndoGroup>
#include <QVBoxLayout>

void QInterface::initMenus()
{
    const int everywhere = QActionManager::global;
    auto add = [this](std::initializer_list<int> scopes, const char* name, const char* text, const char* slot,
                      bool checkable = false) {
        return m_actions->add(scopes, QLatin1String(name), text, checkable, this, slot);
    };
    QMenu* file = menu("menuFile");
    file->addAction(add({everywhere}, "file_new", QT_TRANSLATE_NOOP("QActionManager", "&New project"), SLOT(fileNew())));
    file->addAction(add({everywhere}, "file_open", QT_TRANSLATE_NOOP("QActionManager", "&Open project..."), SLOT(fileOpen())));
    QMenu* recent = file->addMenu(QString());
    recent->setObjectName(QStringLiteral("menuHistory"));
    historyMan = new QHistoryManager(recent, programDirectory() + QStringLiteral("/history.xml"));
    connect(historyMan, &QHistoryManager::openRequested, this, &QInterface::openProject);
    file->addSeparator();
    file->addAction(add({everywhere}, "file_save", QT_TRANSLATE_NOOP("QActionManager", "&Save project"), SLOT(fileSave())));
    file->addAction(add({everywhere}, "file_saveas", QT_TRANSLATE_NOOP("QActionManager", "Save project &as..."), SLOT(fileSaveAs())));
    file->addSeparator();
    file->addAction(add({everywhere}, "file_close", QT_TRANSLATE_NOOP("QActionManager", "&Close project"), SLOT(fileClose())));
    file->addAction(add({everywhere}, "file_close_all", QT_TRANSLATE_NOOP("QActionManager", "Close all projects"), SLOT(fileCloseAll())));
    file->addAction(add({everywhere}, "file_close_others", QT_TRANSLATE_NOOP("QActionManager", "Close other projects"), SLOT(fileCloseAllCurr())));
    file->addSeparator();
    file->addAction(add({everywhere}, "file_check_errors", QT_TRANSLATE_NOOP("QActionManager", "Check for &errors"), SLOT(fileCheck())));
    file->addSeparator();
    file->addAction(m_actions->add({everywhere}, QStringLiteral("file_exit"), QT_TRANSLATE_NOOP("QActionManager", "E&xit"), false, m_window, SLOT(close())));

    QMenu* edit = menu("menuEdit");
    QAction* undo = m_actions->add({everywhere}, QStringLiteral("edit_undo"), QT_TRANSLATE_NOOP("QActionManager", "&Undo"), false, this, SLOT(editUndo()));
    QAction* redo = m_actions->add({everywhere}, QStringLiteral("edit_redo"), QT_TRANSLATE_NOOP("QActionManager", "&Redo"), false, this, SLOT(editRedo()));
    connect(m_undoGroup, &QUndoGroup::canUndoChanged, undo, &QAction::setEnabled);
    connect(m_undoGroup, &QUndoGroup::canRedoChanged, redo, &QAction::setEnabled);
    undo->setEnabled(false);
    redo->setEnabled(false);
    edit->addAction(undo);
    edit->addAction(redo);
    edit->addSeparator();
    edit->addAction(add({everywhere}, "edit_cut", QT_TRANSLATE_NOOP("QActionManager", "Cu&t"), SLOT(editCut())));
    edit->addAction(add({everywhere}, "edit_copy", QT_TRANSLATE_NOOP("QActionManager", "&Copy"), SLOT(editCopy())));
    edit->addAction(add({everywhere}, "edit_paste", QT_TRANSLATE_NOOP("QActionManager", "&Paste"), SLOT(editPaste())));
    edit->addSeparator();
    const std::initializer_list<int> editors = {0, 1, 2, 3, 4, 5};
    edit->addAction(add(editors, "editor_new", QT_TRANSLATE_NOOP("QActionManager", "Clear the editor"), SLOT(editorNew())));
    edit->addAction(add(editors, "editor_open", QT_TRANSLATE_NOOP("QActionManager", "Open into the editor..."), SLOT(editorOpen())));
    edit->addAction(add(editors, "editor_save", QT_TRANSLATE_NOOP("QActionManager", "Save the editor's file"), SLOT(editorSave())));
    edit->addAction(add(editors, "editor_saveas", QT_TRANSLATE_NOOP("QActionManager", "Save the editor's file as..."), SLOT(editorSaveAs())));

    // Find and replace in the text editors: the current one searches what it
    // shows; the last finds in every text file of the project.
    edit->addSeparator();
    const struct {
        const char* name;
        const char* text;
        QInterfaceEditor::FindCommand command;
        QKeySequence keys;
    } finds[] = {
        {"edit_find_replace", QT_TRANSLATE_NOOP("QActionManager", "&Find..."), QInterfaceEditor::FindStart, QKeySequence::Find},
        {"edit_replace", QT_TRANSLATE_NOOP("QActionManager", "R&eplace..."), QInterfaceEditor::FindReplace, QKeySequence(Qt::CTRL | Qt::Key_H)},
        {"edit_find_next", QT_TRANSLATE_NOOP("QActionManager", "Find &next"), QInterfaceEditor::FindNext, QKeySequence(Qt::Key_F3)},
        {"edit_find_previous", QT_TRANSLATE_NOOP("QActionManager", "Find pre&vious"), QInterfaceEditor::FindPrevious, QKeySequence(Qt::SHIFT | Qt::Key_F3)},
        {"edit_find_replace_multi", QT_TRANSLATE_NOOP("QActionManager", "Find and replace in &all files..."), QInterfaceEditor::FindInFiles, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F)},
    };
    for (const auto& find : finds) {
        QAction* action = m_actions->add({ieDefinitions, ieCommands, ieStates}, QLatin1String(find.name), find.text);
        const QInterfaceEditor::FindCommand command = find.command;
        connect(action, &QAction::triggered, this, [this, command] {
            if (QInterfaceEditor* current = m_editors.value(m_currentEditor))
                current->find(command);
        });
        m_actions->setShortcut(action, find.keys);
        edit->addAction(action);
    }

    QMenu* view = menu("menuView");
    view->addAction(add({everywhere}, "view_left_panel", QT_TRANSLATE_NOOP("QActionManager", "&Left panel"), SLOT(viewLeftPanel(bool)), true));
    view->addAction(add({everywhere}, "view_right_panel", QT_TRANSLATE_NOOP("QActionManager", "&Right panel"), SLOT(viewRightPanel(bool)), true));
    view->addAction(add({everywhere}, "view_actions", QT_TRANSLATE_NOOP("QActionManager", "&Action list"), SLOT(viewActions(bool)), true));
    view->addAction(add({everywhere}, "view_calculator", QT_TRANSLATE_NOOP("QActionManager", "&Calculator"), SLOT(viewCalculator())));
    view->addAction(add({everywhere}, "view_clipboard", QT_TRANSLATE_NOOP("QActionManager", "Clip&board"), SLOT(viewClipboard())));
    view->addSeparator();
    m_editorGroup->setExclusive(true);

    QMenu* tools = menu("menuTools");
    tools->addAction(add({everywhere}, "tools_options", QT_TRANSLATE_NOOP("QActionManager", "&Options..."), SLOT(toolsOptions())));
    tools->addAction(add({everywhere}, "tools_script_editor", QT_TRANSLATE_NOOP("QActionManager", "&Script editor..."), SLOT(toolsScript())));
    QMenu* help = menu("menuHelp");
    help->addAction(add({everywhere}, "help_about", QT_TRANSLATE_NOOP("QActionManager", "&About Pugilforge"), SLOT(helpAbout())));

    const struct { const char* name; QKeySequence keys; } defaults[] = {
        {"file_new", QKeySequence::New}, {"file_open", QKeySequence::Open}, {"file_save", QKeySequence::Save},
        {"file_saveas", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)}, {"file_close", QKeySequence(Qt::CTRL | Qt::Key_W)},
        {"file_check_errors", QKeySequence(Qt::Key_F7)}, {"file_exit", QKeySequence(Qt::CTRL | Qt::Key_Q)},
        {"edit_undo", QKeySequence::Undo}, {"edit_redo", QKeySequence(Qt::CTRL | Qt::Key_Y)},
        {"edit_cut", QKeySequence::Cut}, {"edit_copy", QKeySequence::Copy}, {"edit_paste", QKeySequence::Paste},
        {"tools_options", QKeySequence(Qt::Key_F10)}, {"view_actions", QKeySequence(Qt::Key_F4)},
    };
    for (const auto& shortcut : defaults)
        m_actions->setShortcut(m_actions->fromName(QLatin1String(shortcut.name)), shortcut.keys);
}

void QInterface::initToolBars(QVBoxLayout* layout)
{
    m_mainBar = m_window->addToolBar(QString());
    m_mainBar->setObjectName(QStringLiteral("mainToolBar"));
    m_mainBar->setMovable(false);
    m_mainTools = new QToolBarManager(m_mainBar);

    auto* main = new QToolBarItems;
    for (const char* name : std::initializer_list<const char*>{"file_new", "file_open", "file_save", "file_saveas", nullptr, "edit_undo", "edit_redo",
                             nullptr, "file_check_errors", "tools_options", nullptr}) {
        if (name)
            main->addAction(m_actions->fromName(QLatin1String(name)));
        else
            main->addSeparator();
    }
    m_toolBarItems.insert(QStringLiteral("main"), main);

    auto* extra = new QToolBarItems;
    for (const char* name : std::initializer_list<const char*>{"editor_new", "editor_open", "editor_save", nullptr, "edit_cut", "edit_copy", "edit_paste"}) {
        if (name)
            extra->addAction(m_actions->fromName(QLatin1String(name)));
        else
            extra->addSeparator();
    }
    m_toolBarItems.insert(QStringLiteral("extra"), extra);

    m_tabs = new QTabBar;
    m_tabs->setObjectName(QStringLiteral("projectTabs"));
    m_tabs->setTabsClosable(true);
    m_tabs->setMovable(true);
    m_tabs->setExpanding(false);
    m_tabs->setDocumentMode(true);
    connect(m_tabs, &QTabBar::currentChanged, this, &QInterface::projTabsChanged);
    connect(m_tabs, &QTabBar::tabCloseRequested, this, &QInterface::projTabsClosed);
    connect(m_tabs, &QTabBar::tabMoved, this, &QInterface::projTabsMoved);
    layout->addWidget(m_tabs);

    m_extraBar = new QToolBar;
    m_extraBar->setObjectName(QStringLiteral("extraToolBar"));
    m_extraTools = new QToolBarManager(m_extraBar);
    layout->addWidget(m_extraBar);
}
