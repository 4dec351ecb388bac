#include "tst_cache.h"

#include "testimages.h"

#include "model/qspritecodecs.h"
#include "util/qcrc64.h"

#include <QRandomGenerator>
#include <QtTest>

namespace {

QByteArray hex(const char* text)
{
    return QByteArray::fromHex(QByteArray(text));
}

/// The CRC one bit at a time, straight from its definition.
quint64 bitwiseCrc64(const QByteArray& data)
{
    quint64 crc = ~quint64(0);
    for (const char c : data) {
        crc ^= uchar(c);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) ? (crc >> 1) ^ 0x95AC9329AC4BC9B5ull : crc >> 1;
    }
    return crc;
}

/// Decoded bytes must be the pixels with zero row padding: compare the whole buffer.
void compareDecoded(const QImage& decoded, int width, int height, const QByteArray& tight)
{
    QVERIFY(!decoded.isNull());
    QCOMPARE(decoded.size(), QSize(width, height));
    QCOMPARE(decoded.format(), QImage::Format_Indexed8);
    QCOMPARE(tightPixels(decoded).toHex(' '), tight.toHex(' '));
    QCOMPARE(pixelsOf(decoded), pixelsOf(imageFromPixels(width, height, tight)));
}

} // namespace

void TestCache::crc64MatchesBitwiseDefinition()
{
    QCOMPARE(crc64(QByteArray()), 0xFFFFFFFFFFFFFFFFull);
    QCOMPARE(crc64(QByteArrayLiteral("123456789")), 0xCAA717168609F281ull);
    // Every length around the 16-byte slices and the 64- and 128-byte folds,
    // from every alignment, both with carry-less multiplication (128- or
    // 256-bit, where the processor has it) and from the tables alone.
    QRandomGenerator random(8);
    QByteArray data(560, Qt::Uninitialized);
    for (char& c : data)
        c = char(random.bounded(256));
    for (int start = 0; start < 16; ++start)
        for (int length = 0; length + start <= data.size(); length += (length < 420 ? 1 : 37)) {
            const QByteArray part = data.mid(start, length);
            const quint64 expected = bitwiseCrc64(part);
            QCOMPARE(crc64(part.constData(), quint32(part.size())), expected);
            QCOMPARE(crc64Portable(part.constData(), quint32(part.size())), expected);
        }
    // Long inputs are hashed in three parts joined afterwards: every remainder.
    QByteArray longer(70000, Qt::Uninitialized);
    for (char& c : longer)
        c = char(random.bounded(256));
    for (const int length : { 3071, 3072, 3073, 3088, 3100, 4095, 10000, 65536, 69999 }) {
        const quint64 expected = bitwiseCrc64(longer.left(length));
        QCOMPARE(crc64(longer.constData(), quint32(length)), expected);
        QCOMPARE(crc64Portable(longer.constData(), quint32(length)), expected);
    }
}

void TestCache::rle8Packets_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<QByteArray>("pixels");
    QTest::newRow("bytes outside 0x40-0x7F are pixels")
        << 6 << 1 << hex("00 3F 80 C0 C5 FF") << hex("00 3F 80 C0 C5 FF");
    QTest::newRow("run") << 5 << 1 << hex("45 07") << hex("07 07 07 07 07");
    QTest::newRow("run of 0 writes nothing") << 2 << 1 << hex("40 09 01 02") << hex("01 02");
    QTest::newRow("run of 63") << 63 << 1 << hex("7F 0A") << QByteArray(63, 0x0A);
    QTest::newRow("run value in marker range") << 2 << 1 << hex("42 55") << hex("55 55");
    QTest::newRow("run crosses a padded row end") << 3 << 2 << hex("44 05 01 02") << hex("05 05 05 05 01 02");
    QTest::newRow("stream too long is cut") << 2 << 2 << hex("7F 01 02 03") << hex("01 01 01 01");
    QTest::newRow("stream too short leaves zero") << 3 << 2 << hex("42 09") << hex("09 09 00 00 00 00");
    QTest::newRow("marker without value at the end") << 2 << 1 << hex("05 43") << hex("05 00");
}

void TestCache::rle8Packets()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(QByteArray, stream);
    QFETCH(QByteArray, pixels);
    compareDecoded(loadRLE8(width, height, QImage::Format_Indexed8, stream), width, height, pixels);
}

void TestCache::rle8Encoding_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<QByteArray>("pixels");
    QTest::addColumn<QByteArray>("stream");
    QTest::newRow("lone marker-range pixels are escaped")
        << 5 << 1 << hex("40 7F 3F 80 C0") << hex("41 40 41 7F 3F 80 C0");
    QTest::newRow("run of 63 then a lone pixel") << 64 << 1 << QByteArray(64, 0x05) << hex("7F 05 05");
    QTest::newRow("run of 63 then a lone marker pixel")
        << 64 << 1 << QByteArray(64, 0x45) << hex("7F 45 41 45");
    QTest::newRow("runs go on across padded rows") << 3 << 2 << QByteArray(6, 0x07) << hex("46 07");
    QTest::newRow("pairs") << 4 << 1 << hex("01 01 C8 C8") << hex("42 01 42 C8");
}

void TestCache::rle8Encoding()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(QByteArray, pixels);
    QFETCH(QByteArray, stream);
    const QImage image = imageFromPixels(width, height, pixels);
    QCOMPARE(saveRLE8(image).toHex(' '), stream.toHex(' '));
    compareDecoded(loadRLE8(width, height, QImage::Format_Indexed8, stream), width, height, pixels);
}

