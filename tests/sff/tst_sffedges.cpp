// The SFF reader and writer on small files and models built for one rule each.
#include "tst_sff.h"

#include "qrecordingprompt.h"
#include "sffcompare.h"

#include "formats/qimagefiles.h"
#include "formats/qpcx.h"
#include "model/qsffreader.h"
#include "model/qspriteimagedata.h"
#include "model/qspritepalettedata.h"
#include "model/qsprites.h"
#include "util/qmessages.h"

#include <QBuffer>
#include <QDataStream>
#include <QtEndian>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QByteArray le32(quint32 value)
{
    QByteArray bytes(4, '\0');
    for (int i = 0; i < 4; ++i)
        bytes[i] = char(value >> (8 * i));
    return bytes;
}

QImage indexedImage(int width, int height, int seed)
{
    QImage image(width, height, QImage::Format_Indexed8);
    QVector<QRgb> table(256);
    for (int i = 0; i < 256; ++i)
        table[i] = qRgb(i, 255 - i, (i * 7) & 255);
    image.setColorTable(table);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.scanLine(y)[x] = uchar((x + y * 3 + seed) % 31);
    return image;
}

QByteArray pcxOf(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    savePCX(image, &buffer);
    return bytes;
}

/// A version 1 file of PCX images and links (a null image makes a link to `links`).
QByteArray version1File(const QList<QImage>& images, const QList<quint16>& links)
{
    QByteArray out;
    QBuffer buffer(&out);
    buffer.open(QIODevice::WriteOnly);
    QDataStream stream(&buffer);
    stream.setByteOrder(QDataStream::LittleEndian);
    QSFFHeader header;
    header.setSignature();
    header.version = sffVersion101;
    QSFFv1Header v1;
    v1.imageCount = quint32(images.size());
    stream << header << v1;
    for (int i = 0; i < images.size(); ++i) {
        const QByteArray pcx = images.at(i).isNull() ? QByteArray() : pcxOf(images.at(i));
        QSFFv1SubHeader sub;
        sub.group = 5;
        sub.index = quint16(i);
        sub.link = links.value(i);
        sub.length = quint32(pcx.size());
        sub.nextOffset = quint32(buffer.pos() + 32 + pcx.size());
        stream << sub;
        buffer.write(pcx);
    }
    return out;
}

/// The sprite records of a version 2 file.
QList<QSFFv2Sprite> spriteRecords(const QByteArray& file)
{
    QDataStream stream(file);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.skipRawData(16);
    QSFFv2Header header;
    stream >> header;
    QList<QSFFv2Sprite> records(header.spriteCount);
    stream.device()->seek(header.spriteOffset);
    for (QSFFv2Sprite& record : records)
        stream >> record;
    return records;
}

QSFFv2Palette paletteRecord(quint16 index, quint16 link, quint32 offset, quint32 length)
{
    QSFFv2Palette record;
    record.index = index;
    record.colorCount = 256;
    record.link = link;
    record.offset = offset;
    record.length = length;
    return record;
}

QByteArray colourBytes(quint8 alpha)
{
    QByteArray bytes;
    for (int i = 0; i < 256; ++i)
        bytes.append(char(i)).append(char(i / 2)).append(char(255 - i)).append(char(alpha));
    return bytes;
}

} // namespace

void TestSff::rejectsWhatIsNoSff()
{
    QRecordingPrompt prompt;
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("bad.sff"));
    auto sprites = newSprites();
    QVERIFY(!sprites->fromFile(dir.filePath(QStringLiteral("missing.sff"))));

    QByteArray file = SffV2Builder().bytes();
    file[3] = 'X';
    QVERIFY(writeFile(path, file));
    QVERIFY(!sprites->fromFile(path));
    QCOMPARE(prompt.entries().size(), 0);

    SffV2Builder unknown;
    unknown.version = 0x03000000;
    QVERIFY(writeFile(path, unknown.bytes()));
    QVERIFY(!sprites->fromFile(path));
    QCOMPARE(prompt.count(QStringLiteral("critical")), 1);
    QCOMPARE(prompt.entries().first().title, QStringLiteral("Sprite loading error"));
    QCOMPARE(prompt.entries().first().text, QStringLiteral("bad.sff(0): SFF version '3.0.0.0' not supported yet"));
    QVERIFY(sprites->isEmpty());
}

