// The real main window, driven as an author drives it: open projects in tabs,
// switch editors, type into the files, change shortcuts, use the history.
// One window serves the whole run (the text registries live once per
// process); each test starts from a single pristine tab. The window runs on a
// program folder of its own, linked to the build's data, so nothing here
// touches the settings beside the real executable.
#include "app/mainwindow.h"
#include "interface/dialogs/clipdlg.h"
#include "interface/dialogs/errordlg.h"
#include "interface/editors/qtextdocumenteditor.h"
#include "interface/qclickablelabel.h"
#include "interface/qinterface.h"
#include "interface/qpanelwidget.h"
#include "interface/workspaces/qtextview.h"
#include "managers/gui/qhistorymanager.h"
#include "managers/qactionmanager.h"
#include "managers/qcolorsetmanager.h"
#include "managers/qconfigmanager.h"
#include "managers/qiconmanager.h"
#include "managers/qlanguagemanager.h"
#include "managers/qpresetmanager.h"
#include "managers/qprogramdirectory.h"
#include "managers/qstylesheetmanager.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "model/qsprites.h"
#include "qrecordingprompt.h"
#include "realdata.h"
#include "windowmanagers.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QListView>
#include <QListWidget>
#include <QMenu>
#include <QTabBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QToolBar>
#include <QToolButton>
#include <QUndoGroup>
#include <QtTest>

namespace {

QString sample()
{
    return qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/samples/ember/ember.def");
}

QMainWindow* theWindow = nullptr;

/// The text view in front: the animations editor has a text pane of its own.
QTextView* textView()
{
    const auto views = theWindow->findChildren<QTextView*>();
    for (QTextView* view : views)
        if (view->isVisible())
            return view;
    return views.value(0);
}

/// Types the text as keys, Return at each line feed.
void typeText(QWidget* widget, const QString& text)
{
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        if (i > 0)
            QTest::keyClick(widget, Qt::Key_Return);
        QTest::keyClicks(widget, lines.at(i));
    }
}

/// Clicks the tool button that shows the action, as the author would.
void clickToolButton(QMainWindow* window, QAction* action)
{
    for (QToolButton* button : window->findChildren<QToolButton*>()) {
        if (button->defaultAction() == action && button->isVisible()) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QFAIL(qPrintable(QStringLiteral("no visible tool button for %1").arg(action->objectName())));
}

} // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_programDir;
    QRecordingPrompt* m_prompt = nullptr;
    MainWindow* m_window = nullptr;

    QAction* action(const char* name) const { return intf->actions()->fromName(QLatin1String(name)); }

    /// Back to one pristine tab, discarding whatever a test left.
    void resetProjects()
    {
        m_prompt->script(QList<QPrompt::Button>(32, QPrompt::Yes));
        intf->fileCloseAll();
        m_prompt->script({});
        m_prompt->clear();
        QCOMPARE(intf->projectCount(), 1);
        QVERIFY(intf->project(0)->isEmpty());
    }

    QString copyOfSample(const QString& folder)
    {
        QDir().mkpath(folder);
        const QDir source = QFileInfo(sample()).absoluteDir();
        for (const QString& name : source.entryList(QDir::Files))
            QFile::copy(source.filePath(name), folder + QLatin1Char('/') + name);
        return folder + QStringLiteral("/ember.def");
    }

