// The editors of text files in the real main window, on copies of kfm: the
// commands with their keys drawn, the state files as tabs (added, removed,
// and the engine's common states), the DEF's file names as links, snippets
// and controller templates inserted at the cursor, and a file changed by
// another program while open. With PF_SHOT_DIR set, the commands editor is
// also saved as a picture.
#include "app/mainwindow.h"
#include "interface/editors/qcommandkeys.h"
#include "interface/editors/qcommandseditor.h"
#include "interface/editors/qstateseditor.h"
#include "interface/qinterface.h"
#include "interface/workspaces/qtextview.h"
#include "managers/qactionmanager.h"
#include "managers/qsnippetmanager.h"
#include "model/qcommand.h"
#include "model/qcommands.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "mainwindowsession.h"
#include "qrecordingprompt.h"
#include "realdata.h"
#include "screenshots.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qcommandparam.h"
#include "windowmanagers.h"

#include <QApplication>
#include <QListWidget>
#include <QMenu>
#include <QTabBar>
#include <QTemporaryDir>
#include <QUndoGroup>
#include <QTextBlock>
#include <QtTest>

class TestTextEditors : public QObject
{
    Q_OBJECT

    MainWindowSession m_session;
    QTemporaryDir m_work;
    QRecordingPrompt* m_prompt = nullptr;
    MainWindow* m_window = nullptr;

    QTextView* view() const { return m_window->findChild<QTextView*>(); }
    QTabBar* tabs() const { return m_window->findChild<QTabBar*>(QStringLiteral("textTabs")); }
    QString kfmDef() const { return m_work.filePath(QStringLiteral("chars/kfm/kfm.def")); }

    /// kfm in chars/kfm of an engine folder of the test's own, with the engine's common states in data/.
    bool copyKfm()
    {
        const QDir engine(realDataDir() + QStringLiteral("/fanyer__mugen"));
        QDir(m_work.path()).mkpath(QStringLiteral("chars/kfm"));
        QDir(m_work.path()).mkpath(QStringLiteral("data"));
        const QDir kfm(engine.filePath(QStringLiteral("chars/kfm")));
        for (const QString& name : kfm.entryList({QStringLiteral("kfm.*")}, QDir::Files)) {
            QFile::remove(m_work.filePath(QStringLiteral("chars/kfm/") + name));
            if (!QFile::copy(kfm.filePath(name), m_work.filePath(QStringLiteral("chars/kfm/") + name)))
                return false;
        }
        QFile::remove(m_work.filePath(QStringLiteral("data/common1.cns")));
        return QFile::copy(engine.filePath(QStringLiteral("data/common1.cns")), m_work.filePath(QStringLiteral("data/common1.cns")));
    }

    void openKfm()
    {
        QVERIFY(copyKfm());
        QVERIFY(intf->openProject(kfmDef()));
    }

private slots:
    void initTestCase()
    {
        PF_REQUIRE_REALDATA();
        qRegisterMetaType<QProject*>();
        QVERIFY(m_session.open(QSize(1280, 800)));
        m_window = m_session.window();
        m_prompt = m_session.prompt();
    }

    void cleanupTestCase()
    {
        if (!m_window)
            return;
        m_prompt->script(QList<QPrompt::Button>(32, QPrompt::No));
        m_session.close();
    }

