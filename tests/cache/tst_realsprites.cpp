#include "tst_cache.h"

#include "realdata.h"
#include "sffsprites.h"
#include "testimages.h"

#include "model/qspritecodecs.h"
#include "model/qstreamcache.h"
#include "model/qstreamcachefilter.h"

#include <QFileInfo>
#include <QtTest>

namespace {

struct SizeTotals
{
    int sprites = 0;
    qint64 pixels = 0;
    qint64 original = 0;
    qint64 ours = 0;

    QByteArray line(const char* codec) const
    {
        return QByteArray(codec) + ": " + QByteArray::number(sprites) + " sprites, "
            + QByteArray::number(pixels) + " pixels, engine " + QByteArray::number(original)
            + " bytes, ours " + QByteArray::number(ours) + " bytes ("
            + QByteArray::number(original ? 100.0 * double(ours) / double(original) : 0.0, 'f', 2) + "%)";
    }
};

} // namespace

void TestCache::realSpritesRoundTrip()
{
    PF_REQUIRE_REALDATA();
    SizeTotals lz5, rle8;
    QStreamCache cache(ctMemory, QStringLiteral("tst_cache"), false);
    for (const QString& path : realDataFiles({ QStringLiteral("sff") })) {
        const QList<SffSprite> sprites = readSffSprites(path);
        for (const SffSprite& sprite : sprites) {
            if ((sprite.codec != scLZ5 && sprite.codec != scRLE8) || sprite.payload.isEmpty())
                continue;
            const bool isLz5 = sprite.codec == scLZ5;
            const int w = sprite.width, h = sprite.height;
            const QByteArray where = (QFileInfo(path).fileName() + QStringLiteral(" %1,%2").arg(sprite.group).arg(sprite.index)).toUtf8();
            QVERIFY2(w > 0 && h > 0, where.constData());
            QCOMPARE(sprite.decodedSize, quint32(w * h));

            const QImage image = isLz5 ? loadLZ5(w, h, sprite.payload)
                                       : loadRLE8(w, h, QImage::Format_Indexed8, sprite.payload);
            QVERIFY2(!image.isNull(), where.constData());
            // The stream describes exactly the image: one more row stays empty.
            const QImage taller = isLz5 ? loadLZ5(w, h + 1, sprite.payload)
                                        : loadRLE8(w, h + 1, QImage::Format_Indexed8, sprite.payload);
            QVERIFY2(taller.copy(0, h, w, 1).constScanLine(0)[0] == 0, where.constData());
            QVERIFY2(tightPixels(taller.copy(0, 0, w, h)) == tightPixels(image), where.constData());

            // The cache's filter gives the image's bytes without a QImage.
            QStreamImageParam param { quint16(w), quint16(h), QImage::Format_Indexed8 };
            QStreamCacheItem* item = cache.addItem(sprite.payload, isLz5 ? cfLZ5 : cfRLE8, &param);
            QVERIFY2(cache.itemData(item) == pixelsOf(image), where.constData());
            cache.deleteItem(item);

            const QByteArray ours = isLz5 ? saveLZ5(image, true) : saveRLE8(image);
            const QImage again = isLz5 ? loadLZ5(w, h, ours) : loadRLE8(w, h, QImage::Format_Indexed8, ours);
            QVERIFY2(pixelsOf(again) == pixelsOf(image), where.constData());

            SizeTotals& totals = isLz5 ? lz5 : rle8;
            ++totals.sprites;
            totals.pixels += qint64(w) * h;
            totals.original += sprite.payload.size();
            totals.ours += ours.size();
        }
    }
    qInfo("%s", lz5.line("LZ5").constData());
    qInfo("%s", rle8.line("RLE8").constData());
    QVERIFY(lz5.sprites > 200);
    QVERIFY(rle8.sprites > 0);
}
