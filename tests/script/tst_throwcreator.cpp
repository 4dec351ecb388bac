// The throw creator of the states editor in the real window, on a copy of
// kfm: the dialog starts from free state numbers and refuses taken ones; the
// throw it writes goes into the state file and the CMD, checks clean at 1.1,
// and each file undoes it in one step. A broken throw script is reported.
#include "app/mainwindow.h"
#include "clirunner.h"
#include "interface/dialogs/throwdlg.h"
#include "interface/editors/qstateseditor.h"
#include "interface/qinterface.h"
#include "mainwindowsession.h"
#include "managers/qactionmanager.h"
#include "model/qcommands.h"
#include "model/qproject.h"
#include "screenshots.h"
#include "script/qscriptmanager.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QDialogButtonBox>
#include <QJsonArray>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTextDocument>
#include <QTimer>
#include <QUndoGroup>
#include <QtTest>

namespace {

// The checker's findings on a file at 1.1: errors and warnings.
QPair<int, int> check(const QString& fileName)
{
    const QJsonObject report = runCli({QStringLiteral("check"), fileName, QStringLiteral("--engine"), QStringLiteral("1.1"),
                                       QStringLiteral("--json")}).json();
    return {report.value(QStringLiteral("errors")).toInt(-1), report.value(QStringLiteral("warnings")).toInt(-1)};
}

bool save(QSyntaxTextEditor* text)
{
    return text->toFile(text->fileName(), false, false);
}

} // namespace

class TestThrowCreator : public QObject
{
    Q_OBJECT

    MainWindowSession m_session;
    QTemporaryDir m_work;
    QProject* m_project = nullptr;
    QStatesEditor* m_editor = nullptr;

private slots:
    void initTestCase()
    {
        PF_REQUIRE_REALDATA();
        QVERIFY(m_session.open(QSize(1280, 800)));
        scriptMan = new QScriptManager(nullptr, qEnvironmentVariable("PF_BIN_DIR"));
        const QString def = session::copyOfKfm(m_work.filePath(QStringLiteral("kfm")));
        if (def.isEmpty())
            QSKIP("kfm of the real engine files not found");
        QVERIFY(intf->openProject(def));
        intf->switchEditor(ieStates);
        m_project = intf->currentProject();
        m_editor = qobject_cast<QStatesEditor*>(intf->editor(ieStates));
        QVERIFY(m_editor);
    }

    void cleanupTestCase()
    {
        m_session.close();
        delete scriptMan;
        scriptMan = nullptr;
    }

