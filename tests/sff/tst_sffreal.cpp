// The SFF reader and writer on the engine's own files and those of others.
#include "tst_sff.h"

#include "qrecordingprompt.h"
#include "realdata.h"
#include "sffcompare.h"

#include "formats/qimagefiles.h"
#include "model/qspritecodecs.h"
#include "model/qspriteimagedata.h"
#include "model/qsprites.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QSet>
#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {


struct HeaderCounts
{
    quint32 version = 0;
    quint32 sprites = 0;
    quint32 palettes = 0;
};

/// The counts the header states, read apart from the reader under test.
HeaderCounts headerCounts(const QByteArray& file)
{
    QDataStream stream(file);
    stream.setByteOrder(QDataStream::LittleEndian);
    HeaderCounts counts;
    stream.skipRawData(12);
    stream >> counts.version;
    if (counts.version == sffVersion101) {
        stream.skipRawData(4);
        stream >> counts.sprites;
    } else {
        stream.skipRawData(24);
        quint32 offset = 0;
        stream >> counts.sprites >> offset >> counts.palettes;
    }
    return counts;
}

/// The stated width and height of each sprite of a version 2 file.
QList<QSize> statedSizes(const QByteArray& file)
{
    QDataStream stream(file);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.skipRawData(36);
    quint32 offset = 0;
    quint32 count = 0;
    stream >> offset >> count;
    QList<QSize> sizes;
    for (quint32 i = 0; i < count; ++i) {
        QSFFv2Sprite record;
        stream.device()->seek(offset + 28 * i);
        stream >> record;
        sizes.append(QSize(record.width, record.height));
    }
    return sizes;
}

QString versionName(quint32 version)
{
    return version == sffVersion101 ? QStringLiteral("1.0.1.0") : version == sffVersion200 ? QStringLiteral("2.0.0.0")
                                                                           : QStringLiteral("2.0.1.0");
}

} // namespace

void TestSff::loadsRealFiles_data()
{
    QTest::addColumn<QString>("path");
    for (const QString& path : realDataFiles({ QStringLiteral("sff") }))
        QTest::newRow(qPrintable(QDir(realDataDir()).relativeFilePath(path))) << path;
}

void TestSff::loadsRealFiles()
{
    PF_REQUIRE_REALDATA();
    QFETCH(QString, path);
    QRecordingPrompt prompt;
    const QByteArray file = readFile(path);
    const HeaderCounts counts = headerCounts(file);
    auto sprites = loadSprites(path);
    QVERIFY(sprites);
    QCOMPARE(sprites->getVersion(), counts.version);
    QCOMPARE(quint32(sprites->count()), counts.sprites);
    if (counts.version != sffVersion101)
        QCOMPARE(quint32(sprites->paletteCount()), counts.palettes);
    const QList<QSize> stated = counts.version == sffVersion101 ? QList<QSize>() : statedSizes(file);
    for (int i = 0; i < sprites->count(); ++i) {
        const QSprite* sprite = sprites->at(i);
        QVERIFY2(sprite->imageData(), qPrintable(QStringLiteral("sprite %1 is empty").arg(i)));
        const QImage image = sprite->image(sipDisplay);
        QVERIFY(!image.isNull());
        if (!stated.isEmpty())
            QCOMPARE(image.size(), stated.at(i));
        // The decoder gave every byte of the picture, no more and no less.
        const QByteArray decoded = sprites->cache()->itemData(sprite->imageData()->item);
        QCOMPARE(decoded.size(), image.sizeInBytes());
    }
}

void TestSff::roundTrips_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<quint32>("version");
    // Several collections carry the same files: each content once.
    QSet<QByteArray> seen;
    for (const QString& path : realDataFiles({ QStringLiteral("sff") })) {
        const QByteArray hash = QCryptographicHash::hash(readFile(path), QCryptographicHash::Sha1);
        if (seen.contains(hash))
            continue;
        seen.insert(hash);
        for (quint32 version : { sffVersion101, sffVersion200, sffVersion201 })
            QTest::newRow(qPrintable(QDir(realDataDir()).relativeFilePath(path) + QLatin1Char('@')
                                     + versionName(version)))
                << path << version;
    }
}

/**
 * Every real file converted to every version and read back shows every
 * sprite as it did: group, index, axis, and the colour of each pixel, index 0
 * transparent. An 8-bit sprite must come back exactly; a true-colour one that
 * the version reduces to 8 bits is listed with its worst colour error.
 */