void TestSff::version1Links()
{
    QRecordingPrompt prompt;
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("links.sff"));
    const QImage a = indexedImage(9, 4, 0);
    const QImage b = indexedImage(9, 4, 5);
    // Sprite 0 links ahead of itself; sprite 3 holds sprite 1's picture again.
    QVERIFY(writeFile(path, version1File({ QImage(), a, b, a, QImage() }, { 3, 0, 0, 0, 2 })));
    auto sprites = loadSprites(path);
    QVERIFY(sprites);
    QCOMPARE(sprites->count(), 5);
    QCOMPARE(prompt.count(QStringLiteral("critical")), 1);
    QCOMPARE(prompt.entries().first().text, QStringLiteral("links.sff(0): Sprite incorrectly linked to the index 3"));
    QVERIFY(!sprites->at(0)->imageData());
    QCOMPARE(sprites->at(3)->imageData(), sprites->at(1)->imageData());
    QCOMPARE(sprites->at(4)->imageData(), sprites->at(2)->imageData());
    const QImage loaded = sprites->at(1)->image(sipOwn);
    for (int y = 0; y < a.height(); ++y)
        QCOMPARE(QByteArray(reinterpret_cast<const char*>(loaded.constScanLine(y)), a.width()),
                 QByteArray(reinterpret_cast<const char*>(a.constScanLine(y)), a.width()));
    QCOMPARE(loaded.color(7), a.color(7));

    // The empty sprite stops the save; without it the duplicate is written as a link.
    QVERIFY(!sprites->toFile(dir.filePath(QStringLiteral("out.sff"))));
    QCOMPARE(prompt.entries().last().title, QStringLiteral("Empty sprite!"));
    sprites->remove(0);
    QVERIFY(sprites->toFile(dir.filePath(QStringLiteral("out.sff"))));
    const QByteArray saved = readFile(dir.filePath(QStringLiteral("out.sff")));
    QDataStream stream(saved);
    stream.setByteOrder(QDataStream::LittleEndian);
    qint64 position = 512;
    QList<QSFFv1SubHeader> subs;
    for (int i = 0; i < 4; ++i) {
        stream.device()->seek(position);
        QSFFv1SubHeader sub;
        stream >> sub;
        subs.append(sub);
        position = sub.nextOffset;
    }
    QCOMPARE(subs.at(2).length, 0u);
    QCOMPARE(subs.at(2).link, quint16(0));
    QCOMPARE(subs.at(3).length, 0u);
    QCOMPARE(subs.at(3).link, quint16(1));
    QCOMPARE(position, qint64(saved.size()));
}

void TestSff::version2Links()
{
    QRecordingPrompt prompt;
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("links2.sff"));
    SffV2Builder file;
    file.ldata = colourBytes(255);
    file.palettes = { paletteRecord(0, 0, 0, 1024), paletteRecord(1, 0, 0, 0), paletteRecord(2, 7, 0, 0) };
    const QByteArray pixels(12, '\3');
    QSFFv2Sprite sprite;
    sprite.width = 4;
    sprite.height = 3;
    sprite.depth = 8;
    sprite.offset = quint32(file.ldata.size());
    sprite.length = 12;
    file.ldata += pixels;
    QSFFv2Sprite linked = sprite;
    linked.index = 1;
    linked.length = 0;
    linked.link = 0;
    QSFFv2Sprite broken = linked;
    broken.index = 2;
    broken.link = 9;
    broken.palette = 3;
    QSFFv2Sprite last = sprite;
    last.index = 3;
    last.palette = 1;
    file.sprites = { sprite, linked, broken, last };
    QVERIFY(writeFile(path, file.bytes()));
    auto sprites = loadSprites(path);
    QVERIFY(sprites);
    QCOMPARE(sprites->count(), 4);
    QCOMPARE(sprites->paletteCount(), 3);
    // A palette linked beyond the table is blank, and nobody is told.
    QCOMPARE(sprites->paletteAt(1)->data(), sprites->paletteAt(0)->data());
    QVERIFY(sprites->paletteAt(2)->data());
    QCOMPARE(sprites->paletteAt(2)->colors()[5], QRGBA(0, 0, 0, 0));
    QStringList texts;
    for (const QRecordingPrompt::Entry& entry : prompt.entries())
        texts << entry.text;
    QCOMPARE(texts, QStringList({ QStringLiteral("links2.sff(2): Sprite incorrectly linked to the palette index 3"),
                                  QStringLiteral("links2.sff(2): Sprite incorrectly linked to the index 9") }));
    QCOMPARE(sprites->at(1)->imageData(), sprites->at(0)->imageData());
    QVERIFY(!sprites->at(2)->imageData());
    QVERIFY(!sprites->at(2)->palette());
    // Sprite 3 holds the same pixels: the model joins it, and the next save links it.
    QCOMPARE(sprites->at(3)->imageData(), sprites->at(0)->imageData());
    QCOMPARE(sprites->at(3)->palette(), sprites->paletteAt(1));
}

