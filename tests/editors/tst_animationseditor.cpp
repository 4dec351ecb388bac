// The animations editor in the real main window, driven by mouse and keys as
// an author drives it on a copy of the engine's kfm: a new action built from
// three sprites dropped on the frames table, times typed into the table, a
// Clsn2 box drawn in the view and copied to every frame, thirty ticks of
// playback on a clock of the test's own, stepping, looping and the onion
// skin, the actions list's commands, the AIR text and the table editing each
// other, faults and navigation, then a save that the readers and the checker
// accept, and undo back to the bytes the file had.
#include "app/mainwindow.h"
#include "interface/editors/qactionlistpanel.h"
#include "interface/editors/qanimationseditor.h"
#include "interface/editors/qframeboxtools.h"
#include "interface/editors/qframetablemodel.h"
#include "interface/editors/qplaybackcontrols.h"
#include "interface/editors/qspritelistmime.h"
#include "interface/editors/qspriteseditor.h"
#include "interface/qinterface.h"
#include "interface/workspaces/qtexteditor.h"
#include "model/qanimation.h"
#include "model/qanimationframe.h"
#include "model/qanimations.h"
#include "model/qcollisionbox.h"
#include "model/qcollisionboxes.h"
#include "model/qproject.h"
#include "render/gui/qanimspriteworkspace.h"
#include "render/gui/qrenderwidget.h"
#include "render/qsprrender.h"
#include "syntax/qsyntaxtexteditor.h"
#include "util/qmessages.h"
#include "model/qprojectfile.h"
#include "clirunner.h"
#include "mainwindowsession.h"
#include "qfakeplaybackclock.h"
#include "qrecordingprompt.h"
#include "realdata.h"
#include "screenshots.h"
#include "windowmanagers.h"

#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <QTableView>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QToolBar>
#include <QToolButton>
#include <QUndoStack>
#include <QtTest>

#include <functional>

namespace {

/// A test clock that runs `onTick` at each pause of the player between ticks.
class QTickClock : public QFakePlaybackClock
{
public:
    std::function<void()> onTick;
    void sleep(int milliseconds) override
    {
        QFakePlaybackClock::sleep(milliseconds);
        if (onTick)
            onTick();
    }
};

QByteArray bytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Clicks the tool button of the page's command named `name`.
void clickCommand(QWidget* page, const char* name)
{
    auto* action = page->findChild<QAction*>(QLatin1String(name));
    QVERIFY2(action, name);
    for (QToolBar* bar : page->findChildren<QToolBar*>()) {
        if (QWidget* button = bar->widgetForAction(action)) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QFAIL(name);
}

/// Drops `data` on the table's empty area below its rows, as a drag from the sprites list ends.
bool dropOn(QTableView* table, QMimeData* data)
{
    QWidget* viewport = table->viewport();
    const QPoint at(viewport->width() / 2, viewport->height() - 4);
    QDragEnterEvent enter(at, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &enter);
    QDragMoveEvent move(at, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &move);
    QDropEvent drop(at, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &drop);
    return drop.isAccepted();
}

/// Types `text` into the cell and commits it with Enter.
void typeInto(QTableView* table, int row, int column, const QString& text)
{
    table->setFocus();
    table->setCurrentIndex(table->model()->index(row, column));
    QTest::keyClick(table, Qt::Key_F2);
    QWidget* editor = QApplication::focusWidget();
    QVERIFY(editor && editor != table);
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    // The delegate commits after the key, as the event loop goes on.
    QCoreApplication::processEvents();
}

} // namespace

class TestAnimationsEditor : public QObject
{
    Q_OBJECT

private:
    MainWindowSession m_session;
    QTemporaryDir m_work;
    QRecordingPrompt* m_prompt = nullptr;
    MainWindow* m_window = nullptr;
    QAnimationsEditor* m_editor = nullptr;

