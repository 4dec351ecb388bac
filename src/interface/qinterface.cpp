#include "qinterface.h"

#include "dialogs/calculator.h"
#include "dialogs/clipdlg.h"
#include "dialogs/errordlg.h"
#include "dialogs/options.h"
#include "managers/gui/qhistorymanager.h"
#include "managers/gui/qtoolbaritems.h"
#include "managers/gui/qtoolbarmanager.h"
#include "managers/qactionlist.h"
#include "managers/qactionmanager.h"
#include "managers/qcolorsetmanager.h"
#include "managers/qconfigmanager.h"
#include "managers/qiconmanager.h"
#include "managers/qlanguagemanager.h"
#include "managers/qpresetmanager.h"
#include "managers/qprogramdirectory.h"
#include "managers/qstylesheetmanager.h"
#include "model/qproject.h"
#include "qclickablelabel.h"
#include "qpanelwidget.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QListView>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QSplitter>
#include <QStackedLayout>
#include <QStatusBar>
#include <QTabBar>
#include <QToolBar>
#include <QUndoGroup>
#include <QUndoStack>
#include <QVBoxLayout>

QInterface* intf = nullptr;

namespace {

QString programFile(const char* name)
{
    return programDirectory() + QLatin1Char('/') + QLatin1String(name);
}

bool configBool(const char* key)
{
    return (*configMan)[QLatin1String(key)].toBool();
}

} // namespace

QInterface::QInterface(QMainWindow* window, QDockWidget* actionDock, QListView* actionView)
    : QObject(window)
    , m_actions(new QActionManager(this))
    , m_actionList(new QActionList(m_actions, this))
    , m_actionDock(actionDock)
    , m_actionView(actionView)
    , m_window(window)
    , m_errorDlg(new ErrorDlg(window))
    , m_calculator(new Calculator(window))
    , m_clipDlg(new ClipDlg(window))
    , m_undoGroup(new QUndoGroup(this))
    , m_editorGroup(new QActionGroup(this))
    , m_extraGroup(new QActionGroup(this))
{
    intf = this;
    m_baseTitle = window->windowTitle();
    auto* central = window->centralWidget();
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    connect(m_actions, &QActionManager::shortcutActionAdded, window,
            [window](QAction* shortcut) { window->addAction(shortcut); });
    initStatus();
    initMenus();
    initToolBars(layout);
    initRunActions();
    initPanels();
    initWorkspace(layout);

    connect(m_editorGroup, &QActionGroup::triggered, this, &QInterface::editorSwitch);
    connect(m_errorIcon, &QClickableLabel::clicked, this, &QInterface::fileCheck);
    connect(m_errorDlg, &ErrorDlg::navigateTo, this, &QInterface::navigateTo);
    connect(m_clipDlg, &ClipDlg::execAction, this, &QInterface::execAction);
    m_actionView->setModel(m_actionList);
    m_actionView->setIconSize(QSize(16, 16));
    connect(m_actionView, &QListView::clicked, this, &QInterface::actionChanged);
    // The dock's own close button unchecks the View menu's entry, so the list stays
    // closed as the author switches editors, and F4 brings it back.
    connect(m_actionDock, &QDockWidget::visibilityChanged, this, [this]() {
        m_actions->fromName(QStringLiteral("view_actions"))->setChecked(!m_actionDock->isHidden());
    });
}

QInterface::~QInterface()
{
    saveConfig();
    releaseScripts();
    // The views let go of the projects' documents before these go.
    for (QInterfaceEditor* editor : std::as_const(m_editors))
        editor->setProject(nullptr);
    for (QInterfaceExtraEditor* extra : std::as_const(m_extraEditors))
        extra->setProject(nullptr);
    for (QInterfaceWorkspace* workspace : std::as_const(m_workspaces))
        workspace->setProject(nullptr);
    for (QProject* project : std::as_const(m_projects))
        delete project;
    m_projects.clear();
    m_project = nullptr;
    qDeleteAll(m_editors);
    qDeleteAll(m_extraEditors);
    qDeleteAll(m_workspaces);
    qDeleteAll(m_toolBarItems);
    delete m_mainTools;
    delete m_extraTools;
    delete historyMan;
    historyMan = nullptr;
    intf = nullptr;
}