void TestSff::paletteAlphaByVersion()
{
    QRecordingPrompt prompt;
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("alpha.sff"));
    for (quint32 version : { sffVersion200, sffVersion201 }) {
        SffV2Builder file;
        file.version = version;
        file.ldata = colourBytes(17);
        file.palettes = { paletteRecord(0, 0, 0, 1024) };
        QVERIFY(writeFile(path, file.bytes()));
        auto sprites = loadSprites(path);
        QVERIFY(sprites);
        const QRGBA* colours = sprites->paletteAt(0)->colors();
        QCOMPARE(colours[9].r, quint8(9));
        if (version == 0x02000000) {
            QCOMPARE(colours[0].a, quint8(0));
            QCOMPARE(colours[9].a, quint8(255));
        } else {
            QCOMPARE(colours[0].a, quint8(17));
            QCOMPARE(colours[9].a, quint8(17));
        }
    }
}

void TestSff::rawSpriteRows()
{
    QRecordingPrompt prompt;
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("raw.sff"));
    // Rows of 3 bytes, end to end: as the engine's own raw fonts hold them,
    // without a size prefix, and once with one.
    const QByteArray pixels("\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0a\x0b\x0c\x0d\x0e\x0f", 15);
    SffV2Builder file;
    file.ldata = colourBytes(255) + pixels + le32(15) + pixels;
    file.palettes = { paletteRecord(0, 0, 0, 1024) };
    QSFFv2Sprite plain;
    plain.width = 3;
    plain.height = 5;
    plain.depth = 8;
    plain.offset = 1024;
    plain.length = 15;
    QSFFv2Sprite prefixed = plain;
    prefixed.index = 1;
    prefixed.offset = 1024 + 15;
    prefixed.length = 19;
    file.sprites = { plain, prefixed };
    QVERIFY(writeFile(path, file.bytes()));
    auto sprites = loadSprites(path);
    QVERIFY(sprites);
    for (int i = 0; i < 2; ++i) {
        const QImage image = sprites->at(i)->image();
        QCOMPARE(image.size(), QSize(3, 5));
        for (int y = 0; y < 5; ++y)
            QCOMPARE(QByteArray(reinterpret_cast<const char*>(image.constScanLine(y)), 3), pixels.mid(3 * y, 3));
    }
    // A header that claims far more pixels than its payload can hold is damage:
    // that sprite stays empty, and nothing is allocated for it.
    SffV2Builder damaged = file;
    QSFFv2Sprite huge = plain;
    huge.index = 2;
    huge.width = huge.height = 65535;
    huge.compression = 4;
    huge.length = 10;
    damaged.sprites.append(huge);
    QVERIFY(writeFile(path, damaged.bytes()));
    auto partly = loadSprites(path);
    QVERIFY(partly);
    QCOMPARE(partly->count(), 3);
    QVERIFY(!partly->at(2)->imageData());
    QVERIFY(partly->at(1)->imageData());

    // Raw pixels are never written: the next save encodes them.
    QVERIFY(sprites->toFile(path));
    QCOMPARE(spriteRecords(readFile(path)).first().compression, quint8(10));
    auto reloaded = loadSprites(path);
    QCOMPARE(spriteDifferences(*sprites, *reloaded, true), QStringList());
}

