// The text editors in the real main window, as an author works in them on
// kfm: a misspelled controller shows in the error list, under the text and in
// the margin; "type = " completes to a controller; sections fold; a trigger
// is replaced in every state file of a copy of kfm and the replace undone. With PF_SHOT_DIR
// set, the window is also saved as a picture at those moments.
#include "app/mainwindow.h"
#include "interface/dialogs/errordlg.h"
#include "interface/dialogs/finddlgmlt.h"
#include "interface/qclickablelabel.h"
#include "interface/qinterface.h"
#include "interface/workspaces/qtextoutline.h"
#include "managers/qactionmanager.h"
#include "interface/workspaces/qtextview.h"
#include "model/qproject.h"
#include "mainwindowsession.h"
#include "qrecordingprompt.h"
#include "realdata.h"
#include "screenshots.h"
#include "windowmanagers.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCompleter>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPainter>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTreeWidget>
#include <QtTest>

class TestTextEditorWindow : public QObject
{
    Q_OBJECT

    MainWindowSession m_session;
    QTemporaryDir m_work; ///< a copy of kfm the replace may change
    QRecordingPrompt* m_prompt = nullptr;
    MainWindow* m_window = nullptr;

    QTextView* view() const { return m_window->findChild<QTextView*>(); }

    /// The window as the author sees it, the completion list included, when pictures are asked for.
    void shoot(const QString& name)
    {
        if (screenshots::folder().isEmpty())
            return;
        QPixmap picture = m_window->grab();
        QAbstractItemView* popup = view()->completer()->popup();
        if (popup->isVisible()) {
            QPainter painter(&picture);
            painter.drawPixmap(m_window->mapFromGlobal(popup->mapToGlobal(QPoint(0, 0))), popup->grab());
        }
        QVERIFY(screenshots::save(picture, name + QStringLiteral(".png")));
    }