private slots:
    void initTestCase()
    {
        QVERIFY(windowManagers::create(m_programDir.path()));
        qRegisterMetaType<QProject*>();
        // Broken files of an earlier run: the window starts with defaults and says so.
        const QByteArray broken = "<shortcuts><shortcut action=\"file_open\" keys=\"Ctrl+K\"/><shortcut";
        QFile shortcuts(m_programDir.filePath(QStringLiteral("shortcuts.xml")));
        QVERIFY(shortcuts.open(QIODevice::WriteOnly) && shortcuts.write(broken) > 0);
        shortcuts.close();
        QFile history(m_programDir.filePath(QStringLiteral("history.xml")));
        QVERIFY(history.open(QIODevice::WriteOnly) && history.write("<history><entry file=") > 0);
        history.close();
        (*configMan)[QStringLiteral("preset")] = QStringLiteral("No such preset");
        m_prompt = new QRecordingPrompt;
        m_window = new MainWindow;
        QCOMPARE(m_prompt->count(QStringLiteral("critical")), 2);
        for (const QRecordingPrompt::Entry& entry : m_prompt->entries())
            QCOMPARE(entry.title, QStringLiteral("XML Error"));
        QVERIFY(historyMan->files().isEmpty());
        QCOMPARE(intf->actions()->shortcut(action("file_open")), QKeySequence(QStringLiteral("Ctrl+K")));
        intf->actions()->setShortcut(action("file_open"), QKeySequence::Open);
        QCOMPARE(presetMan->current().preset, QStringLiteral("Classic"));
        theWindow = m_window;
        m_window->show();
        QApplication::setActiveWindow(m_window);
        QVERIFY(QTest::qWaitForWindowExposed(m_window));
    }

    void cleanupTestCase()
    {
        delete m_window;
        delete m_prompt;
        windowManagers::destroy();
        // The window wrote its files into its own folder as it closed.
        QVERIFY(QFile::exists(m_programDir.filePath(QStringLiteral("config.xml"))));
        QVERIFY(QFile::exists(m_programDir.filePath(QStringLiteral("history.xml"))));
    }

    void init() { resetProjects(); }

    void everyToolButtonHasAnIcon()
    {
        // Each editor builds its page as it first comes forward: every one is shown once, on a
        // project that has them all. A bar that shows words only (the playback, the boxes) needs none.
        QVERIFY(intf->openProject(sample()));
        int checked = 0;
        for (const QInterfaceEditors editor : { ieDefinitions, ieSprites, ieAnimations, ieCommands, ieStates, ieSounds }) {
            intf->switchEditor(editor);
            for (const QToolBar* bar : m_window->findChildren<QToolBar*>()) {
                for (QAction* each : bar->actions()) {
                    const auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(each));
                    if (!button || each->isSeparator() || each->text().isEmpty()
                        || button->toolButtonStyle() == Qt::ToolButtonTextOnly)
                        continue;
                    ++checked;
                    QVERIFY2(!each->icon().isNull(),
                             qPrintable(QStringLiteral("%1 on %2 (%3)").arg(each->objectName(), bar->objectName(), each->text())));
                }
            }
        }
        QVERIFY2(checked >= 60, qPrintable(QString::number(checked)));
        // The default icon set covers every action the window has.
        for (int i = 0; i < intf->actions()->count(); ++i) {
            const QAction* each = intf->actions()->at(i);
            QVERIFY2(!each->icon().isNull(), qPrintable(intf->actions()->name(each)));
        }
        intf->switchEditor(ieDefinitions);
        QCOMPARE(intf->leftPanel()->title(), QStringLiteral("Definitions"));
    }

    void openSampleAndRealCharacterInTabs()
    {
        QCOMPARE(intf->tabs()->tabText(0).startsWith(QStringLiteral("Project ")), true);
        QVERIFY(intf->openProject(sample()));
        // The pristine start-up tab gave way to the first real project.
        QCOMPARE(intf->projectCount(), 1);
        QCOMPARE(intf->tabs()->tabText(0), QStringLiteral("Ember"));
        QVERIFY(m_window->windowTitle().startsWith(QStringLiteral("Ember - ")));
        QProject* ember = intf->currentProject();
        QCOMPARE(textView()->document(), ember->definitions()->document());

        PF_REQUIRE_REALDATA();
        const QString kfm = realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.def");
        QVERIFY(intf->openProject(kfm));
        QCOMPARE(intf->projectCount(), 2);
        QProject* second = intf->currentProject();
        QVERIFY(second != ember);
        QVERIFY(second->sprites()->count() > 100);
        QCOMPARE(textView()->document(), second->definitions()->document());

        intf->switchEditor(ieSprites);
        auto* list = m_window->findChild<QTableView*>(QStringLiteral("spritesList"));
        QVERIFY(list && list->isVisible());
        QCOMPARE(list->model()->rowCount(), second->sprites()->count());

        // Back to the first tab: the views follow the project.
        intf->tabs()->setCurrentIndex(0);
        QCOMPARE(intf->currentProject(), ember);
        QCOMPARE(list->model()->rowCount(), ember->sprites()->count());
        intf->switchEditor(ieDefinitions);
        QCOMPARE(textView()->document(), ember->definitions()->document());
    }

    void editorsFollowTheProjectType()
    {
        QVERIFY(intf->openProject(copyOfSample(m_programDir.filePath(QStringLiteral("stage")))));
        clickToolButton(m_window, intf->editorAction(ieStates));
        QCOMPARE(intf->currentEditor(), ieStates);
        QCOMPARE(textView()->document(), intf->currentProject()->states(0)->document());
        QVERIFY(intf->leftPanel()->isVisible());
        for (QInterfaceEditors id : {ieCommands, ieStates, ieSounds, ieAnimations})
            QVERIFY(intf->editorAction(id)->isVisible());

        // The author rewrites the DEF into a stage.
        clickToolButton(m_window, intf->editorAction(ieDefinitions));
        QTextView* view = textView();
        view->setFocus();
        view->selectAll();
        QSignalSpy typeChanged(intf->currentProject()->definitions(), &QDefinitions::typeChanged);
        typeText(view, QStringLiteral("[Info]\nname = \"Arena\"\n\n[Camera]\nstartx = 0\n\n[BGdef]\nspr = arena.sff\n"));
        QVERIFY(typeChanged.wait(3000));
        QCOMPARE(intf->currentProject()->type(), ptStage);
        for (QInterfaceEditors id : {ieCommands, ieStates, ieSounds})
            QVERIFY(!intf->editorAction(id)->isVisible());
        QVERIFY(intf->editorAction(ieAnimations)->isVisible());
        QVERIFY(intf->projectLabel()->text().contains(QProject::typeLabel(ptStage)));
        QCOMPARE(intf->tabs()->tabText(intf->currentIndex()), QStringLiteral("Arena"));

        // A hidden editor can't be reached by navigation either.
        intf->navigateTo(pftStates, 0, 0, 3);
        QCOMPARE(intf->currentEditor(), ieDefinitions);
    }

    void hiddenEditorGivesWayToTheFirstLeft()
    {
        QVERIFY(intf->openProject(copyOfSample(m_programDir.filePath(QStringLiteral("gives-way")))));
        intf->switchEditor(ieSounds);
        QDefinitions* definitions = intf->currentProject()->definitions();
        QSignalSpy typeChanged(definitions, &QDefinitions::typeChanged);
        definitions->document()->setPlainText(QStringLiteral("[Info]\nname = \"Arena\"\n[BGdef]\n"));
        QVERIFY(typeChanged.wait(3000));
        QCOMPARE(intf->currentEditor(), ieDefinitions);
        QVERIFY(intf->editorAction(ieDefinitions)->isChecked());
    }

    void tabsCountAndTheLastEmptyTabStays()
    {
        QProject* pristine = intf->project(0);
        intf->fileClose();
        QCOMPARE(intf->projectCount(), 1);
        QCOMPARE(intf->project(0), pristine);

        const int before = intf->tabs()->tabText(0).section(QLatin1Char(' '), 1).toInt();
        action("file_new")->trigger();
        QCOMPARE(intf->projectCount(), 2);
        QCOMPARE(intf->tabs()->tabText(1), QStringLiteral("Project %1").arg(before + 1));
        intf->fileClose();
        action("file_new")->trigger();
        // The closed number is not handed out again.
        QCOMPARE(intf->tabs()->tabText(1), QStringLiteral("Project %1").arg(before + 2));

        // A modified project is kept until the author agrees to discard it.
        intf->currentProject()->definitions()->document()->setPlainText(QStringLiteral("[Info]\nname = \"Work\"\n"));
        m_prompt->script({QPrompt::No});
        intf->fileClose();
        QCOMPARE(intf->projectCount(), 2);
        QCOMPARE(m_prompt->count(QStringLiteral("question")), 1);
    }

    void shortcutsAreScopedByEditor()
    {
        QActionManager* actions = intf->actions();
        int spritesHits = 0;
        int statesHits = 0;
        QAction* inSprites = actions->add({ieSprites}, QStringLiteral("test_sprites_tool"), "Sprites tool");
        QAction* inStates = actions->add({ieStates}, QStringLiteral("test_states_tool"), "States tool");
        QAction* alsoStates = actions->add({ieStates}, QStringLiteral("test_states_other"), "Other states tool");
        connect(inSprites, &QAction::triggered, this, [&spritesHits]() { ++spritesHits; });
        connect(inStates, &QAction::triggered, this, [&statesHits]() { ++statesHits; });
        const QKeySequence keys(Qt::CTRL | Qt::ALT | Qt::Key_J);

        QVERIFY(actions->setShortcut(inSprites, keys));
        QVERIFY(actions->setShortcut(inStates, keys)); // another editor: accepted
        QVERIFY(!actions->setShortcut(alsoStates, keys)); // the same editor: refused
        QCOMPARE(m_prompt->entries().last().title, QStringLiteral("Conflict!"));
        QVERIFY(!actions->setShortcut(action("file_open"), keys)); // global meets every editor
        QCOMPARE(actions->shortcut(action("file_open")), QKeySequence(QKeySequence::Open));

        // The keys reach the action of the editor in front.
        QVERIFY(intf->openProject(sample()));
        QApplication::setActiveWindow(m_window);
        intf->switchEditor(ieStates);
        QTest::keyClick(m_window, Qt::Key_J, Qt::ControlModifier | Qt::AltModifier);
        intf->switchEditor(ieSprites);
        QTest::keyClick(m_window, Qt::Key_J, Qt::ControlModifier | Qt::AltModifier);
        QCOMPARE(statesHits, 1);
        QCOMPARE(spritesHits, 1);
        QVERIFY(actions->shortcutsToFile(m_programDir.filePath(QStringLiteral("shortcuts.xml"))));
        QVERIFY(actions->setShortcut(inStates, QKeySequence()));
        QVERIFY(actions->setShortcut(inSprites, QKeySequence()));
        QVERIFY(actions->shortcutsFromFile(m_programDir.filePath(QStringLiteral("shortcuts.xml"))));
        QCOMPARE(actions->shortcut(inStates), keys);
        QVERIFY(inStates->toolTip().contains(keys.toString(QKeySequence::NativeText)));
        actions->setShortcut(inStates, QKeySequence());
        actions->setShortcut(inSprites, QKeySequence());
        inSprites->setVisible(false);
        inStates->setVisible(false);
    }

    void pageKeysMeetNoWindowKeys()
    {
        // An editor page's own keys work while the focus is inside the page, the manager's keys
        // in the whole window: where both claim a key, Qt calls it ambiguous and neither fires.
        // Each editor makes its page as it first comes forward.
        QVERIFY(intf->openProject(sample()));
        for (const QInterfaceEditors editor : { ieDefinitions, ieSprites, ieAnimations, ieCommands, ieStates, ieSounds })
            intf->switchEditor(editor);
        QMap<QKeySequence, QString> windowKeys;
        for (QAction* carrier : intf->actions()->shortcutActions())
            windowKeys.insert(carrier->shortcut(), carrier->shortcut().toString());
        QMap<QPair<QObject*, QKeySequence>, QString> pageKeys;
        for (QAction* each : m_window->findChildren<QAction*>()) {
            if (each->shortcut().isEmpty() || each->shortcutContext() != Qt::WidgetWithChildrenShortcut)
                continue;
            QVERIFY2(!windowKeys.contains(each->shortcut()),
                     qPrintable(each->objectName() + QStringLiteral(" takes the window's ") + each->shortcut().toString()));
            for (QObject* page : each->associatedObjects()) {
                const QString other = pageKeys.value({page, each->shortcut()});
                QVERIFY2(other.isEmpty(), qPrintable(each->objectName() + QStringLiteral(" and ") + other));
                pageKeys.insert({page, each->shortcut()}, each->objectName());
            }
        }
        QVERIFY(pageKeys.size() > 10);
    }

    void historyOffersToForgetDeletedFiles()
    {
        const QString file = copyOfSample(m_programDir.filePath(QStringLiteral("history")));
        QVERIFY(intf->openProject(file));
        QCOMPARE(historyMan->files().first(), QFileInfo(file).absoluteFilePath());
        QCOMPARE(historyMan->names().first(), QStringLiteral("Ember"));
        resetProjects();
        QVERIFY(QDir(QFileInfo(file).absolutePath()).removeRecursively());

        auto* menu = m_window->findChild<QMenu*>(QStringLiteral("menuHistory"));
        QAction* entry = menu->actions().first();
        QCOMPARE(entry->data().toString(), QFileInfo(file).absoluteFilePath());
        m_prompt->script({QPrompt::No});
        entry->trigger();
        QCOMPARE(m_prompt->entries().last().title, QStringLiteral("File not found!"));
        QVERIFY(historyMan->files().contains(QFileInfo(file).absoluteFilePath()));
        m_prompt->script({QPrompt::Yes});
        menu->actions().first()->trigger();
        QVERIFY(!historyMan->files().contains(QFileInfo(file).absoluteFilePath()));
        QCOMPARE(intf->projectCount(), 1); // nothing was opened
    }

    void errorIconFollowsATypedFault()
    {
        QVERIFY(intf->openProject(sample()));
        QProject* ember = intf->currentProject();
        QCOMPARE(ember->messages()->errors(), 0);
        QCOMPARE(intf->errorIcon()->property("errors").toInt(), 0);
        QCOMPARE(intf->errorIcon()->toolTip(), QStringLiteral("No issues found!"));

        intf->switchEditor(ieStates);
        QTextView* view = textView();
        view->setFocus();
        view->moveCursor(QTextCursor::End);
        QSignalSpy updated(ember->messages(), &QMessageList::updated);
        typeText(view, QStringLiteral("\n[Statedef 9999]\ntype = S\n\n[State 9999, 1]\ntype = NoSuchThing\ntrigger1 = 1\n"));
        QTRY_COMPARE_WITH_TIMEOUT(intf->errorIcon()->property("errors").toInt(), 1, 3000);
        QCOMPARE(intf->errorIcon()->toolTip(), QStringLiteral("1 error(s) found!"));
        QVERIFY(intf->leftPanel()->title().endsWith(QLatin1Char('*')));

        // The error list shows it and takes the author to its line.
        intf->fileCheck();
        ErrorDlg* errors = intf->errorDialog();
        QVERIFY(errors->isVisible());
        QCOMPARE(errors->view()->model()->rowCount(), 1);
        intf->switchEditor(ieDefinitions);
        errors->view()->setCurrentIndex(errors->view()->model()->index(0, 0));
        QTest::keyClick(errors->view(), Qt::Key_Return);
        QCOMPARE(intf->currentEditor(), ieStates);
        QVERIFY(textView()->textCursor().block().text().contains(QStringLiteral("NoSuchThing")));
        errors->hide();

        // Undo through the window's undo group takes the fault away again.
        QVERIFY(intf->undoGroup()->canUndo());
        while (intf->undoGroup()->canUndo())
            action("edit_undo")->trigger();
        QTRY_COMPARE_WITH_TIMEOUT(intf->errorIcon()->property("errors").toInt(), 0, 3000);
        QVERIFY(!ember->states(0)->isModified());
    }

    void clipboardPastesAnEarlierCopy()
    {
        QVERIFY(intf->openProject(copyOfSample(m_programDir.filePath(QStringLiteral("clips")))));
        intf->switchEditor(ieStates);
        QTextView* view = textView();
        QTextCursor cursor(view->document()->findBlockByNumber(0));
        cursor.select(QTextCursor::LineUnderCursor);
        view->setTextCursor(cursor);
        const QString firstLine = cursor.selectedText();
        action("edit_copy")->trigger();
        do // the next line with other text
            cursor.movePosition(QTextCursor::NextBlock);
        while (cursor.block().text().trimmed().isEmpty() || cursor.block().text() == firstLine);
        cursor.select(QTextCursor::LineUnderCursor);
        view->setTextCursor(cursor);
        action("edit_copy")->trigger();

        action("view_clipboard")->trigger();
        ClipDlg* clips = intf->clipboardDialog();
        QVERIFY(clips->isVisible());
        QCOMPARE(clips->list()->count(), 2);
        view->moveCursor(QTextCursor::End);
        clips->list()->setCurrentRow(1); // the older copy
        clips->pasteCurrent();
        QVERIFY(view->document()->lastBlock().text().endsWith(firstLine));
        clips->hide();
    }

    void closingAsksAboutUnsavedWork()
    {
        QVERIFY(intf->openProject(copyOfSample(m_programDir.filePath(QStringLiteral("closing")))));
        intf->currentProject()->definitions()->document()->setPlainText(QStringLiteral("[Info]\nname = \"Changed\"\n"));
        m_prompt->script({QPrompt::No});
        QVERIFY(!m_window->close()); // the author keeps the work, and the window
        QVERIFY(m_window->isVisible());
        QCOMPARE(intf->projectCount(), 1);
        QVERIFY(!intf->project(0)->isEmpty());
    }

    void languageAndLookApply()
    {
        QVERIFY(langMan->find(QStringLiteral("de-de")) >= 0);
        (*configMan)[QStringLiteral("language")] = QStringLiteral("de-de");
        intf->applyConfig();
        QCOMPARE(m_window->findChild<QMenu*>(QStringLiteral("menuFile"))->title(), QStringLiteral("Projekt"));
        QCOMPARE(action("file_open")->text(), QStringLiteral("Projekt ö&ffnen..."));
        (*configMan)[QStringLiteral("language")] = QStringLiteral("en-us");
        intf->applyConfig();
        QCOMPARE(m_window->findChild<QMenu*>(QStringLiteral("menuFile"))->title(), QStringLiteral("Project"));
        QVERIFY(!qApp->styleSheet().isEmpty());
        QVERIFY(!qApp->styleSheet().contains(QStringLiteral("[2]")));
    }

    void defaultLayoutKeepsEveryCommandInView()
    {
        // A little narrower than a new installation opens on a 1280x800 screen, no editor asks the window
        // to be wider than the screen, and no command of an editor's bars goes behind an extension arrow.
        QVERIFY(intf->openProject(sample()));
        m_window->resize(1240, 760);
        for (const QInterfaceEditors editor : { ieDefinitions, ieSprites, ieAnimations, ieCommands, ieStates, ieSounds }) {
            intf->switchEditor(editor);
            QTest::qWait(50); // the bars lay out their buttons
            QVERIFY2(m_window->minimumSizeHint().width() <= 1280,
                     qPrintable(QStringLiteral("editor %1: %2").arg(editor).arg(m_window->minimumSizeHint().width())));
            QCOMPARE(m_window->width(), 1240);
            for (const QToolBar* bar : m_window->findChildren<QToolBar*>()) {
                if (!bar->isVisible())
                    continue;
                for (QAction* each : bar->actions()) {
                    const QWidget* button = bar->widgetForAction(each);
                    if (button && each->isVisible() && !each->isSeparator())
                        QVERIFY2(button->isVisible(), qPrintable(each->objectName() + QStringLiteral(" hidden on ") + bar->objectName()));
                }
            }
        }
        // Where there is room, the daily commands keep their names beside the icons.
        intf->switchEditor(ieAnimations);
        auto* bar = m_window->findChild<QToolBar*>(QStringLiteral("animationsToolBar"));
        QVERIFY(bar);
        auto named = [bar](const char* name) {
            const auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(bar->findChild<QAction*>(QLatin1String(name))));
            return button && button->toolButtonStyle() == Qt::ToolButtonTextBesideIcon;
        };
        QVERIFY(named("anim_new"));
        const bool sortNamed = named("anim_sort");
        // In a narrow window they give way to their icons, from the last on, rather than hide a command.
        m_window->resize(900, 760);
        QTest::qWait(50);
        for (QAction* each : bar->actions())
            if (!each->isSeparator())
                QVERIFY2(bar->widgetForAction(each)->isVisible(), qPrintable(each->objectName()));
        QVERIFY(!named("anim_sort"));
        m_window->resize(1240, 760);
        QTest::qWait(50);
        QCOMPARE(named("anim_sort"), sortNamed);
        QVERIFY(named("anim_new"));
    }

    void actionListOpensOnF4()
    {
        // A new installation starts from the shipped settings, where the list is closed.
        QVERIFY(configMan->fromFile(qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/data/config.xml")));
        (*configMan)[QStringLiteral("confirm_close")] = false;
        intf->loadConfig();
        auto* dock = m_window->findChild<QDockWidget*>(QStringLiteral("actions"));
        QVERIFY(dock);
        QVERIFY(intf->openProject(sample()));
        intf->switchEditor(ieAnimations);
        QVERIFY(!dock->isVisible());
        QVERIFY(!action("view_actions")->isChecked());

        QApplication::setActiveWindow(m_window);
        QTest::keyClick(m_window, Qt::Key_F4);
        QVERIFY(dock->isVisible());
        QVERIFY(action("view_actions")->isChecked());
        QTest::keyClick(m_window, Qt::Key_F4);
        QVERIFY(!dock->isVisible());

        // Closed by its own button, it stays closed as the editors change.
        action("view_actions")->trigger();
        QVERIFY(dock->isVisible());
        QVERIFY(dock->close());
        QVERIFY(!action("view_actions")->isChecked());
        intf->switchEditor(ieSprites);
        QVERIFY(!dock->isVisible());
        intf->saveConfig();
        QCOMPARE((*configMan)[QStringLiteral("show_action_list")].toBool(), false);
    }
};

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