void TestSff::shortPaletteWritesLZ5()
{
    QRecordingPrompt prompt;
    QTemporaryDir dir;
    auto sprites = newSprites();
    QRGBA colours[256];
    for (int i = 1; i < 32; ++i)
        colours[i] = QRGBA(uchar(i * 8), 0, 0);
    QSpritePalette* palette = sprites->addPalette(colours, spsNew, 1, 1);
    QCOMPARE(palette->colorCount(), quint16(32));
    QSprite* sprite = sprites->add();
    sprite->setImage(indexedImage(40, 30, 1), ssmShared, false, spmUse, QSubItem(1, 1));
    QCOMPARE(sprite->palette(), palette);
    for (quint32 version : { sffVersion200, sffVersion201 }) {
        const QString path = dir.filePath(QStringLiteral("short%1.sff").arg(version, 0, 16));
        QVERIFY(sprites->toFile(path, version));
        const QSFFv2Sprite record = spriteRecords(readFile(path)).first();
        QCOMPARE(record.compression, quint8(4));
        QCOMPARE(record.depth, quint8(5));
        auto reloaded = loadSprites(path);
        QCOMPARE(spriteDifferences(*sprites, *reloaded, true), QStringList());
        // The payload was encoded once and kept, so the second save copies it.
        QCOMPARE(sprites->cache()->itemFilter(sprite->imageData()->item), cfLZ5);
    }
}

void TestSff::sharedImageUnderTwoPalettes()
{
    QRecordingPrompt prompt;
    QTemporaryDir dir;
    auto sprites = newSprites();
    const QImage image = indexedImage(16, 8, 2);
    QSprite* first = sprites->add();
    first->setImage(image, ssmShared, false, spmNew);
    QSprite* second = sprites->add();
    second->setItem(0, 1);
    second->setImage(image, ssmShared, false, spmNew);
    QRGBA other[256];
    other[3] = QRGBA(1, 2, 3);
    second->setPalette(sprites->addPalette(other, spsNew, 0, -1));
    QCOMPARE(first->imageData(), second->imageData());
    QVERIFY(first->palette() != second->palette());

    const QString v2 = dir.filePath(QStringLiteral("two2.sff"));
    QVERIFY(sprites->toFile(v2, 0x02000100));
    const QList<QSFFv2Sprite> records = spriteRecords(readFile(v2));
    QCOMPARE(records.at(1).length, 0u);
    QCOMPARE(records.at(1).palette, quint16(1));

    const QString v1 = dir.filePath(QStringLiteral("two1.sff"));
    QVERIFY(sprites->toFile(v1, sffVersion101));
    auto reloaded = loadSprites(v1);
    QVERIFY(reloaded);
    QCOMPARE(spriteDifferences(*sprites, *reloaded, false), QStringList());
    // Two PCX payloads in the file, one picture again in the model.
    QCOMPARE(reloaded->at(0)->imageData(), reloaded->at(1)->imageData());
    QVERIFY(reloaded->at(0)->palette() != reloaded->at(1)->palette());
}

void TestSff::trueColourByVersion()
{
    QRecordingPrompt prompt;
    QTemporaryDir dir;
    auto sprites = newSprites();
    QImage picture(20, 10, QImage::Format_ARGB32);
    picture.fill(qRgba(0, 0, 0, 0));
    for (int x = 0; x < 20; ++x)
        picture.setPixel(x, 5, qRgba(x * 12, 200, 40, 255));
    sprites->add()->setImage(picture);
    QVERIFY(sprites->canSave(sffVersion201));
    QVERIFY(!sprites->canSave(sffVersion200));
    QCOMPARE(prompt.entries().last().text, QStringLiteral("You can't save this SFF without palettes."));

    const QString png = dir.filePath(QStringLiteral("true.sff"));
    QVERIFY(sprites->toFile(png, 0x02000100));
    QCOMPARE(spriteRecords(readFile(png)).first().compression, quint8(12));
    auto reloaded = loadSprites(png);
    QCOMPARE(reloaded->at(0)->image(), picture);

    // Below 2.0.1.0 the model itself becomes indexed, transparent pixels on entry 0.
    QVERIFY(sprites->toFile(dir.filePath(QStringLiteral("indexed.sff")), 0x02000000));
    const QSprite* sprite = sprites->at(0);
    QCOMPARE(sprite->imageInfo().format, QImage::Format_Indexed8);
    QVERIFY(sprite->palette());
    const QImage indexed = sprite->image(sipOwn);
    QCOMPARE(indexed.pixelIndex(0, 0), 0);
    QCOMPARE(indexed.pixel(7, 5), picture.pixel(7, 5));
    // The reduction is told, with how far a colour moved: twenty colours fit exactly.
    QCOMPARE(prompt.entries().last().kind, QStringLiteral("information"));
    QVERIFY(prompt.entries().last().text.startsWith(QStringLiteral("1 true-colour sprite(s) reduced")));
    QVERIFY(prompt.entries().last().text.endsWith(QStringLiteral("is 0 of 255.")));

    // A thousand colours cannot: the error is reported, and no opaque pixel turns transparent.
    QImage many(40, 25, QImage::Format_RGB32);
    for (int y = 0; y < 25; ++y)
        for (int x = 0; x < 40; ++x)
            many.setPixel(x, y, qRgb(x * 6, y * 10, (x * y) & 255));
    QSprite* second = sprites->add();
    second->setItem(1, 0);
    second->setImage(many);
    QVERIFY(sprites->toFile(dir.filePath(QStringLiteral("many.sff")), sffVersion101));
    const QString told = prompt.entries().last().text;
    QVERIFY(told.startsWith(QStringLiteral("1 true-colour sprite(s) reduced")));
    QVERIFY(!told.endsWith(QStringLiteral("is 0 of 255.")));
    QVERIFY(!shownColours(sprites->at(1)).contains(0u));
}

