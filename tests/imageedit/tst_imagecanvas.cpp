#include "canvaskit.h"

#include "image/qimagepainter.h"
#include "image/qrasterlayer.h"
#include "image/qrasterlayeredit.h"

#include <QPainter>
#include <QtTest>

#include <cmath>

namespace {

const QList<QPainter::CompositionMode> blendModes = {
    QPainter::CompositionMode_SourceOver,
    QPainter::CompositionMode_Plus,
    QPainter::CompositionMode_Multiply,
    QPainter::CompositionMode_Screen,
    QPainter::CompositionMode_Overlay,
    QPainter::CompositionMode_Darken,
    QPainter::CompositionMode_Lighten,
    QPainter::CompositionMode_ColorDodge,
    QPainter::CompositionMode_ColorBurn,
    QPainter::CompositionMode_HardLight,
    QPainter::CompositionMode_SoftLight,
    QPainter::CompositionMode_Difference,
    QPainter::CompositionMode_Exclusion,
};

/// A picture with a gradient, holes of transparency and half-transparent pixels.
QImage testPicture(const QSize& size, int seed)
{
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) {
            const int alpha = (x + y + seed) % 5 == 0 ? 0 : ((x * seed + y) % 3 == 0 ? 128 : 255);
            image.setPixel(x, y,
                qRgba(
                    (x * 16 + seed * 40) & 0xff, (y * 16 + seed * 70) & 0xff, (x * y + seed) & 0xff, alpha));
        }
    return image;
}

} // namespace

class TestImageCanvas : public QObject
{
    Q_OBJECT

private slots:
    void paintersDrawInBothFormats_data()
    {
        QTest::addColumn<int>("format");
        QTest::newRow("indexed") << int(CanvasIndexed);
        QTest::newRow("rgba") << int(CanvasRGBA);
    }
    void paintersDrawInBothFormats()
    {
        QFETCH(int, format);
        CanvasKit kit(QImageCanvasFormat(format), QSize(16, 12));
        QImagePainter* painter = kit.canvas.painter();
        QVERIFY(painter);

        // A point is a square of the pen's width from its top-left corner.
        painter->setWidth(3);
        painter->setColor(5);
        painter->point(QPoint(2, 2));
        QCOMPARE(kit.count(5), 9);
        QCOMPARE(kit.at(2, 2), 5);
        QCOMPARE(kit.at(4, 4), 5);
        QCOMPARE(kit.at(5, 5), 0);
        QCOMPARE(painter->color(QPoint(3, 3)), uchar(5));

        // A one-pixel line covers both ends and one pixel per column.
        painter->setWidth(1);
        painter->setColor(7);
        painter->line(QPoint(0, 10), QPoint(13, 8));
        QCOMPARE(kit.count(7), 14);
        QCOMPARE(kit.at(0, 10), 7);
        QCOMPARE(kit.at(13, 8), 7);

        // A remap with one pair touches only that entry, and replaces it.
        painter->setRemap(5, 9);
        painter->setWidth(6);
        painter->point(QPoint(0, 0));
        painter->clearRemap();
        QCOMPARE(kit.count(5), 0);
        QCOMPARE(kit.count(9), 9);
        QCOMPARE(kit.at(0, 0), 0);

        // Within a selection only selected pixels change, fills included.
        kit.canvas.selection()->fromRect(QRect(8, 0, 4, 4));
        painter->setColor(11);
        painter->setWidth(8);
        painter->point(QPoint(6, 0));
        QCOMPARE(kit.count(11), 16);
        painter->setColor(12);
        painter->floodFill(QPoint(0, 0));
        QCOMPARE(kit.count(12), 0); // the seed is outside the selection
        painter->floodFill(QPoint(9, 1));
        QCOMPARE(kit.count(12), 16);
        QCOMPARE(kit.at(12, 1), 0);
        kit.canvas.selectNone();

        // A fill of a one-pixel column at the right edge, walled on its left.
        painter->setWidth(1);
        painter->setColor(3);
        painter->line(QPoint(14, 0), QPoint(14, 11));
        painter->setColor(4);
        painter->floodFill(QPoint(15, 11));
        QCOMPARE(kit.at(15, 0), 4);
        QCOMPARE(kit.at(15, 11), 4);
        QCOMPARE(kit.at(13, 5), 0);

        // The same at the left edge, and a tolerance that lets similar colours in.
        painter->setColor(3);
        painter->line(QPoint(1, 0), QPoint(1, 11));
        painter->setColor(6);
        painter->floodFill(QPoint(0, 5));
        QCOMPARE(kit.at(0, 0), 6);
        QCOMPARE(kit.at(0, 9), 6);
        QCOMPARE(kit.at(0, 11), 0); // below the line of 7 at (0, 10)
        QCOMPARE(kit.at(2, 11), 0);
    }

