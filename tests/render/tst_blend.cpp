// The engine's transparency and a frame's geometry, checked on chosen pixels
// against the arithmetic of the engine.
#include "tst_render.h"

#include "renderkit.h"

#include "model/qsprite.h"
#include "model/qsprites.h"
#include "render/qimagerenderhost.h"
#include "render/qsprrender.h"

#include <QScopedPointer>
#include <QtTest>

namespace {

/// Entry 0 transparent, then a warm colour, white, a dark colour and black.
const QVector<QRgb> stripTable { qRgba(90, 90, 90, 0), qRgb(200, 100, 50), qRgb(255, 255, 255), qRgb(10, 20, 30),
                                 qRgb(0, 0, 0) };

QFrameView frameOf(int blend, int source, int destination)
{
    QFrameView frame;
    frame.weights.blend = QAnimationFrameBlend(blend);
    frame.weights.target.source = qint16(source);
    frame.weights.target.destination = qint16(destination);
    return frame;
}

/// The view of the strip sprite 0,0 with its axis at 0, drawn at screen 40, 10.
QImage drawStrip(QSprites* sprites, const QFrameView* frame, bool viewTransparent = false)
{
    QSprRender view;
    plainView(view, sprites);
    view.setRenderMode(frame ? RenderAnimation : RenderSprite);
    view.setCrossPos(40, 10);
    view.setViewTransColor(viewTransparent);
    if (frame)
        view.setFrameView(*frame);
    else
        view.setIndex(0);
    QImageRenderHost host(&view, QSize(80, 20));
    return host.paint().convertToFormat(QImage::Format_RGB32);
}

int additive(int dst, int src, int s, int d)
{
    return qMin(255, dst * d / 255 + src * s / 256);
}

} // namespace

void TestRender::blendPassesFollowTheEngineArithmetic_data()
{
    QTest::addColumn<int>("blend");
    QTest::addColumn<int>("source");
    QTest::addColumn<int>("destination");
    QTest::newRow("A: one Plus pass") << 1 << 256 << 256;
    QTest::newRow("A1: half the destination") << 1 << 256 << 128;
    QTest::newRow("AS128D64") << 1 << 128 << 64;
    QTest::newRow("AS64D255: no Multiply") << 1 << 64 << 255;
    QTest::newRow("AS0D0: black") << 1 << 0 << 0;
    QTest::newRow("S: saturating subtraction") << 2 << 256 << 256;
}

void TestRender::blendPassesFollowTheEngineArithmetic()
{
    QFETCH(int, blend);
    QFETCH(int, source);
    QFETCH(int, destination);
    QScopedPointer<QSprites> sprites(makeStripSprites(5, 0, stripTable));
    const QFrameView frame = frameOf(blend, source, destination);
    const QImage drawn = drawStrip(sprites.data(), &frame);
    const QRgb back = flatBackground.rgb();
    QCOMPARE(drawn.pixel(40, 10), back); // index 0 leaves what is behind
    QCOMPARE(drawn.pixel(39, 10), back);
    QCOMPARE(drawn.pixel(45, 10), back);
    for (int i = 1; i < stripTable.size(); ++i) {
        const QRgb src = stripTable[i];
        auto channel = [&](int dst, int s) {
            return blend == 1 ? additive(dst, s, source, destination) : qMax(0, dst - s);
        };
        const QRgb expected = qRgb(channel(qRed(back), qRed(src)), channel(qGreen(back), qGreen(src)),
                                   channel(qBlue(back), qBlue(src)));
        const QRgb got = drawn.pixel(40 + i, 10);
        QVERIFY2(near(got, expected, 1), qPrintable(QStringLiteral("index %1: %2, expected %3")
                                                        .arg(i)
                                                        .arg(got, 8, 16)
                                                        .arg(expected, 8, 16)));
    }
}

void TestRender::transparentColourShowsOnRequest()
{
    QScopedPointer<QSprites> sprites(makeStripSprites(5, 0, stripTable));
    const QRgb back = flatBackground.rgb();
    // Sprite mode: entry 0 turns opaque.
    QCOMPARE(drawStrip(sprites.data(), nullptr).pixel(40, 10), back);
    QCOMPARE(drawStrip(sprites.data(), nullptr, true).pixel(40, 10), qRgb(90, 90, 90));
    QCOMPARE(drawStrip(sprites.data(), nullptr, true).pixel(41, 10), stripTable[1]);
    // A blended frame first shows what the blend hides: entry 0 at full
    // strength, the opaque colours not at all (then the blend adds them).
    const QFrameView frame = frameOf(1, 256, 256);
    const QImage drawn = drawStrip(sprites.data(), &frame, true);
    QCOMPARE(drawn.pixel(40, 10), qRgb(90, 90, 90));
    QVERIFY(near(drawn.pixel(41, 10), qRgb(qMin(255, 17 + 200), 34 + 100, 51 + 50), 1));
}