void TestSff::roundTrips()
{
    PF_REQUIRE_REALDATA();
    QFETCH(QString, path);
    QFETCH(quint32, version);
    QRecordingPrompt prompt;
    auto original = loadSprites(path);
    QVERIFY(original);

    // What the engine showed before the save, which may reduce true colour in the model itself.
    QList<QVector<QRgb>> shown;
    QList<bool> trueColour;
    for (int i = 0; i < original->count(); ++i) {
        shown.append(shownColours(original->at(i)));
        trueColour.append(original->at(i)->imageInfo().format != QImage::Format_Indexed8);
    }
    const quint32 source = original->getVersion();
    QTemporaryDir dir;
    const QString target = dir.filePath(QStringLiteral("saved.sff"));
    QVERIFY(original->toFile(target, version, true));
    auto saved = loadSprites(target);
    QVERIFY(saved);
    QCOMPARE(saved->getVersion(), version);
    QCOMPARE(saved->count(), original->count());
    QStringList differences;
    QStringList reduced;
    for (int i = 0; i < saved->count(); ++i) {
        const QSprite* a = original->at(i);
        const QSprite* b = saved->at(i);
        const QString name = QStringLiteral("sprite %1 (%2,%3)").arg(i).arg(a->itemGroup()).arg(a->itemIndex());
        if (a->subItem() != b->subItem() || a->offset() != b->offset())
            differences << name + QStringLiteral(": properties");
        const QVector<QRgb> colours = shownColours(b);
        if (colours == shown.at(i))
            continue;
        const int error = worstColourError(shown.at(i), colours);
        if (trueColour.at(i) && version != sffVersion201 && error < 256)
            reduced << QStringLiteral("%1 worst %2").arg(name).arg(error);
        else
            differences << QStringLiteral("%1: colours, worst error %2").arg(name).arg(error);
    }
    if (!reduced.isEmpty())
        qInfo("%s: %lld true-colour sprites reduced to 8 bits: %s", qPrintable(versionName(version)),
              static_cast<long long>(reduced.size()), qPrintable(reduced.join(QStringLiteral(", "))));
    QCOMPARE(differences, QStringList());
    if (!reduced.isEmpty())
        return;
    QCOMPARE(linkDifferences(*original, *saved), QStringList());
    if (version != sffVersion101)
        QCOMPARE(paletteDifferences(*original, *saved, version == source), QStringList());
    if (version != source)
        return;

    // Unchanged in its own version: every payload that the version can hold goes back byte for byte.
    QStreamCache* before = original->cache();
    QStreamCache* after = saved->cache();
    for (int i = 0; i < original->count(); ++i) {
        const QStreamCacheItem* item = original->at(i)->imageData()->item;
        const QStreamCacheFilterType filter = before->itemFilter(item);
        if (filter == cfNone || filter == cfRLE5)
            continue;
        QCOMPARE(after->itemFilter(saved->at(i)->imageData()->item), filter);
        QVERIFY2(after->itemRawData(saved->at(i)->imageData()->item) == before->itemRawData(item),
                 qPrintable(QStringLiteral("payload of sprite %1 changed").arg(i)));
    }
}

