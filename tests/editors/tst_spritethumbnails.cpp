// Thumbnails of sprites in the real main window: the sprites editor's grid,
// which shares the table's selection and decodes only the cells it shows,
// and the right panel's thumbnails, of sprites or of the actions' first
// frames, that bring the author to what is clicked.
#include "app/mainwindow.h"
#include "interface/editors/qanimationseditor.h"
#include "interface/editors/qspriteseditor.h"
#include "interface/editors/qthumbnailcache.h"
#include "interface/extras/qspritedraglistview.h"
#include "interface/extras/qthumbnailseditor.h"
#include "interface/qinterface.h"
#include "managers/qactionmanager.h"
#include "model/qanimations.h"
#include "model/qproject.h"
#include "model/qsprite.h"
#include "model/qspritepalette.h"
#include "model/qsprites.h"
#include "realdata.h"
#include "screenshots.h"
#include "mainwindowsession.h"

#include <QAction>
#include <QApplication>
#include <QListView>
#include <QMimeData>
#include <QScrollBar>
#include <QSet>
#include <QTableView>
#include <QTemporaryDir>
#include <QToolButton>
#include <QUndoStack>
#include <QtTest>

#include <memory>

namespace {

/// The rows whose cells `grid` shows now, wholly or in part.
QSet<int> visibleRows(QListView* grid)
{
    QSet<int> rows;
    const QRect shown = grid->viewport()->rect();
    for (int row = 0; row < grid->model()->rowCount(); ++row)
        if (grid->visualRect(grid->model()->index(row, 0)).intersects(shown))
            rows.insert(row);
    return rows;
}

/// `count` sprites of different pictures, group row / 10, index row % 10.
void fillSprites(QSprites* sprites, int count)
{
    sprites->beginMacro(QStringLiteral("fill"));
    for (int i = 0; i < count; ++i) {
        QImage picture(20 + i % 13, 30, QImage::Format_Indexed8);
        picture.setColorTable({ qRgb(0, 0, 0), qRgb(200, 40, 40), qRgb(40, 200, 40) });
        picture.fill(1);
        picture.setPixel(i % picture.width(), (i / 13) % 30, 2);
        QSprite* sprite = sprites->add();
        sprite->setImage(picture);
        sprite->setItem(i / 10, i % 10);
    }
    sprites->endMacro();
}

/// Gives the sprite a new picture of one colour, `side` pixels square, in place (keeping its record).
void repaintInPlace(QSprite* sprite, int side)
{
    QImage picture(side, side, QImage::Format_Indexed8);
    picture.setColorTable({ qRgb(0, 0, 0), qRgb(9, 9, 9) });
    picture.fill(1);
    sprite->setImage(picture, ssmPrivate);
}

void clickCell(QListView* grid, int row)
{
    const QModelIndex index = grid->model()->index(row, 0);
    grid->scrollTo(index);
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, grid->visualRect(index).center());
}

} // namespace

class TestSpriteThumbnails : public QObject
{
    Q_OBJECT

private:
    MainWindowSession m_session;

private slots:
    void initTestCase() { QVERIFY(m_session.open(QSize(1280, 800))); }
    void cleanupTestCase() { m_session.close(); }