    void rgbaRemapGoesThroughThePalette()
    {
        CanvasKit kit(CanvasRGBA, QSize(4, 1));
        QImage& image = kit.layer->image();
        image.setPixel(0, 0, kit.palette.color(5).rgba());
        image.setPixel(1, 0, kit.palette.color(6).rgba());
        QImagePainter* painter = kit.canvas.painter();
        painter->setRemap(5, 8);
        QVERIFY(!painter->canDraw(1, 0));
        painter->line(QPoint(0, 0), QPoint(3, 0));
        QCOMPARE(image.pixel(0, 0), kit.palette.color(8).rgba());
        QCOMPARE(image.pixel(1, 0), kit.palette.color(6).rgba());
        QCOMPARE(image.pixel(2, 0), 0u);
    }

    void compositingFollowsQPainter()
    {
        const QSize size(16, 16);
        const QImage below = testPicture(size, 1), above = testPicture(size, 2), top = testPicture(size, 3);
        for (QPainter::CompositionMode mode : blendModes) {
            CanvasKit kit(CanvasRGBA, size);
            kit.layer->setImage(below);
            QImageLayer* middle = kit.canvas.addLayer(above, QStringLiteral("middle"));
            middle->setBlendMode(mode, false);
            middle->setOpacity(0.6, false);
            QImageLayer* hidden = kit.canvas.addLayer(top, QStringLiteral("hidden"));
            hidden->setVisible(false);

            QImage expected(size, QImage::Format_ARGB32);
            expected.fill(0);
            {
                QPainter painter(&expected);
                painter.drawImage(0, 0, below);
                painter.setCompositionMode(mode);
                painter.setOpacity(0.6);
                painter.drawImage(0, 0, above);
            }
            QString name;
            QCOMPARE(kit.canvas.mergeLayers(&name), expected);
            QCOMPARE(name, QStringLiteral("Base"));

            // Merging down and flattening give the pixels of the composition.
            const QImage twoLayers = kit.canvas.compose({ kit.layer, middle });
            QVERIFY(kit.canvas.mergeDown(middle));
            QCOMPARE(kit.layer->image(), twoLayers);
            QCOMPARE(kit.canvas.layers()->count(), 2);
            kit.canvas.undoStack()->undo();
            QCOMPARE(kit.canvas.layers()->count(), 3);
            QCOMPARE(kit.layer->image(), below);
            QCOMPARE(middle->blendMode(), mode);

            hidden->setVisible(true);
            const QImage all = kit.canvas.mergeLayers();
            kit.canvas.flatten();
            QCOMPARE(kit.canvas.layers()->count(), 1);
            QCOMPARE(kit.canvas.layers()->at(0)->image(), all);
            QCOMPARE(kit.canvas.layers()->at(0)->name(), QStringLiteral("Base"));
            kit.canvas.undoStack()->undo();
            QCOMPARE(kit.canvas.layers()->count(), 3);
            QCOMPARE(kit.canvas.mergeLayers(), all);
        }
    }

    void indexedMergeAveragesTranslucentEntries()
    {
        CanvasKit kit(CanvasIndexed, QSize(3, 1));
        QRGBA colors[256];
        kit.palette.toRGBPal(colors);
        colors[20] = QRGBA(200, 0, 0, 128);
        colors[21] = QRGBA(0, 100, 0, 64);
        colors[22] = QRGBA(100, 50, 0, 96); // the halfway average of the two, from the bottom up
        colors[30] = QRGBA(10, 20, 30, 255);
        kit.palette.setColors(colors);
        kit.layer->image().setPixel(0, 0, 20);
        kit.layer->image().setPixel(1, 0, 30);
        QImage upper(3, 1, QImage::Format_Indexed8);
        upper.setColorTable(kit.palette.toRgbPal());
        upper.setPixel(0, 0, 21);
        upper.setPixel(1, 0, 0);
        upper.setPixel(2, 0, 30);
        QImageLayer* top = kit.canvas.addLayer(upper, QStringLiteral("top"));
        top->setBlendMode(QPainter::CompositionMode_Multiply, false); // no meaning among indices

        const QImage merged = kit.canvas.mergeLayers();
        QCOMPARE(merged.format(), QImage::Format_Indexed8);
        QCOMPARE(merged.pixelIndex(0, 0), 22);
        QCOMPARE(merged.pixelIndex(1, 0), 30); // through the transparent entry
        QCOMPARE(merged.pixelIndex(2, 0), 30); // the first opaque colour is written as it is
        QVERIFY(kit.canvas.mergeDown(top));
        QCOMPARE(kit.layer->image(), merged);
    }

