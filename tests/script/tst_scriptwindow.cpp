// Scripts in the real window: the Tools menu's script entries, a new project
// from a template, and the script editor running a script with its outputs.
#include "app/mainwindow.h"
#include "interface/qinterface.h"
#include "managers/qactionmanager.h"
#include "model/qanimations.h"
#include "model/qproject.h"
#include "model/qsprites.h"
#include "mainwindowsession.h"
#include "screenshots.h"
#include "script/gui/projdlg.h"
#include "script/gui/scripted.h"
#include "script/qluaheaders.h"
#include "script/qscript.h"
#include "script/qscriptmanager.h"
#include "util/qmessages.h"
#include "windowmanagers.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScopeGuard>
#include <QScreen>
#include <QSpinBox>
#include <QStringListModel>
#include <QTemporaryDir>
#include <QTimer>
#include <QXmlStreamReader>
#include <QtTest>

namespace {

// Types a whole path into a file dialog's name field, as an author may.
void typeFileName(QDialog* dialog, const QString& path)
{
    if (auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
        name->setText(path);
}

QAction* actionNamed(QInterface* intf, const char* name)
{
    return intf->actions()->fromName(QLatin1String(name));
}

} // namespace

class TestScriptWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_program.isValid());
        // The file dialogs the tests answer are Qt's own widgets, whatever the desktop offers.
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QVERIFY(windowManagers::create(m_program.path()));
        scriptMan = new QScriptManager(nullptr, qEnvironmentVariable("PF_BIN_DIR"));
        m_window = new MainWindow;
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window));
    }

    void cleanupTestCase()
    {
        delete m_window;
        delete scriptMan;
        windowManagers::destroy();
    }

    void toolsMenuListsTheToolScripts()
    {
        auto* tools = m_window->findChild<QMenu*>(QStringLiteral("menuTools"));
        QVERIFY(tools);
        QStringList scripts;
        for (QAction* entry : tools->actions()) {
            if (entry->menu()) {
                for (QAction* inner : entry->menu()->actions()) {
                    scripts << inner->data().toString();
                    QVERIFY(!inner->icon().isNull());
                }
            }
        }
        QVERIFY2(scripts.contains(QStringLiteral("tool/Sprites/Rename group")), qPrintable(scripts.join(u',')));
        QVERIFY(scripts.size() >= 5);
        QAction* editor = actionNamed(intf, "tools_script_editor");
        QVERIFY(editor && !editor->icon().isNull());
    }

    void newProjectFromTheCharacterTemplate()
    {
        const int before = intf->projectCount();
        QString title;
        session::answerNextDialog(&title, [](QDialog* dialog) {
            auto* list = dialog->findChild<QListWidget*>();
            const QList<QListWidgetItem*> found = list->findItems(QStringLiteral("Character"), Qt::MatchExactly);
            if (!found.isEmpty())
                list->setCurrentItem(found.first());
        });
        actionNamed(intf, "file_new")->trigger();
        QCOMPARE(title, QStringLiteral("Project template"));
        QCOMPARE(intf->projectCount(), before + 1);
        QProject* made = intf->currentProject();
        QCOMPARE(made->type(), ptCharacter);
        QVERIFY(made->sprites()->count() >= 20);
        QVERIFY(made->animations()->find(0, 200) >= 0);
    }

    void scriptEditorRunsAScriptWithItsOutputs()
    {
        actionNamed(intf, "tools_script_editor")->trigger();
        auto* editor = m_window->findChild<ScriptEd*>();
        QVERIFY(editor);
        QVERIFY(QTest::qWaitForWindowExposed(editor));
        QCOMPARE(editor->windowTitle(), QStringLiteral("Script Editor"));

        auto* category = editor->findChild<QComboBox*>();
        category->setCurrentIndex(2); // Code snippet
        editor->editor()->setPlainText(QStringLiteral(
            "-- A snippet that counts the open project's sprites.\n"
            "local p = project()\n"
            "print('sprites in the project: ' .. p.sprites.count)\n"
            "debugOutput('actions: ' .. p.animations.count)\n"
            "function codeSnippet()\n"
            "    return '[State 200, Sound]\\ntype = PlaySnd\\ntrigger1 = Time = 0\\nvalue = 0, 0'\n"
            "end\n"));
        QTest::keyClick(editor->editor(), Qt::Key_F5);
        const QString debug = editor->debugDocument()->toPlainText();
        QVERIFY2(debug.contains(QStringLiteral("actions: ")), qPrintable(debug));
        QVERIFY(debug.contains(QStringLiteral("type = PlaySnd")));
        const QMessages& messages = QScriptManager::scriptMsgs();
        QCOMPARE(messages.count(), 1);
        QVERIFY(messages.at(0).text.startsWith(QStringLiteral("sprites in the project: ")));
        QVERIFY(screenshots::save(editor->grab(), QStringLiteral("script-editor.png")));

        // A faulty script shows the error box and the editor goes on.
        QString title;
        session::answerNextDialog(&title);
        editor->editor()->setPlainText(QStringLiteral("local s = project().sprites:at(100000)"));
        QTest::keyClick(editor->editor(), Qt::Key_F5);
        QCOMPARE(title, QStringLiteral("Script error"));
        editor->close();
    }

    void scriptEditorExportsStringsForTranslation()
    {
        actionNamed(intf, "tools_script_editor")->trigger();
        auto* editor = m_window->findChild<ScriptEd*>();
        QVERIFY(editor);
        auto* save = editor->findChild<QAction*>(QStringLiteral("script_translate"));
        QVERIFY(save);

        // A script never saved has no name to give its strings.
        QString title;
        editor->sNew();
        session::answerNextDialog(&title);
        save->trigger();
        QCOMPARE(title, QStringLiteral("Error!"));

        // A shipped tool: its name, then each translate("...") in order, all under its relative name.
        auto* category = editor->findChild<QComboBox*>();
        category->setCurrentIndex(3);
        auto* list = editor->findChild<QListView*>(QStringLiteral("scriptList"));
        const QModelIndexList rows = list->model()->match(list->model()->index(0, 0), Qt::DisplayRole,
                                                          QStringLiteral("Sprites/Rename group"), 1, Qt::MatchExactly);
        QCOMPARE(rows.size(), 1);
        list->setCurrentIndex(rows.first());
        QVERIFY(editor->editor()->toPlainText().contains(QStringLiteral("translate(")));
        const QString target = m_program.filePath(QStringLiteral("rename.ts"));
        session::answerNextDialog(&title, [target](QDialog* dialog) { typeFileName(dialog, target); });
        save->trigger();
        QCOMPARE(title, QStringLiteral("Save for translation"));
        const QStringList sources = tsMessages(target, QStringLiteral("tool/Sprites/Rename group"));
        QCOMPARE(sources, (QStringList{QStringLiteral("Rename group"), QStringLiteral("Rename group"), QStringLiteral("Group"),
                                       QStringLiteral("Rename group"), QStringLiteral("New group"), QStringLiteral("Rename group"),
                                       QStringLiteral("No sprite in group %d.")}));

        // One without translate() calls has only its name.
        category->setCurrentIndex(0);
        list->setCurrentIndex(list->model()->match(list->model()->index(0, 0), Qt::DisplayRole, QStringLiteral("Throw")).first());
        const QString throwTarget = m_program.filePath(QStringLiteral("throw.ts"));
        session::answerNextDialog(&title, [throwTarget](QDialog* dialog) { typeFileName(dialog, throwTarget); });
        save->trigger();
        QCOMPARE(tsMessages(throwTarget, QStringLiteral("common/Throw")), QStringList{QStringLiteral("Throw")});
        editor->close();
    }

    void scriptEditorRunsAToolWithItsOwnDialog()
    {
        actionNamed(intf, "tools_script_editor")->trigger();
        auto* editor = m_window->findChild<ScriptEd*>();
        QVERIFY(editor);
        QVERIFY(QTest::qWaitForWindowExposed(editor));
        editor->findChild<QComboBox*>()->setCurrentIndex(3); // the tools
        // The script list, not the message output beside it.
        QListView* list = nullptr;
        for (QListView* view : editor->findChildren<QListView*>()) {
            if (qobject_cast<QStringListModel*>(view->model()))
                list = view;
        }
        QVERIFY(list);
        const QModelIndexList found = list->model()->match(list->model()->index(0, 0), Qt::DisplayRole,
                                                           QStringLiteral("Sprites/Renumber group"), 1, Qt::MatchExactly);
        QStringList listed;
        for (int row = 0; row < list->model()->rowCount(); ++row)
            listed << list->model()->index(row, 0).data().toString();
        QVERIFY2(found.size() == 1, qPrintable(listed.join(u',')));
        list->setCurrentIndex(found.first());
        QVERIFY(editor->editor()->toPlainText().contains(QStringLiteral("Dialog{")));

        QString title;
        QString summary;
        QTimer::singleShot(50, this, [&title, &summary] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            const auto cancel = qScopeGuard([dialog] { dialog->reject(); });
            title = dialog->windowTitle();
            QVERIFY(QTest::qWaitForWindowExposed(dialog));
            dialog->findChildren<QSpinBox*>().at(2)->setValue(100);
            for (QLabel* label : dialog->findChildren<QLabel*>()) {
                if (label->wordWrap())
                    summary = label->text();
            }
            QTest::qWait(200);
            QVERIFY(screenshots::save(dialog->grab(), QStringLiteral("script-dialog.png")));
            const QPixmap screen = QGuiApplication::primaryScreen()->grabWindow(0);
            if (!screen.isNull())
                QVERIFY(screenshots::save(screen, QStringLiteral("script-dialog-screen.png")));
        });
        QTest::keyClick(editor->editor(), Qt::Key_F5);
        QCOMPARE(title, QStringLiteral("Renumber sprite group"));
        QVERIFY2(summary.contains(QStringLiteral("become")) || summary.contains(QStringLiteral("has no sprite")),
                 qPrintable(summary));
        for (int i = 0; i < QScriptManager::scriptMsgs().count(); ++i)
            QVERIFY2(QScriptManager::scriptMsgs().at(i).type != mtError, qPrintable(QScriptManager::scriptMsgs().at(i).text));
        editor->close();
    }

    // The last: the window goes, and a script asking for projects finds none.
    void scriptsOutliveTheWindow()
    {
        delete m_window;
        m_window = nullptr;
        QScript script;
        try {
            script.fromString(QStringLiteral("n = projectCount() none = project() == nil"));
        } catch (const std::exception& error) {
            QFAIL(qPrintable(script.describe(error)));
        }
        lua_getglobal(script.state(), "n");
        QCOMPARE(lua_tonumber(script.state(), -1), 0.0);
        lua_getglobal(script.state(), "none");
        QVERIFY(lua_toboolean(script.state(), -1));
    }

private:
    /// The sources of a written .ts file, which must be well-formed, in the
    /// context "QScriptManager" and each with `comment`.
    static QStringList tsMessages(const QString& fileName, const QString& comment)
    {
        QFile file(fileName);
        if (!file.open(QIODevice::ReadOnly))
            return {QStringLiteral("(not written)")};
        QXmlStreamReader xml(&file);
        QStringList sources;
        QString context;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            if (xml.name() == QLatin1String("name"))
                context = xml.readElementText();
            else if (xml.name() == QLatin1String("source"))
                sources << xml.readElementText();
            else if (xml.name() == QLatin1String("comment") && xml.readElementText() != comment)
                return {QStringLiteral("(wrong comment)")};
        }
        if (xml.hasError() || context != QLatin1String("QScriptManager"))
            return {QStringLiteral("(bad file: ") + xml.errorString() + QLatin1Char(')')};
        return sources;
    }

    QTemporaryDir m_program;
    MainWindow* m_window = nullptr;
};

QTEST_MAIN(TestScriptWindow)
#include "tst_scriptwindow.moc"