void TestRender::flipsScaleAndAngleOfAFrame()
{
    // Axis at x 1 of a strip of 5: index i lies at screen 40 - 1 + i.
    QScopedPointer<QSprites> sprites(makeStripSprites(5, 1, stripTable));
    QFrameView frame;
    frame.sprite = QSubItem(0, 0);
    QImage drawn = drawStrip(sprites.data(), &frame);
    QCOMPARE(drawn.pixel(39 + 1, 10), stripTable[1]);
    QCOMPARE(drawn.pixel(39 + 4, 10), stripTable[4]);

    // Mirrored: the axis becomes 5 - 1 - 1 = 3, and the order turns round.
    frame.flip = 2;
    drawn = drawStrip(sprites.data(), &frame);
    QCOMPARE(drawn.pixel(37 + 0, 10), stripTable[4]);
    QCOMPARE(drawn.pixel(37 + 3, 10), stripTable[1]);
    QCOMPARE(drawn.pixel(37 + 4, 10), flatBackground.rgb());

    // An offset moves the drawing and twice the scale doubles the pixels, both
    // about the view axis: the effective axis is (1 - 5, 0 - 2), so index i
    // covers x 40 + 2 * (i + 4) and the next column.
    frame.flip = 0;
    frame.offset = QPoint(5, 2);
    frame.scaleX = 2.0;
    drawn = drawStrip(sprites.data(), &frame);
    QCOMPARE(drawn.pixel(50, 12), stripTable[1]);
    QCOMPARE(drawn.pixel(51, 12), stripTable[1]);
    QCOMPARE(drawn.pixel(56, 12), stripTable[4]);
    QCOMPARE(drawn.pixel(57, 12), stripTable[4]);
    QCOMPARE(drawn.pixel(58, 12), flatBackground.rgb());

    // A scale of 0 draws at 1.
    frame.offset = QPoint();
    frame.scaleX = 0.0;
    QCOMPARE(drawStrip(sprites.data(), &frame).pixel(39 + 4, 10), stripTable[4]);

    // 90 degrees counter-clockwise: the strip runs upwards from the axis.
    frame.scaleX = 1.0;
    frame.angle = 90;
    drawn = drawStrip(sprites.data(), &frame);
    QCOMPARE(drawn.pixel(40, 10 - 3 - 1), stripTable[4]);
    QCOMPARE(drawn.pixel(43, 10), flatBackground.rgb());
}

void TestRender::onionSkinEffects()
{
    const QVector<QRgb> table { qRgba(0, 0, 0, 0), qRgb(30, 60, 240), qRgb(250, 10, 5) };
    using namespace QSpritePasses;
    QCOMPARE(applyEffect(EffectMonochrome, table)[1], qRgb(110, 110, 110));
    QCOMPARE(applyEffect(EffectLighter, table)[2], qRgb(255, 42, 37));
    QCOMPARE(applyEffect(EffectDarker, table)[2], qRgb(218, 0, 0));
    QCOMPARE(qAlpha(applyEffect(EffectDarker, table)[0]), 0);
    QCOMPARE(applyEffect(EffectNone, table), table);

    // The onion sprite is drawn at its own axis, at the chosen opacity.
    QScopedPointer<QSprites> sprites(makeStripSprites(3, 0, table));
    QSprRender view;
    plainView(view, sprites.data());
    view.setRenderMode(RenderAnimation);
    view.setCrossPos(40, 10);
    view.setOnionSkin(true, EffectMonochrome, 50);
    view.setOnionIndex(0);
    view.updateBounds();
    QCOMPARE(view.onionRect(), QRect(40, 10, 3, 1));
    QImageRenderHost host(&view, QSize(80, 20));
    const QRgb got = host.paint().pixel(41, 10);
    QVERIFY(near(got, qRgb((17 + 110) / 2, (34 + 110) / 2, (51 + 110) / 2), 2));
}
