// Scripts in the real window: the Tools menu's script entries, a new project
// from a template, and the script editor running a script with its outputs.
#include "app/mainwindow.h"
#include "interface/qinterface.h"
#include "managers/qactionmanager.h"
#include "model/qanimations.h"
#include "model/qproject.h"
#include "model/qsprites.h"
#include "screenshots.h"
#include "script/gui/projdlg.h"
#include "script/gui/scripted.h"
#include "script/qscriptmanager.h"
#include "util/qmessages.h"
#include "windowmanagers.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

namespace {

// Closes the next modal dialog when it shows, after `act` did its part; the title it had goes to `title`.
void answerNextDialog(QString* title, std::function<void(QDialog*)> act = nullptr)
{
    QTimer::singleShot(50, [title, act] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return answerNextDialog(title, act);
        *title = dialog->windowTitle();
        if (act)
            act(dialog);
        dialog->accept();
    });
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
        answerNextDialog(&title, [](QDialog* dialog) {
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
        answerNextDialog(&title);
        editor->editor()->setPlainText(QStringLiteral("local s = project().sprites:at(100000)"));
        QTest::keyClick(editor->editor(), Qt::Key_F5);
        QCOMPARE(title, QStringLiteral("Script error"));
        editor->close();
    }

private:
    QTemporaryDir m_program;
    MainWindow* m_window = nullptr;
};

QTEST_MAIN(TestScriptWindow)
#include "tst_scriptwindow.moc"
