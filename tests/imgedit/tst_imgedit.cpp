#include "image/gui/imgedit.h"
#include "image/gui/imgeditcolor.h"
#include "image/gui/imgeditlayers.h"
#include "image/gui/imgedittoolbar.h"
#include "image/gui/imgeditview.h"
#include "image/qimagelayer.h"
#include "model/qsprites.h"
#include "qrecordingprompt.h"
#include "realdata.h"
#include "screenshots.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QTemporaryDir>
#include <QComboBox>
#include <QSlider>
#include <QListView>
#include <QToolButton>
#include <QtTest>

namespace {

QString kfmSff()
{
    return realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.sff");
}

/// The point of the view over the middle of a canvas pixel in the zoomed pane.
QPoint viewPoint(ImgEdit& editor, const QPoint& pixel)
{
    const double zoom = editor.canvas()->zoomLevel();
    return editor.render()->zoomedRect().topLeft()
        + QPoint(int(pixel.x() * zoom + zoom / 2), int(pixel.y() * zoom + zoom / 2));
}

void dragOnView(ImgEdit& editor, const QList<QPoint>& pixels, Qt::MouseButton button = Qt::LeftButton)
{
    ImgEditView* view = editor.view();
    QTest::mousePress(view, button, Qt::NoModifier, viewPoint(editor, pixels.first()));
    for (const QPoint& p : pixels.mid(1))
        QTest::mouseMove(view, viewPoint(editor, p));
    QTest::mouseRelease(view, button, Qt::NoModifier, viewPoint(editor, pixels.last()));
}

void clickButton(QWidget* parent, const QString& text)
{
    for (QToolButton* button : parent->findChildren<QToolButton*>())
        if (button->text() == text) {
            button->click();
            return;
        }
    QFAIL(qPrintable(QStringLiteral("no button ") + text));
}

/// Pixels that differ between two indexed images of one size.
QList<QPoint> differences(const QImage& a, const QImage& b)
{
    QList<QPoint> out;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.constScanLine(y)[x] != b.constScanLine(y)[x])
                out << QPoint(x, y);
    return out;
}

/// Saves a picture of the window when one is wanted (see screenshots.h).
void screenshot(QWidget* window, const QString& name)
{
    if (screenshots::folder().isEmpty())
        return;
    QTest::qWait(50); // tool bars lay out their option widgets on the next events
    screenshots::save(window->grab(), name);
}

} // namespace