    void keyImagesOfEachStep()
    {
        QCommandElement release;
        release.flags = QCommandElement::FlagRelease;
        release.time = 30;
        release.keys = QCommandElement::KeyD;
        QCOMPARE(QCommandKeys::imagesOf(release), (QStringList{QStringLiteral(":/keys/mod_release.svg"), QStringLiteral(":/keys/dir_D.svg")}));
        QCommandElement together;
        together.keys = QCommandElement::KeyD | QCommandElement::KeyF | QCommandElement::ButtonA | QCommandElement::ButtonB;
        QCOMPARE(QCommandKeys::imagesOf(together),
                 (QStringList{QStringLiteral(":/keys/dir_DF.svg"), QStringLiteral(":/keys/mod_plus.svg"), QStringLiteral(":/keys/button_a.svg"),
                              QStringLiteral(":/keys/mod_plus.svg"), QStringLiteral(":/keys/button_b.svg")}));
        QCommandElement held;
        held.flags = QCommandElement::FlagHold | QCommandElement::FlagDirection | QCommandElement::FlagOnly;
        held.keys = QCommandElement::KeyU | QCommandElement::KeyB | QCommandElement::ButtonS;
        const QStringList images = QCommandKeys::imagesOf(held);
        QCOMPARE(images.size(), 6);
        QCOMPARE(images.at(3), QStringLiteral(":/keys/dir_UB.svg"));
        // Every image the editor can ask for is drawn.
        for (const QString& image : images + QCommandKeys::imagesOf(release) + QCommandKeys::imagesOf(together))
            QVERIFY2(!QIcon(image).pixmap(22, 22).isNull(), qPrintable(image));
        const QPixmap row = QCommandKeys::draw({release, together, held}, 22);
        QVERIFY(row.width() / row.devicePixelRatio() > 22 * 10);
    }

    void commandsListKeysAndJumps()
    {
        openKfm();
        intf->switchEditor(ieCommands);
        QCommands* commands = intf->currentProject()->commands();
        QVERIFY(commands->count() > 20);
        QCOMPARE(view()->document(), commands->document());
        QVERIFY(!view()->isReadOnly()); // the CMD is edited here, not only shown
        auto* list = m_window->findChild<QListWidget*>(QStringLiteral("commandsList"));
        QVERIFY(list && list->isVisible());
        QCOMPARE(list->count(), commands->count());
        QCOMPARE(list->item(0)->text(), QStringLiteral("TripleKFPalm"));
        QVERIFY(!list->item(0)->data(Qt::UserRole + 1).value<QPixmap>().isNull());

        // A click takes the text to the command.
        QListWidgetItem* fifth = list->item(4);
        list->scrollToItem(fifth);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(fifth).center());
        QCOMPARE(view()->textCursor().blockNumber(), commands->at(4)->line());