    void editStepsKeepOnlyWhatChanged()
    {
        CanvasKit kit(CanvasIndexed, QSize(64, 48));
        QImagePainter* painter = kit.canvas.painter();
        painter->setColor(3);
        painter->floodFill(QPoint(0, 0));
        const QImage before = kit.layer->image().copy();

        kit.canvas.changing(kit.layer);
        painter->setColor(9);
        painter->setWidth(2);
        painter->line(QPoint(10, 10), QPoint(13, 12));
        kit.canvas.finishEdit();
        const QImage after = kit.layer->image().copy();
        auto* edit = static_cast<const RasterLayerEdit*>(kit.canvas.undoStack()->command(0));
        QCOMPARE(RasterLayerEdit::changedRect(before, after), QRect(10, 10, 5, 4));
        QVERIFY(edit->heldBytes() < 64);

        kit.canvas.undoStack()->undo();
        QCOMPARE(kit.layer->image(), before);
        kit.canvas.undoStack()->redo();
        QCOMPARE(kit.layer->image(), after);

        // A step that changes the size keeps the whole picture.
        kit.canvas.setSize(QSize(70, 50), QPoint(3, 2), true);
        QCOMPARE(kit.layer->image().size(), QSize(70, 50));
        QCOMPARE(kit.at(13, 12), 9); // moved by the offset
        QCOMPARE(kit.at(0, 0), 0); // new room takes the background
        kit.canvas.undoStack()->undo();
        QCOMPARE(kit.canvas.size(), QSize(64, 48));
        QCOMPARE(kit.layer->image(), after);
    }

    void formatChangesMapThroughThePalette()
    {
        CanvasKit kit(CanvasRGBA, QSize(4, 2));
        QImage& image = kit.layer->image();
        image.setPixel(0, 0, kit.palette.color(40).rgba());
        image.setPixel(1, 0, qRgba(41, (41 * 7) & 0xff, (41 * 13) & 0xff, 255) + 0x010101); // near entry 41
        image.setPixel(2, 0, qRgba(0, 0, 0, 0));
        const QImage rgba = image.copy();

        kit.canvas.setFormat(CanvasIndexed, true);
        QCOMPARE(kit.layer->image().format(), QImage::Format_Indexed8);
        QCOMPARE(kit.layer->image().pixelIndex(0, 0), 40);
        QCOMPARE(kit.layer->image().pixelIndex(1, 0), 41);
        QCOMPARE(kit.layer->image().pixelIndex(2, 0), 0);
        kit.canvas.undoStack()->undo();
        QCOMPARE(kit.canvas.format(), CanvasRGBA);
        QCOMPARE(kit.layer->image(), rgba);

        // The quantizer builds a palette that holds every colour of a small picture.
        kit.canvas.toIndexed(true);
        QCOMPARE(kit.canvas.format(), CanvasIndexed);
        QCOMPARE(kit.palette.color(kit.layer->image().pixelIndex(1, 0)).rgba(), rgba.pixel(1, 0));
        QCOMPARE(kit.palette.color(kit.layer->image().pixelIndex(0, 0)).rgba(), rgba.pixel(0, 0));
        QCOMPARE(kit.layer->image().pixelIndex(2, 0), 0);
        kit.canvas.undoStack()->undo();
        QCOMPARE(kit.layer->image(), rgba);
        QCOMPARE(kit.palette.color(40).rgba(), rgba.pixel(0, 0));
    }