class TestImgEdit : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QSprites::init(); }

    void editKfmSpriteInOneUndoStep()
    {
        PF_REQUIRE_REALDATA();
        QRecordingPrompt prompt;
        QSprites sprites(nullptr, ctMemory, true, -1);
        QVERIFY(sprites.fromFile(kfmSff()));
        const int position = sprites.find(0, 0, 0);
        QVERIFY(position >= 0);
        QSprite* sprite = sprites.at(position);
        const QImage before = sprite->image(sipOwn);
        QCOMPARE(before.format(), QImage::Format_Indexed8);
        const int steps = sprites.undoStack()->count();

        ImgEdit editor;
        QVERIFY(editor.editSprite(&sprites, position));
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));
        QCOMPARE(editor.canvas()->format(), CanvasIndexed);
        QCOMPARE(editor.canvas()->size(), before.size());

        // Draw with palette entry 3, taken from the colour panel.
        ImgEditColor* colours = editor.colorPanel();
        QTest::mouseClick(colours, Qt::LeftButton, Qt::NoModifier, colours->entryRect(3).center());
        QCOMPARE(editor.imagePalette()->foreground(), uchar(3));
        editor.toolBar()->toolAction(itPen)->trigger();
        dragOnView(editor, { QPoint(2, 2), QPoint(8, 2) });
        QCOMPARE(editor.canvas()->activeLayer()->image().pixelIndex(5, 2), 3);

        // A new layer, then a copied block of the sprite pasted onto it.
        clickButton(editor.layersPanel(), QStringLiteral("New"));
        QCOMPARE(editor.canvas()->layers()->count(), 2);
        QListView* list = editor.layersPanel()->list();
        list->setCurrentIndex(list->model()->index(1, 0));
        QCOMPARE(editor.canvas()->activeLayer()->name(), QStringLiteral("Sprite 0, 0"));
        editor.toolBar()->toolAction(itRectSel)->trigger();
        dragOnView(editor, { QPoint(20, 30), QPoint(29, 39) });
        editor.copy();
        list->setCurrentIndex(list->model()->index(0, 0));
        editor.canvas()->selection()->fromRect(QRect(30, 60, 10, 10));
        editor.paste();
        QCOMPARE(editor.canvas()->layers()->count(), 3);
        screenshot(&editor, QStringLiteral("imgedit-kfm.png"));
        editor.render()->setVisibility(true, true);
        editor.canvas()->setZoomLevel(5.0);
        editor.canvas()->setPosition(QPoint(0, -40));
        screenshot(&editor, QStringLiteral("imgedit-kfm-zoom.png"));

        QAction* apply = editor.findChild<QAction*>(QStringLiteral("applyToSprite"));
        QVERIFY(apply);
        apply->trigger();
        QCOMPARE(prompt.count(QStringLiteral("question")), 0);

        const QImage after = sprite->image(sipOwn);
        QCOMPARE(after.format(), QImage::Format_Indexed8);
        QCOMPARE(after.colorTable(), before.colorTable());
        QCOMPARE(sprites.undoStack()->count(), steps + 1);
        const QRect stroke(2, 2, 7, 1), pasted(30, 60, 10, 10);
        for (const QPoint& p : differences(before, after))
            QVERIFY2(stroke.contains(p) || pasted.contains(p),
                qPrintable(QStringLiteral("%1,%2").arg(p.x()).arg(p.y())));
        QCOMPARE(after.pixelIndex(5, 2), 3);
        for (int y = 0; y < 10; ++y)
            for (int x = 0; x < 10; ++x) {
                const int copied = before.pixelIndex(20 + x, 30 + y);
                QCOMPARE(
                    after.pixelIndex(30 + x, 60 + y), copied ? copied : before.pixelIndex(30 + x, 60 + y));
            }

        sprites.undoStack()->undo();
        QCOMPARE(sprite->image(sipOwn), before);
    }

    void trueColourAsksBeforeItQuantizes()
    {
        PF_REQUIRE_REALDATA();
        QRecordingPrompt prompt;
        QSprites sprites(nullptr, ctMemory, true, -1);
        QVERIFY(sprites.fromFile(kfmSff()));
        const int position = sprites.find(0, 0, 0);
        QSprite* sprite = sprites.at(position);
        const QImage before = sprite->image(sipOwn);
        const int steps = sprites.undoStack()->count();

        ImgEdit editor;
        QVERIFY(editor.editSprite(&sprites, position));
        editor.setTrueColour(true);
        QCOMPARE(editor.canvas()->format(), CanvasRGBA);
        editor.imagePalette()->setForeground(7);
        editor.toolBar()->toolAction(itPen)->trigger();
        dragOnView(editor, { QPoint(1, 1), QPoint(1, 4) });

        prompt.script({ QPrompt::Cancel });
        QVERIFY(!editor.applyToSprite());
        QCOMPARE(prompt.count(QStringLiteral("question")), 1);
        QCOMPARE(sprites.undoStack()->count(), steps);
        QCOMPARE(sprite->image(sipOwn), before);

        // Closing asks to apply; Cancel keeps the window and the sprite as they are.
        prompt.script({ QPrompt::Cancel });
        QVERIFY(!editor.close());
        QCOMPARE(prompt.count(QStringLiteral("question")), 2);
        QCOMPARE(sprite->image(sipOwn), before);

        prompt.script({ QPrompt::Yes });
        QVERIFY(editor.applyToSprite());
        QCOMPARE(prompt.count(QStringLiteral("question")), 3);
        QVERIFY(editor.close()); // applied: nothing to ask
        const QImage after = sprite->image(sipOwn);
        QCOMPARE(after.format(), QImage::Format_Indexed8);
        QCOMPARE(after.colorTable(), before.colorTable());
        // Entries with equal colours may trade places; the colour may not.
        QCOMPARE(after.color(after.pixelIndex(1, 3)), before.color(7));
        for (const QPoint& p : differences(before, after))
            QVERIFY(QRect(1, 1, 1, 4).contains(p));
        QCOMPARE(sprites.undoStack()->count(), steps + 1);
    }

    void axisFollowsACanvasResize()
    {
        PF_REQUIRE_REALDATA();
        QRecordingPrompt prompt;
        QSprites sprites(nullptr, ctMemory, true, -1);
        QVERIFY(sprites.fromFile(kfmSff()));
        QSprite* sprite = sprites.at(sprites.find(0, 0, 0));
        const QImage before = sprite->image(sipOwn);
        const QPoint axis = sprite->offset();
        const int steps = sprites.undoStack()->count();

        ImgEdit editor;
        QVERIFY(editor.editSprite(&sprites, sprite->index()));
        editor.canvas()->setSize(before.size() + QSize(6, 4), QPoint(3, 2), true);
        QVERIFY(editor.applyToSprite());
        QCOMPARE(sprite->offset(), axis + QPoint(3, 2));
        QCOMPARE(sprite->image(sipOwn).copy(3, 2, before.width(), before.height()), before);
        // Cropping back moves the axis back; each apply is one step of the sprite file.
        editor.canvas()->crop();
        QVERIFY(editor.applyToSprite());
        QCOMPARE(sprite->offset(), axis + editor.canvas()->origin());
        QCOMPARE(sprites.undoStack()->count(), steps + 2);
        sprites.undoStack()->undo();
        sprites.undoStack()->undo();
        QCOMPARE(sprite->offset(), axis);
        QCOMPARE(sprite->image(sipOwn), before);
    }

    void foreignPicturesJoinAnIndexedCanvasAsIndices()
    {
        QRecordingPrompt prompt;
        ImgEdit editor;
        QImage indexed(16, 8, QImage::Format_Indexed8);
        QVector<QRgb> table(256, qRgb(0, 0, 0));
        for (int i = 1; i < 256; ++i)
            table[i] = qRgb(i, 255 - i, (i * 5) & 0xff);
        table[0] = qRgba(0, 0, 0, 0);
        indexed.setColorTable(table);
        indexed.fill(0);
        editor.setImage(indexed);
        QCOMPARE(editor.canvas()->format(), CanvasIndexed);

        // A true-colour picture from another program, through the clipboard.
        QImage foreign(4, 4, QImage::Format_ARGB32);
        foreign.fill(qRgb(100, 155, 244)); // entry 100 exactly
        foreign.setPixel(0, 0, qRgba(0, 0, 0, 0));
        QApplication::clipboard()->setImage(foreign);
        editor.paste();
        const QImage& pasted = editor.canvas()->activeLayer()->image();
        QCOMPARE(pasted.format(), QImage::Format_Indexed8);
        QCOMPARE(pasted.pixelIndex(1, 1), 100);
        QCOMPARE(pasted.pixelIndex(0, 0), 0);
        QCOMPARE(editor.render()->currentToolType(), itSelMove); // ready to place it

        // An image file as a new layer; a file that is no image loses nothing.
        QTemporaryDir dir;
        const QString good = dir.filePath(QStringLiteral("spark.png"));
        QVERIFY(foreign.save(good));
        QVERIFY(editor.importLayerFrom(good));
        QCOMPARE(editor.canvas()->layers()->count(), 3);
        QCOMPARE(editor.canvas()->activeLayer()->name(), QStringLiteral("spark"));
        QCOMPARE(editor.canvas()->activeLayer()->image().pixelIndex(2, 3), 100);
        const QString bad = dir.filePath(QStringLiteral("notes.png"));
        QFile file(bad);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("not a picture");
        file.close();
        QVERIFY(!editor.importLayerFrom(bad));
        QCOMPARE(prompt.count(QStringLiteral("warning")), 1);
        QVERIFY(prompt.entries().last().text.contains(QStringLiteral("notes.png")));
        QCOMPARE(editor.canvas()->layers()->count(), 3);
    }

    void layersPanelEditsTheActiveLayer()
    {
        ImgEdit editor;
        QImage picture(32, 24, QImage::Format_ARGB32);
        picture.fill(QColor(200, 40, 40));
        editor.setImage(picture);
        ImgEditLayers* panel = editor.layersPanel();
        clickButton(panel, QStringLiteral("New"));
        QImageLayer* top = editor.canvas()->activeLayer();
        auto* blend = panel->findChild<QComboBox*>();
        auto* opacity = panel->findChild<QSlider*>();
        QVERIFY(blend && opacity);
        blend->setCurrentIndex(2);
        emit blend->activated(2);
        QCOMPARE(top->blendMode(), QPainter::CompositionMode_Multiply);
        opacity->setValue(40);
        opacity->setValue(50);
        QCOMPARE(top->opacity(), 0.5);
        clickButton(panel, QStringLiteral("Down"));
        QCOMPARE(top->index(), 1);
        editor.canvas()->undoStack()->undo(); // the move
        editor.canvas()->undoStack()->undo(); // the whole opacity drag
        QCOMPARE(top->opacity(), 1.0);
        QCOMPARE(top->index(), 0);
        clickButton(panel, QStringLiteral("Merge"));
        QCOMPARE(editor.canvas()->layers()->count(), 1);
    }
};

QTEST_MAIN(TestImgEdit)
#include "tst_imgedit.moc"
