// The sprites and animations editors in the real main window, driven as an
// author drives them: pictures added as a numbered series, axes set by
// numbers and by dragging, a new action built frame by frame with a box drawn
// in the view and copied to every frame, played tick by tick, saved, opened
// again, and everything undone back to the files as they were.
#include "app/mainwindow.h"
#include "image/gui/imgedit.h"
#include "image/gui/imgedittoolbar.h"
#include "image/gui/imgeditview.h"
#include "image/qimagecanvas.h"
#include "image/qimagerender.h"
#include "image/qtableimagepalette.h"
#include "interface/editors/qanimationseditor.h"
#include "interface/editors/qspritefileimport.h"
#include "interface/editors/qspriteseditor.h"
#include "interface/qinterface.h"
#include "model/qanimation.h"
#include "model/qanimationframe.h"
#include "model/qanimations.h"
#include "model/qcollisionboxes.h"
#include "model/qproject.h"
#include "model/qsprite.h"
#include "model/qsprites.h"
#include "render/gui/qrenderwidget.h"
#include "render/qanimationplayer.h"
#include "render/qplaybackclock.h"
#include "render/qsprrender.h"
#include "syntax/qsyntaxtexteditor.h"
#include "qfakeplaybackclock.h"
#include "qrecordingprompt.h"
#include "realdata.h"
#include "screenshots.h"
#include "mainwindowsession.h"

#include <QApplication>
#include <QListView>
#include <QMouseEvent>
#include <QPointer>
#include <QTableView>
#include <QTextDocument>
#include <QTemporaryDir>
#include <QUndoStack>
#include <QtTest>

namespace {

using session::bytes;
using session::drag;

/// A 24 x 40 paletted picture with a block of colour `shade` standing on its bottom edge.
bool writePicture(const QString& path, int shade)
{
    QImage image(24, 40, QImage::Format_Indexed8);
    image.setColorTable({ qRgb(0, 0, 0), qRgb(shade, 40, 200 - shade), qRgb(250, 250, 250) });
    image.fill(0);
    for (int y = 10; y < 40; ++y)
        for (int x = 4; x < 20; ++x)
            image.setPixel(x, y, y < 14 ? 2 : 1);
    return image.save(path, "PNG");
}

} // namespace

class TestSpriteAnimEditors : public QObject
{
    Q_OBJECT

private:
    MainWindowSession m_session;
    QTemporaryDir m_work;
    QRecordingPrompt* m_prompt = nullptr;
    MainWindow* m_window = nullptr;

private slots:
    void initTestCase()
    {
        QVERIFY(m_session.open(QSize(1200, 760)));
        m_prompt = m_session.prompt();
        m_window = m_session.window();
    }

    void cleanupTestCase()
    {
        m_session.close();
    }

    void numberedSeriesAndBadPictures()
    {
        const QString dir = m_work.filePath(QStringLiteral("series"));
        QDir().mkpath(dir);
        for (int i : { 8, 9, 10, 12 })
            QVERIFY(writePicture(dir + QStringLiteral("/jump%1.png").arg(i, 2, 10, QLatin1Char('0')), 40 * (i - 7)));
        // The series runs from the chosen file on and stops at the first gap.
        const QStringList series = QSpriteFileImport::numberedSeries(dir + QStringLiteral("/jump08.png"));
        QCOMPARE(series.size(), 3);
        QVERIFY(series.last().endsWith(QStringLiteral("jump10.png")));
        QCOMPARE(QSpriteFileImport::numberedSeries(dir + QStringLiteral("/jump12.png")).size(), 1);

        // A corrupt picture among good ones adds nothing and names the file.
        QFile bad(dir + QStringLiteral("/broken.png"));
        QVERIFY(bad.open(QIODevice::WriteOnly) && bad.write("\x89PNG\r\n\x1a\nnot really") > 0);
        bad.close();
        QProject project;
        QSpriteFileImport import(project.sprites());
        QCOMPARE(import.add({ series.first(), bad.fileName() }, 0, 0, 1), 0);
        QVERIFY(import.error().startsWith(QDir::toNativeSeparators(bad.fileName()) + QStringLiteral(": ")));
        QVERIFY(!import.error().contains(QLatin1Char('\n')));
        QCOMPARE(project.sprites()->count(), 0);
        QCOMPARE(project.sprites()->undoStack()->count(), 0);

        // True colour into a file saved with 8-bit sprites only: asked first; "No" adds nothing.
        QImage photo(8, 8, QImage::Format_ARGB32);
        photo.fill(qRgba(10, 200, 30, 255));
        QVERIFY(photo.save(dir + QStringLiteral("/photo.png")));
        project.sprites()->setVersion(QSprites::version101);
        m_prompt->clear();
        m_prompt->script({ QPrompt::No });
        QCOMPARE(import.add({ dir + QStringLiteral("/photo.png") }, 0, 0, 1), 0);
        QCOMPARE(m_prompt->count(QStringLiteral("question")), 1);
        QCOMPARE(project.sprites()->count(), 0);
        m_prompt->script({ QPrompt::Yes });
        QCOMPARE(import.add({ dir + QStringLiteral("/photo.png") }, 5, 7, 1), 1);
        QCOMPARE(project.sprites()->at(0)->subItem(), QSubItem(5, 7));
    }