    void gridDecodesOnlyWhatItShows()
    {
        intf->newProject(false);
        QSprites* sprites = intf->currentProject()->sprites();
        fillSprites(sprites, 600);
        intf->switchEditor(ieSprites);
        auto* editor = static_cast<QSpritesEditor*>(intf->editor(ieSprites));
        QListView* grid = editor->grid();
        QVERIFY(!grid->isVisible());
        const int before = editor->thumbnailCache()->decodes();
        // The table alone decodes nothing; Ctrl+T brings the grid.
        editor->table()->setFocus();
        QTest::keyClick(editor->table(), Qt::Key_T, Qt::ControlModifier);
        QVERIFY(grid->isVisible());
        grid->viewport()->repaint();
        QSet<int> seen = visibleRows(grid);
        QVERIFY(seen.size() > 10 && seen.size() < 200);
        QCOMPARE(editor->thumbnailCache()->decodes() - before, seen.size());

        // Page by page: each page decodes its new cells only.
        for (int page = 0; page < 5; ++page) {
            const int decoded = editor->thumbnailCache()->decodes();
            grid->verticalScrollBar()->setValue(
                grid->verticalScrollBar()->value() + grid->verticalScrollBar()->pageStep());
            grid->viewport()->repaint();
            const QSet<int> shown = visibleRows(grid);
            const int fresh = int((shown - seen).size());
            QVERIFY(fresh > 0);
            QCOMPARE(editor->thumbnailCache()->decodes() - decoded, fresh);
            seen.unite(shown);
        }
        // Back to the top: all kept, nothing decoded again.
        const int decoded = editor->thumbnailCache()->decodes();
        grid->verticalScrollBar()->setValue(0);
        grid->viewport()->repaint();
        QCOMPARE(editor->thumbnailCache()->decodes(), decoded);
        QVERIFY(seen.size() < 400);

        // One selection for grid and table; a sprite's edit draws its cell again.
        clickCell(grid, 3);
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::ShiftModifier,
            grid->visualRect(grid->model()->index(5, 0)).center());
        QCOMPARE(editor->selectedRows(), QList<int>({ 3, 4, 5 }));
        QCOMPARE(editor->table()->currentIndex().row(), 5);
        repaintInPlace(sprites->at(4), 40);
        grid->viewport()->repaint();
        QCOMPARE(editor->thumbnailCache()->decodes(), decoded + 1);
        QTest::keyClick(grid, Qt::Key_T, Qt::ControlModifier);
        QVERIFY(editor->table()->isVisible());
        QCOMPARE(editor->selectedRows(), QList<int>({ 3, 4, 5 }));
    }

    void panelDropsOnlyTheChangedThumbnail()
    {
        intf->newProject(false);
        QSprites* sprites = intf->currentProject()->sprites();
        fillSprites(sprites, 12); // all in view
        intf->switchEditor(ieSprites);
        QAction* panelAction = intf->actions()->fromName(QStringLiteral("view_thumbnails"));
        if (!panelAction->isChecked())
            panelAction->trigger();
        auto* panel = static_cast<QThumbnailsEditor*>(intf->extraEditor(ieeThumbnails));
        QSpriteDragListView* grid = panel->grid();
        QVERIFY(grid->isVisible());
        QCOMPARE(grid->model()->rowCount(), 12);
        QCOMPARE(visibleRows(grid).size(), 12); // laid out
        int decoded = panel->cache()->decodes();
        // The panel paints as it comes into view, with the event loop.
        QTRY_COMPARE(panel->cache()->decodes(), decoded + 12);
        decoded = panel->cache()->decodes();

        // A picture edited in place: its cell alone is decoded again.
        repaintInPlace(sprites->at(4), 24);
        grid->viewport()->repaint();
        QCOMPARE(panel->cache()->decodes(), decoded + 1);
        decoded = panel->cache()->decodes();

        // New colours of a palette, kept in the same palette: the sprites drawn with it are decoded again.
        QSpritePalette* palette = sprites->at(0)->palette();
        QVERIFY(palette);
        int users = 0;
        for (int row = 0; row < sprites->count(); ++row)
            users += sprites->at(row)->palette() == palette ? 1 : 0;
        QVERIFY(users > 0);
        palette->setColorTable({ qRgb(0, 0, 0), qRgb(250, 250, 0), qRgb(0, 0, 250) });
        grid->viewport()->repaint();
        QCOMPARE(panel->cache()->decodes(), decoded + users);
        decoded = panel->cache()->decodes();

        // A removed sprite takes only its own picture: the others are kept.
        sprites->remove(7);
        QCOMPARE(visibleRows(grid).size(), 11);
        grid->viewport()->repaint();
        QCOMPARE(panel->cache()->decodes(), decoded);
        // A new sprite is decoded once; the others are still kept.
        fillSprites(sprites, 1);
        QCOMPARE(visibleRows(grid).size(), 12);
        grid->viewport()->repaint();
        QCOMPARE(panel->cache()->decodes(), decoded + 1);
        decoded = panel->cache()->decodes();

        // Switching the panel to the actions and back keeps the pictures too.
        grid->parentWidget()->findChild<QToolButton*>(QStringLiteral("thumbnailsShowActions"))->click();
        grid->parentWidget()->findChild<QToolButton*>(QStringLiteral("thumbnailsShowSprites"))->click();
        QCOMPARE(visibleRows(grid).size(), 12);
        grid->viewport()->repaint();
        QCOMPARE(panel->cache()->decodes(), decoded);
        panelAction->trigger();
    }

    void panelFollowsTheEditorAndNavigates()
    {
        PF_REQUIRE_REALDATA();
        QVERIFY(intf->openProject(realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.def")));
        QProject* project = intf->currentProject();
        intf->switchEditor(ieSprites);
        intf->actions()->fromName(QStringLiteral("view_thumbnails"))->trigger();
        auto* panel = static_cast<QThumbnailsEditor*>(intf->extraEditor(ieeThumbnails));
        QSpriteDragListView* grid = panel->grid();
        QVERIFY(grid->isVisible());
        QVERIFY(!panel->showsActions());
        QCOMPARE(grid->model()->rowCount(), project->sprites()->count());
        const int decodedBefore = panel->cache()->decodes();
        grid->viewport()->repaint();
        QVERIFY(panel->cache()->decodes() - decodedBefore <= visibleRows(grid).size());

        auto* sprites = static_cast<QSpritesEditor*>(intf->editor(ieSprites));
        clickCell(grid, 7);
        QCOMPARE(sprites->table()->currentIndex().row(), 7);

        // With the animations editor in front, the first frames of the actions, a click opens one.
        intf->switchEditor(ieAnimations);
        QVERIFY(panel->showsActions());
        QCOMPARE(grid->model()->rowCount(), project->animations()->count());
        grid->viewport()->repaint();
        QVERIFY(panel->cache()->decodes() > 0);
        clickCell(grid, 4);
        auto* animations = static_cast<QAnimationsEditor*>(intf->editor(ieAnimations));
        QCOMPARE(animations->currentAction(), 4);
        QCOMPARE(intf->currentEditor(), ieAnimations);

        // The sprites beside the action: two picked out of order drag in as two frames, in the grid's order.
        grid->parentWidget()->findChild<QToolButton*>(QStringLiteral("thumbnailsShowSprites"))->click();
        QVERIFY(!panel->showsActions());
        QCOMPARE(grid->model()->rowCount(), project->sprites()->count());
        QVERIFY(grid->dragEnabled());
        grid->selectionModel()->select(grid->model()->index(9, 0), QItemSelectionModel::ClearAndSelect);
        grid->selectionModel()->select(grid->model()->index(2, 0), QItemSelectionModel::Select);
        std::unique_ptr<QMimeData> dragged(grid->selectionMime());
        QVERIFY(dragged);
        QAbstractItemModel* frames = animations->frameTable()->model();
        const int before = frames->rowCount();
        QVERIFY(frames->dropMimeData(dragged.get(), Qt::CopyAction, before, 0, QModelIndex()));
        QCOMPARE(frames->rowCount(), before + 2);
        for (const int row : { 2, 9 }) {
            const QSprite* sprite = project->sprites()->at(row);
            const int frame = before + (row == 2 ? 0 : 1);
            QCOMPARE(frames->index(frame, 0).data().toInt(), sprite->itemGroup());
            QCOMPARE(frames->index(frame, 1).data().toInt(), sprite->itemIndex());
        }
        intf->editor(ieAnimations)->undoStack()->undo();
        QCOMPARE(frames->rowCount(), before);
        grid->parentWidget()->findChild<QToolButton*>(QStringLiteral("thumbnailsShowActions"))->click();
        QVERIFY(panel->showsActions());
        QVERIFY(!grid->selectionMime());
        intf->switchEditor(ieSprites);
        QVERIFY(!panel->showsActions());
    }

    /// With PF_SHOT_DIR set (run under Xvfb), the grid and the panel on kfm for review.
    void picturesForReview()
    {
        PF_REQUIRE_REALDATA();
        if (screenshots::folder().isEmpty())
            QSKIP("PF_SHOT_DIR names no folder for pictures");
        const QString kfm = realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.def");
        QVERIFY(intf->openProject(kfm));
        intf->actions()->fromName(QStringLiteral("view_thumbnails"))->trigger();
        intf->switchEditor(ieSprites);
        auto* editor = static_cast<QSpritesEditor*>(intf->editor(ieSprites));
        editor->showThumbnails(true);
        QVERIFY(editor->goTo(QStringLiteral("20,3")));
        QTest::qWait(200);
        QVERIFY(screenshots::save(m_session.window()->grab(), QStringLiteral("sprites-thumbnails.png")));
        editor->showThumbnails(false);
        intf->switchEditor(ieAnimations);
        QTest::qWait(200);
        QVERIFY(screenshots::save(m_session.window()->grab(), QStringLiteral("actions-thumbnails.png")));
    }
};

QTEST_MAIN(TestSpriteThumbnails)
#include "tst_spritethumbnails.moc"
