#include "tst_formats.h"

#include "formats/qabstractpalette.h"
#include "formats/qimagefiles.h"
#include "formats/qpalettewriter.h"
#include "formats/qrgbpalette.h"
#include "realdata.h"

#include <QBuffer>
#include <QColor>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QRegularExpression>
#include <QtTest>

#include <cstring>
#include <functional>
#include <limits>

namespace {

/// A table owned by the test, with the palette view on it.
struct Table
{
    QRGBA entries[256];
    QRGBPalette palette;
    Table()
    {
        std::memset(static_cast<void*>(entries), 0x5A, sizeof entries);
        palette.setPalette(&entries);
    }
};

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// Runs one reader on bytes, on a cleared table, as fromFile does.
bool readWith(QAbstractPalette& reader, const QByteArray& bytes, QRGBA (&table)[256])
{
    std::memset(static_cast<void*>(table), 0, sizeof table);
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return reader.fromFile(&buffer, &table);
}

bool readBytes(const QByteArray& bytes, QRGBA (&table)[256], const QString& suffix = QString())
{
    auto reader = QAbstractPalette::forFile(suffix, bytes.left(4));
    return readWith(*reader, bytes, table);
}

QByteArray bigEndian(const std::function<void(QDataStream&)>& write)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::BigEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    write(stream);
    return bytes;
}

QByteArray riffFile(int entries, const QByteArray& form = "PAL data")
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData("RIFF", 4);
    stream << quint32(4 + 12 + 4 + 4 * entries);
    stream.writeRawData(form.constData(), 8);
    stream << quint32(4 + 4 * entries) << quint16(0x0300) << quint16(entries);
    for (int i = 0; i < entries; ++i)
        stream << quint8(i) << quint8(i / 2) << quint8(255 - i) << quint8(0);
    return bytes;
}

void aseName(QDataStream& stream, const QString& name)
{
    stream << quint16(name.size() + 1);
    for (QChar c : name)
        stream << quint16(c.unicode());
    stream << quint16(0);
}

} // namespace

void TestFormats::actRealFilesRoundTrip()
{
    PF_REQUIRE_REALDATA();
    const QStringList files = realDataFiles({ QStringLiteral("act") });
    QVERIFY(!files.isEmpty());
    QTemporaryDir dir;
    for (const QString& path : files) {
        Table table;
        QVERIFY2(table.palette.fromFile(path), qPrintable(path));
        const QByteArray original = readFile(path);
        QCOMPARE(table.entries[0].a, uchar(0));
        QCOMPARE(table.entries[1].a, uchar(255));
        QCOMPARE(table.entries[0].r, uchar(original.at(765)));
        QCOMPARE(table.entries[255].b, uchar(original.at(2)));
        const QString copy = dir.filePath(QStringLiteral("copy.act"));
        QVERIFY(table.palette.toFile(copy));
        QCOMPARE(readFile(copy), original.left(768));
    }
}

void TestFormats::actEdgeCases()
{
    QTemporaryDir dir;
    QByteArray triples;
    for (int i = 0; i < 256; ++i)
        triples.append(char(i)).append(char(i ^ 0x55)).append(char(255 - i));

    // Adobe's four-byte trailer is ignored.
    const QString trailer = dir.filePath(QStringLiteral("trailer.act"));
    QVERIFY(writeFile(trailer, triples + QByteArray("\x01\x00\xFF\xFF", 4)));
    Table table;
    QVERIFY(table.palette.fromFile(trailer));
    QCOMPARE(table.entries[0], QRGBA(255, 255 ^ 0x55, 0, 0));
    QCOMPARE(table.entries[255], QRGBA(0, 0x55, 255, 255));

    // One byte short: true with a blank table.
    const QString shortFile = dir.filePath(QStringLiteral("short.act"));
    QVERIFY(writeFile(shortFile, triples.left(767)));
    Table blank;
    QVERIFY(blank.palette.fromFile(shortFile));
    for (const QRGBA& entry : blank.entries)
        QCOMPARE(entry, QRGBA(0, 0, 0, 0));

    // Whatever the suffix, toFile writes ACT.
    const QString written = dir.filePath(QStringLiteral("out.pal"));
    QVERIFY(table.palette.toFile(written));
    QCOMPARE(readFile(written), triples);
    QVERIFY(!table.palette.toFile(dir.filePath(QStringLiteral("no/such/dir/out.act"))));
}

