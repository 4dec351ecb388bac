// The view's own handling: zoom steps, dragging, hit tests, capture, rulers.
#include "tst_render.h"

#include "renderkit.h"

#include "model/qsprite.h"
#include "model/qsprites.h"
#include "render/qimagerenderhost.h"
#include "render/qsprrender.h"

#include <QScopedPointer>
#include <QSignalSpy>
#include <QtTest>

namespace {

const QVector<QRgb> table { qRgba(0, 0, 0, 0), qRgb(200, 0, 0), qRgb(0, 200, 0), qRgb(0, 0, 200) };

/// A sprite mode view of a strip sprite `width` pixels wide, painted into an image.
struct StripView
{
    QScopedPointer<QSprites> sprites;
    QSprRender view;
    QImageRenderHost host;

    StripView(int width, int axisX, const QSize& size)
        : sprites(makeStripSprites(width, axisX, table)), host(&view, size)
    {
        plainView(view, sprites.data());
        view.setRenderMode(RenderSprite);
    }
};

} // namespace

void TestRender::zoomLimitsAndSmallSprites()
{
    StripView strip(1, 0, QSize(200, 200));
    QSprRender& view = strip.view;
    view.setZoomTable(0);
    view.setZoom(0);
    // A sprite under 2 pixels is shown at index 2 at once, and subZoom stops there.
    view.setIndex(0);
    QCOMPARE(int(view.zoomIndex()), 2);
    view.subZoom();
    QCOMPARE(int(view.zoomIndex()), 2);

    // The wheel stops at index 9 of either table; the zoom-in command at 11.
    wheel(view, QPoint(100, 100), 20);
    QCOMPARE(int(view.zoomIndex()), 9);
    QCOMPARE(view.zoom(), 3.0f);
    view.addZoom();
    view.addZoom();
    view.addZoom();
    QCOMPARE(int(view.zoomIndex()), 11);
    view.setZoomTable(1);
    QCOMPARE(view.zoom(), 10.0f);
    wheel(view, QPoint(100, 100), 1);
    QCOMPARE(int(view.zoomIndex()), 9);
    view.zoomActual();
    QCOMPARE(view.zoom(), 1.0f);
    QCOMPARE(view.thickness(), 1);
    view.setZoom(255); // what subZoom makes of index 0 less one
    QCOMPARE(int(view.zoomIndex()), 0);

    // Line thickness follows the index, not the factor: 1.5x in the small table is 1.
    view.setZoomTable(0);
    view.setZoom(4);
    QCOMPARE(view.thickness(), 1);
    view.setZoom(5);
    QCOMPARE(view.thickness(), 2);
}

void TestRender::zoomOnCentreKeepsTheCentre()
{
    StripView strip(8, 0, QSize(400, 300));
    QSprRender& view = strip.view;
    view.setIndex(0);
    view.setCrossPos(100, 50);
    view.setZoomMode(ZoomOnCenter);
    // The engine point at the centre (200, 150) is (100, 100) from the axis at 1x.
    view.setZoom(3); // 2x
    QCOMPARE(view.crossPos(), QPoint(0, -50));
    view.setZoomMode(ZoomOnAxis);
    view.setZoom(2);
    QCOMPARE(view.crossPos(), QPoint(0, -50));
}

void TestRender::draggingTheSpriteAxisIsOneUndoStep()
{
    StripView strip(8, 2, QSize(400, 300));
    QSprRender& view = strip.view;
    QImageRenderHost& host = strip.host;
    QSprites* sprites = strip.sprites.data();
    view.setCrossPos(200, 150);
    view.setZoom(3); // 2x: the sprite covers x 196..211, y 150..151
    view.setIndex(0);
    QCOMPARE(view.spriteRect(), QRect(196, 150, 16, 2));
    QCOMPARE(view.hitTest(QPoint(200, 150)), ElementSprite);

    QSignalSpy moves(&view, &QSprRender::axisChanged);
    const int paints = host.paintCount();
    // 11 screen pixels right and 4 down at 2x: 5 and 2 engine pixels, the axis runs against them.
    mouseDrag(view, QPoint(200, 150), QPoint(211, 154), 1);
    QCOMPARE(moves.count(), 1);
    QCOMPARE(moves.last().first().toPoint(), QPoint(-3, -2));
    QVERIFY(host.paintCount() > paints); // repainted at once while dragging
    QCOMPARE(view.spriteRect().topLeft(), QPoint(206, 154));
    QCOMPARE(sprites->at(0)->offset(), QPoint(-3, -2));
    QCOMPARE(sprites->undoStack()->count(), 1);
    sprites->undo();
    QCOMPARE(sprites->at(0)->offset(), QPoint(2, 0));

    // A click without a move writes nothing.
    mouseDrag(view, QPoint(200, 150), QPoint(200, 150), 1);
    QCOMPARE(sprites->undoStack()->index(), 0);
}

