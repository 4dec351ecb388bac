// Tests in the engine, backups and the error list on the real window, as an
// author uses them: engines added in the options, runs started from the tool
// bar on unsaved work with a stand-in "wine", backups made and loaded back.
#include "enginekit.h"
#include "projectkit.h"
#include "qrecordingprompt.h"
#include "screenshots.h"
#include "windowmanagers.h"

#include "app/mainwindow.h"
#include "interface/dialogs/bakdlg.h"
#include "interface/dialogs/errordlg.h"
#include "interface/dialogs/mugendlg.h"
#include "interface/dialogs/mugrundlg.h"
#include "interface/dialogs/options.h"
#include "interface/qinterface.h"
#include "interface/workspaces/qtextview.h"
#include "managers/qactionmanager.h"
#include "managers/qconfigmanager.h"
#include "managers/qmugenpresets.h"
#include "managers/qmugenrun.h"
#include "model/qanimations.h"
#include "model/qbakmanager.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "model/qsprites.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextCursor>
#include <QToolButton>
#include <QtTest>

#include <functional>

namespace {

/// Acts on the next modal dialog of type T once it is open (the caller then opens it).
template <class T> void whenOpen(std::function<void(T*)> act, int triesLeft = 300)
{
    QTimer::singleShot(10, [act, triesLeft] {
        if (auto* dialog = qobject_cast<T*>(QApplication::activeModalWidget()))
            act(dialog);
        else if (triesLeft > 0)
            whenOpen<T>(act, triesLeft - 1);
    });
}

void pressOk(QDialog* dialog)
{
    dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
}

QByteArray fileText(const QString& path)
{
    return kit::readBytes(path);
}

} // namespace