void TestFormats::riffReads()
{
    QRGBA table[256];
    QVERIFY(readBytes(riffFile(256), table));
    // 256 entries in the file: the chunk size counts one entry short, so the
    // file's last entry stays empty and lands at 0 after the reversal.
    QCOMPARE(table[0], QRGBA(0, 0, 0, 255));
    QCOMPARE(table[1], QRGBA(254, 127, 1, 255));
    QCOMPARE(table[255], QRGBA(0, 0, 255, 255));

    QVERIFY(readBytes(riffFile(16), table));
    QCOMPARE(table[255], QRGBA(0, 0, 255, 255));
    QCOMPARE(table[241], QRGBA(14, 7, 241, 255));
    QCOMPARE(table[240], QRGBA(0, 0, 0, 255));

    QVERIFY(!readBytes(riffFile(16, "PAL dat "), table));
    QByteArray tooLong = riffFile(16);
    tooLong[16] = char(0x10);
    tooLong[17] = char(0x04);
    QVERIFY(!readBytes(tooLong, table));
    QVERIFY(!readBytes(riffFile(16).left(60), table));
    QVERIFY(!readBytes(QByteArray("RIFF"), table));
}

void TestFormats::jascReads()
{
    const QByteArray text = "JASC-PAL\r\n0100\r\n256\r\n"
                            "1 2 3\r\n"
                            "255 128 0 77\r\n"
                            "not a colour\r\n"
                            "300 0 999\r\n"
                            " 1 2 3\r\n"
                            "4 5 6\r\n";
    QRGBA table[256];
    QVERIFY(readBytes(text, table));
    QCOMPARE(table[0], QRGBA(1, 2, 3, 255));
    QCOMPARE(table[1], QRGBA(255, 128, 0, 77));
    QCOMPARE(table[2], QRGBA(0, 0, 0, 0));
    QCOMPARE(table[3], QRGBA(255, 0, 255, 255));
    QCOMPARE(table[4], QRGBA(0, 0, 0, 0));
    QCOMPARE(table[5], QRGBA(4, 5, 6, 255));

    // Lines past 258 are not read.
    QByteArray full = "JASC-PAL\r\n0100\r\n256\r\n";
    for (int i = 0; i < 260; ++i)
        full += QByteArray::number(i % 256) + " 0 0\r\n";
    QVERIFY(readBytes(full, table));
    QCOMPARE(table[255], QRGBA(255, 0, 0, 255));

    QByteArray wrongVersion = text;
    wrongVersion.replace("0100", "0101");
    QVERIFY(!readBytes(wrongVersion, table));
    QCOMPARE(table[0], QRGBA(0, 0, 0, 0));
    QVERIFY(!readBytes(QByteArray("JASC-PAL\n0100\n1\n1 2 3\n"), table));
}

void TestFormats::painterReads()
{
    const QByteArray text = "ROWS 2\nCOLS 4\n"
                            "R: 10, G: 20, B: 30\n"
                            "R:1,G:2,B:3 A:4\r\n"
                            "something else\n"
                            "R: 300, G: 0, B: 0\n";
    QRGBA table[256];
    QVERIFY(readBytes(text, table));
    QCOMPARE(table[0], QRGBA(10, 20, 30, 255));
    QCOMPARE(table[1], QRGBA(1, 2, 3, 4));
    QCOMPARE(table[2], QRGBA(255, 0, 0, 255));
    QCOMPARE(table[3], QRGBA(0, 0, 0, 0));
}

