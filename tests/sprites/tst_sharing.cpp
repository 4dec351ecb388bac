#include "tst_sprites.h"

#include "qrecordingprompt.h"
#include "spritestate.h"

#include "model/qspriteimagedata.h"
#include "model/qspritepalettedata.h"
#include "model/qsprites.h"

#include <QtTest>

void TestSprites::equalImagesShareThenSplit()
{
    for (QStreamCacheType type : {ctMemory, ctHardDisk}) {
        QSprites sprites(nullptr, type, true, -1);
        QSprite* a = sprites.add();
        QSprite* b = sprites.add();
        const QImage picture = indexedImage(13, 7, 1);
        a->setImage(picture);
        b->setImage(picture);
        QVERIFY(a->imageData());
        QCOMPARE(a->imageData(), b->imageData());
        QCOMPARE(a->imageData()->references, 2);
        QVERIFY(a->imageIsShared());
        QCOMPARE(sprites.cache()->items().size(), 1);
        // Both sprites got the same palette, found by its colours.
        QVERIFY(a->palette());
        QCOMPARE(a->palette(), b->palette());
        QCOMPARE(sprites.paletteCount(), 1);

        QImage changed = picture;
        changed.scanLine(3)[5] = 200;
        b->setImage(changed, ssmPrivate);
        QVERIFY(a->imageData() != b->imageData());
        QCOMPARE(a->imageData()->references, 1);
        QCOMPARE(sprites.cache()->items().size(), 2);
        QCOMPARE(bytesOf(a->image()), bytesOf(picture));
        QCOMPARE(bytesOf(b->image()), bytesOf(changed));

        // Setting the first picture again joins the record without asking.
        b->setImage(picture, ssmAsk);
        QCOMPARE(a->imageData(), b->imageData());
        QCOMPARE(sprites.cache()->items().size(), 1);

        // An empty image drops the reference, and the last one frees the payload.
        a->setImage(QImage());
        b->setImage(QImage());
        QVERIFY(!a->imageData());
        QCOMPARE(a->imageInfo().format, QImage::Format_Invalid);
        QCOMPARE(sprites.cache()->items().size(), 0);
        if (type == ctHardDisk)
            QCOMPARE(sprites.cache()->diskSize(), 0);
    }
}

void TestSprites::imageShareModes()
{
    QSprites sprites(nullptr, ctMemory, true, -1);
    for (int i = 0; i < 3; ++i)
        sprites.add()->setImage(indexedImage(8, 8, 1));
    QSprite* a = sprites.at(0);
    QSprite* b = sprites.at(1);
    QSprite* c = sprites.at(2);
    QCOMPARE(a->imageData()->references, 3);

    // Shared: the record changes for every sharer.
    a->setImage(indexedImage(8, 8, 2), ssmShared);
    QCOMPARE(a->imageData()->references, 3);
    QCOMPARE(bytesOf(c->image()), bytesOf(indexedImage(8, 8, 2)));

    // Replace: in place, no search, even when another record is equal.
    sprites.add()->setImage(indexedImage(8, 8, 3), ssmPrivate);
    a->setImage(indexedImage(8, 8, 3), ssmReplace);
    QCOMPARE(a->imageData(), b->imageData());
    QVERIFY(a->imageData() != sprites.at(3)->imageData());
    QCOMPARE(bytesOf(b->image()), bytesOf(indexedImage(8, 8, 3)));
    sprites.remove(3);

    // Ask: the receiver keeps the sprites that go along (here c, not b).
    QList<uint> asked;
    connect(&sprites, &QSprites::dataSharing, this, [&asked](QList<uint>& positions) {
        asked = positions;
        positions = {2};
    });
    a->setImage(indexedImage(8, 8, 4), ssmAsk);
    QCOMPARE(asked, (QList<uint>{1, 2}));
    QCOMPARE(a->imageData(), c->imageData());
    QVERIFY(b->imageData() != a->imageData());
    QCOMPARE(bytesOf(b->image()), bytesOf(indexedImage(8, 8, 3)));
    QCOMPARE(bytesOf(c->image()), bytesOf(indexedImage(8, 8, 4)));
    QCOMPARE(sprites.cache()->items().size(), 2);
}