void TestSff::canSaveChecks()
{
    QRecordingPrompt prompt;
    auto sprites = newSprites();
    QVERIFY(!sprites->canSave(sffVersion201));
    QCOMPARE(prompt.entries().last().text,
             QStringLiteral("You can't save an empty SFF because M.U.G.E.N. will not open it."));
    QCOMPARE(prompt.entries().last().title, QStringLiteral("Save SFF"));
    QSprite* sprite = sprites->add();
    sprite->setImage(indexedImage(4, 4, 0), ssmShared, false, spmNew);
    QVERIFY(sprites->canSave(sffVersion101));
    sprites->removePalette(0);
    QVERIFY(!sprites->canSave(sffVersion201));
}

namespace {

/// The shown colours of every sprite after a save in `version` and a reload, against those before.
QStringList conversionDifferences(QSprites& sprites, quint32 version, const QString& path)
{
    QList<QVector<QRgb>> before;
    for (int i = 0; i < sprites.count(); ++i)
        before.append(shownColours(sprites.at(i)));
    if (!sprites.toFile(path, version, true))
        return { QStringLiteral("not saved") };
    auto reloaded = loadSprites(path);
    if (!reloaded || reloaded->count() != sprites.count())
        return { QStringLiteral("not reloaded") };
    QStringList differences;
    for (int i = 0; i < sprites.count(); ++i)
        if (shownColours(reloaded->at(i)) != before.at(i))
            differences << QStringLiteral("sprite %1: worst error %2")
                               .arg(i)
                               .arg(worstColourError(before.at(i), shownColours(reloaded->at(i))));
    return differences;
}

} // namespace

void TestSff::portraitPaletteKeepsTheStandColours()
{
    // A character whose portrait comes first, under a palette that differs
    // from the standing pose's in one colour the pose uses: version 1 gives
    // both the palette of whichever comes first.
    QRecordingPrompt prompt;
    QTemporaryDir dir;
    auto sprites = newSprites();
    QImage portrait = indexedImage(8, 8, 0);
    QVector<QRgb> portraitTable = portrait.colorTable();
    portraitTable[31] = qRgb(0, 0, 0);
    portrait.setColorTable(portraitTable);
    QImage stand = indexedImage(12, 10, 4);
    QVector<QRgb> standTable = stand.colorTable();
    standTable[31] = qRgb(49, 49, 49);
    stand.setColorTable(standTable);
    for (int y = 0; y < 10; ++y)
        stand.scanLine(y)[y] = 31;
    QSprite* first = sprites->add();
    first->setItem(9000, 0);
    first->setImage(portrait, ssmShared, false, spmNew);
    QSprite* second = sprites->add();
    second->setItem(0, 0);
    second->setImage(stand, ssmShared, false, spmNew);
    QVERIFY(first->palette() != second->palette());
    for (quint32 version : { sffVersion101, sffVersion200, sffVersion201 })
        QCOMPARE(conversionDifferences(*sprites, version, dir.filePath(QStringLiteral("stand.sff"))), QStringList());
}