class TestRunWindow : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_root;
    QRecordingPrompt* m_prompt = nullptr;
    MainWindow* m_window = nullptr;

    QString programDir() const { return m_root.filePath(QStringLiteral("program")); }
    QString engineDir(const char* name = "engine") const { return m_root.filePath(QLatin1String(name)); }
    QString record() const { return m_root.filePath(QStringLiteral("record.txt")); }
    QAction* action(const char* name) const { return intf->actions()->fromName(QLatin1String(name)); }

    /// An engine installation with files of its own, which runs must leave as they are.
    QString makeEngine(const char* name)
    {
        const QString dir = engineDir(name);
        kit::writeBytes(dir + QStringLiteral("/mugen.exe"), "MZ");
        kit::writeBytes(dir + QStringLiteral("/chars/kfm/kfm.def"), "[Info]\r\nname = \"kfm\"\r\n");
        kit::writeBytes(dir + QStringLiteral("/mugen.log"), "an old log\n");
        return dir + QStringLiteral("/mugen.exe");
    }

    /// A copy of the sample character in a folder of its own, opened in the window.
    QProject* openSample(const QString& folder)
    {
        const QDir source(qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/samples/ember"));
        const QString dir = m_root.filePath(folder);
        QDir().mkpath(dir);
        for (const QString& name : source.entryList(QDir::Files))
            QFile::copy(source.filePath(name), dir + QLatin1Char('/') + name);
        if (!intf->openProject(dir + QStringLiteral("/ember.def")))
            return nullptr;
        return intf->currentProject();
    }

    void clickToolButton(QAction* wanted)
    {
        QTest::qWait(20); // the tool bars lay out their new buttons
        for (QToolButton* button : m_window->findChildren<QToolButton*>()) {
            if (button->defaultAction() == wanted && button->isVisible()) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        QFAIL(qPrintable(QStringLiteral("no visible tool button for %1").arg(wanted->objectName())));
    }

    /// Types a line at the start of the document the text view shows.
    void typeAtStart(const QString& line)
    {
        auto* view = m_window->findChild<QTextView*>();
        view->setFocus();
        view->moveCursor(QTextCursor::Start);
        QTest::keyClicks(view, line);
        QTest::keyClick(view, Qt::Key_Return);
    }

private slots:
    void initTestCase()
    {
        // Run by CTest, which names the sources and the built data.
        if (!QFileInfo::exists(
                qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/samples/ember/ember.def"))
            || qEnvironmentVariableIsEmpty("PF_BIN_DIR"))
            QSKIP("PF_SOURCE_DIR and PF_BIN_DIR must name the sources and the build's bin folder");
        QDir().mkpath(programDir());
        QVERIFY(windowManagers::create(programDir()));
        qRegisterMetaType<QProject*>();
        m_prompt = new QRecordingPrompt;
        m_window = new MainWindow;
        m_window->show();
        QApplication::setActiveWindow(m_window);
        QVERIFY(QTest::qWaitForWindowExposed(m_window));
        enginekit::installLauncher(m_root.filePath(QStringLiteral("bin")), record());
    }

    void cleanupTestCase()
    {
        delete m_window;
        delete m_prompt;
        if (configMan)
            windowManagers::destroy();
    }

    void init()
    {
        m_prompt->clear();
        m_prompt->script({});
        configMan->clearMugens();
        for (const char* name : { "STANDIN_EXIT", "STANDIN_SLEEP", "STANDIN_LOG", "STANDIN_KEEP" })
            qunsetenv(name);
    }

    void theActionsAreInTheMenuAndOnTheToolBar()
    {
        QMenu* file = m_window->findChild<QMenu*>(QStringLiteral("menuFile"));
        for (const char* name : { "file_backup", "file_load_backup", "file_run_mugen" }) {
            QVERIFY2(file->actions().contains(action(name)), name);
            QVERIFY2(!action(name)->icon().isNull(), name);
        }
        QCOMPARE(intf->actions()->shortcut(action("file_run_mugen")), QKeySequence(Qt::Key_F9));
        QTest::qWait(20);
        clickToolButton(action("file_run_mugen"));
        // No engine yet: the author is told where to add one.
        QCOMPARE(m_prompt->entries().size(), 1);
        QCOMPARE(m_prompt->entries().first().text,
            QStringLiteral("Oops, you need to configure a M.U.G.E.N. first. Do it in the Tools / Options."));
    }

    void enginesListAndTheEngineUsedLast()
    {
        QVERIFY(openSample(QStringLiteral("hero1")));
        const QString first = makeEngine("mugen10");
        const QString second = makeEngine("mugen11");

        // Two engines added in the options, the second with a ready-made command line.
        auto addEngine = [this](Options* options, const QString& name, const QString& exe, int presetDowns) {
            whenOpen<MugenDlg>([=](MugenDlg* dialog) {
                QCOMPARE(dialog->windowTitle(), QStringLiteral("M.U.G.E.N."));
                auto* params = dialog->findChild<QLineEdit*>(QStringLiteral("mugenParams"));
                QCOMPARE(params->text(), QStringLiteral("%0 %0"));
                auto* presets = dialog->findChild<QComboBox*>(QStringLiteral("mugenPresets"));
                QCOMPARE(presets->count(), int(mugenPresets().size()));
                QCOMPARE(presets->itemText(4), QStringLiteral("KFM vs KFM on current Stage"));
                QVERIFY(!dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled());
                QTest::keyClicks(dialog->findChild<QLineEdit*>(QStringLiteral("mugenName")), name);
                QTest::keyClicks(dialog->findChild<QLineEdit*>(QStringLiteral("mugenExe")), exe);
                presets->setFocus();
                for (int i = 0; i < presetDowns; ++i)
                    QTest::keyClick(presets, Qt::Key_Down);
                QCOMPARE(params->text(), mugenPresets().at(presetDowns).parameters);
                if (presetDowns > 0)
                    screenshots::save(dialog->grab(), QStringLiteral("mugendlg.png"));
                pressOk(dialog);
            });
            QTest::mouseClick(options->findChild<QPushButton*>(QStringLiteral("mugenAdd")), Qt::LeftButton);
        };
        whenOpen<Options>([&](Options* options) {
            options->findChild<QTabWidget*>(QStringLiteral("optionTabs"))->setCurrentIndex(2);
            addEngine(options, QStringLiteral("M.U.G.E.N. 1.0"), first, 0);
            addEngine(options, QStringLiteral("M.U.G.E.N. 1.1"), second, 2);
            QCOMPARE(options->findChild<QListView*>(QStringLiteral("mugens"))->model()->rowCount(), 2);
            screenshots::save(options->grab(), QStringLiteral("options-engines.png"));
            pressOk(options);
        });
        action("tools_options")->trigger();
        QCOMPARE(configMan->mugens().size(), 2);
        QCOMPARE(configMan->mugens().at(1).parameters, QStringLiteral("%0 kfm"));
        QVERIFY(configMan->mugens().at(1).icon.isEmpty());

        // The first run opens on the first engine; the author takes the second.
        int openedOn = -1;
        auto pick = [&openedOn, this](int row, const char* shot) {
            whenOpen<MugRunDlg>([&openedOn, row, shot](MugRunDlg* dialog) {
                auto* list = dialog->findChild<QListView*>(QStringLiteral("list"));
                openedOn = list->currentIndex().row();
                if (row >= 0)
                    list->setCurrentIndex(list->model()->index(row, 0));
                if (shot)
                    screenshots::save(dialog->grab(), QLatin1String(shot));
                pressOk(dialog);
            });
        };
        pick(1, "mugrundlg.png");
        clickToolButton(action("file_run_mugen"));
        QCOMPARE(openedOn, 0);
        QCOMPARE(enginekit::readRecord(record()).arguments,
            (QStringList { second, QStringLiteral("pf3_0"), QStringLiteral("kfm") }));

        // The second run opens on the engine used last.
        QFile::remove(record());
        openedOn = -1;
        pick(-1, nullptr);
        QApplication::setActiveWindow(m_window);
        QTest::keyClick(m_window, Qt::Key_F9);
        QCOMPARE(openedOn, 1);
        QCOMPARE(enginekit::readRecord(record()).arguments.first(), second);
        QVERIFY(m_prompt->entries().isEmpty());
        QCOMPARE(m_window->statusBar()->findChildren<QLabel*>().first()->text(),
            QStringLiteral("M.U.G.E.N. ended with the code 0."));
        configMan->clearMugens();
    }

    void runSeesUnsavedEditsAndLeavesTheEngineAsItWas()
    {
        const QString exe = makeEngine("engine");
        configMan->addMugen(QMugenInfo { QStringLiteral("Engine"), exe, QStringLiteral("%0 %0"), QString() });
        QProject* ember = openSample(QStringLiteral("hero2"));
        QVERIFY(ember);
        const QString folder = m_root.filePath(QStringLiteral("hero2"));
        intf->switchEditor(ieStates);
        QCOMPARE(m_window->findChild<QTextView*>()->document(), ember->states(0)->document());
        typeAtStart(QStringLiteral("; typed just before the run"));
        QVERIFY(ember->states(0)->isModified());
        const QMap<QString, QByteArray> authorBefore = enginekit::snapshot(folder);
        QMap<QString, QByteArray> engineBefore = enginekit::snapshot(engineDir());

        const QString kept = m_root.filePath(QStringLiteral("kept"));
        qputenv("STANDIN_KEEP", kept.toLocal8Bit());
        clickToolButton(action("file_run_mugen"));
        QVERIFY(m_prompt->entries().isEmpty());
        // The engine found the edit in its copy, under the names the DEF gives.
        QVERIFY(fileText(kept + QStringLiteral("/ember.cns")).contains("; typed just before the run"));
        QVERIFY(fileText(kept + QStringLiteral("/pf3_0.def")).contains("cns = ember.cns"));
        for (const char* name : { "ember.sff", "ember.air", "ember.snd", "ember.cmd", "ember1.act" })
            QCOMPARE(fileText(kept + QLatin1Char('/') + QLatin1String(name)),
                fileText(folder + QLatin1Char('/') + QLatin1String(name)));
        QCOMPARE(enginekit::snapshot(engineDir()), engineBefore);
        QCOMPARE(enginekit::snapshot(folder), authorBefore);
        QVERIFY(ember->states(0)->isModified());

        // The window stays usable while the engine runs: the author types on,
        // a second run is refused, and closing the engine cleans up.
        qunsetenv("STANDIN_KEEP");
        qputenv("STANDIN_SLEEP", "30");
        bool copiesThere = false;
        QTimer::singleShot(300, this, [&] {
            copiesThere = QFileInfo::exists(engineDir() + QStringLiteral("/chars/pf3_0/ember.cns"));
            typeAtStart(QStringLiteral("; typed while the engine ran"));
            action("file_run_mugen")->trigger();
            intf->cancelRun();
        });
        QElapsedTimer timer;
        timer.start();
        action("file_run_mugen")->trigger();
        QVERIFY(timer.elapsed() < 10000);
        QVERIFY(copiesThere);
        QCOMPARE(ember->states(0)->document()->firstBlock().text(),
            QStringLiteral("; typed while the engine ran"));
        QCOMPARE(m_prompt->entries().size(), 1);
        QCOMPARE(m_prompt->entries().first().text,
            QStringLiteral("Oops, you can run only one instance of M.U.G.E.N. at the same time."));
        QCOMPARE(enginekit::snapshot(engineDir()), engineBefore);
        QVERIFY(!QMugenRun::isActive());
        qunsetenv("STANDIN_SLEEP");

        // A fault the engine logs is shown with the project's own file and
        // line, and the author lands on that line.
        m_prompt->clear();
        intf->switchEditor(ieDefinitions);
        qputenv("STANDIN_LOG", "Error in chars\\pf3_0\\ember.cns:4\r\nInvalid value for trigger1");
        action("file_run_mugen")->trigger();
        QCOMPARE(m_prompt->count(QStringLiteral("warning")), 1);
        QCOMPARE(m_prompt->entries().first().title, QStringLiteral("M.U.G.E.N. errors"));
        QVERIFY2(m_prompt->entries().first().text.contains(folder + QStringLiteral("/ember.cns, line 4")),
            qPrintable(m_prompt->entries().first().text));
        QCOMPARE(intf->currentEditor(), ieStates);
        QCOMPARE(m_window->findChild<QTextView*>()->textCursor().blockNumber(), 3);
        engineBefore.remove(QStringLiteral("mugen.log")); // the engine's own log is its business
        QMap<QString, QByteArray> engineAfter = enginekit::snapshot(engineDir());
        engineAfter.remove(QStringLiteral("mugen.log"));
        QCOMPARE(engineAfter, engineBefore);

        // An engine exiting at once with a fault says so, with what it wrote.
        m_prompt->clear();
        qunsetenv("STANDIN_LOG");
        qputenv("STANDIN_EXIT", "5");
        action("file_run_mugen")->trigger();
        QCOMPARE(m_prompt->count(QStringLiteral("warning")), 1);
        QVERIFY(m_prompt->entries().first().text.contains(QStringLiteral("ended with the code 5")));
        qunsetenv("STANDIN_EXIT");

        // A read-only engine folder stops the run before anything is written.
        m_prompt->clear();
        QFile::remove(record());
        const QString chars = engineDir() + QStringLiteral("/chars");
        const QFile::Permissions writable = QFile(chars).permissions();
        QFile::setPermissions(chars, QFile::ReadOwner | QFile::ExeOwner);
        action("file_run_mugen")->trigger();
        QFile::setPermissions(chars, writable);
        QCOMPARE(m_prompt->count(QStringLiteral("critical")), 1);
        QVERIFY(m_prompt->entries().first().text.contains(QStringLiteral("read-only")));
        QVERIFY(!QFileInfo::exists(record()));
        QVERIFY(!QFileInfo::exists(chars + QStringLiteral("/pf3_0")));
        configMan->clearMugens();
    }

    void backupsFromTheWindow()
    {
        QProject* ember = openSample(QStringLiteral("hero3"));
        QVERIFY(ember);
        const QString def = m_root.filePath(QStringLiteral("hero3/ember.def"));
        const QByteArray onDisk = fileText(def);
        intf->switchEditor(ieDefinitions);
        typeAtStart(QStringLiteral("; kept in the backup"));
        action("file_backup")->trigger();
        QVERIFY(m_prompt->entries().isEmpty());
        QBakManager backups(def);
        QCOMPARE(backups.rowCount(), 1);
        QVERIFY(fileText(backups.getFileName(backups.index(0))).contains("; kept in the backup"));
        QCOMPARE(fileText(def), onDisk);
        QVERIFY(m_window->statusBar()->findChildren<QLabel*>().first()->text().startsWith(
            QStringLiteral("Backup written to ")));

        // More edits, then the backup comes back over them and a save writes it to the project's own file.
        typeAtStart(QStringLiteral("; not in the backup"));
        whenOpen<BakDlg>([](BakDlg* dialog) {
            QCOMPARE(dialog->findChild<QListView*>(QStringLiteral("list"))->model()->rowCount(), 1);
            dialog->resize(420, 300);
            screenshots::save(dialog->grab(), QStringLiteral("bakdlg.png"));
            pressOk(dialog);
        });
        m_prompt->script({ QPrompt::Yes });
        action("file_load_backup")->trigger();
        QCOMPARE(m_prompt->count(QStringLiteral("question")), 1);
        const QString text = ember->definitions()->document()->toPlainText();
        QVERIFY(text.contains(QStringLiteral("; kept in the backup")));
        QVERIFY(!text.contains(QStringLiteral("; not in the backup")));
        QCOMPARE(ember->definitions()->fileName(), QFileInfo(def).absoluteFilePath());
        QVERIFY(ember->sprites()->isModified());
        action("file_save")->trigger();
        QVERIFY(fileText(def).contains("; kept in the backup"));
        QVERIFY(!ember->definitions()->isModified());
    }

    void checkFillsTheErrorList()
    {
        QProject* ember = openSample(QStringLiteral("hero4"));
        QVERIFY(ember);
        // A frame before any action: only the animations' own check sees it.
        QTextCursor(ember->animations()->textEditor()->document())
            .insertText(QStringLiteral("0,0, 0,0, 5\n"));
        QCOMPARE(ember->messages()->rowCount(), 0);
        action("file_check_errors")->trigger();
        ErrorDlg* errors = intf->errorDialog();
        QVERIFY(errors->isVisible());
        QCOMPARE(errors->view()->model()->rowCount(), 1);
        QVERIFY(errors->view()->model()->index(0, 0).data().toString().startsWith(QStringLiteral("AIR(")));
        errors->hide();
    }
};

QTEST_MAIN(TestRunWindow)
#include "tst_runwindow.moc"