        // The list follows the text.
        QTextCursor cursor(commands->document()->findBlockByNumber(commands->at(0)->line()));
        cursor.insertText(QStringLiteral("[Command]\nname = \"NewMove\"\ncommand = ~30$D, a+b\ntime = 15\n\n"));
        QTRY_COMPARE_WITH_TIMEOUT(list->count(), commands->count(), 2000);
        QTRY_COMPARE_WITH_TIMEOUT(list->item(0)->text(), QStringLiteral("NewMove"), 2000);
        list->setCurrentRow(0);
        if (!screenshots::folder().isEmpty())
            QVERIFY(screenshots::save(m_window->grab(), QStringLiteral("kfm-commands-editor.png")));
        intf->undoGroup()->undo();
        QTRY_COMPARE_WITH_TIMEOUT(list->item(0)->text(), QStringLiteral("TripleKFPalm"), 2000);
    }

    void stateFilesAsTabsAddedAndRemoved()
    {
        openKfm();
        intf->switchEditor(ieStates);
        QProject* kfm = intf->currentProject();
        auto* states = static_cast<QStatesEditor*>(intf->editor(ieStates));
        QCOMPARE(kfm->statesCount(), 1);
        QVERIFY(states->showsCommon());
        QVERIFY(tabs()->isVisible());
        QCOMPARE(tabs()->count(), 2);
        QCOMPARE(tabs()->tabText(0), QStringLiteral("kfm.cns"));
        QVERIFY(tabs()->tabText(1).startsWith(QStringLiteral("common1.cns")));
        tabs()->setCurrentIndex(1);
        QVERIFY(view()->isReadOnly());
        QVERIFY(view()->document()->toPlainText().contains(QStringLiteral("[Statedef 5000]"), Qt::CaseInsensitive));
        tabs()->setCurrentIndex(0);
        QCOMPARE(view()->document(), kfm->states(0)->document());
        QVERIFY(!view()->isReadOnly());

        // A new file is made beside the DEF and named in its [Files].
        QVERIFY(states->addStateFile(QStringLiteral("extra.st")));
        QCOMPARE(kfm->statesCount(), 2);
        QVERIFY(QFile::exists(m_work.filePath(QStringLiteral("chars/kfm/extra.st"))));
        QVERIFY(kfm->definitions()->document()->toPlainText().contains(QStringLiteral("st1 = extra.st")));
        QCOMPARE(tabs()->count(), 3);
        QCOMPARE(tabs()->tabText(1), QStringLiteral("extra.st"));
        QCOMPARE(view()->document(), kfm->states(1)->document());
        QTRY_VERIFY_WITH_TIMEOUT(kfm->definitions()->files().states.contains(QStringLiteral("extra.st")), 2000);

        // Removed: the tab and the DEF's line go, the file on disk stays.
        QVERIFY(states->removeStateFile(1));
        QCOMPARE(kfm->statesCount(), 1);
        QCOMPARE(tabs()->count(), 2);
        QVERIFY(!kfm->definitions()->document()->toPlainText().contains(QStringLiteral("extra.st")));
        QVERIFY(QFile::exists(m_work.filePath(QStringLiteral("chars/kfm/extra.st"))));

        // An existing file, added from disk.
        QVERIFY(states->openStateFile(m_work.filePath(QStringLiteral("chars/kfm/extra.st"))));
        QCOMPARE(kfm->statesCount(), 2);
        QVERIFY(kfm->definitions()->document()->toPlainText().contains(QStringLiteral("st1 = extra.st")));
        QVERIFY(states->removeStateFile(1));
    }

    void definitionsNameFilesAsLinks()
    {
        openKfm();
        intf->switchEditor(ieDefinitions);
        QTextView* text = view();
        QTextDocument* def = intf->currentProject()->definitions()->document();
        QCOMPARE(text->document(), def);
        const auto pointAt = [&](const QString& line, const QString& word) {
            QTextBlock block = def->begin();
            while (block.isValid() && !block.text().startsWith(line))
                block = block.next();
            QTextCursor cursor(block);
            cursor.setPosition(block.position() + int(block.text().indexOf(word)) + 1);
            text->setTextCursor(cursor);
            text->ensureCursorVisible();
            return text->cursorRect(cursor).center();
        };
        QVERIFY(text->linkAt(pointAt(QStringLiteral("cmd"), QStringLiteral("kfm.cmd"))) == QStringLiteral("cmd"));
        QVERIFY(text->linkAt(pointAt(QStringLiteral("cmd"), QStringLiteral(";Command"))).isEmpty()); // a comment
        QVERIFY(text->linkAt(pointAt(QStringLiteral("name"), QStringLiteral("Kung"))).isEmpty());    // not a file

        // Ctrl+click on the commands' file opens the commands editor.
        const QPoint cmd = pointAt(QStringLiteral("cmd"), QStringLiteral("kfm.cmd"));
        QTest::mouseClick(text->viewport(), Qt::LeftButton, Qt::ControlModifier, cmd);
        QCOMPARE(intf->currentEditor(), ieCommands);
        // And the common states lead to their read-only tab.
        intf->switchEditor(ieDefinitions);
        const QPoint common = pointAt(QStringLiteral("stcommon"), QStringLiteral("common1"));
        QTest::mouseClick(text->viewport(), Qt::LeftButton, Qt::ControlModifier, common);
        QCOMPARE(intf->currentEditor(), ieStates);
        QVERIFY(tabs()->tabText(tabs()->currentIndex()).startsWith(QStringLiteral("common1.cns")));
    }

    void snippetsAndTemplatesInsertAtTheCursor()
    {
        openKfm();
        intf->switchEditor(ieStates);
        QVERIFY(snipMan && !snipMan->snippetsFor(QStringLiteral("states")).isEmpty());
        QVERIFY(!snipMan->snippetsFor(QStringLiteral("commands")).isEmpty());
        QTextView* text = view();
        QTextDocument* document = text->document();
        const int lines = document->blockCount();
        text->setTextCursor(QTextCursor(document->findBlockByNumber(30)));
        const QString before = document->findBlockByNumber(30).text();

        // The tool bar's snippet menu lists the snippets; one is inserted above the cursor's line.
        QAction* snippets = intf->actions()->fromName(QStringLiteral("states_snippet"));
        QVERIFY(snippets && snippets->menu());
        emit snippets->menu()->aboutToShow();
        QAction* helper = nullptr;
        for (QAction* each : snippets->menu()->actions())
            helper = each->text() == QStringLiteral("Helper") ? each : helper;
        QVERIFY(helper);
        helper->trigger();
        const QString inserted = snipMan->snippet(QStringLiteral("Helper")).text;
        QCOMPARE(document->blockCount(), lines + int(inserted.count(QLatin1Char('\n'))));
        QCOMPARE(document->findBlockByNumber(30).text(), QStringLiteral("[State 0, Helper]"));
        QCOMPARE(document->findBlockByNumber(30 + int(inserted.count(QLatin1Char('\n')))).text(), before);
        intf->undoGroup()->undo(); // one step
        QCOMPARE(document->blockCount(), lines);

        // A controller template, from its own menu.
        QAction* controllers = intf->actions()->fromName(QStringLiteral("states_controller"));
        QVERIFY(controllers && controllers->menu());
        emit controllers->menu()->aboutToShow();
        for (QAction* each : controllers->menu()->actions()) {
            if (each->text() == QStringLiteral("PlaySnd"))
                each->trigger();
        }
        QCOMPARE(document->findBlockByNumber(30).text().left(10), QStringLiteral("[State 0, "));
        QCOMPARE(document->findBlockByNumber(31).text(), QStringLiteral("type = PlaySnd"));
        intf->undoGroup()->undo();
        QCOMPARE(document->blockCount(), lines);
    }

    void fileChangedOnDiskAsksAndKeepsEdits()
    {
        openKfm();
        intf->switchEditor(ieStates);
        QSyntaxTextEditor* states = intf->currentProject()->states(0);
        QTextCursor cursor(states->document());
        cursor.insertText(QStringLiteral("; my edit\n"));
        m_prompt->clear();
        m_prompt->script({QPrompt::No});
        QTest::qWait(20);
        {
            QFile file(states->fileName());
            QVERIFY(file.open(QIODevice::Append));
            file.write("\r\n; another program\r\n");
        }
        QTRY_COMPARE_WITH_TIMEOUT(m_prompt->count(QStringLiteral("question")), 1, 5000);
        QVERIFY(m_prompt->entries().last().text.contains(QStringLiteral("kfm.cns")));
        QVERIFY(states->document()->toPlainText().startsWith(QStringLiteral("; my edit\n")));
        QVERIFY(!states->document()->toPlainText().contains(QStringLiteral("another program")));
        QVERIFY(states->isModified());

        // Accepted, the other program's text comes in.
        m_prompt->script({QPrompt::Yes});
        QTest::qWait(20);
        {
            QFile file(states->fileName());
            QVERIFY(file.open(QIODevice::Append));
            file.write("; and again\r\n");
        }
        QTRY_COMPARE_WITH_TIMEOUT(m_prompt->count(QStringLiteral("question")), 2, 5000);
        QVERIFY(states->document()->toPlainText().contains(QStringLiteral("; and again")));
        QVERIFY(!states->document()->toPlainText().startsWith(QStringLiteral("; my edit")));
        QVERIFY(!states->isModified());
    }
};

QTEST_MAIN(TestTextEditors)
#include "tst_texteditors.moc"
