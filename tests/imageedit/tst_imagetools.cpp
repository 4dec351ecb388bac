#include "canvaskit.h"

#include "image/qbasepentool.h"
#include "image/qfloodfilltool.h"
#include "image/qimagepainter.h"
#include "image/qimagerender.h"
#include "image/qreplacetool.h"

#include <QPainter>
#include <QtTest>

namespace {

/// A canvas shown in the zoomed pane only, at zoom 2, driven by plain mouse events.
struct ToolKit : CanvasKit
{
    QImageRender render { &canvas };

    explicit ToolKit(QImageCanvasFormat format)
        : CanvasKit(format, QSize(40, 30))
    {
        render.setVisibility(false, true);
        canvas.setZoomLevel(2.0);
        palette.setForeground(5);
        palette.setBackground(0);
    }

    QPoint screen(const QPoint& pixel) const
    {
        return render.zoomedRect().topLeft() + pixel * 2 + QPoint(1, 1);
    }
    void drag(QImageToolType tool, const QList<QPoint>& points, Qt::MouseButton button = Qt::LeftButton,
        Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        render.setTool(tool);
        render.mousePress(screen(points.first()), button, modifiers);
        for (const QPoint& p : points.mid(1))
            render.mouseMove(screen(p), modifiers);
        render.mouseRelease(screen(points.last()), button, modifiers);
    }
    void click(QImageToolType tool, const QPoint& at, Qt::MouseButton button = Qt::LeftButton)
    {
        drag(tool, { at }, button);
    }
    QImage pixels() const { return layer->image().copy(); }
    /// Undoes the last step and checks that the layer is as it was.
    void undoTo(const QImage& before)
    {
        canvas.undoStack()->undo();
        QCOMPARE(layer->image(), before);
    }
};

void addFormats()
{
    QTest::addColumn<int>("format");
    QTest::newRow("indexed") << int(CanvasIndexed);
    QTest::newRow("rgba") << int(CanvasRGBA);
}

} // namespace

class TestImageTools : public QObject
{
    Q_OBJECT

private slots:
    void penAndEraserStrokes_data() { addFormats(); }
    void penAndEraserStrokes()
    {
        QFETCH(int, format);
        ToolKit kit { QImageCanvasFormat(format) };
        auto* pen = static_cast<QBasePenTool*>(kit.render.tool(itPen));
        pen->setPenSize(3);
        const QImage blank = kit.pixels();
        kit.drag(itPen, { QPoint(5, 5), QPoint(10, 5), QPoint(15, 5) });
        QCOMPARE(kit.canvas.undoStack()->count(), 1); // a stroke is one step
        QCOMPARE(kit.count(5), 13 * 3);
        QCOMPARE(kit.at(5, 5), 5);
        QCOMPARE(kit.at(17, 7), 5);
        QCOMPARE(kit.at(18, 5), 0);
        QCOMPARE(kit.at(5, 8), 0);
        const QImage stroke = kit.pixels();

        // A Shift-click joins the end of the previous stroke, also after another tool.
        kit.click(itPicker, QPoint(6, 6)); // takes 5 again
        pen->setPenSize(1);
        kit.render.setTool(itPen);
        kit.render.mousePress(kit.screen(QPoint(15, 15)), Qt::LeftButton, Qt::ShiftModifier);
        kit.render.mouseRelease(kit.screen(QPoint(15, 15)), Qt::LeftButton, Qt::ShiftModifier);
        QCOMPARE(kit.at(15, 10), 5);
        kit.undoTo(stroke);

        // The left eraser takes everything under it; the right one only the foreground.
        kit.palette.setForeground(6);
        kit.click(itPen, QPoint(20, 20));
        const QImage twoColours = kit.pixels();
        auto* eraser = static_cast<QBasePenTool*>(kit.render.tool(itEraser));
        eraser->setPenSize(24);
        kit.palette.setForeground(5);
        kit.drag(itEraser, { QPoint(2, 0), QPoint(2, 10) }, Qt::RightButton);
        QCOMPARE(kit.count(5), 0);
        QCOMPARE(kit.at(20, 20), 6); // under the eraser, not the foreground
        kit.undoTo(twoColours);
        eraser->setPenSize(3);
        kit.drag(itEraser, { QPoint(4, 5), QPoint(9, 5) });
        QCOMPARE(kit.at(5, 5), 0);
        QCOMPARE(kit.at(12, 5), 5);
        kit.undoTo(twoColours);
        kit.undoTo(stroke);
        kit.undoTo(blank);

        // The pen size stops at 24 and at 1.
        pen->setPenSize(23);
        kit.render.setTool(itPen);
        QVERIFY(kit.render.keyPress(Qt::NoModifier, Qt::Key_Plus));
        QVERIFY(!kit.render.keyPress(Qt::NoModifier, Qt::Key_Plus));
        QCOMPARE(pen->penSize(), 24);
        pen->setPenSize(2);
        QVERIFY(kit.render.keyPress(Qt::NoModifier, Qt::Key_Minus));
        QVERIFY(!kit.render.keyPress(Qt::NoModifier, Qt::Key_Minus));
        QCOMPARE(pen->penSize(), 1);
    }