QMenu* QInterface::menu(const char* name) const
{
    return m_window->findChild<QMenu*>(QLatin1String(name));
}

void QInterface::initStatus()
{
    QStatusBar* status = m_window->statusBar();
    m_statusText = new QLabel(status);
    m_projectLabel = new QClickableLabel(status);
    m_projectLabel->setObjectName(QStringLiteral("projectLabel"));
    m_errorIcon = new QClickableLabel(status);
    m_errorIcon->setObjectName(QStringLiteral("errorIcon"));
    m_errorIcon->setFixedSize(16, 16);
    m_errorIcon->setScaledContents(true);
    m_errorIcon->setCursor(Qt::PointingHandCursor);
    status->addWidget(m_statusText, 1);
    status->addPermanentWidget(m_projectLabel);
    status->addPermanentWidget(m_errorIcon);
}

void QInterface::initPanels()
{
    m_leftPanel = new QPanelWidget;
    m_leftPanel->setObjectName(QStringLiteral("leftPanel"));
    m_rightPanel = new QPanelWidget;
    m_rightPanel->setObjectName(QStringLiteral("rightPanel"));
    for (QPanelWidget* panel : {m_leftPanel, m_rightPanel})
        panel->setMinimumWidth(220);
}

void QInterface::initWorkspace(QVBoxLayout* layout)
{
    // A splitter, so the author decides how much room the panels take.
    auto* row = new QSplitter(Qt::Horizontal);
    row->setObjectName(QStringLiteral("panelSplitter"));
    row->setChildrenCollapsible(false);
    auto* workspaces = new QWidget;
    workspaces->setObjectName(QStringLiteral("workspaces"));
    m_workspaceStack = new QStackedLayout(workspaces);
    row->addWidget(m_leftPanel);
    row->addWidget(workspaces);
    row->addWidget(m_rightPanel);
    row->setStretchFactor(0, 0);
    row->setStretchFactor(1, 1);
    row->setStretchFactor(2, 0);
    row->setSizes({220, 800, 220});
    layout->addWidget(row, 1);
}

void QInterface::registerEditor(QInterfaceEditor* editor)
{
    editor->setParent(nullptr);
    m_editors.insert(editor->id(), editor);
    QAction* action = m_actions->add({QActionManager::global}, editor->iconName(), nullptr, true);
    action->setText(editor->title());
    action->setObjectName(QString::number(editor->id()));
    m_editorGroup->addAction(action);
    m_editorActions.insert(editor->id(), action);
    menu("menuView")->addAction(action);
    auto* items = new QToolBarItems;
    m_toolBarItems.insert(editor->name(), items);
    QWidget* page = m_leftPanel->addPage(editor->name());
    m_leftPages.insert(editor->name(), page);
    m_toolBarItems.value(QStringLiteral("main"))->addAction(action);
    // Ctrl+1 to Ctrl+6 bring the editors forward, in the order of their ids.
    m_actions->setShortcut(action, QKeySequence(QKeyCombination(Qt::CTRL, Qt::Key(Qt::Key_1 + editor->id()))));
    editor->initialized(items, page);
}

void QInterface::registerExtraEditor(QInterfaceExtraEditor* editor)
{
    editor->setParent(nullptr);
    const auto id = QInterfaceExtraEditors(editor->id());
    m_extraEditors.insert(id, editor);
    QWidget* page = m_rightPanel->addPage(editor->name());
    m_rightPages.insert(editor->name(), page);
    // The View menu chooses what the right panel shows ("view_organizer", "view_palettes"...);
    // Ctrl+Shift+F1, F2... in the order of their ids.
    QAction* action = m_actions->add({QActionManager::global}, QStringLiteral("view_") + editor->name(), nullptr, true);
    action->setText(editor->title());
    m_extraGroup->addAction(action);
    m_extraActions.insert(id, action);
    menu("menuView")->addAction(action);
    m_actions->setShortcut(action, QKeySequence(QKeyCombination(Qt::CTRL | Qt::SHIFT, Qt::Key(Qt::Key_F1 + editor->id()))));
    connect(action, &QAction::triggered, this, [this, id] {
        m_actions->fromName(QStringLiteral("view_right_panel"))->setChecked(true);
        switchExtraEditor(id);
    });
    editor->initialized(page);
}