    /// Opens a fresh copy of kfm in the window on the animations editor; its folder, empty without realdata.
    QString openKfm(const QString& name)
    {
        const QDir source(realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm"));
        if (!source.exists(QStringLiteral("kfm.def")))
            return QString();
        const QString dir = m_work.filePath(name);
        QDir().mkpath(dir);
        for (const QString& file : source.entryList(QDir::Files))
            QFile::copy(source.filePath(file), dir + QLatin1Char('/') + file);
        if (!intf->openProject(dir + QStringLiteral("/kfm.def")))
            return QString();
        intf->switchEditor(ieAnimations);
        m_editor = static_cast<QAnimationsEditor*>(intf->editor(ieAnimations));
        // The progress of loading took the focus; the window gets it back.
        m_window->activateWindow();
        if (!QTest::qWaitForWindowActive(m_window))
            return QString();
        return dir;
    }

    /// Closes every project, keeping none of their changes.
    void closeAll()
    {
        m_prompt->script({ QPrompt::No });
        intf->fileCloseAll();
    }

private slots:
    void initTestCase()
    {
        // The editor's keys are part of what is tested: the window must be the active one.
        QVERIFY(m_session.open(QSize(1280, 800)));
        m_window = m_session.window();
        m_prompt = m_session.prompt();
        QVERIFY(QTest::qWaitForWindowActive(m_window));
    }

    void cleanupTestCase() { m_session.close(); }

    void spriteDragFormat()
    {
        std::unique_ptr<QMimeData> data(QSpriteListMime::encode({ { 20, 0 }, { -1, 7 }, { 5000, 12 } }));
        QVERIFY(data->hasFormat(QLatin1String(QSpriteListMime::mimeType)));
        QCOMPARE(data->text(), QStringLiteral("20,0\n-1,7\n5000,12"));
        QCOMPARE(QSpriteListMime::decode(data.get()),
            QList<QSubItem>({ QSubItem(20, 0), QSubItem(-1, 7), QSubItem(5000, 12) }));
        // Lines that are no pair are left out; other data gives nothing.
        data->setData(QLatin1String(QSpriteListMime::mimeType), "1,2\nthree\n4,\n 6 , 7 \n8,9,10");
        QCOMPARE(QSpriteListMime::decode(data.get()), QList<QSubItem>({ QSubItem(1, 2), QSubItem(6, 7) }));
        QMimeData text;
        text.setText(QStringLiteral("1,2"));
        QVERIFY(QSpriteListMime::decode(&text).isEmpty());
        QVERIFY(QSpriteListMime::decode(nullptr).isEmpty());
    }

    void authorBuildsAndPlaysAnAction()
    {
        PF_REQUIRE_REALDATA();
        const QString dir = openKfm(QStringLiteral("session"));
        if (dir.isEmpty())
            QSKIP("the engine's kfm is not in the real data");
        QProject* project = intf->currentProject();
        QAnimations* animations = project->animations();
        const QString airPath = dir + QStringLiteral("/kfm.air");
        const QByteArray original = bytes(airPath);
        const int actionCount = animations->count();
        // Opening and showing the text is no edit.
        QCOMPARE(m_editor->undoStack()->count(), 0);
        QWidget* page = m_window->findChild<QWidget*>(QStringLiteral("animationsView"));
        QVERIFY(page);
        QTableView* table = m_editor->frameTable();
        auto* viewWidget = m_window->findChild<QRenderWidget*>();
        QVERIFY(viewWidget && viewWidget->isVisible());
        QSprRender* renderer = m_editor->spriteView()->renderer();

        // A new action from the tool bar, found again by typing its number into the search.
        clickCommand(page, "anim_new");
        QCOMPARE(animations->count(), actionCount + 1);
        QAnimation* action = animations->at(m_editor->currentAction());
        const int number = action->number();
        QCOMPARE(action->frameCount(), 0);

        // Three walking sprites dragged from the sprites list onto the frames table: one undo step.
        const int steps = m_editor->undoStack()->count();
        QVERIFY(dropOn(table, QSpriteListMime::encode({ { 20, 0 }, { 20, 1 }, { 20, 2 } })));
        action = animations->at(m_editor->currentAction());
        QCOMPARE(action->frameCount(), 3);
        QCOMPARE(m_editor->undoStack()->count(), steps + 1);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(action->frame(i)->sprite(), QSubItem(20, i));

        // Times typed into the table; the AIR text pane shows each at once.
        for (int i = 0; i < 3; ++i) {
            typeInto(table, i, QFrameTableModel::Time, QStringLiteral("4"));
            typeInto(table, i, QFrameTableModel::Time, QStringLiteral("5"));
        }
        for (int i = 0; i < 3; ++i)
            QCOMPARE(action->frame(i)->time(), 5);
        QCOMPARE(m_editor->undoStack()->count(), steps + 7);
        QTextEditor* text = m_editor->textView();
        QCOMPARE(text->document()->findBlockByNumber(action->frame(1)->line()).text(),
            QStringLiteral("20,1, 0,0, 5"));
        // ... and a line typed in the text pane shows in the table at once.
        QTextCursor cursor(text->document()->findBlockByNumber(action->frame(2)->line()));
        cursor.movePosition(QTextCursor::EndOfBlock);
        text->setTextCursor(cursor);
        text->setFocus();
        QTest::keyClick(text, Qt::Key_Backspace);
        QTest::keyClicks(text, QStringLiteral("6, H"));
        QCOMPARE(table->model()->index(2, QFrameTableModel::Time).data().toInt(), 6);
        QCOMPARE(table->model()->index(2, QFrameTableModel::Flip).data().toString(), QStringLiteral("H"));
        typeInto(table, 2, QFrameTableModel::Flip, QString());
        typeInto(table, 2, QFrameTableModel::Time, QStringLiteral("5"));
        QCOMPARE(text->document()->findBlockByNumber(action->frame(2)->line()).text(),
            QStringLiteral("20,2, 0,0, 5"));

        // Interpolation and loop start are columns like the others.
        typeInto(table, 1, QFrameTableModel::Interpolation, QStringLiteral("offset, Scale"));
        QVERIFY(action->frame(1)->checkInterElem(ifeOffset) && action->frame(1)->checkInterElem(ifeScale));
        QCOMPARE(table->model()->index(1, QFrameTableModel::Interpolation).data().toString(),
            QStringLiteral("Offset, Scale"));
        QVERIFY(!table->model()->setData(
            table->model()->index(1, QFrameTableModel::Interpolation), QStringLiteral("wobble")));
        QVERIFY(
            table->model()->setData(table->model()->index(1, QFrameTableModel::Interpolation), QString()));
        QVERIFY(!action->frame(1)->checkInterElem(ifeOffset));
        QVERIFY(table->model()->setData(
            table->model()->index(1, QFrameTableModel::LoopStart), Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(action->loopStart(), 1);
        QVERIFY(table->model()->setData(
            table->model()->index(1, QFrameTableModel::LoopStart), Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(action->loopStart(), 0);

        // A Clsn2 box drawn with the mouse on the first frame, copied to the next, then to every frame.
        table->setCurrentIndex(table->model()->index(0, 0));
        QCOMPARE(renderer->frame(), action->frame(0));
        clickCommand(page, "anim_draw_clsn2");
        QVERIFY(renderer->isCreatingCLSN());
        const QPoint axis = renderer->crossPos();
        QTest::mousePress(viewWidget, Qt::LeftButton, Qt::NoModifier, axis + QPoint(-20, -60));
        for (int step = 1; step <= 4; ++step)
            QTest::mouseMove(viewWidget, axis + QPoint(-20 + 10 * step, -60 + 15 * step));
        QTest::mouseRelease(viewWidget, Qt::LeftButton, Qt::NoModifier, axis + QPoint(20, 0));
        clickCommand(page, "anim_draw_clsn2");
        QVERIFY(!renderer->isCreatingCLSN());
        QVERIFY(action->frame(0)->collisionBoxes(cbtClsn2));
        QCOMPARE(action->frame(0)->collisionBoxes(cbtClsn2)->count(), 1);
        const QRect drawn = action->frame(0)->collisionBoxes(cbtClsn2)->at(0)->rect();
        QVERIFY(drawn.width() > 10 && drawn.height() > 20);
        clickCommand(page, "anim_boxes_to_next");
        QCOMPARE(table->currentIndex().row(), 1);
        QCOMPARE(action->frame(1)->collisionBoxes(cbtClsn2)->at(0)->rect(), drawn);
        QVERIFY(!action->frame(2)->collisionBoxes(cbtClsn2));
        table->setCurrentIndex(table->model()->index(0, 0));
        clickCommand(page, "anim_boxes_to_all");
        for (int i = 0; i < 3; ++i) {
            QVERIFY(action->frame(i)->collisionBoxes(cbtClsn2));
            QCOMPARE(action->frame(i)->collisionBoxes(cbtClsn2)->count(), 1);
            QCOMPARE(action->frame(i)->collisionBoxes(cbtClsn2)->at(0)->rect(), drawn);
        }
        // A selected box moves with the arrow keys and goes with Delete; undo brings it back.
        renderer->selectCLSN(0);
        viewWidget->setFocus();
        QTest::keyClick(viewWidget, Qt::Key_Right);
        QTest::keyClick(viewWidget, Qt::Key_Up);
        QCOMPARE(action->frame(0)->collisionBoxes(cbtClsn2)->at(0)->rect(), drawn.translated(1, -1));
        m_editor->undoStack()->undo();
        m_editor->undoStack()->undo();
        QCOMPARE(action->frame(0)->collisionBoxes(cbtClsn2)->at(0)->rect(), drawn);
        renderer->selectCLSN(0);
        clickCommand(page, "anim_delete_boxes");
        QVERIFY(!action->frame(0)->collisionBoxes(cbtClsn2));
        m_editor->undoStack()->undo();
        QCOMPARE(action->frame(0)->collisionBoxes(cbtClsn2)->count(), 1);
        // The box made a default of the action and back: the next frames see it while they have none.
        table->setCurrentIndex(table->model()->index(0, 0));
        renderer->selectCLSN(0);
        clickCommand(page, "anim_boxes_default");
        QVERIFY(action->frame(0)->collisionBoxes(cbtClsn2Default));
        QCOMPARE(action->frame(0)->activeBoxes(true), action->frame(0)->collisionBoxes(cbtClsn2Default));
        m_editor->undoStack()->undo();
        QVERIFY(!action->frame(0)->collisionBoxes(cbtClsn2Default));

        // Thirty ticks played on the test's clock: each frame shows for its five ticks, then it starts over.
        QTickClock clock;
        QList<int> shown;
        QList<int> rows;
        clock.onTick = [&] {
            shown.append(int(renderer->frameIndex()));
            rows.append(table->currentIndex().row());
            if (shown.size() == 30)
                m_editor->playback()->pause();
        };
        m_editor->spriteView()->setClock(&clock);
        table->setCurrentIndex(table->model()->index(0, 0));
        page->setFocus();
        QTest::keyClick(page, Qt::Key_F5);
        QCOMPARE(shown.size(), 30);
        for (int tick = 1; tick <= 30; ++tick) {
            const int expected = ((tick - 1) / 5) % 3;
            QCOMPARE(shown[tick - 1], expected);
            QCOMPARE(rows[tick - 1], expected);
        }
        QVERIFY(!m_editor->spriteView()->isPlaying());
        // Stepping: a tick at a time it stays on its frame until the time is out, a frame at a time it moves
        // on.
        clickCommand(page, "anim_stop");
        QCOMPARE(table->currentIndex().row(), 0);
        for (int tick = 0; tick < 6; ++tick) {
            QCOMPARE(int(renderer->frameIndex()), 0);
            QTest::keyClick(page, Qt::Key_F8);
        }
        QCOMPARE(int(renderer->frameIndex()), 1);
        QCOMPARE(table->currentIndex().row(), 1);
        QTest::keyClick(page, Qt::Key_F8, Qt::ShiftModifier);
        QCOMPARE(int(renderer->frameIndex()), 2);
        // Without looping playback ends by itself on the last frame.
        shown.clear();
        clock.onTick = [&] { shown.append(int(renderer->frameIndex())); };
        clickCommand(page, "anim_loop");
        QVERIFY(!m_editor->playback()->loopAction()->isChecked());
        clickCommand(page, "anim_stop");
        clickCommand(page, "anim_play");
        QVERIFY(!m_editor->spriteView()->isPlaying());
        QCOMPARE(shown.size(), 16);
        QCOMPARE(shown.last(), 2);
        clickCommand(page, "anim_loop");
        m_editor->spriteView()->setClock(nullptr);
        // The onion skin shows the frame before behind the one shown.
        QVERIFY(renderer->onionRect().isNull());
        QTest::keyClick(page, Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(m_editor->playback()->onionAction()->isChecked());
        table->setCurrentIndex(table->model()->index(1, 0));
        QVERIFY(!renderer->onionRect().isEmpty());
        m_editor->playback()->onionAction()->setChecked(false);
        QVERIFY(renderer->onionRect().isNull());

        // The actions list: renamed, duplicated under the next free number, moved, sorted, searched, deleted.
        QActionListPanel* list = m_editor->actions();
        QVERIFY(list->renameAction(QStringLiteral("%1 - Test walk").arg(number)));
        QCOMPARE(animations->at(m_editor->currentAction())->nameText(), QStringLiteral("Test walk"));
        QVERIFY(list->renameAction(QStringLiteral("Short walk")));
        QCOMPARE(animations->at(m_editor->currentAction())->nameText(), QStringLiteral("Short walk"));
        m_editor->actionList()->setFocus();
        QTest::keyClick(m_editor->actionList(), Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(animations->count(), actionCount + 2);
        QCOMPARE(animations->at(m_editor->currentAction())->number(), number + 1);
        QCOMPARE(animations->at(m_editor->currentAction())->frameCount(), 3);
        QTest::keyClick(m_editor->actionList(), Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(m_editor->currentAction(), actionCount);
        QCOMPARE(animations->at(actionCount + 1)->number(), number);
        clickCommand(page, "anim_sort");
        QCOMPARE(animations->at(m_editor->currentAction())->number(), number + 1);
        QCOMPARE(animations->at(animations->count() - 1)->number(), number + 1);
        QTest::keyClick(m_editor->actionList(), Qt::Key_Delete, Qt::ControlModifier);
        QCOMPARE(animations->count(), actionCount + 1);
        QCOMPARE(animations->find(0, number + 1), -1);
        QLineEdit* search = m_editor->actions()->searchField();
        search->setFocus();
        QTest::keyClicks(search, QStringLiteral("short walk"));
        QCOMPARE(m_editor->actionList()->model()->rowCount(), 1);
        QTest::keyClick(search, Qt::Key_Return);
        QCOMPARE(animations->at(m_editor->currentAction())->number(), number);
        search->clear();

        // Saved: the file loads in the readers with its three frames and boxes, and checks clean.
        QVERIFY(animations->toFile(airPath, false, true));
        QProject reread;
        QVERIFY(reread.open(dir + QStringLiteral("/kfm.def"), 0, false, false));
        const int position = reread.animations()->find(0, number);
        QVERIFY(position >= 0);
        const QAnimation* again = reread.animations()->at(position);
        QCOMPARE(again->nameText(), QStringLiteral("Short walk"));
        QCOMPARE(again->frameCount(), 3);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(again->frame(i)->collisionBoxes(cbtClsn2)->at(0)->rect(), drawn);
        reread.animations()->checkErrors();
        QCOMPARE(reread.animations()->messages()->rowCount(), 0);
        const CliResult check = runCli({ QStringLiteral("check"), airPath });
        QVERIFY2(check.exitCode == 0, QByteArray(check.out + check.err).constData());

        // Every step undone gives back the file's bytes.
        QUndoStack* undo = m_editor->undoStack();
        while (undo->canUndo())
            undo->undo();
        QCOMPARE(animations->count(), actionCount);
        QVERIFY(animations->toFile(airPath, false, true));
        QCOMPARE(bytes(airPath), original);
        closeAll();
    }

    /// With PF_SHOT_DIR set (run under Xvfb), the editor playing kfm's light punch, on the frame that hits.
    void picturesForReview()
    {
        if (screenshots::folder().isEmpty())
            QSKIP("PF_SHOT_DIR names no folder for pictures");
        PF_REQUIRE_REALDATA();
        if (openKfm(QStringLiteral("pictures")).isEmpty())
            QSKIP("the engine's kfm is not in the real data");
        m_window->showMaximized();
        QTest::qWait(300);
        QAnimations* animations = intf->currentProject()->animations();
        m_editor->actionList()->setFocus();
        m_editor->setCurrentAction(animations->find(0, 200));
        m_editor->playback()->onionAction()->setChecked(true);
        m_editor->spriteView()->renderer()->addZoom();
        // Played on the test's clock until the punch is out, then left there.
        QTickClock clock;
        int ticks = 0;
        clock.onTick = [&] {
            if (++ticks == 5)
                m_editor->playback()->pause();
        };
        m_editor->spriteView()->setClock(&clock);
        m_editor->playback()->play();
        m_editor->spriteView()->setClock(nullptr);
        QTest::qWait(300);
        QVERIFY(screenshots::save(m_window->grab(), QStringLiteral("animations-playing.png")));
        m_editor->playback()->onionAction()->setChecked(false);
        closeAll();
    }

    void altArrowsMoveTextLinesInTheText()
    {
        // The page moves actions with Alt+Up/Down; in the AIR text the same keys move the lines.
        const QString dir = m_work.filePath(QStringLiteral("alt-keys"));
        QVERIFY(QDir().mkpath(dir));
        const QDir sample(qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/samples/ember"));
        for (const QString& file : sample.entryList(QDir::Files))
            QVERIFY(QFile::copy(sample.filePath(file), dir + QLatin1Char('/') + file));
        QVERIFY(intf->openProject(dir + QStringLiteral("/ember.def")));
        intf->switchEditor(ieAnimations);
        m_editor = static_cast<QAnimationsEditor*>(intf->editor(ieAnimations));
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window));
        QAnimations* animations = intf->currentProject()->animations();
        QList<int> numbers;
        for (int i = 0; i < animations->count(); ++i)
            numbers << animations->at(i)->number();
        m_editor->setCurrentAction(1);

        QTextEditor* text = m_editor->textView();
        const int line = animations->at(1)->frame(0)->line();
        const QString first = text->document()->findBlockByNumber(line).text();
        const QString second = text->document()->findBlockByNumber(line + 1).text();
        QVERIFY(first != second);
        text->setFocus();
        text->setTextCursor(QTextCursor(text->document()->findBlockByNumber(line)));
        QTest::keyClick(text, Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(text->document()->findBlockByNumber(line).text(), second);
        QCOMPARE(text->document()->findBlockByNumber(line + 1).text(), first);
        QCOMPARE(text->textCursor().blockNumber(), line + 1);
        QTest::keyClick(text, Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(text->document()->findBlockByNumber(line).text(), first);
        QList<int> after;
        for (int i = 0; i < animations->count(); ++i)
            after << animations->at(i)->number();
        QCOMPARE(after, numbers);

        // In the list the keys still move the action.
        m_editor->actionList()->setFocus();
        QTest::keyClick(m_editor->actionList(), Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(animations->at(2)->number(), numbers.at(1));
        QCOMPARE(m_editor->currentAction(), 2);
        closeAll();
    }

    void faultsAndNavigation()
    {
        PF_REQUIRE_REALDATA();
        if (openKfm(QStringLiteral("faults")).isEmpty())
            QSKIP("the engine's kfm is not in the real data");
        QProject* project = intf->currentProject();
        QAnimations* animations = project->animations();
        // A frame line typed above the first action, where no frame may stand.
        const int walk = animations->find(0, 20);
        QTextEditor* text = m_editor->textView();
        text->setTextCursor(QTextCursor(text->document()));
        text->setFocus();
        QTest::keyClicks(text, QStringLiteral("0,0, 0,0, 5"));
        QTest::keyClick(text, Qt::Key_Return);
        QCOMPARE(text->document()->firstBlock().text(), QStringLiteral("0,0, 0,0, 5"));
        // The project's error list learns of it shortly after the typing stops, and leads to its line.
        QTRY_COMPARE(animations->messages()->rowCount(), 1);
        QVERIFY(animations->messages()->index(0, 0).data().toString().contains(QStringLiteral("no action")));
        QVERIFY(intf->currentProject()->messages()->rowCount() > 0);
        text->moveCursor(QTextCursor::End);
        intf->navigateTo(pftAnimations, 0, 2, 0);
        QCOMPARE(text->textCursor().blockNumber(), 0);
        QCOMPARE(text->textCursor().positionInBlock(), 2);

        // Navigating to a frame's line shows its action and frame and puts the text cursor there.
        m_editor->setCurrentAction(0);
        const int frameLine = animations->at(walk)->frame(4)->line();
        intf->navigateTo(pftAnimations, 0, 3, frameLine);
        QCOMPARE(m_editor->currentAction(), walk);
        QCOMPARE(m_editor->frameTable()->currentIndex().row(), 4);
        QCOMPARE(m_editor->spriteView()->renderer()->frame(), animations->at(walk)->frame(4));
        QCOMPARE(text->textCursor().blockNumber(), frameLine);
        QCOMPARE(text->textCursor().positionInBlock(), 3);
        // "Add frame" takes the sprite the sprites editor showed last.
        intf->switchEditor(ieSprites);
        QVERIFY(static_cast<QSpritesEditor*>(intf->editor(ieSprites))->goTo(QStringLiteral("0,1")));
        intf->switchEditor(ieAnimations);
        m_editor->setCurrentAction(walk);
        const int frames = animations->at(walk)->frameCount();
        clickCommand(m_window->findChild<QWidget*>(QStringLiteral("animationsView")), "anim_add_frame");
        QCOMPARE(animations->at(walk)->frameCount(), frames + 1);
        QCOMPARE(animations->at(walk)->frame(frames)->sprite(), QSubItem(0, 1));
        QCOMPARE(m_editor->frameTable()->currentIndex().row(), frames);

        // A declaration's line belongs to the frame below it.
        const int declaration = animations->at(walk)->line() + 1;
        QCOMPARE(text->document()->findBlockByNumber(declaration).text(), QStringLiteral("Clsn2Default: 2"));
        intf->navigateTo(pftAnimations, 0, 0, declaration);
        QCOMPARE(m_editor->currentAction(), walk);
        QCOMPARE(m_editor->frameTable()->currentIndex().row(), 0);
        while (m_editor->undoStack()->canUndo())
            m_editor->undoStack()->undo();
        QTRY_COMPARE(animations->messages()->rowCount(), 0);
        closeAll();
    }
};

QTEST_MAIN(TestAnimationsEditor)
#include "tst_animationseditor.moc"