    void strokesOnHiddenLayersDoNothing()
    {
        ToolKit kit { CanvasIndexed };
        kit.layer->setVisible(false);
        kit.drag(itPen, { QPoint(1, 1), QPoint(8, 8) });
        kit.click(itFloodFill, QPoint(3, 3));
        QCOMPARE(kit.count(0), 40 * 30);
        QCOMPARE(kit.canvas.undoStack()->count(), 0);
    }

    void floodFills_data() { addFormats(); }
    void floodFills()
    {
        QFETCH(int, format);
        ToolKit kit { QImageCanvasFormat(format) };
        // A closed box from (5,5) to (15,12), drawn with the pen.
        kit.palette.setForeground(7);
        kit.drag(itPen, { QPoint(5, 5), QPoint(15, 5), QPoint(15, 12), QPoint(5, 12), QPoint(5, 5) });
        const QImage box = kit.pixels();

        // The fill fires on release, at the release position.
        kit.palette.setForeground(9);
        kit.render.setTool(itFloodFill);
        kit.render.mousePress(kit.screen(QPoint(1, 1)), Qt::LeftButton, Qt::NoModifier);
        QCOMPARE(kit.count(9), 0);
        kit.render.mouseRelease(kit.screen(QPoint(8, 8)), Qt::LeftButton, Qt::NoModifier);
        QCOMPARE(kit.count(9), 9 * 6);
        QCOMPARE(kit.at(1, 1), 0);
        kit.undoTo(box);

        // Through a gap in the wall the fill leaks out.
        kit.palette.setForeground(0);
        kit.click(itPen, QPoint(15, 8));
        const QImage open = kit.pixels();
        kit.palette.setForeground(9);
        kit.click(itFloodFill, QPoint(8, 8));
        QCOMPARE(kit.count(9), 40 * 30 - (kit.count(7)));
        kit.undoTo(open);

        // Within a dragged rectangle selection the fill stays inside it.
        kit.drag(itRectSel, { QPoint(20, 20), QPoint(25, 28) });
        QCOMPARE(kit.canvas.selection()->boundingRect(), QRect(20, 20, 6, 9));
        kit.click(itFloodFill, QPoint(22, 22));
        QCOMPARE(kit.count(9), 6 * 9);
        QCOMPARE(kit.at(19, 22), 0);
        kit.undoTo(open);

        // A click without a drag selects the whole canvas.
        kit.click(itRectSel, QPoint(3, 3));
        QCOMPARE(kit.canvas.selection()->boundingRect(), QRect(0, 0, 40, 30));
    }

