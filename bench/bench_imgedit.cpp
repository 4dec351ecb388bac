// The image editor's costs: a flood fill of a 640x480 indexed canvas and a
// 100-point pen stroke of width 5, each with and without the undo step it
// records, beside a plain memcpy of the image; and the memory one step
// holds, as a whole-image copy and as the changed rectangle it keeps.

#include "benchutil.h"

#include "image/qimagecanvas.h"
#include "image/qimagepainter.h"
#include "image/qrasterlayer.h"
#include "image/qrasterlayeredit.h"
#include "image/qtableimagepalette.h"

#include <QGuiApplication>
#include <QRandomGenerator>

#include <cstring>
#include <vector>

namespace {

struct Bench
{
    QTableImagePalette palette;
    QImageCanvas canvas { &palette };
    QImageLayer* layer;

    Bench()
    {
        canvas.setFormat(CanvasIndexed, false);
        canvas.setSize(QSize(640, 480), QPoint(), false);
        layer = canvas.newRasterLayer();
        canvas.layers()->add(layer, false);
        canvas.setActiveLayer(layer);
    }
    void clear()
    {
        layer->image().fill(0);
        canvas.undoStack()->clear();
    }
};

QList<QPoint> strokePoints()
{
    QRandomGenerator random(7);
    QList<QPoint> points;
    QPoint p(300, 200);
    for (int i = 0; i < 100; ++i) {
        p += QPoint(random.bounded(-3, 4), random.bounded(-3, 4));
        points << p;
    }
    return points;
}

void stroke(QImagePainter* painter, const QList<QPoint>& points)
{
    painter->setWidth(5);
    painter->setColor(9);
    for (int i = 1; i < points.size(); ++i)
        painter->line(points.at(i - 1), points.at(i));
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    Bench b;
    const int repetitions = 30;
    const qsizetype bytes = b.layer->image().sizeInBytes();

    std::vector<uchar> copy(static_cast<size_t>(bytes));
    const double memcpyMs = bench::bestMs(repetitions * 10, [&]() {
        std::memcpy(copy.data(), b.layer->image().constBits(), size_t(bytes));
        bench::keep(copy);
    });
    bench::report("memcpy of the 640x480 image (baseline)", memcpyMs, memcpyMs);

    const double fillMs = bench::bestMs(repetitions, [&]() {
        b.clear();
        QImagePainter* painter = b.canvas.painter();
        painter->setColor(5);
        painter->floodFill(QPoint(320, 240));
    });
    bench::report("flood fill, no undo (includes a clear)", fillMs, memcpyMs);
    qsizetype fillHeld = 0;
    const double fillUndoMs = bench::bestMs(repetitions, [&]() {
        b.clear();
        b.canvas.changing(b.layer);
        QImagePainter* painter = b.canvas.painter();
        painter->setColor(5);
        painter->floodFill(QPoint(320, 240));
        b.canvas.finishEdit();
        fillHeld = static_cast<const RasterLayerEdit*>(b.canvas.undoStack()->command(0))->heldBytes();
    });
    bench::report("flood fill with its undo step", fillUndoMs, memcpyMs);

    // The step alone, for a change of every pixel: the copy the first write
    // makes, the search for the changed rectangle and the copy it keeps.
    int round = 0;
    const double stepMs = bench::bestMs(repetitions, [&]() {
        b.canvas.changing(b.layer);
        std::memset(b.layer->image().bits(), 7 + (++round % 2), size_t(bytes));
        b.canvas.finishEdit();
        b.canvas.undoStack()->clear();
    });
    bench::report("undo step of a whole-canvas change alone", stepMs, memcpyMs);

    const QList<QPoint> points = strokePoints();
    const double strokeMs = bench::bestMs(repetitions, [&]() {
        b.clear();
        stroke(b.canvas.painter(), points);
    });
    bench::report("100-point stroke width 5, no undo", strokeMs, memcpyMs);
    qsizetype strokeWhole = 0, strokeHeld = 0;
    const double strokeUndoMs = bench::bestMs(repetitions, [&]() {
        b.clear();
        b.canvas.changing(b.layer);
        stroke(b.canvas.painter(), points);
        auto* edit
            = static_cast<RasterLayerEdit*>(const_cast<QUndoCommand*>(b.canvas.undoStack()->command(0)));
        strokeWhole = edit->heldBytes();
        b.canvas.finishEdit();
        strokeHeld = edit->heldBytes();
    });
    bench::report("100-point stroke with its undo step", strokeUndoMs, memcpyMs);

    // What the view recomposes after each drawn step: three indexed layers.
    b.clear();
    stroke(b.canvas.painter(), points);
    for (int i = 0; i < 2; ++i) {
        QImageLayer* extra = b.canvas.newRasterLayer();
        b.canvas.layers()->add(extra, false);
        b.canvas.setActiveLayer(extra);
        stroke(b.canvas.painter(), points);
    }
    const double mergeMs = bench::bestMs(repetitions, [&]() { bench::keep(b.canvas.mergeLayers()); });
    bench::report("merge of three indexed 640x480 layers", mergeMs, memcpyMs);
    b.canvas.setActiveLayer(b.layer);

    const QRect touched = [&]() {
        b.clear();
        const QImage before = b.layer->image().copy();
        stroke(b.canvas.painter(), points);
        return RasterLayerEdit::changedRect(before, b.layer->image());
    }();
    std::printf("\nundo memory (image %lld bytes)\n", qlonglong(bytes));
    std::printf("  stroke: whole-image copy %lld bytes, kept rectangle %lld bytes (%dx%d), x%.1f smaller\n",
        qlonglong(strokeWhole), qlonglong(strokeHeld), touched.width(), touched.height(),
        strokeHeld > 0 ? double(strokeWhole) / double(strokeHeld) : 0.0);
    std::printf("  fill:   kept rectangle %lld bytes (the whole canvas changed)\n", qlonglong(fillHeld));
    return 0;
}