void TestSprites::equalBytesOfAnotherShapeAreNotShared()
{
    QSprites sprites(nullptr, ctMemory, false, -1);
    // 4x8 and 8x4 indexed pictures both make 32 bytes; with equal bytes they
    // still are different pictures.
    QImage tall(4, 8, QImage::Format_Indexed8);
    QImage wide(8, 4, QImage::Format_Indexed8);
    tall.setColorCount(256);
    wide.setColorCount(256);
    tall.fill(9);
    wide.fill(9);
    QCOMPARE(bytesOf(tall), bytesOf(wide));
    sprites.add()->setImage(tall);
    sprites.add()->setImage(wide);
    QVERIFY(sprites.at(0)->imageData() != sprites.at(1)->imageData());
    QCOMPARE(sprites.at(1)->imageInfo().width, 8);
    QCOMPARE(sprites.at(1)->image().size(), QSize(8, 4));
}

void TestSprites::sharedPaletteEditedWithEachShareMode()
{
    QRecordingPrompt prompt;
    QSprites sprites(nullptr, ctMemory, true, -1);
    QRGBA tone1[256], tone2[256], tone3[256];
    toneColors(1, tone1);
    toneColors(2, tone2);
    toneColors(3, tone3);
    auto makeShared = [&]() {
        QSignalBlocker block(&sprites);
        sprites.clearPalettes();
        QSpritePalette* p = sprites.addPalette(tone1, spsNew, 1, 1);
        QSpritePalette* q = sprites.addPalette(tone1, spsNew, 1, 2);
        return qMakePair(p, q);
    };

    auto [p, q] = makeShared();
    QVERIFY(p != q);
    QCOMPARE(p->data(), q->data());
    QCOMPARE(p->data()->references, 2);

    p->setColors(tone2, ssmShared);
    QCOMPARE(p->data(), q->data());
    QVERIFY(q->data()->sameColors(tone2));

    std::tie(p, q) = makeShared();
    p->setColors(tone2, ssmPrivate);
    QVERIFY(p->data() != q->data());
    QVERIFY(p->data()->sameColors(tone2));
    QVERIFY(q->data()->sameColors(tone1));

    std::tie(p, q) = makeShared();
    prompt.clear();
    prompt.script({QPrompt::Yes});
    p->setColors(tone2, ssmAsk);
    QCOMPARE(prompt.count(QStringLiteral("question")), 1);
    QCOMPARE(prompt.entries().at(0).title, QStringLiteral("Palette changes"));
    QCOMPARE(prompt.entries().at(0).text,
             QStringLiteral("Do you want to use this colors in all other instances of this palette?"));
    QCOMPARE(p->data(), q->data());
    QVERIFY(q->data()->sameColors(tone2));

    std::tie(p, q) = makeShared();
    prompt.script({QPrompt::No});
    p->setColors(tone2, ssmAsk);
    QVERIFY(p->data() != q->data());
    QVERIFY(q->data()->sameColors(tone1));

    // Colours another palette has: shared at once, nobody asked.
    QSpritePalette* r = sprites.addPalette(tone3, spsNew, 1, 3);
    prompt.clear();
    r->setColors(tone2, ssmAsk);
    QCOMPARE(prompt.count(QStringLiteral("question")), 0);
    QCOMPARE(r->data(), p->data());
    QCOMPARE(p->data()->references, 2);
}