    void pickerAndReplace_data() { addFormats(); }
    void pickerAndReplace()
    {
        QFETCH(int, format);
        ToolKit kit { QImageCanvasFormat(format) };
        QImagePainter* painter = kit.canvas.painter();
        painter->setColor(33);
        painter->setWidth(4);
        painter->point(QPoint(10, 10));
        painter->setColor(34);
        painter->point(QPoint(14, 10));

        kit.click(itPicker, QPoint(11, 11));
        QCOMPARE(kit.palette.foreground(), uchar(33));
        kit.click(itPicker, QPoint(15, 11), Qt::RightButton);
        QCOMPARE(kit.palette.background(), uchar(34));

        // The replace pen turns 33 into 40 and leaves 34 alone.
        auto* replace = static_cast<QReplaceTool*>(kit.render.tool(itReplace));
        kit.render.setTool(itReplace);
        replace->colorClicked(true, 33);
        replace->colorClicked(false, 40);
        replace->setPenSize(10);
        const QImage before = kit.pixels();
        kit.drag(itReplace, { QPoint(8, 8), QPoint(12, 8) });
        QCOMPARE(kit.count(33), 0);
        QCOMPARE(kit.count(40), 16);
        QCOMPARE(kit.count(34), 16);
        kit.undoTo(before);
    }

    void selectionPenAndMove()
    {
        ToolKit kit { CanvasIndexed };
        QImagePainter* painter = kit.canvas.painter();
        painter->setColor(12);
        painter->setWidth(2);
        painter->point(QPoint(4, 4));
        auto* selPen = static_cast<QBasePenTool*>(kit.render.tool(itPenSel));
        selPen->setPenSize(3);
        kit.drag(itPenSel, { QPoint(3, 3), QPoint(4, 3) });
        QCOMPARE(kit.canvas.selection()->boundingRect(), QRect(3, 3, 4, 3));
        QCOMPARE(kit.canvas.undoStack()->count(), 0);

        const QImage before = kit.pixels();
        kit.drag(itSelMove, { QPoint(4, 4), QPoint(10, 6) });
        QCOMPARE(kit.at(10, 6), 12);
        QCOMPARE(kit.at(4, 4), 0);
        QCOMPARE(kit.at(5, 6), 0); // (5,6) was outside the selection
        QCOMPARE(kit.canvas.selection()->boundingRect(), QRect(9, 5, 4, 3));
        kit.render.keyPress(Qt::NoModifier, Qt::Key_Left);
        QCOMPARE(kit.at(9, 6), 12);
        QCOMPARE(kit.canvas.undoStack()->count(), 2);
        kit.canvas.undoStack()->undo();
        kit.undoTo(before);
    }

    void renderShowsLayersAndPansTheView()
    {
        ToolKit kit { CanvasIndexed };
        kit.render.setVisibility(true, true);
        kit.canvas.setZoomLevel(4.0);
        kit.canvas.painter()->setColor(200);
        kit.canvas.painter()->point(QPoint(0, 0));
        QImage view(kit.render.extent(), QImage::Format_ARGB32);
        QPainter painter(&view);
        kit.render.render(&painter, view.rect());
        painter.end();
        QCOMPARE(view.pixel(kit.render.actualRect().topLeft()), kit.palette.color(200).rgba());
        QCOMPARE(view.pixel(kit.render.zoomedRect().topLeft() + QPoint(2, 2)), kit.palette.color(200).rgba());
        QCOMPARE(kit.render.mapToCanvas(kit.render.zoomedRect().topLeft() + QPoint(9, 5)), QPoint(2, 1));
        QCOMPARE(kit.render.mapToCanvas(kit.render.actualRect().topLeft() + QPoint(9, 5)), QPoint(9, 5));

        kit.render.setTool(itCanvasMove);
        kit.render.mousePress(QPoint(100, 100), Qt::LeftButton, Qt::NoModifier);
        kit.render.mouseMove(QPoint(130, 90), Qt::NoModifier);
        QCOMPARE(kit.render.cursor().shape(), Qt::ClosedHandCursor);
        kit.render.mouseRelease(QPoint(130, 90), Qt::LeftButton, Qt::NoModifier);
        QCOMPARE(kit.canvas.position(), QPoint(30, -10));
    }
};

QTEST_MAIN(TestImageTools)
#include "tst_imagetools.moc"