void QInterface::registerWorkspace(QInterfaceWorkspace* workspace)
{
    workspace->setParent(nullptr);
    m_workspaces.insert(workspace->id(), workspace);
    m_workspaceStack->addWidget(workspace->widget());
    m_toolBarItems.insert(workspace->name(), new QToolBarItems);
}

void QInterface::run(bool master)
{
    loadConfig();
    const QList<QAction*> editors = m_editorGroup->actions();
    if (!editors.isEmpty()) {
        editors.first()->setChecked(true);
        m_currentEditor = ieNone;
    } else {
        switchEditor(ieNone);
    }
    newProject(false);
    applyConfig();
    initScripts();
    if (!m_extraEditors.isEmpty())
        switchExtraEditor(m_extraEditors.firstKey());
    if (master) {
        openPendingFiles();
        QFile handOver(handOverFileName());
        handOver.open(QIODevice::Append); // the watcher needs the file to exist
        m_watcher.addPath(handOverFileName());
        connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &QInterface::fileChanged);
    }
}

QString QInterface::handOverFileName()
{
    return QDir::tempPath() + QStringLiteral("/open.pf3");
}

void QInterface::applyConfig()
{
    langMan->setActive((*configMan)[QStringLiteral("language")].toString());
    const QPresetManager::Look& look = presetMan->apply(
        (*configMan)[QStringLiteral("preset")].toString(), (*configMan)[QStringLiteral("iconset")].toString(),
        (*configMan)[QStringLiteral("stylesheet")].toString(), (*configMan)[QStringLiteral("colorset")].toString());
    iconMan->apply(look.iconset, m_actions, true);
    if (!colorMan->load(look.colorset))
        colorMan->loadDefaults();
    const int dpi = m_window->screen() ? int(m_window->screen()->logicalDotsPerInch()) : 96;
    qApp->setStyleSheet(styleMan->sheet(look.stylesheet, dpi));
    const int icon = QPresetManager::scaleToDPI(look.iconSize.width(), dpi);
    m_mainBar->setIconSize(QSize(icon, icon));
    m_extraBar->setIconSize(QSize(icon * 3 / 4, icon * 3 / 4));
    m_mainTools->setItems(m_toolBarItems.value(QStringLiteral("main")));
    for (QInterfaceWorkspace* workspace : std::as_const(m_workspaces))
        workspace->reconfig();
    for (QInterfaceEditor* editor : std::as_const(m_editors))
        editor->reconfig();
    updateErrorStatus();
    updateCurrEd();
}

void QInterface::retranslate()
{
    m_actions->retranslate();
    for (QInterfaceEditor* editor : std::as_const(m_editors)) {
        m_editorActions.value(editor->id())->setText(editor->title());
        m_actions->trAction(m_editorActions.value(editor->id()));
        editor->retranslate();
    }
    menu("menuHistory")->setTitle(tr("Recent projects"));
    historyMan->update();
    m_mainBar->setWindowTitle(tr("Main tool bar"));
    m_extraBar->setWindowTitle(tr("Editor tool bar"));
    m_errorDlg->retranslate();
    updateEditorName();
    updateProjStatus();
    updateErrorStatus();
    m_actionList->setFilter(m_currentEditor);
}

void QInterface::loadConfig()
{
    m_actions->shortcutsFromFile(programFile("shortcuts.xml"));
    historyMan->load();
    historyMan->update();
    QConfigManager& config = *configMan;
    const int width = config[QStringLiteral("window_width")].toInt();
    const int height = config[QStringLiteral("window_height")].toInt();
    // The editors of sprites and animations need a table, a view and two
    // panels side by side: the window opens at least that wide, within the screen.
    const QSize screen = m_window->screen()->availableGeometry().size();
    if (width > 200 && height > 200)
        m_window->resize(qBound(qMin(1280, screen.width()), width, screen.width()),
                         qBound(qMin(760, screen.height()), height, screen.height()));
    m_window->restoreState(QByteArray::fromBase64(config[QStringLiteral("window_state")].toByteArray()));
    const bool showActions = config[QStringLiteral("show_action_list")].toBool();
    const struct { const char* action; bool on; } views[] = {
        {"view_left_panel", configBool("show_left_panel")},
        {"view_right_panel", configBool("show_right_panel")},
        {"view_actions", showActions},
    };
    for (const auto& view : views) {
        QAction* action = m_actions->fromName(QLatin1String(view.action));
        action->setChecked(view.on);
    }
    m_actionDock->setVisible(showActions);
}