void TestCache::rle8TrueColourRows()
{
    // A 24-bit depth counts three bytes a pixel in a row of four: each row
    // takes 3 * width bytes of the stream, and the rest of it stays zero.
    const QImage image = loadRLE8(2, 2, QImage::Format_RGB32, hex("46 07 01 02 03 04 05 06"));
    QCOMPARE(image.format(), QImage::Format_RGB32);
    QCOMPARE(pixelsOf(image).toHex(' '), QByteArray("07 07 07 07 07 07 00 00 01 02 03 04 05 06 00 00"));
    // The row bytes of the encoder are the same: the fourth byte of each pixel is not stored.
    QCOMPARE(saveRLE8(image).toHex(' '), QByteArray("46 07 01 02 03 04 05 06"));
}

void TestCache::rle5Packets_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<QByteArray>("pixels");
    QTest::newRow("control 0 is a run of colour 0") << 4 << 1 << hex("03 00 15") << hex("00 00 00 00");
    QTest::newRow("colour byte keeps its low 5 bits") << 3 << 1 << hex("02 80 E5") << hex("05 05 05");
    QTest::newRow("run then pixel pairs") << 6 << 1 << hex("00 82 01 45 3F") << hex("01 05 05 05 1F 1F");
    QTest::newRow("pair of 8 after a colour-0 run")
        << 9 << 1 << hex("00 01 E7") << hex("00 07 07 07 07 07 07 07 07");
    QTest::newRow("run of 256") << 256 << 1 << hex("FF 81 02") << QByteArray(256, 0x02);
    QTest::newRow("runs cross padded rows") << 3 << 2 << hex("05 81 09") << QByteArray(6, 0x09);
    QTest::newRow("missing colour byte ends the stream") << 2 << 1 << hex("01 80") << hex("00 00");
    QTest::newRow("pairs cut short by the stream") << 4 << 1 << hex("00 83 03 22") << hex("03 02 02 00");
    QTest::newRow("two packets") << 5 << 1 << hex("01 80 04 02 80 06") << hex("04 04 06 06 06");
}

void TestCache::rle5Packets()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(QByteArray, stream);
    QFETCH(QByteArray, pixels);
    compareDecoded(loadRLE5(width, height, stream), width, height, pixels);
}

void TestCache::roundTrips_data()
{
    QTest::addColumn<QImage>("image");
    const QList<QSize> sizes = { { 1, 1 }, { 3, 7 }, { 17, 5 }, { 64, 64 }, { 257, 31 }, { 90, 160 } };
    quint32 seed = 1;
    for (const auto& [name, pattern] : allPatterns())
        for (const QSize& size : sizes)
            QTest::addRow("%s %dx%d", name, size.width(), size.height())
                << patternImage(pattern, size.width(), size.height(), 32, seed++);
}

void TestCache::roundTrips()
{
    QFETCH(QImage, image);
    const QByteArray pixels = pixelsOf(image);
    const int w = image.width(), h = image.height();
    QCOMPARE(pixelsOf(loadLZ5(w, h, saveLZ5(image, true))), pixels);
    QCOMPARE(pixelsOf(loadLZ5(w, h, saveLZ5(image, false))), pixels);
    QCOMPARE(pixelsOf(loadRLE8(w, h, QImage::Format_Indexed8, saveRLE8(image))), pixels);

    // RLE8 carries all 256 values; spread the pattern over them.
    QImage wide = image.copy();
    for (int y = 0; y < h; ++y)
        for (uchar *p = wide.scanLine(y), *end = p + w; p < end; ++p)
            *p = uchar(*p * 8 + 3);
    QCOMPARE(pixelsOf(loadRLE8(w, h, QImage::Format_Indexed8, saveRLE8(wide))), pixelsOf(wide));
}

void TestCache::damagedStreamsStayInsideTheImage()
{
    // Arbitrary bytes give an image of the asked size with zero padding; the
    // 5-bit decoders give only 5-bit values. (The fuzz targets go further.)
    QRandomGenerator random(1234);
    for (int round = 0; round < 300; ++round) {
        const int w = 1 + int(random.bounded(40)), h = 1 + int(random.bounded(20));
        QByteArray junk(int(random.bounded(200)), Qt::Uninitialized);
        for (char& c : junk)
            c = char(random.bounded(256));
        const QImage images[]
            = { loadRLE8(w, h, QImage::Format_Indexed8, junk), loadRLE5(w, h, junk), loadLZ5(w, h, junk) };
        for (int i = 0; i < 3; ++i) {
            const QImage& image = images[i];
            QCOMPARE(image.size(), QSize(w, h));
            for (int y = 0; y < h; ++y) {
                const uchar* row = image.constScanLine(y);
                for (int x = w; x < image.bytesPerLine(); ++x)
                    QCOMPARE(int(row[x]), 0);
                if (i > 0)
                    for (int x = 0; x < w; ++x)
                        QVERIFY(row[x] < 32);
            }
        }
    }
    // Formats without an RLE8 row size, and empty sizes, give null images.
    QVERIFY(loadRLE8(4, 4, QImage::Format_Mono, hex("41 01")).isNull());
    QVERIFY(loadRLE8(0, 4, QImage::Format_Indexed8, hex("41 01")).isNull());
    QVERIFY(loadLZ5(4, 0, hex("00 21")).isNull());
    QVERIFY(saveRLE8(QImage()).isEmpty());
    QVERIFY(saveLZ5(QImage()).isEmpty());
}