void TestFormats::acoReads()
{
    const QByteArray aco = bigEndian([](QDataStream& s) {
        s << quint16(1) << quint16(6);
        s << quint16(0) << quint16(257 * 10) << quint16(257 * 20) << quint16(257 * 127) << quint16(0);
        s << quint16(1) << quint16(qRound(120 * 182.5487)) << quint16(257 * 100) << quint16(257 * 90)
          << quint16(0);
        s << quint16(7) << quint16(1) << quint16(2) << quint16(3) << quint16(4);
        s << quint16(2) << quint16(257 * 100) << quint16(257 * 55) << quint16(257 * 120)
          << quint16(257 * 105);
        s << quint16(8) << quint16(2500) << quint16(0) << quint16(0) << quint16(0);
        s << quint16(0) << quint16(0xFFFF) << quint16(0x8000) << quint16(0) << quint16(0);
        // A second, version 2 section is not read.
        s << quint16(2) << quint16(1);
    });
    QRGBA table[256];
    QVERIFY(readBytes(aco, table, QStringLiteral("aco")));
    QCOMPARE(table[0], QRGBA(10, 20, 127, 255));
    QCOMPARE(table[1], QRGBA(QColor::fromHsv(120, 100, 90).toRgb()));
    // The unknown space 7 uses no entry; CMYK is stored as the ink's complement.
    QCOMPARE(table[2], QRGBA(QColor::fromCmyk(155, 200, 135, 150).toRgb()));
    QCOMPARE(table[3], QRGBA(191, 191, 191, 255));
    // Channels are signed 16-bit: 0xFFFF divides to 0 and 0x8000 to -127.
    QCOMPARE(table[4], QRGBA(0, 129, 0, 255));
    QCOMPARE(table[5], QRGBA(0, 0, 0, 0));

    const QByteArray version2 = bigEndian([](QDataStream& s) { s << quint16(2) << quint16(0); });
    QVERIFY(!readBytes(version2, table, QStringLiteral("aco")));
    // Cut short: what was read stays.
    QVERIFY(!readBytes(aco.left(20), table, QStringLiteral("aco")));
    QCOMPARE(table[0], QRGBA(10, 20, 127, 255));
}

void TestFormats::aseReads()
{
    const QByteArray ase = bigEndian([](QDataStream& s) {
        s.writeRawData("ASEF", 4);
        s << quint16(1) << quint16(0) << quint32(8);
        s << quint16(0xC001) << quint32(12);
        aseName(s, QStringLiteral("skin"));
        s << quint16(1) << quint32(0);
        aseName(s, QStringLiteral("red"));
        s.writeRawData("RGB ", 4);
        s << 1.0f << 0.5f << 0.0f << quint16(2);
        s << quint16(1) << quint32(0);
        aseName(s, QStringLiteral("ink"));
        s.writeRawData("CMYK", 4);
        s << 0.0f << 1.0f << 0.2f << 0.1f << quint16(0);
        s << quint16(0xC002) << quint32(0);
        aseName(s, QString());
        s << quint16(0x4444) << quint32(3);
        s.writeRawData("xyz", 3);
        s << quint16(1) << quint32(0);
        aseName(s, QStringLiteral("lab"));
        s.writeRawData("LAB ", 4);
        s << 0.1f << 0.2f << 0.3f << quint16(0);
        s << quint16(1) << quint32(0);
        aseName(s, QStringLiteral("grey"));
        s.writeRawData("Gray", 4);
        s << 0.25f << quint16(0);
        s << quint16(1) << quint32(0);
        aseName(s, QStringLiteral("odd"));
        s.writeRawData("RGB ", 4);
        s << 2.0f << -1.0f << std::numeric_limits<float>::quiet_NaN() << quint16(0);
    });
    QRGBA table[256];
    QVERIFY(readBytes(ase, table));
    QCOMPARE(table[0], QRGBA(255, 128, 0, 255));
    QCOMPARE(table[1], QRGBA(QColor::fromCmyk(0, 255, 51, 26, 255).toRgb()));
    QCOMPARE(table[2], QRGBA(64, 64, 64, 255));
    QCOMPARE(table[3], QRGBA(255, 0, 0, 255));
    QCOMPARE(table[4], QRGBA(0, 0, 0, 0));

    QByteArray version = ase;
    version[5] = 2;
    QVERIFY(!readBytes(version, table));
    QVERIFY(!readBytes(ase.left(60), table));
    // A block claiming 3 GB is refused without a word from the device (the palette fuzz target's find).
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    const QByteArray huge = bigEndian([](QDataStream& s) {
        s.writeRawData("ASEF", 4);
        s << quint16(1) << quint16(0) << quint32(1) << quint16(0x4444) << quint32(0xC0000000);
    });
    QVERIFY(!readBytes(huge, table));
}

