#include "tst_cache.h"

#include "testimages.h"

#include "model/qlz5matcher.h"
#include "model/qspritecodecs.h"

#include <QtTest>

namespace {

QByteArray hex(const char* text)
{
    return QByteArray::fromHex(QByteArray(text));
}

QByteArray range(int from, int to)
{
    QByteArray out;
    for (int v = from; v <= to; ++v)
        out.append(char(v));
    return out;
}

/// The longest matches with a change of value, every offset tried.
QLz5Matches exhaustiveFind(const uchar* src, qsizetype pos, qsizetype total)
{
    QLz5Matches best;
    if (pos < 2)
        return best;
    for (qsizetype offset = 1; offset <= pos && offset <= 1024; ++offset) {
        qsizetype length = 0;
        bool changes = false;
        while (length < 258 && pos + length < total && src[pos - offset + length] == src[pos + length]) {
            changes = changes || (length > 0 && src[pos + length] != src[pos + length - 1]);
            ++length;
        }
        if (!changes)
            continue;
        if (offset <= 256 && length > best.shortLength) {
            best.shortOffset = quint16(offset);
            best.shortLength = quint16(length);
        }
        if (length > best.longLength) {
            best.longOffset = quint16(offset);
            best.longLength = quint16(length);
        }
    }
    return best;
}

} // namespace

void TestCache::lz5Packets_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<QByteArray>("pixels");
    QTest::newRow("short run") << hex("00 65") << hex("05 05 05");
    QTest::newRow("long run of 8") << hex("00 02 00") << QByteArray(8, 2);
    QTest::newRow("long run of 263") << hex("00 07 FF") << QByteArray(263, 7);
    QTest::newRow("a flag byte before every eight packets")
        << hex("00 21 22 23 24 25 26 27 28 00 29") << range(1, 9);
    QTest::newRow("long copy") << hex("08 21 22 23 00 02 03") << hex("01 02 03 01 02 03 01 02 03");
    QTest::newRow("long copy from 1024 back, 258 long")
        << hex("20 25 00 FF 00 FF 00 FF 00 E2 C0 FF FF")
        << QByteArray(1, 5) + QByteArray(1023, 0) + QByteArray(1, 5) + QByteArray(257, 0);
    QTest::newRow("copy overlapping its source repeats it")
        << hex("04 24 25 05 01") << hex("04 05 04 05 04 05 04 05");
    // 1..9, 100 zeros; then short copies #1 (109 back), #2 (4 back), a long
    // copy (114 back), #3 (2 back) and #4, whose offset 119 - 1 = 0b01110110
    // rides in the top bits of #1..#4; a fifth short copy starts a new group.
    QTest::newRow("group of four short copies")
        << hex("00 21 22 23 24 25 26 27 28 FC 29 00 5C 42 6C C1 03 00 71 02 43 01 84 01 02")
        << range(1, 9) + QByteArray(100, 0) + hex("01 02 03 00 01 01 02 03 04 05 04 05 04 05")
            + hex("05 06 07 08 09 07 08");
    QTest::newRow("three short copies at the end")
        << hex("38 21 22 23 01 02 02 01 01 04") << hex("01 02 03 01 02 01 02 01 01 02");
    QTest::newRow("copy cut at the image end") << hex("08 21 22 23 00 02 FF") << hex("01 02 03 01 02");
    QTest::newRow("copy from before the first pixel stops")
        << hex("02 21 05 03 21") << hex("01 00 00 00");
    QTest::newRow("truncated long copy stops") << hex("02 21 00 01") << hex("01 00 00");
    QTest::newRow("flag byte alone") << hex("00") << hex("00 00");
    QTest::newRow("run longer than the image is cut") << hex("00 01 FF") << QByteArray(10, 1);
}

void TestCache::lz5Packets()
{
    QFETCH(QByteArray, stream);
    QFETCH(QByteArray, pixels);
    // One row, and the same pixels folded into padded rows where they divide.
    for (const int width : { int(pixels.size()), 3, 5 }) {
        if (pixels.size() % width != 0)
            continue;
        const int height = int(pixels.size() / width);
        const QImage decoded = loadLZ5(width, height, stream);
        QCOMPARE(tightPixels(decoded).toHex(' '), pixels.toHex(' '));
        QCOMPARE(pixelsOf(decoded), pixelsOf(imageFromPixels(width, height, pixels)));
    }
}

void TestCache::lz5EncoderPacketChoices()
{
    // 263 equal pixels are one long run; a 264th needs a packet of its own.
    QCOMPARE(saveLZ5(imageFromPixels(263, 1, QByteArray(263, 7))).toHex(' '), QByteArray("00 07 ff"));
    QCOMPARE(saveLZ5(imageFromPixels(264, 1, QByteArray(264, 7))).toHex(' '), QByteArray("00 27 07 ff"));
    QCOMPARE(saveLZ5(imageFromPixels(8, 1, QByteArray(8, 9))).toHex(' '), QByteArray("00 09 00"));

    // Colours 1..16, 60 zeros, 17..31, then four pairs seen before: four short
    // copies (88, 13, 86 and 96 back) in 7 bytes, the fourth offset
    // 96 - 1 = 0b01100000 spread over the top bits of the four length bytes.
    const QByteArray pixels = range(1, 16) + QByteArray(60, 0) + range(17, 31) + hex("03 04 14 15 09 0A 01 02");
    const QImage image = imageFromPixels(int(pixels.size()), 1, pixels);
    const QByteArray stream = saveLZ5(image);
    QCOMPARE(stream.size(), 45);
    QCOMPARE(stream.right(8).toHex(' '), QByteArray("0f 41 58 81 0d 01 56 01"));
    QCOMPARE(pixelsOf(loadLZ5(image.width(), 1, stream)), pixelsOf(image));

    // Without copies the same image is runs only: no flag bit is set.
    const QByteArray runsOnly = saveLZ5(image, false);
    for (qsizetype i = 0; i < runsOnly.size();) {
        QCOMPARE(int(runsOnly[i++]), 0);
        for (int packet = 0; packet < 8 && i < runsOnly.size(); ++packet)
            i += uchar(runsOnly[i]) >= 32 ? 1 : 2;
    }
    QCOMPARE(pixelsOf(loadLZ5(image.width(), 1, runsOnly)), pixelsOf(image));
}

void TestCache::lz5MatcherAgreesWithExhaustiveSearch()
{
    // Small alphabets make many candidates; more pixels than the 1024 window.
    int images = 0;
    quint32 seed = 77;
    for (const auto& [name, pattern] : allPatterns()) {
        if (pattern == Pattern::Flat) // one long run: no copy to find, and slow to search
            continue;
        for (const int colours : { 2, 3, 32 }) {
            const QImage image = patternImage(pattern, 110, 10, colours, seed++);
            const QByteArray pixels = tightPixels(image);
            const auto* src = reinterpret_cast<const uchar*>(pixels.constData());
            QLz5Matcher matcher(src, pixels.size());
            for (qsizetype pos = 0; pos < pixels.size(); ++pos) {
                const QLz5Matches found = matcher.find(pos);
                const QLz5Matches expected = exhaustiveFind(src, pos, pixels.size());
                const QByteArray where = QByteArray(name) + " colours " + QByteArray::number(colours)
                    + " at " + QByteArray::number(pos);
                QVERIFY2(found.shortOffset == expected.shortOffset && found.shortLength == expected.shortLength
                             && found.longOffset == expected.longOffset && found.longLength == expected.longLength,
                         where.constData());
            }
            ++images;
        }
    }
    QCOMPARE(images, 15);
}