void TestSff::kfmOfBothEnginesAgree()
{
    PF_REQUIRE_REALDATA();
    QRecordingPrompt prompt;
    auto old = loadSprites(realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.sff"));
    auto resaved = loadSprites(realDataDir() + QStringLiteral("/Tunlan__mugen-1.1b1/chars/kfm/kfm.sff"));
    QVERIFY(old && resaved);
    QCOMPARE(old->getVersion(), sffVersion200);
    QCOMPARE(resaved->getVersion(), sffVersion201);
    QCOMPARE(spriteDifferences(*old, *resaved, true), QStringList());
    QCOMPARE(paletteDifferences(*old, *resaved, false), QStringList());
}

void TestSff::kfmReencodedWithLZ5IsNoLarger()
{
    PF_REQUIRE_REALDATA();
    QRecordingPrompt prompt;
    auto kfm = loadSprites(realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.sff"));
    QVERIFY(kfm);
    QStreamCache* cache = kfm->cache();
    qsizetype engines = 0;
    qsizetype ours = 0;
    QSet<const QStreamCacheItem*> seen;
    for (int i = 0; i < kfm->count(); ++i) {
        const QSpriteImageData* data = kfm->at(i)->imageData();
        if (!data || seen.contains(data->item) || cache->itemFilter(data->item) != cfLZ5)
            continue;
        seen.insert(data->item);
        const QImage image = kfm->at(i)->image(sipOwn);
        const QByteArray encoded = saveLZ5(image);
        QImage decoded = loadLZ5(image.width(), image.height(), encoded);
        decoded.setColorTable(image.colorTable());
        QCOMPARE(decoded, image);
        engines += cache->itemRawData(data->item).size();
        ours += encoded.size();
    }
    QVERIFY(seen.size() > 200);
    qInfo("kfm's LZ5 sprites: %lld bytes re-encoded, the engine's %lld", qint64(ours), qint64(engines));
    QVERIFY2(ours <= engines, qPrintable(QStringLiteral("%1 bytes against the engine's %2").arg(ours).arg(engines)));
}

void TestSff::exportImport_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("kfm 2.0.0.0") << QStringLiteral("/fanyer__mugen/chars/kfm/kfm.sff");
    QTest::newRow("fight 1.0.1.0") << QStringLiteral("/fanyer__mugen/data/fight.sff");
    QTest::newRow("stage0 2.0.1.0") << QStringLiteral("/ikemen-engine__Ikemen_GO-Elecbyte-Screenpack/stages/stage0.sff");
}

void TestSff::exportImport()
{
    PF_REQUIRE_REALDATA();
    QFETCH(QString, path);
    QRecordingPrompt prompt;
    auto original = loadSprites(realDataDir() + path);
    QVERIFY(original);
    QTemporaryDir dir;
    const QString target = dir.filePath(QStringLiteral("all.pfe"));
    original->exportAll(target);
    auto imported = newSprites();
    imported->import(target, -1);
    QCOMPARE(spriteDifferences(*original, *imported, true), QStringList());
    QCOMPARE(linkDifferences(*original, *imported), QStringList());
    QCOMPARE(imported->paletteCount(), original->paletteCount());
    for (int i = 0; i < original->count(); ++i) {
        const QSpritePalette* a = original->at(i)->palette();
        const QSpritePalette* b = imported->at(i)->palette();
        QCOMPARE(b ? b->subItem() : QSubItem(-1, -1), a ? a->subItem() : QSubItem(-1, -1));
    }
    // One edit: undo takes the whole import back.
    imported->undo();
    QCOMPARE(imported->count(), 0);
}

void TestSff::compilerScriptNamesEachFileOnce()
{
    PF_REQUIRE_REALDATA();
    QRecordingPrompt prompt;
    auto sprites = loadSprites(realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.sff"));
    QVERIFY(sprites);
    QTemporaryDir dir;
    sprites->exportAll(dir.filePath(QStringLiteral("kfm.def")));
    const QString text = QString::fromLatin1(readFile(dir.filePath(QStringLiteral("kfm.def"))));
    QVERIFY(text.startsWith(QStringLiteral("[Output]\r\n;filename = kfm.sff\r\n")));

    QSet<const void*> images;
    for (int i = 0; i < sprites->count(); ++i)
        images.insert(sprites->at(i)->imageData());
    QSet<QString> imageNames;
    QStringList paletteNames;
    QString section;
    for (const QString& line : text.split(QStringLiteral("\r\n"))) {
        if (line.startsWith(QLatin1Char('['))) {
            section = line;
            continue;
        }
        const QStringList fields = line.section(QLatin1Char('?'), 0, 0).split(QLatin1Char(','));
        if (fields.size() != 5)
            continue;
        const QString name = fields.at(2).trimmed();
        QVERIFY2(QFile::exists(dir.filePath(name)), qPrintable(name));
        if (section == QLatin1String("[Pal]"))
            paletteNames << name;
        else if (section == QLatin1String("[Sprite]"))
            imageNames.insert(name);
    }
    // Every picture once, however many sprites show it; every palette line its own file.
    QCOMPARE(imageNames.size(), images.size());
    QCOMPARE(paletteNames.size(), sprites->paletteCount());
    QCOMPARE(QDir(dir.path()).entryList({ QStringLiteral("*.png") }).size(), images.size());
}

void TestSff::truncatedFilesLeaveAnEmptyModel()
{
    PF_REQUIRE_REALDATA();
    QRecordingPrompt prompt;
    QTemporaryDir dir;
    const QString target = dir.filePath(QStringLiteral("cut.sff"));
    for (const QString& name : { QStringLiteral("/fanyer__mugen/data/fight.sff"),
                                QStringLiteral("/fanyer__mugen/chars/kfm/kfm.sff") }) {
        const QByteArray file = readFile(realDataDir() + name);
        // Cut inside the header and the tables: nothing can be read.
        for (int size : { 10, 100, 600 }) {
            QVERIFY(writeFile(target, file.left(size)));
            auto sprites = newSprites();
            QVERIFY(!sprites->fromFile(target));
            QVERIFY(sprites->isEmpty());
        }
        // Cut inside the pixels: what is there loads, the rest stays blank.
        QVERIFY(writeFile(target, file.left(file.size() - 1000)));
        auto sprites = newSprites();
        if (sprites->fromFile(target))
            for (int i = 0; i < sprites->count(); ++i)
                sprites->at(i)->image(sipDisplay);
        else
            QVERIFY(sprites->isEmpty());
    }
}