    void dialogStartsFromTheProject()
    {
        ThrowDlg dialog(m_session.window(), m_project);
        // kfm's own throw takes 800, 810, 820 and 821.
        const QVariantMap options = dialog.options();
        QCOMPARE(options.value(QStringLiteral("StateNo")).toInt(), 830);
        QCOMPARE(options.value(QStringLiteral("P1Anim")).toInt(), 810);
        QCOMPARE(options.value(QStringLiteral("P2AirAnim")).toInt(), 820); // kfm's AIR has no 821
        QCOMPARE(options.value(QStringLiteral("Command")).toString(), QStringLiteral("throw"));
        QCOMPARE(options.value(QStringLiteral("XVelocity")).toDouble(), -4.5);
        QVERIFY2(dialog.problem().isEmpty(), qPrintable(dialog.problem()));
        QPushButton* ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
        QVERIFY(ok->isEnabled());

        auto* first = dialog.findChild<QSpinBox*>(QStringLiteral("StateNo"));
        first->setValue(800);
        QVERIFY(dialog.problem().startsWith(QStringLiteral("State 800 exists already (kfm.cns, line ")));
        QVERIFY(!ok->isEnabled());
        QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("throwMessage"))->text(), dialog.problem());
        first->setValue(830);
        dialog.findChild<QSpinBox*>(QStringLiteral("P1Anim"))->setValue(4321);
        QCOMPARE(dialog.problem(), QStringLiteral("The AIR has no action 4321 for the throw."));
        dialog.findChild<QSpinBox*>(QStringLiteral("P1Anim"))->setValue(810);
        // A command the CMD has takes no keys; a new one needs them.
        auto* command = dialog.findChild<QComboBox*>(QStringLiteral("Command"));
        command->setEditText(QStringLiteral("y"));
        QVERIFY(dialog.problem().isEmpty());
        dialog.findChild<QLineEdit*>(QStringLiteral("Keys"))->setText(QStringLiteral("x"));
        QVERIFY(dialog.problem().contains(QStringLiteral("has a command \"y\" already")));
        command->setEditText(QStringLiteral("grab"));
        dialog.findChild<QLineEdit*>(QStringLiteral("Keys"))->clear();
        QVERIFY(dialog.problem().contains(QStringLiteral("has no command \"grab\"")));
    }

    void throwIsWrittenCheckedAndUndone()
    {
        QSyntaxTextEditor* states = m_project->states(0);
        QCommands* cmd = m_project->commands();
        const QString statesBefore = states->document()->toPlainText();
        const QString cmdBefore = cmd->document()->toPlainText();
        const QPair<int, int> statesFindings = check(states->fileName());
        const QPair<int, int> cmdFindings = check(cmd->fileName());

        QAction* action = intf->actions()->fromName(QStringLiteral("states_throw"));
        QVERIFY(action && !action->icon().isNull() && !action->toolTip().isEmpty());
        QString title;
        session::answerNextDialog(&title, [](QDialog* dialog) {
            dialog->findChild<QSpinBox*>(QStringLiteral("Damage"))->setValue(90);
            dialog->adjustSize();
            screenshots::save(dialog->grab(), QStringLiteral("throw-creator-dialog.png"));
        });
        action->trigger();
        QCOMPARE(title, QStringLiteral("New throw"));

        // The states at the end of kfm.cns, shown; the command among the commands, the entry above kfm's throw.
        const QString written = states->document()->toPlainText();
        QVERIFY(written.startsWith(statesBefore.trimmed()));
        for (const char* expected : {"[Statedef 830]", "p1stateno = 840", "p2stateno = 850", "type = TargetBind",
                                     "value = -90", "[Statedef 851]"})
            QVERIFY2(written.mid(statesBefore.size()).contains(QLatin1String(expected)), expected);
        const QString cmdText = cmd->document()->toPlainText();
        const int command = cmdText.indexOf(QStringLiteral("name = \"throw\"\ncommand = /F, y"));
        const int entry = cmdText.indexOf(QStringLiteral("[State -1, Throw throw]\ntype = ChangeState\nvalue = 830"));
        QVERIFY(command > 0 && entry > command);
        QVERIFY(command < cmdText.indexOf(QStringLiteral("[Statedef -1]")));
        QVERIFY(entry < cmdText.indexOf(QStringLiteral("[State -1, Kung Fu Throw]")));
        QCOMPARE(intf->currentEditor(), ieStates);
        QCOMPARE(m_editor->currentDocument(), 0);
        const QString report = m_session.window()->statusBar()->currentMessage();
        QVERIFY2(report.contains(QStringLiteral("Throw states at line")) && report.contains(QStringLiteral("kfm.cmd")), qPrintable(report));
        QVERIFY(screenshots::save(m_session.window()->grab(), QStringLiteral("throw-creator-inserted.png")));

        // Clean at 1.1: no error, and no warning beyond those kfm had.
        QVERIFY(save(states) && save(cmd));
        const QPair<int, int> statesAfter = check(states->fileName());
        const QPair<int, int> cmdAfter = check(cmd->fileName());
        QCOMPARE(statesAfter.first, 0);
        QCOMPARE(statesAfter.second, statesFindings.second);
        QCOMPARE(cmdAfter.first, 0);
        QCOMPARE(cmdAfter.second, cmdFindings.second);

        // One undo in each file takes it all back.
        intf->undoGroup()->undo();
        QCOMPARE(states->document()->toPlainText(), statesBefore);
        intf->switchEditor(ieCommands);
        intf->undoGroup()->undo();
        QCOMPARE(cmd->document()->toPlainText(), cmdBefore);
        intf->switchEditor(ieStates);
    }

    void scriptErrorsAreReported()
    {
        // A throw script of the author's own that fails.
        QTemporaryDir data;
        QVERIFY(QDir().mkpath(data.filePath(QStringLiteral("scripts/common"))));
        QFile broken(data.filePath(QStringLiteral("scripts/common/Throw.lua")));
        QVERIFY(broken.open(QIODevice::WriteOnly));
        broken.write("function makeThrow(options) error('no throw today') end\n");
        broken.close();
        QScriptManager* shipped = scriptMan;
        scriptMan = new QScriptManager(nullptr, data.path());
        const QString before = m_project->states(0)->document()->toPlainText();
        QString title;
        session::answerNextDialog(&title);
        QVERIFY(!m_editor->insertThrow({{QStringLiteral("StateNo"), 830}}, 0));
        QCOMPARE(title, QStringLiteral("Throw script error"));
        QCOMPARE(m_project->states(0)->document()->toPlainText(), before);
        delete scriptMan;
        scriptMan = shipped;
    }
};

QTEST_MAIN(TestThrowCreator)
#include "tst_throwcreator.moc"