void TestSff::opaqueColourOfTheTransparentRgbStaysOpaque()
{
    // A version 1 palette that uses its first 32 entries and repeats the
    // transparent colour's red, green and blue in all the others, as many
    // real ones do; the picture uses entries past 31 all the same.
    QRecordingPrompt prompt;
    QTemporaryDir dir;
    QImage image = indexedImage(9, 7, 1);
    QVector<QRgb> table = image.colorTable();
    for (int i = 32; i < 256; ++i)
        table[i] = qRgb(0, 0, 0);
    table[0] = qRgb(0, 0, 0);
    image.setColorTable(table);
    image.scanLine(0)[0] = 0;
    image.scanLine(1)[1] = 32;
    image.scanLine(2)[2] = 40;
    image.scanLine(3)[3] = 255;
    const QString source = dir.filePath(QStringLiteral("v1.sff"));
    QVERIFY(writeFile(source, version1File({ image, image.mirrored(true, false) }, { 0, 0 })));
    for (quint32 version : { sffVersion101, sffVersion200, sffVersion201 }) {
        auto sprites = loadSprites(source);
        QVERIFY(sprites);
        QCOMPARE(sprites->at(0)->palette()->colorCount(), 32);
        QCOMPARE(shownColours(sprites->at(0)).at(9 + 1), qRgb(0, 0, 0));
        QCOMPARE(conversionDifferences(*sprites, version, dir.filePath(QStringLiteral("v2.sff"))), QStringList());
    }
}

void TestSff::pngPayloadFaultsNameTheSprite()
{
    QRecordingPrompt prompt;
    const QImage picture = indexedImage(6, 4, 1);
    const QByteArray png = savePNG(picture);
    QByteArray badCrc = png;
    badCrc[png.size() - 13] = char(badCrc.at(png.size() - 13) ^ 1); // the last byte of IDAT's checksum
    SffV2Builder file;
    file.ldata = colourBytes(255);
    file.palettes = { paletteRecord(0, 0, 0, 1024) };
    // Sound, a damaged checksum, a picture of another size than the record's, cut short, and no PNG at all.
    const QList<QByteArray> payloads = { png, badCrc, png, png.chopped(20), QByteArray(40, 'x') };
    for (int i = 0; i < payloads.size(); ++i) {
        QSFFv2Sprite sprite;
        sprite.index = quint16(i);
        sprite.width = i == 2 ? 7 : 6;
        sprite.height = 4;
        sprite.depth = 8;
        sprite.compression = 10;
        sprite.offset = quint32(file.ldata.size());
        sprite.length = quint32(payloads.at(i).size() + 4);
        file.ldata += le32(24) + payloads.at(i);
        file.sprites.append(sprite);
    }
    auto sprites = newSprites();
    QSFFReader reader(sprites.get(), false);
    QVERIFY(reader.read(file.bytes(), QStringLiteral("png.sff")));
    const int idatAt = png.indexOf("IDAT") - 4;
    QCOMPARE(reader.faults(),
             QStringList({ QStringLiteral("sprite 1 (0,1) of 5: PNG data: chunk IDAT at byte %1 has a bad checksum").arg(idatAt),
                           QStringLiteral("sprite 2 (0,2) of 5: PNG data: the picture is 6x4, the sprite's record says 7x4"),
                           QStringLiteral("sprite 3 (0,3) of 5: PNG data: chunk IDAT at byte %1 claims %2 bytes, past the "
                                          "end of the picture at byte %3")
                               .arg(idatAt)
                               .arg(qFromBigEndian<quint32>(png.constData() + idatAt))
                               .arg(png.size() - 20),
                           QStringLiteral("sprite 4 (0,4) of 5: PNG data: not a PNG picture: no PNG signature at its start") }));
    // The damaged sprites stay blank; the sound one is whole.
    QCOMPARE(sprites->count(), 5);
    const QImage whole = sprites->at(0)->image(sipNone);
    QCOMPARE(whole.size(), picture.size());
    for (int y = 0; y < picture.height(); ++y)
        QCOMPARE(QByteArray(reinterpret_cast<const char*>(whole.constScanLine(y)), 6),
                 QByteArray(reinterpret_cast<const char*>(picture.constScanLine(y)), 6));
    for (int i = 1; i < 5; ++i)
        QVERIFY2(!sprites->at(i)->imageData(), qPrintable(QString::number(i)));

    // Opened as a project opens it, the faults head the sprite file's messages.
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("png.sff"));
    QVERIFY(writeFile(path, file.bytes()));
    QVERIFY(sprites->fromFile(path));
    sprites->checkErrors();
    QVERIFY(sprites->messages()->count() >= 4);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(sprites->messages()->at(i).text, reader.faults().at(i));
    QCOMPARE(QMessages::format(sprites->messages()->at(0)), QStringLiteral("SFF: ") + reader.faults().at(0));
}
