#include "tst_sprites.h"

#include "spritestate.h"

#include "model/qsprites.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

void TestSprites::cropKeepsPictureInPlace()
{
    QSprites sprites(nullptr, ctHardDisk, true, -1);
    QSprite* sprite = sprites.add();
    sprite->setImage(argbImage(10, 8, 3, 2));
    sprite->setOffset(QPoint(5, 6));
    QSprite* twin = sprites.add();
    twin->setImage(argbImage(10, 8, 3, 2));
    QCOMPARE(twin->imageData(), sprite->imageData());
    const ModelState before = ModelState::of(sprites);

    QVERIFY(sprite->crop());
    QCOMPARE(sprite->image().size(), QSize(6, 4));
    QCOMPARE(sprite->offset(), QPoint(3, 4));
    QCOMPARE(sprite->image().pixel(0, 0), argbImage(10, 8, 3, 2).pixel(2, 2));
    // The sharer keeps its picture and axis.
    QCOMPARE(twin->image().size(), QSize(10, 8));
    QVERIFY(!sprite->crop());

    sprites.undo();
    QCOMPARE(ModelState::of(sprites), before);

    // Indexed pictures crop at index 0; the whole file in one step.
    QImage indexed = indexedImage(6, 6, 2);
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 6; ++x)
            if (x == 0 || y > 3)
                indexed.scanLine(y)[x] = 0;
    sprites.add()->setImage(indexed);
    const int commands = sprites.undoStack()->index();
    sprites.crop();
    QCOMPARE(sprites.undoStack()->index(), commands + 1);
    QCOMPARE(sprites.at(2)->image().size(), QSize(5, 4));
    QCOMPARE(sprites.at(2)->offset(), QPoint(-1, 0));
    QCOMPARE(sprites.at(0)->image().size(), QSize(6, 4));
    QCOMPARE(sprites.at(1)->image().size(), QSize(6, 4));
    QCOMPARE(sprites.at(0)->imageData(), sprites.at(1)->imageData());
}

void TestSprites::duplicateSharesPixels()
{
    QSprites sprites(nullptr, ctMemory, true, -1);
    QSprite* sprite = sprites.add();
    sprite->setItem(20, 3);
    sprite->setOffset(QPoint(1, 2));
    sprite->setFlags(1);
    sprite->setImage(indexedImage(7, 7, 1));
    sprites.add()->setItem(20, 9);
    const ModelState before = ModelState::of(sprites);

    QSprite* copy = sprite->duplicate();
    QCOMPARE(sprites.at(1), copy);
    QCOMPARE(copy->subItem(), QSubItem(20, 10));
    QCOMPARE(copy->offset(), QPoint(1, 2));
    QCOMPARE(copy->flags(), quint16(1));
    QCOMPARE(copy->palette(), sprite->palette());
    QCOMPARE(copy->imageData(), sprite->imageData());
    sprites.undo();
    QCOMPARE(ModelState::of(sprites), before);
}

void TestSprites::splitRgbGivesThreeChannels()
{
    QSprites sprites(nullptr, ctMemory, true, -1);
    QSprite* sprite = sprites.add();
    sprite->setItem(7, 0);
    sprite->setOffset(QPoint(4, 4));
    const QImage picture = argbImage(5, 4, 9, 1);
    sprite->setImage(picture);
    const ModelState before = ModelState::of(sprites);

    QVERIFY(sprite->splitRGB());
    QCOMPARE(sprites.count(), 3);
    QCOMPARE(sprites.paletteCount(), 3);
    for (int channel = 0; channel < 3; ++channel) {
        const QSprite* part = sprites.at(channel);
        QCOMPARE(part->subItem(), QSubItem(7, channel));
        QCOMPARE(part->offset(), QPoint(4, 4));
        const QImage image = part->image(sipOwn);
        QCOMPARE(image.format(), QImage::Format_Indexed8);
        const QRgb source = picture.pixel(2, 1);
        const int value = channel == 0 ? qRed(source) : (channel == 1 ? qGreen(source) : qBlue(source));
        QCOMPARE(int(image.constScanLine(1)[2]), value);
        QCOMPARE(image.constScanLine(0)[0], uchar(0));
        // Each palette is a ramp of its channel alone.
        const QRgb top = image.color(255);
        QCOMPARE(qRed(top) + qGreen(top) + qBlue(top), 255);
    }
    QVERIFY(!sprites.at(1)->splitRGB());
    sprites.undo();
    QCOMPARE(ModelState::of(sprites), before);
    QCOMPARE(sprites.paletteCount(), 0);
}