void QInterface::saveConfig()
{
    m_actions->shortcutsToFile(programFile("shortcuts.xml"));
    historyMan->save();
    QConfigManager& config = *configMan;
    config[QStringLiteral("window_left")] = m_window->x();
    config[QStringLiteral("window_top")] = m_window->y();
    config[QStringLiteral("window_width")] = m_window->width();
    config[QStringLiteral("window_height")] = m_window->height();
    config[QStringLiteral("window_state")] = QString::fromLatin1(m_window->saveState().toBase64());
    config[QStringLiteral("show_left_panel")] = m_actions->fromName(QStringLiteral("view_left_panel"))->isChecked();
    config[QStringLiteral("show_right_panel")] = m_actions->fromName(QStringLiteral("view_right_panel"))->isChecked();
    config[QStringLiteral("show_action_list")] = m_actions->fromName(QStringLiteral("view_actions"))->isChecked();
}

void QInterface::toolsOptions()
{
    Options options(m_actions, m_window);
    if (options.exec() == QDialog::Accepted)
        applyConfig();
}

void QInterface::helpAbout()
{
    QMessageBox::about(m_window, tr("About Pugilforge"),
                       tr("<h3>Quorvantek Pugilforge %1</h3><p>An authoring environment for the files of the "
                          "M.U.G.E.N. fighting engine.</p><p>Icons: Adwaita icon theme by the GNOME Project "
                          "(CC-BY-SA 3.0 or LGPL 3), and the team's own drawings.</p>")
                           .arg(QStringLiteral(PF_VERSION)));
}

void QInterface::viewLeftPanel(bool)
{
    switchEditor(m_currentEditor);
}

void QInterface::viewRightPanel(bool)
{
    switchEditor(m_currentEditor);
}

void QInterface::viewActions(bool visible)
{
    m_actionDock->setVisible(visible);
}

void QInterface::viewCalculator()
{
    m_calculator->show();
    m_calculator->raise();
}

void QInterface::viewClipboard()
{
    m_clipDlg->show();
    m_clipDlg->raise();
}

void QInterface::execAction(const QString& action)
{
    if (action == QLatin1String("edit_cut"))
        editCut();
    else if (action == QLatin1String("edit_copy"))
        editCopy();
    else if (action == QLatin1String("edit_paste"))
        editPaste();
}

void QInterface::actionChanged(const QModelIndex& index)
{
    QAction* action = m_actionList->at(index.row());
    if (action && action->isEnabled())
        action->trigger();
}

void QInterface::editUndo()
{
    m_undoGroup->undo();
}

void QInterface::editRedo()
{
    m_undoGroup->redo();
}

void QInterface::forCurrentEditor(void (QInterfaceEditor::*call)())
{
    if (QInterfaceEditor* current = m_editors.value(m_currentEditor))
        (current->*call)();
}

void QInterface::editCut()
{
    forCurrentEditor(&QInterfaceEditor::cut);
}

void QInterface::editCopy()
{
    forCurrentEditor(&QInterfaceEditor::copy);
}

void QInterface::editPaste()
{
    forCurrentEditor(&QInterfaceEditor::paste);
}

void QInterface::editorNew()
{
    forCurrentEditor(&QInterfaceEditor::clear);
}

void QInterface::editorOpen()
{
    forCurrentEditor(&QInterfaceEditor::open);
}

void QInterface::editorSave()
{
    forCurrentEditor(&QInterfaceEditor::save);
}

void QInterface::editorSaveAs()
{
    forCurrentEditor(&QInterfaceEditor::saveAs);
}

void QInterface::editorUndoStackChanged(QUndoStack* stack)
{
    if (stack && !m_undoGroup->stacks().contains(stack))
        m_undoGroup->addStack(stack);
    m_undoGroup->setActiveStack(stack);
}