void TestRender::panGuidesAndExtraCross()
{
    StripView strip(8, 0, QSize(400, 300));
    QSprRender& view = strip.view;
    view.setCrossPos(200, 150);
    view.setZoom(3); // 2x
    view.setIndex(0);

    // Dragging empty space pans by whole screen pixels, at any zoom.
    mouseDrag(view, QPoint(300, 250), QPoint(303, 245));
    QCOMPARE(view.crossPos(), QPoint(203, 145));
    QCOMPARE(view.spriteRect().topLeft(), QPoint(203, 145));
    // With Ctrl the sprite pans too.
    mouseDrag(view, QPoint(205, 145), QPoint(206, 146), 1, Qt::ControlModifier);
    QCOMPARE(view.crossPos(), QPoint(204, 146));

    // The vertical guide moves sideways only, in engine pixels.
    view.setGuideLines(true);
    view.setCrossPos(200, 150);
    view.updateBounds();
    QCOMPARE(view.hitTest(QPoint(100, 150)), ElementGuideH);
    QCOMPARE(view.hitTest(QPoint(200, 100)), ElementGuideV);
    mouseDrag(view, QPoint(200, 100), QPoint(210, 130));
    QCOMPARE(view.guides(), QPoint(5, 0));
    mouseDrag(view, QPoint(100, 150), QPoint(130, 146));
    QCOMPARE(view.guides(), QPoint(5, -2));
    view.setGuideLines(false);

    // The extra crosshair starts at 100, -100 from the axis.
    view.setExtraVisibility(true);
    view.setCrossPos(100, 250);
    view.updateBounds();
    QSignalSpy extra(&view, &QSprRender::extraAxisChanged);
    const QPoint centre = view.extraCrossRect().center();
    QCOMPARE(view.hitTest(centre), ElementExtraCross);
    mouseDrag(view, centre, centre + QPoint(-20, 6), 2);
    QCOMPARE(view.extraPos(), QPoint(90, -97));
    QCOMPARE(extra.count(), 2);
}

void TestRender::hitTestsAndRulerBands()
{
    StripView strip(8, 0, QSize(400, 300));
    QSprRender& view = strip.view;
    QImageRenderHost& host = strip.host;
    view.setCrossPos(10, 10);
    view.setIndex(0);
    // The sprite lies under the top band: the band wins, rulers shown or not.
    QCOMPARE(view.hitTest(QPoint(12, 10)), ElementNone);
    view.setCrossPos(100, 100);
    view.updateBounds();
    QCOMPARE(view.hitTest(QPoint(105, 100)), ElementSprite);
    view.lock(true);
    QCOMPARE(view.hitTest(QPoint(105, 100)), ElementNone);
    view.lock(false);
    // The main crosshair covers the sprite's first pixels, and only pans.
    view.setCrossVisibility(true, false);
    view.updateBounds();
    QCOMPARE(view.hitTest(QPoint(101, 100)), ElementNone);
    QCOMPARE(view.hitTest(QPoint(100 + 7, 100)), ElementNone);

    // Cursors follow what lies under the mouse.
    view.setCrossVisibility(false, false);
    mouseMove(view, QPoint(105, 100), Qt::NoButton);
    QCOMPARE(host.cursor().shape(), Qt::SizeAllCursor);
    mouseMove(view, QPoint(300, 200), Qt::NoButton);
    QCOMPARE(host.cursor().shape(), Qt::OpenHandCursor);
}

void TestRender::colourCapture()
{
    StripView strip(4, 0, QSize(200, 100));
    QSprRender& view = strip.view;
    QSprites* sprites = strip.sprites.data();
    view.setCrossPos(100, 50);
    view.setZoom(3); // 2x: index i covers x 100 + 2i and 101 + 2i
    view.setIndex(0);
    view.setColorCapture(true);
    QSignalSpy captured(&view, &QSprRender::colorCaptured);
    mousePress(view, QPoint(104, 50));
    mouseMove(view, QPoint(107, 51)); // the right half of the last pixel
    mouseMove(view, QPoint(150, 51)); // off the sprite: nothing
    mouseRelease(view, QPoint(150, 51));
    QCOMPARE(captured.count(), 2);
    QCOMPARE(captured.at(0).first().toInt(), 2);
    QCOMPARE(captured.at(1).first().toInt(), 3);
    QCOMPARE(view.crossPos(), QPoint(100, 50)); // capturing drags nothing
    QCOMPARE(sprites->at(0)->offset(), QPoint(0, 0));
}

void TestRender::rulersMarkTheAxis()
{
    QScopedPointer<QSprites> sprites(makeStripSprites(4, 0, table));
    QSprRender view;
    plainView(view, sprites.data());
    view.setVisibility(true, true, true, true, true);
    QImageRenderHost host(&view, QSize(300, 200));
    view.setRenderMode(RenderSprite);
    view.setCrossPos(123, 87);
    view.setIndex(0);
    const QImage drawn = host.paint();
    const QRgb black = qRgb(0, 0, 0);
    // Long ticks at the axis, short ones a step away, none between.
    QCOMPARE(drawn.pixel(123, 21), black);
    QCOMPARE(drawn.pixel(21, 87), black);
    QCOMPARE(drawn.pixel(133, 25), black);
    QCOMPARE(drawn.pixel(133, 21), flatBackground.rgb());
    QCOMPARE(drawn.pixel(128, 27), flatBackground.rgb());
    // Paused, only the background and the rulers paint.
    view.pause(true);
    QCOMPARE(host.paint().pixel(123, 87), flatBackground.rgb());
    QCOMPARE(host.image().pixel(123, 21), black);
}