    void authorSessionOnKfm()
    {
        PF_REQUIRE_REALDATA();
        const QString kfm = session::copyOfKfm(m_work.filePath(QStringLiteral("kfm")));
        if (kfm.isEmpty())
            QSKIP("the engine's kfm is not in the real data");
        const QString dir = QFileInfo(kfm).path();
        QVERIFY(intf->openProject(kfm));
        QProject* project = intf->currentProject();
        QSprites* sprites = project->sprites();
        QAnimations* animations = project->animations();
        const int spriteCount = sprites->count();
        const int actionCount = animations->count();
        QVERIFY(spriteCount > 100 && actionCount > 50);
        // The files as this program writes them before any edit.
        const QString baseSff = m_work.filePath(QStringLiteral("base.sff"));
        const QString baseAir = m_work.filePath(QStringLiteral("base.air"));
        QVERIFY(sprites->toFile(baseSff, 0, true));
        QVERIFY(animations->toFile(baseAir, false, true));

        // Sprites: three pictures as a numbered series from 7000,0.
        intf->switchEditor(ieSprites);
        auto* spritesEditor = static_cast<QSpritesEditor*>(intf->editor(ieSprites));
        QCOMPARE(spritesEditor->table()->model()->rowCount(), spriteCount);
        for (int i = 0; i < 3; ++i)
            QVERIFY(writePicture(m_work.filePath(QStringLiteral("walk%1.png").arg(i, 3, 10, QLatin1Char('0'))),
                                 60 * (i + 1)));
        const QStringList files = QSpriteFileImport::numberedSeries(m_work.filePath(QStringLiteral("walk000.png")));
        QCOMPARE(files.size(), 3);
        m_prompt->clear();
        QCOMPARE(spritesEditor->addFiles(files, 7000, 0, 1), 3);
        QCOMPARE(m_prompt->entries().size(), 0); // paletted pictures need no question
        QCOMPARE(spritesEditor->table()->model()->rowCount(), spriteCount + 3);
        QCOMPARE(spritesEditor->selectedRows(), QList<int>({ spriteCount, spriteCount + 1, spriteCount + 2 }));
        QCOMPARE(spritesEditor->table()->model()->index(spriteCount + 2, 2).data().toString(),
                 QStringLiteral("24 x 40"));
        // Axes of the whole selection by number, then the first one by dragging it in the view.
        spritesEditor->setSelectionAxis(12, 40);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(sprites->at(spriteCount + i)->offset(), QPoint(12, 40));
        QVERIFY(spritesEditor->goTo(QStringLiteral("7000,0")));
        auto* view = m_window->findChild<QRenderWidget*>();
        QVERIFY(view && view->isVisible());
        QSprRender* renderer = static_cast<QSprRender*>(view->renderer());
        QCOMPARE(renderer->sprite(), sprites->at(spriteCount));
        renderer->zoomActual();
        const QPoint grip = renderer->spriteRect().center();
        drag(view, grip, grip + QPoint(8, 4));
        // The axis runs against the sprite: dragging it right and down moves the axis left and up.
        QCOMPARE(sprites->at(spriteCount)->offset(), QPoint(4, 36));
        QCOMPARE(spritesEditor->table()->model()->index(spriteCount, 3).data().toString(), QStringLiteral("4, 36"));
        // Typing a pair that does not exist leaves the selection.
        QVERIFY(!spritesEditor->goTo(QStringLiteral("7000,9")));

        // Animations: a new action of the three sprites, frame by frame.
        intf->switchEditor(ieAnimations);
        auto* animEditor = static_cast<QAnimationsEditor*>(intf->editor(ieAnimations));
        animEditor->newAction();
        QCOMPARE(animations->count(), actionCount + 1);
        QAnimation* action = animations->at(animEditor->currentAction());
        QVERIFY(action && action->frameCount() == 0);
        QTableView* table = animEditor->frameTable();
        for (int i = 0; i < 3; ++i) {
            animEditor->addFrame();
            // The author types into the table: the sprite index and the time.
            table->setCurrentIndex(table->model()->index(i, 0));
            QVERIFY(table->model()->setData(table->model()->index(i, 0), 7000));
            QVERIFY(table->model()->setData(table->model()->index(i, 1), i));
            QVERIFY(table->model()->setData(table->model()->index(i, 4), 5));
        }
        QCOMPARE(action->frameCount(), 3);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(action->frame(i)->sprite(), QSubItem(7000, i));
        QVERIFY(!table->model()->setData(table->model()->index(0, 5), QStringLiteral("sideways")));
        QVERIFY(table->model()->setData(table->model()->index(1, 5), QStringLiteral("H")));
        QCOMPARE(action->frame(1)->flipFlags(), 2u);

        // A Clsn2 box drawn with the mouse on the first frame, then copied to all frames.
        table->setCurrentIndex(table->model()->index(0, 0));
        QCOMPARE(renderer->frame(), action->frame(0));
        renderer->clsnCreationMode(true, cbtClsn2);
        const QPoint axis = renderer->crossPos();
        drag(view, axis + QPoint(-10, -30), axis + QPoint(10, 0));
        renderer->clsnCreationMode(false, cbtClsn2);
        QVERIFY(action->frame(0)->collisionBoxes(cbtClsn2));
        QCOMPARE(action->frame(0)->collisionBoxes(cbtClsn2)->count(), 1);
        animEditor->copyBoxesToAll();
        for (int i = 0; i < 3; ++i) {
            QVERIFY(action->frame(i)->collisionBoxes(cbtClsn2));
            QCOMPARE(action->frame(i)->collisionBoxes(cbtClsn2)->count(), 1);
        }

        // Thirty ticks of playback: each frame shows for its five ticks, then the action starts over.
        QFakePlaybackClock clock;
        QAnimationPlayer player(renderer, &clock);
        player.begin(action, 0);
        for (int pass = 1; pass <= 30; ++pass) {
            player.tick();
            const int expected = ((pass - 1) / 5) % 3;
            QCOMPARE(qMax(0, player.position()), expected);
            QCOMPARE(renderer->sprite(), sprites->at(spriteCount + expected));
        }

        // Saved and opened again in a tab of its own: the new sprites and action are there.
        QVERIFY(sprites->toFile(dir + QStringLiteral("/kfm.sff"), 0, true));
        QVERIFY(animations->toFile(dir + QStringLiteral("/kfm.air"), false, true));
        QVERIFY(intf->openProject(dir + QStringLiteral("/kfm.def")));
        QProject* reloaded = intf->currentProject();
        QVERIFY(reloaded != project);
        QCOMPARE(reloaded->sprites()->count(), spriteCount + 3);
        const int found = reloaded->sprites()->find(0, 7000, 0);
        QVERIFY(found >= 0);
        QCOMPARE(reloaded->sprites()->at(found)->offset(), QPoint(4, 36));
        QCOMPARE(reloaded->sprites()->at(found)->image().pixelIndex(10, 20), 1);
        const int reloadedAction = reloaded->animations()->find(0, action->number());
        QVERIFY(reloadedAction >= 0);
        QAnimation* again = reloaded->animations()->at(reloadedAction);
        QCOMPARE(again->frameCount(), 3);
        QCOMPARE(again->frame(2)->collisionBoxes(cbtClsn2)->count(), 1);

        // Every step undone in the first project gives back the files as they were.
        while (sprites->undoStack()->canUndo())
            sprites->undoStack()->undo();
        QUndoStack* airUndo = animEditor->undoStack();
        QVERIFY(airUndo);
        // The animations editor follows the current tab; the first project's text is undone directly.
        while (project->animationText()->document()->isUndoAvailable())
            project->animationText()->document()->undo();
        QVERIFY(sprites->toFile(m_work.filePath(QStringLiteral("undone.sff")), 0, true));
        QVERIFY(animations->toFile(m_work.filePath(QStringLiteral("undone.air")), false, true));
        QCOMPARE(bytes(m_work.filePath(QStringLiteral("undone.sff"))), bytes(baseSff));
        QCOMPARE(bytes(m_work.filePath(QStringLiteral("undone.air"))), bytes(baseAir));

        // Redone, the sprites read back alike from each version the engine knows.
        while (sprites->undoStack()->canRedo())
            sprites->undoStack()->redo();
        const QImage picture = sprites->at(spriteCount + 1)->image();
        for (quint32 version : { QSprites::version101, quint32(0x02000000), QSprites::defaultVersion }) {
            const QString path = m_work.filePath(QStringLiteral("v%1.sff").arg(version, 0, 16));
            QVERIFY(sprites->toFile(path, version, true));
            QProject readBack;
            QVERIFY(readBack.sprites()->fromFile(path));
            QCOMPARE(readBack.sprites()->count(), spriteCount + 3);
            for (int i = 0; i < 3; ++i) {
                const QSprite* sprite = readBack.sprites()->at(readBack.sprites()->find(0, 7000, i));
                QVERIFY(sprite);
                QCOMPARE(sprite->offset(), i == 0 ? QPoint(4, 36) : QPoint(12, 40));
            }
            const QImage back = readBack.sprites()->at(readBack.sprites()->find(0, 7000, 1))->image();
            QCOMPARE(back.size(), picture.size());
            for (int y = 0; y < picture.height(); y += 3)
                for (int x = 0; x < picture.width(); x += 3)
                    QCOMPARE(back.pixelIndex(x, y), picture.pixelIndex(x, y));
        }
    }