    void openKfmStates(const QString& def = realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.def"))
    {
        QVERIFY(intf->openProject(def));
        intf->switchEditor(ieStates);
        QVERIFY(intf->currentProject()->statesCount() >= 1);
        QCOMPARE(view()->document(), intf->currentProject()->states(0)->document());
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

    void misspelledControllerIsShownAndCompleted()
    {
        openKfmStates();
        QTextView* text = view();
        text->setFocus();
        // Into the middle of kfm.cns, where the author works.
        QTextCursor cursor(text->document()->findBlockByNumber(120));
        text->setTextCursor(cursor);
        QTest::keyClick(text, Qt::Key_Return);
        QTest::keyClick(text, Qt::Key_Up);
        QTest::keyClicks(text, QStringLiteral("[State 0, Oops]"));
        QTest::keyClick(text, Qt::Key_Return);
        QTest::keyClicks(text, QStringLiteral("type = ChangeStat"));
        text->completer()->popup()->hide();
        QTest::keyClick(text, Qt::Key_Return);
        QTest::keyClicks(text, QStringLiteral("trigger1 = 1"));
        QTest::keyClick(text, Qt::Key_Return);
        QTest::keyClicks(text, QStringLiteral("value = 0"));
        QTest::keyClick(text, Qt::Key_Return);

        const QTextBlock line = text->document()->findBlockByNumber(121);
        QCOMPARE(line.text(), QStringLiteral("type = ChangeStat"));
        bool underlined = false;
        for (const QTextLayout::FormatRange& range : line.layout()->formats())
            underlined |= range.format.underlineStyle() != QTextCharFormat::NoUnderline;
        QVERIFY(underlined);
        QTRY_VERIFY_WITH_TIMEOUT(intf->errorIcon()->property("errors").toInt() >= 1, 5000);
        intf->fileCheck();
        ErrorDlg* errors = intf->errorDialog();
        bool listed = false;
        for (int row = 0; row < errors->view()->model()->rowCount(); ++row) {
            const QModelIndex index = errors->view()->model()->index(row, 0);
            for (int column = 0; column < errors->view()->model()->columnCount(); ++column)
                listed |= index.siblingAtColumn(column).data().toString().contains(QStringLiteral("Unknown 'State' type"));
        }
        QVERIFY(listed);
        errors->hide();

        // "type = " opens the list of controllers; Return takes the chosen one.
        QTextCursor end(line);
        end.setPosition(line.position() + 6);
        end.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        text->setTextCursor(end);
        text->centerCursor(); // the list opens under the line, as it does mid-screen
        QTest::keyClick(text, Qt::Key_Backspace);
        QTest::keyClick(text, Qt::Key_Space); // "type = " again
        QAbstractItemView* popup = text->completer()->popup();
        QVERIFY(popup->isVisible());
        QTest::keyClicks(text, QStringLiteral("Chan"));
        text->ensureCursorVisible();
        shoot(QStringLiteral("kfm-error-and-completion"));
        QTest::keyClicks(text, QStringLiteral("geS"));
        QTest::keyClick(popup, Qt::Key_Return);
        QCOMPARE(text->document()->findBlockByNumber(121).text(), QStringLiteral("type = ChangeState"));
        QTRY_COMPARE_WITH_TIMEOUT(intf->errorIcon()->property("errors").toInt(), 0, 3000);

        // The outline lists the new state under its definition, and takes the author there.
        auto* outline = m_window->findChild<QTextOutline*>(QStringLiteral("statesOutline"));
        QVERIFY(outline);
        QTRY_VERIFY_WITH_TIMEOUT(!outline->findItems(QStringLiteral("State 0, Oops  (ChangeState)"),
                                                      Qt::MatchRecursive).isEmpty(), 3000);
        QTreeWidgetItem* oops = outline->findItems(QStringLiteral("State 0, Oops  (ChangeState)"), Qt::MatchRecursive).first();
        outline->scrollToItem(oops);
        QTest::mouseClick(outline->viewport(), Qt::LeftButton, {}, outline->visualItemRect(oops).center());
        QCOMPARE(text->textCursor().blockNumber(), 120);
    }

    void foldsInTheWindow()
    {
        openKfmStates();
        QTextView* text = view();
        int header = 0;
        while (!QTextEditor::isSectionHeader(text->document()->findBlockByNumber(header)))
            ++header;
        text->setFolded(header, true);
        QVERIFY(text->isFolded(header));
        QVERIFY(!text->document()->findBlockByNumber(header + 1).isVisible());
        text->setFolded(header, false);
        QVERIFY(text->document()->findBlockByNumber(header + 1).isVisible());
    }

    void replacesATriggerInEveryStateFileAndUndoes()
    {
        // On a copy: the replace is real text editing of the author's files.
        const QDir source(realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm"));
        for (const QString& name : source.entryList({QStringLiteral("kfm.*")}, QDir::Files))
            QVERIFY(QFile::copy(source.filePath(name), m_work.filePath(name)));
        openKfmStates(m_work.filePath(QStringLiteral("kfm.def")));
        QProject* kfm = intf->currentProject();
        QStringList before;
        for (int i = 0; i < kfm->statesCount(); ++i)
            before.append(kfm->states(i)->document()->toPlainText());

        FindDlgMlt* find = m_window->findChild<FindDlgMlt*>();
        QVERIFY(find);
        // The Edit menu's "Find and replace in all files" (Ctrl+Shift+F) opens it.
        QAction* findInFiles = intf->actions()->fromName(QStringLiteral("edit_find_replace_multi"));
        QVERIFY(findInFiles);
        QCOMPARE(intf->actions()->shortcut(findInFiles), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F));
        QVERIFY(m_window->findChild<QMenu*>(QStringLiteral("menuEdit"))->actions().contains(findInFiles));
        findInFiles->trigger();
        QVERIFY(find->isVisible());
        find->findField()->setText(QStringLiteral("AnimTime"));
        find->replaceField()->setText(QStringLiteral("AnimElemTime(1)"));
        const int found = find->findAll();
        QVERIFY(found > 10);
        QCOMPARE(find->results()->topLevelItemCount(), found);
        QSet<QString> files;
        for (int i = 0; i < found; ++i)
            files.insert(find->results()->topLevelItem(i)->text(0));
        QVERIFY(files.contains(QStringLiteral("kfm.cns")));
        QCOMPARE(files.size(), kfm->statesCount()); // every state file has the trigger

        // A result takes the author to its file and line.
        QTreeWidgetItem* last = find->results()->topLevelItem(found - 1);
        emit find->results()->itemActivated(last, 0);
        QCOMPARE(view()->textCursor().blockNumber() + 1, last->text(1).toInt());

        QCOMPARE(find->replaceAll(), found);
        for (int i = 0; i < kfm->statesCount(); ++i)
            QVERIFY(!kfm->states(i)->document()->toPlainText().contains(QStringLiteral("AnimTime ")));
        QVERIFY(kfm->states(0)->isModified());
        find->undoReplace();
        for (int i = 0; i < kfm->statesCount(); ++i)
            QCOMPARE(kfm->states(i)->document()->toPlainText(), before.at(i));
        find->hide();
    }
};

QTEST_MAIN(TestTextEditorWindow)
#include "tst_texteditorwindow.moc"