void TestSprites::addPaletteCountsAndReuse()
{
    QSprites sprites(nullptr, ctMemory, true, -1);
    QRGBA colors[256];
    toneColors(0, colors);
    QSpritePalette* full = sprites.addPalette(colors, spsNew, 0, -1);
    QCOMPARE(full->colorCount(), quint16(256));
    QCOMPARE(full->subItem(), QSubItem(0, 0));

    QRGBA short32[256];
    toneColors(0, short32);
    for (int i = 32; i < 256; ++i)
        short32[i] = short32[255];
    QSpritePalette* small = sprites.addPalette(short32, spsNew, 0, -1);
    QCOMPARE(small->colorCount(), quint16(32));
    QCOMPARE(small->itemIndex(), 1);

    QCOMPARE(sprites.addPalette(colors, spsReuse, 5, 5), full);
    QCOMPARE(sprites.paletteCount(), 2);

    // A match with the character's palette does not count for spsReuseOthers.
    QRGBA own[256];
    toneColors(7, own);
    QSpritePalette* character = sprites.addPalette(own, spsNew, 1, 1);
    QSpritePalette* other = sprites.addPalette(own, spsReuseOthers, 0, -1);
    QVERIFY(other != character);
    QCOMPARE(other->data(), character->data());
    QCOMPARE(sprites.addPalette(colors, spsReuseOthers, 0, -1), full);

    QSpritePalette* capped = sprites.addPalette(colors, spsNew, 2, 0);
    capped->setColorCount(1000);
    QCOMPARE(capped->colorCount(), quint16(256));
}

void TestSprites::imageColourTables()
{
    QSprites sprites(nullptr, ctMemory, true, -1);
    QSprite* sprite = sprites.add();
    const QImage picture = indexedImage(5, 5, 0, 4);
    sprite->setImage(picture);
    QVERIFY(sprite->image(sipNone).colorTable().isEmpty());
    QCOMPARE(sprite->image(sipOwn).colorTable(), sprite->palette()->colorTable());
    QCOMPARE(qAlpha(sprite->image(sipOwn).colorTable().at(0)), 0);
    QCOMPARE(sprite->image(sipOwn).colorTable().at(9), picture.colorTable().at(9));

    // The display table follows the palette map to another palette.
    sprite->palette()->setSubItem(QSubItem(1, 1));
    QRGBA other[256];
    toneColors(9, other);
    QSpritePalette* substitute = sprites.addPalette(other, spsNew, 1, 2);
    QCOMPARE(sprite->image(sipDisplay).colorTable(), sprite->palette()->colorTable());
    sprites.paletteMap()->setRemap(QSubItem(1, 1), QSubItem(1, 2));
    QCOMPARE(sprite->image(sipDisplay).colorTable(), substitute->colorTable());
    QCOMPARE(sprite->image(sipOwn).colorTable(), sprite->palette()->colorTable());
    // A substitute that does not exist leaves the own palette.
    sprites.paletteMap()->setRemap(QSubItem(1, 1), QSubItem(4, 4));
    QCOMPARE(sprite->image(sipDisplay).colorTable(), sprite->palette()->colorTable());

    sprite->setPalette(nullptr);
    QCOMPARE(sprite->image(sipOwn).colorTable(), QVector<QRgb>(256, 0));
    QVERIFY(sprites.add()->image(sipOwn).isNull());
}