    void imageEditorFromTheSpritesEditor()
    {
        PF_REQUIRE_REALDATA();
        QVERIFY(intf->openProject(realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.def")));
        QSprites* sprites = intf->currentProject()->sprites();
        intf->switchEditor(ieSprites);
        auto* spritesEditor = static_cast<QSpritesEditor*>(intf->editor(ieSprites));
        QVERIFY(spritesEditor->goTo(QStringLiteral("0,0")));
        const int position = sprites->find(0, 0, 0);
        const QImage before = sprites->at(position)->image(sipOwn);
        const int steps = sprites->undoStack()->count();

        // The tool-bar action opens the editor on the current sprite; a pen stroke of entry 3, then apply.
        QAction* edit = m_window->findChild<QAction*>(QStringLiteral("sprites_edit_image"));
        QVERIFY(edit && !edit->icon().isNull());
        ImgEdit* editor = spritesEditor->editImage();
        QVERIFY(editor && editor->isVisible());
        QPointer<ImgEdit> guard(editor);
        editor->imagePalette()->setForeground(3);
        editor->toolBar()->toolAction(itPen)->trigger();
        const double zoom = editor->canvas()->zoomLevel();
        auto at = [&](int x, int y) {
            return editor->render()->zoomedRect().topLeft()
                + QPoint(int(x * zoom + zoom / 2), int(y * zoom + zoom / 2));
        };
        QTest::mousePress(editor->view(), Qt::LeftButton, Qt::NoModifier, at(2, 2));
        QTest::mouseMove(editor->view(), at(8, 2));
        QTest::mouseRelease(editor->view(), Qt::LeftButton, Qt::NoModifier, at(8, 2));
        QVERIFY(editor->applyToSprite());

        // One undo step of the sprite file holds it, and the sprites editor shows the sprite that changed.
        const QImage after = sprites->at(position)->image(sipOwn);
        QCOMPARE(after.pixelIndex(5, 2), 3);
        QCOMPARE(after.colorTable(), before.colorTable());
        QCOMPARE(sprites->undoStack()->count(), steps + 1);
        QCOMPARE(spritesEditor->table()->currentIndex().row(), position);
        sprites->undoStack()->undo();
        QCOMPARE(sprites->at(position)->image(sipOwn), before);
        editor->close();
        QTRY_VERIFY(guard.isNull());
        m_prompt->script({ QPrompt::No });
        intf->fileCloseAll();
    }

    /// With PF_SHOT_DIR set (run under Xvfb), pictures of both editors on kfm for review.
    void picturesForReview()
    {
        if (screenshots::folder().isEmpty())
            QSKIP("PF_SHOT_DIR names no folder for pictures");
        PF_REQUIRE_REALDATA();
        QVERIFY(intf->openProject(realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.def")));
        intf->switchEditor(ieSprites);
        auto* spritesEditor = static_cast<QSpritesEditor*>(intf->editor(ieSprites));
        QVERIFY(spritesEditor->goTo(QStringLiteral("200,1")));
        QTest::qWait(200);
        QVERIFY(screenshots::save(m_window->grab(), QStringLiteral("sprites.png")));

        intf->switchEditor(ieAnimations);
        auto* animEditor = static_cast<QAnimationsEditor*>(intf->editor(ieAnimations));
        QProject* project = intf->currentProject();
        animEditor->setCurrentAction(project->animations()->find(0, 200));
        auto* view = m_window->findChild<QRenderWidget*>();
        QFakePlaybackClock clock;
        QAnimationPlayer player(static_cast<QSprRender*>(view->renderer()), &clock);
        player.begin(project->animations()->at(animEditor->currentAction()), 0);
        for (int tick = 0; tick < 6; ++tick)
            player.tick();
        view->repaint();
        QTest::qWait(200);
        QVERIFY(screenshots::save(m_window->grab(), QStringLiteral("animations.png")));
    }
};

QTEST_MAIN(TestSpriteAnimEditors)
#include "tst_spriteanimeditors.moc"