void TestFormats::paletteChoiceAndTransparency()
{
    QCOMPARE(QAbstractPalette::forFile(QStringLiteral("ACO"), "RIFF")->name(), QStringLiteral("ACO"));
    QCOMPARE(QAbstractPalette::forFile(QStringLiteral("pal"), "RIFF")->name(), QStringLiteral("RIFF"));
    QCOMPARE(QAbstractPalette::forFile(QStringLiteral("pal"), "JASC")->name(), QStringLiteral("JASC"));
    QCOMPARE(QAbstractPalette::forFile(QStringLiteral("ase"), "ASEF")->name(), QStringLiteral("ASE"));
    QCOMPARE(QAbstractPalette::forFile(QStringLiteral("txt"), "ROWS")->name(), QStringLiteral("Painter"));
    QCOMPARE(QAbstractPalette::forFile(QStringLiteral("act"), "ROW")->name(), QStringLiteral("ACT"));

    QTemporaryDir dir;
    // An ACO or ASE colour at alpha 255 in entry 0 still ends transparent.
    const QString aco = dir.filePath(QStringLiteral("x.aco"));
    QVERIFY(writeFile(aco, bigEndian([](QDataStream& s) {
        s << quint16(1) << quint16(1) << quint16(0) << quint16(257) << quint16(514) << quint16(771)
          << quint16(0);
    })));
    Table table;
    QSignalSpy changing(&table.palette, &QRGBPalette::changing);
    QSignalSpy changed(&table.palette, &QRGBPalette::changed);
    QVERIFY(table.palette.fromFile(aco));
    QCOMPARE(table.entries[0], QRGBA(1, 2, 3, 0));
    QCOMPARE(table.entries[1], QRGBA(0, 0, 0, 0));
    QCOMPARE(changing.count(), 1);
    QCOMPARE(changed.count(), 1);

    // Any content named .aco goes to the ACO reader: an ACT there reads nothing.
    const QString named = dir.filePath(QStringLiteral("act.aco"));
    QVERIFY(writeFile(named, QByteArray(768, '\x40')));
    QVERIFY(table.palette.fromFile(named));
    QCOMPARE(table.entries[5], QRGBA(0, 0, 0, 0));

    // A true-colour image is refused and leaves the table and the signals alone.
    const QString png = dir.filePath(QStringLiteral("rgb.png"));
    QImage rgb(4, 4, QImage::Format_RGB32);
    rgb.fill(Qt::red);
    QVERIFY(rgb.save(png));
    table.entries[7] = QRGBA(9, 9, 9, 9);
    QVERIFY(!table.palette.fromFile(png));
    QCOMPARE(table.entries[7], QRGBA(9, 9, 9, 9));
    QCOMPARE(changed.count(), 2);
    QVERIFY(!table.palette.fromFile(dir.filePath(QStringLiteral("missing.act"))));
    QCOMPARE(table.entries[7], QRGBA(9, 9, 9, 9));
}

void TestFormats::paletteFromIndexedImage()
{
    QTemporaryDir dir;
    QImage image(3, 3, QImage::Format_Indexed8);
    image.fill(0);
    QVector<QRgb> colours;
    for (int i = 0; i < 256; ++i)
        colours.append(qRgb(i, 0, 255 - i));
    image.setColorTable(colours);
    for (const QString& name : { QStringLiteral("a.pcx"), QStringLiteral("b.png") }) {
        const QString path = dir.filePath(name);
        QVERIFY(saveImage(path, image));
        Table table;
        QVERIFY(table.palette.fromFile(path));
        QCOMPARE(table.entries[0], QRGBA(0, 0, 255, 0));
        QCOMPARE(table.entries[200], QRGBA(200, 0, 55, 255));
    }
}