void TestSprites::setImagePaletteModes()
{
    QSprites sprites(nullptr, ctMemory, true, -1);
    QSprite* sprite = sprites.add();
    sprite->setImage(indexedImage(6, 6, 0, 1));
    QSpritePalette* first = sprite->palette();
    QCOMPARE(first->subItem(), QSubItem(0, 0));

    // Keep: the sprite has a palette, so a picture of other colours keeps it.
    sprite->setImage(indexedImage(6, 6, 1, 2), ssmShared, false, spmKeep);
    QCOMPARE(sprite->palette(), first);
    QCOMPARE(sprites.paletteCount(), 1);

    // New: a palette from the picture's table, at the next free index.
    sprite->setImage(indexedImage(6, 6, 1, 2), ssmShared, false, spmNew);
    QVERIFY(sprite->palette() != first);
    QCOMPARE(sprite->palette()->subItem(), QSubItem(0, 1));

    // Use: the palette named, pixels untouched.
    sprite->setImage(indexedImage(6, 6, 2, 2), ssmShared, false, spmUse, QSubItem(0, 0));
    QCOMPARE(sprite->palette(), first);
    QCOMPARE(bytesOf(sprite->image()), bytesOf(indexedImage(6, 6, 2, 2)));

    // Adapt: a true-colour picture made of palette colours maps back to their indices.
    QImage rgb(4, 1, QImage::Format_ARGB32);
    const QVector<QRgb> table = first->colorTable();
    rgb.setPixel(0, 0, 0);
    rgb.setPixel(1, 0, table.at(10));
    rgb.setPixel(2, 0, table.at(200));
    rgb.setPixel(3, 0, table.at(77));
    sprite->setImage(rgb, ssmShared, false, spmAdapt, QSubItem(0, 0));
    const QImage adapted = sprite->image();
    QCOMPARE(adapted.format(), QImage::Format_Indexed8);
    QCOMPARE(adapted.constScanLine(0)[0], uchar(0));
    QCOMPARE(adapted.constScanLine(0)[1], uchar(10));
    QCOMPARE(adapted.constScanLine(0)[2], uchar(200));
    QCOMPARE(adapted.constScanLine(0)[3], uchar(77));

    // Reverse: index p becomes 255 - p and the table is mirrored.
    QSprite* reversed = sprites.add();
    const QImage picture = indexedImage(3, 2, 5, 3);
    reversed->setImage(picture, ssmShared, true);
    const QImage back = reversed->image(sipOwn);
    QCOMPARE(back.constScanLine(1)[2], uchar(255 - picture.constScanLine(1)[2]));
    QCOMPARE(back.color(255 - picture.constScanLine(1)[2]) | 0xff000000u,
             picture.color(picture.constScanLine(1)[2]) | 0xff000000u);

    // Other formats are stored as RGB32.
    QSprite* converted = sprites.add();
    converted->setImage(QImage(3, 3, QImage::Format_RGB888));
    QCOMPARE(converted->imageInfo().format, QImage::Format_RGB32);
}

void TestSprites::trueColourWarningBeforeVersion2()
{
    QRecordingPrompt prompt;
    QSprites sprites(nullptr, ctMemory, true, -1);
    QSprite* sprite = sprites.add();
    sprite->setItem(4, 2);
    sprite->setImage(argbImage(4, 4, 1));
    QCOMPARE(prompt.count(QStringLiteral("warning")), 0);
    sprites.setVersion(QSprites::version101);
    sprite->setImage(argbImage(4, 4, 2));
    QCOMPARE(prompt.count(QStringLiteral("warning")), 1);
    QCOMPARE(prompt.entries().at(0).title, QStringLiteral("Warning!"));
    QVERIFY(prompt.entries().at(0).text.startsWith(
        QStringLiteral("The image to be set to the sprite 4, 2 (#1) isn't color indexed.\n")));
    // The picture is set all the same.
    QCOMPARE(bytesOf(sprite->image()), bytesOf(argbImage(4, 4, 2)));
}

void TestSprites::paletteMapSubstitutions()
{
    QRemapModel map;
    QSubItem found(-1, -1);
    QVERIFY(!map.find(QSubItem(1, 1), found));
    QCOMPARE(found, QSubItem(-1, -1));
    map.setRemap(QSubItem(1, 1), QSubItem(1, 2));
    map.setRemap(QSubItem(1, 3), QSubItem(1, 4));
    map.setRemap(QSubItem(1, 1), QSubItem(1, 5));
    QCOMPARE(map.count(), 2);
    QVERIFY(map.find(QSubItem(1, 1), found));
    QCOMPARE(found, QSubItem(1, 5));
    QCOMPARE(map.data(map.index(0)).toString(), QStringLiteral("1,1 -> 1,5"));
    QVERIFY(map.removeRemap(QSubItem(1, 1)));
    QVERIFY(!map.removeRemap(QSubItem(1, 1)));
    QVERIFY(!map.find(QSubItem(1, 1), found));
    QCOMPARE(map.rowCount(), 1);
}