    void layersUndoAndClipboard()
    {
        CanvasKit kit(CanvasIndexed, QSize(8, 8));
        QImagePainter* painter = kit.canvas.painter();
        painter->setColor(2);
        painter->setWidth(4);
        painter->point(QPoint(2, 2));
        kit.canvas.selection()->fromRect(QRect(1, 1, 3, 3));
        const QImage copied = kit.canvas.copySelection();
        QCOMPARE(copied.size(), QSize(3, 3));
        QCOMPARE(copied.pixelIndex(0, 0), 0);
        QCOMPARE(copied.pixelIndex(1, 1), 2);
        QCOMPARE(copied.colorTable(), kit.palette.toRgbPal());

        QImageLayer* pasted = kit.canvas.pasteImage(copied, QPoint(5, 5));
        QCOMPARE(kit.canvas.layers()->count(), 2);
        QCOMPARE(kit.canvas.activeLayer(), pasted);
        QCOMPARE(pasted->image().pixelIndex(6, 6), 2);
        QCOMPARE(kit.canvas.selection()->boundingRect(), QRect(5, 5, 3, 3));
        pasted->setName(QStringLiteral("arm"), true);
        pasted->setOpacity(0.2, true);
        pasted->setOpacity(0.3, true); // one drag of the slider is one step
        kit.canvas.layers()->move(0, 1, true);
        QCOMPARE(kit.canvas.layers()->at(1), pasted);

        QUndoStack* stack = kit.canvas.undoStack();
        stack->undo();
        QCOMPARE(kit.canvas.layers()->at(0), pasted);
        stack->undo();
        QCOMPARE(pasted->opacity(), 1.0);
        stack->undo();
        QCOMPARE(pasted->name(), QStringLiteral("Pasted"));
        stack->undo();
        QCOMPARE(kit.canvas.layers()->count(), 1);
        QCOMPARE(kit.canvas.activeLayer(), kit.layer);
        stack->redo();
        QCOMPARE(kit.canvas.layers()->at(0), pasted);

        kit.canvas.setActiveLayer(kit.layer);
        kit.canvas.selection()->fromRect(QRect(2, 2, 1, 4));
        kit.canvas.deleteSelection();
        QCOMPARE(kit.at(2, 2), 0);
        QCOMPARE(kit.at(3, 2), 2);
        stack->undo();
        QCOMPARE(kit.at(2, 2), 2);
    }

    void wholeCanvasEditsUndoAsOneStep()
    {
        CanvasKit kit(CanvasIndexed, QSize(20, 10));
        QImagePainter* painter = kit.canvas.painter();
        painter->setColor(4);
        painter->setWidth(3);
        painter->point(QPoint(5, 2));
        QImage second(20, 10, QImage::Format_Indexed8);
        second.setColorTable(kit.palette.toRgbPal());
        second.fill(0);
        second.setPixel(12, 7, 9);
        QImageLayer* top = kit.canvas.addLayer(second, QStringLiteral("top"));
        kit.canvas.setActiveLayer(kit.layer);
        const QImage base = kit.layer->image().copy(), upper = top->image().copy();
        QUndoStack* stack = kit.canvas.undoStack();
        const auto restored = [&]() {
            stack->undo();
            QCOMPARE(kit.canvas.size(), QSize(20, 10));
            QCOMPARE(kit.layer->image(), base);
            QCOMPARE(top->image(), upper);
        };

        // Crop keeps the union of the layers' pixels and remembers how far the picture moved.
        kit.canvas.crop();
        QCOMPARE(kit.canvas.size(), QSize(8, 6));
        QCOMPARE(kit.canvas.origin(), QPoint(-5, -2));
        QCOMPARE(kit.at(0, 0), 4);
        QCOMPARE(top->image().pixelIndex(7, 5), 9);
        restored();
        QCOMPARE(kit.canvas.origin(), QPoint(0, 0));

        kit.canvas.flip(true, false);
        QCOMPARE(kit.at(19 - 5, 2), 4);
        QCOMPARE(top->image().pixelIndex(19 - 12, 7), 9);
        restored();

        kit.canvas.rotate(float(M_PI / 2));
        QCOMPARE(kit.canvas.size(), QSize(10, 20));
        QCOMPARE(kit.layer->image().size(), QSize(10, 20));
        restored();

        kit.canvas.resize(QSize(40, 20), irfNearest);
        QCOMPARE(kit.at(10, 4), 4);
        QCOMPARE(kit.count(4), 36);
        restored();

        // The layer list renames undoably and shows visibility as a check box.
        QImageLayers* layers = kit.canvas.layers();
        QVERIFY(layers->setData(layers->index(0), QStringLiteral("arm"), Qt::EditRole));
        QCOMPARE(layers->data(layers->index(0), Qt::DisplayRole).toString(), QStringLiteral("arm"));
        QVERIFY(layers->setData(layers->index(0), Qt::Unchecked, Qt::CheckStateRole));
        QVERIFY(!top->isVisible());
        QCOMPARE(kit.canvas.mergeLayers().pixelIndex(12, 7), 0);
        stack->undo();
        QCOMPARE(top->name(), QStringLiteral("top"));
    }

    void zoomKeepsSmallCanvasesVisible()
    {
        CanvasKit kit(CanvasIndexed, QSize(10, 10));
        kit.canvas.setZoomLevel(1.0);
        QCOMPARE(kit.canvas.zoomLevel(), 5.0);
        kit.canvas.setZoomLevel(40.0);
        QCOMPARE(kit.canvas.zoomLevel(), 10.0);
    }
};

QTEST_MAIN(TestImageCanvas)
#include "tst_imagecanvas.moc"