void TestFormats::tableHelpers()
{
    QRGBA table[256];
    for (int i = 0; i < 256; ++i)
        table[i] = QRGBA(uchar(i), 1, 2, 255);
    invertPalette(&table);
    QCOMPARE(table[0].r, uchar(255));
    QCOMPARE(table[255].r, uchar(0));
    QCOMPARE(table[128].r, uchar(127));

    const QVector<QRgb> colours = paletteToColorTable(table);
    QCOMPARE(colours.size(), 256);
    QCOMPARE(colours.at(0), qRgba(255, 1, 2, 255));
    QCOMPARE(paletteToColorTable(nullptr), QVector<QRgb>(256, 0u));

    QRGBA copied[256] = {};
    colorTableToPalette(QVector<QRgb> { qRgba(1, 2, 3, 4), qRgb(5, 6, 7) }, copied);
    QCOMPARE(copied[0], QRGBA(1, 2, 3, 4));
    QCOMPARE(copied[1], QRGBA(5, 6, 7, 255));
    QCOMPARE(copied[2], QRGBA(0, 0, 0, 0));

    QRGBA used[256];
    for (QRGBA& entry : used)
        entry = QRGBA(7, 7, 7, 255);
    used[0] = QRGBA(1, 1, 1, 0);
    QCOMPARE(getPaletteColorCount(used), 0);
    used[31] = QRGBA(7, 7, 7, 254);
    QCOMPARE(getPaletteColorCount(used), 31);
    used[254] = QRGBA(8, 7, 7, 255);
    QCOMPARE(getPaletteColorCount(used), 254);

    QCOMPARE(intToByte(-5), uchar(0));
    QCOMPARE(intToByte(300), uchar(255));
    QRGB rgb(250, 3, 100);
    rgb += 10;
    QCOMPARE(rgb, QRGB(255, 13, 110));
    QRGBA rgba(5, 250, 100, 9);
    rgba -= 10;
    QCOMPARE(rgba, QRGBA(0, 240, 90, 9));
    QCOMPARE(QRGBA(1, 2, 3, 4).toQRgb(), 0x04010203u);
    QCOMPARE(QRGBA(QColor(10, 20, 30, 40)), QRGBA(10, 20, 30, 40));

    Table view;
    view.palette.fromPalette(table);
    QRGBA out[256];
    view.palette.toPalette(out);
    QCOMPARE(std::memcmp(out, table, sizeof out), 0);
}

void TestFormats::nearestIndex()
{
    Table table;
    for (int i = 0; i < 256; ++i)
        table.entries[i] = QRGBA(uchar(i), 0, 0, 255);
    QCOMPARE(table.palette.index(QRGBA(100, 0, 0)), 100);
    QCOMPARE(table.palette.index(QRGBA(100, 3, 2)), 100);
    // Equal colours: the first wins unless a later alpha lies below.
    table.entries[200] = QRGBA(100, 0, 0, 255);
    QCOMPARE(table.palette.index(QRGBA(100, 0, 0, 255)), 100);
    table.entries[201] = QRGBA(100, 0, 0, 254);
    QCOMPARE(table.palette.index(QRGBA(100, 0, 0, 255)), 201);
}

void TestFormats::writersRoundTrip()
{
    // A table that tells entries apart: every channel differs by entry, entry 0
    // is the transparent colour, and all channels stay below 128 so that the
    // ACO reader's wrapping of bright channels does not show.
    QRGBA colours[256];
    for (int i = 0; i < 256; ++i)
        colours[i] = QRGBA(uchar(i / 2), uchar(127 - i / 2), uchar((i * 7) % 128), i == 0 ? 0 : 255);
    QTemporaryDir dir;
    for (int format = 0; format < pffCount; ++format) {
        const auto kind = QPaletteFileFormat(format);
        const QString path = dir.filePath(QStringLiteral("out%1.%2").arg(format).arg(QPaletteWriter::suffix(kind)));
        QVERIFY2(QPaletteWriter::save(path, kind, colours), qPrintable(path));
        Table read;
        QVERIFY(read.palette.fromFile(path));
        QVERIFY2(read.palette.fault().isEmpty(), qPrintable(read.palette.fault()));
        for (int i = 0; i < 256; ++i)
            QVERIFY2(read.entries[i] == colours[i], qPrintable(QStringLiteral("%1 entry %2").arg(path).arg(i)));
    }
    // Bright channels: ACT keeps them all, ACO writes the usual 257 steps, which
    // this program reads wrapped.
    QRGBA bright[256];
    for (int i = 0; i < 256; ++i)
        bright[i] = QRGBA(uchar(i), 255, 200, i == 0 ? 0 : 255);
    QCOMPARE(QPaletteWriter::bytes(pffACT, bright).size(), 768);
    QCOMPARE(QPaletteWriter::bytes(pffACT, bright).left(3), QByteArray("\xff\xff\xc8", 3));
    QCOMPARE(QPaletteWriter::bytes(pffACO, bright).mid(4, 10), QByteArray("\0\0\0\0\xff\xff\xc8\xc8\0\0", 10));
    QCOMPARE(QPaletteWriter::formatOfFilter(QPaletteWriter::filters().at(pffASE)), pffASE);
    QCOMPARE(QPaletteWriter::formatOfFilter(QStringLiteral("nonsense")), pffACT);
    // An unwritable place fails and leaves nothing.
    QVERIFY(!QPaletteWriter::save(dir.filePath(QStringLiteral("no/such/folder/x.act")), pffACT, bright));
}