void TestSprites::copyPasteCarriesProperties()
{
    QSprites source(nullptr, ctMemory, true, -1);
    QSprite* a = source.add();
    a->setItem(3, 4);
    a->setOffset(QPoint(-5, 6));
    a->setFlag(sfDecompressOnLoad);
    a->setImage(indexedImage(9, 3, 2, 2));
    QSprite* b = source.add();
    b->setItem(8, 1);
    b->setImage(argbImage(3, 3, 1));

    std::unique_ptr<QMimeData> data(source.copy({1, 0, 7}));
    QVERIFY(data->hasImage());
    QSprites target(nullptr, ctHardDisk, true, -1);
    target.add()->setItem(99, 0);
    QCOMPARE(target.paste(data.get(), 0), 2);
    QCOMPARE(target.count(), 3);
    QCOMPARE(target.at(2)->subItem(), QSubItem(99, 0));
    const QSprite* pastedB = target.at(0);
    const QSprite* pastedA = target.at(1);
    QCOMPARE(pastedA->subItem(), QSubItem(3, 4));
    QCOMPARE(pastedA->offset(), QPoint(-5, 6));
    QVERIFY(pastedA->flag(sfDecompressOnLoad));
    QCOMPARE(bytesOf(pastedA->image()), bytesOf(a->image()));
    QCOMPARE(pastedA->image(sipOwn).colorTable(), a->image(sipOwn).colorTable());
    QCOMPARE(bytesOf(pastedB->image()), bytesOf(b->image()));
    QCOMPARE(pastedB->subItem(), QSubItem(8, 1));

    // One step to take back; foreign data pastes nothing.
    target.undo();
    QCOMPARE(target.count(), 1);
    QMimeData foreign;
    foreign.setText(QStringLiteral("not sprites"));
    QCOMPARE(target.paste(&foreign, 0), 0);
    QMimeData damaged;
    damaged.setData(QSprites::mimeType(), QByteArray("\x00\x00\x00\x05garbage", 12));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("invalid type")));
    QCOMPARE(target.paste(&damaged, 0), 0);
    QCOMPARE(target.count(), 1);
}

void TestSprites::saveAlignedWritesFrame()
{
    QTemporaryDir dir;
    QSprites sprites(nullptr, ctMemory, true, -1);
    QSprite* sprite = sprites.add();
    const QImage picture = indexedImage(4, 4, 6, 1);
    sprite->setImage(picture);
    sprite->setOffset(QPoint(1, 1));
    const QString path = dir.filePath(QStringLiteral("aligned.png"));
    QVERIFY(sprite->saveAligned(path, QRect(-3, -3, 8, 8)));
    const QImage saved(path);
    QCOMPARE(saved.size(), QSize(8, 8));
    QCOMPARE(saved.pixelIndex(0, 0), 0);
    QCOMPARE(saved.pixelIndex(2, 2), int(picture.constScanLine(0)[0]));
    QCOMPARE(saved.pixelIndex(5, 5), int(picture.constScanLine(3)[3]));
    QCOMPARE(saved.pixelIndex(6, 6), 0);
    QCOMPARE(saved.color(9) | 0xff000000u, picture.color(9) | 0xff000000u);
    // A frame that clips the sprite keeps what falls inside.
    QVERIFY(sprite->saveAligned(path, QRect(0, 0, 2, 2)));
    QCOMPARE(QImage(path).pixelIndex(0, 0), int(picture.constScanLine(1)[1]));
    QVERIFY(!sprites.add()->saveAligned(path, QRect(0, 0, 2, 2)));
    QVERIFY(!sprite->saveAligned(dir.filePath(QStringLiteral("no/such/dir/x.png")), QRect(0, 0, 2, 2)));
}

void TestSprites::fullAxisAndGroups()
{
    QSprites sprites(nullptr, ctMemory, true, -1);
    for (int i = 0; i < 6; ++i)
        sprites.add()->setItem(i < 3 ? 10 : 20, i);
    const ModelState before = ModelState::of(sprites);
    sprites.fullAxis(5, 5, false);
    sprites.fullAxis(1, -2, true, 20);
    QCOMPARE(sprites.at(0)->offset(), QPoint(5, 5));
    QCOMPARE(sprites.at(5)->offset(), QPoint(6, 3));

    sprites.renameGroup(10, 30, false, 1, 2);
    QCOMPARE(sprites.at(0)->itemGroup(), 10);
    QCOMPARE(sprites.at(1)->itemGroup(), 30);
    QCOMPARE(sprites.at(2)->itemGroup(), 30);
    sprites.removeGroup(20, true, 0, 0);
    QCOMPARE(sprites.count(), 3);
    QCOMPARE(sprites.find(0, 30, 2), 2);
    QCOMPARE(sprites.find(0, 20, 3), -1);
    for (int i = 0; i < 4; ++i)
        sprites.undo();
    QCOMPARE(ModelState::of(sprites), before);
}
