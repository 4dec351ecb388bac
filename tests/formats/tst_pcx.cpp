#include "tst_formats.h"

#include "formats/qimagefiles.h"
#include "formats/qpcx.h"
#include "formats/qpcxheader.h"
#include "realdata.h"

#include <QBuffer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QByteArray headerBytes(const QPCXHeader& header)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << header;
    return bytes;
}

QPCXHeader header(int width, int height, int planes, int bytesPerLine)
{
    QPCXHeader h;
    h.xMax = quint16(width - 1);
    h.yMax = quint16(height - 1);
    h.planes = quint8(planes);
    h.bytesPerLine = quint16(bytesPerLine);
    return h;
}

QByteArray encode(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!savePCX(image, &buffer))
        return QByteArray();
    return bytes;
}

QImage randomImage(int width, int height, QImage::Format format, bool runs)
{
    QImage image(width, height, format);
    auto* random = QRandomGenerator::global();
    if (format == QImage::Format_Indexed8) {
        QVector<QRgb> table;
        for (int i = 0; i < 256; ++i)
            table.append(qRgb(i, 255 - i, random->bounded(256)));
        image.setColorTable(table);
    }
    for (int y = 0; y < height; ++y) {
        uchar* line = image.scanLine(y);
        const int bytes = format == QImage::Format_Indexed8 ? width : width * 4;
        for (int x = 0; x < bytes; ++x)
            line[x] = uchar(runs ? (x / 70 + y) * 37 : random->bounded(256));
        if (format == QImage::Format_RGB32)
            for (int x = 0; x < width; ++x)
                reinterpret_cast<QRgb*>(line)[x] |= 0xFF000000u;
    }
    return image;
}

bool samePixels(const QImage& a, const QImage& b)
{
    if (a.size() != b.size() || a.format() != b.format())
        return false;
    const int bytes = a.format() == QImage::Format_Indexed8 ? a.width() : a.width() * 4;
    for (int y = 0; y < a.height(); ++y)
        if (memcmp(a.constScanLine(y), b.constScanLine(y), size_t(bytes)) != 0)
            return false;
    return true;
}

} // namespace

void TestFormats::depthAndFormat()
{
    QCOMPARE(depthToFormat(5), QImage::Format_Indexed8);
    QCOMPARE(depthToFormat(8), QImage::Format_Indexed8);
    QCOMPARE(depthToFormat(24), QImage::Format_RGB32);
    QCOMPARE(depthToFormat(32), QImage::Format_ARGB32);
    QCOMPARE(depthToFormat(1), QImage::Format_Invalid);
    QCOMPARE(depthToFormat(16), QImage::Format_Invalid);
    QCOMPARE(formatToDepth(QImage::Format_Indexed8), 8);
    QCOMPARE(formatToDepth(QImage::Format_RGB32), 24);
    QCOMPARE(formatToDepth(QImage::Format_ARGB32), 32);
    QCOMPARE(formatToDepth(QImage::Format_RGB888), 0);
    QCOMPARE(formatToDepth(QImage::Format_ARGB32_Premultiplied), 0);
}

void TestFormats::pcxRealFilesLoad()
{
    PF_REQUIRE_REALDATA();
    const QString work = realDataDir() + QStringLiteral("/fanyer__mugen/work/");
    int checked = 0;
    for (const QString& path : realDataFiles({ QStringLiteral("pcx") })) {
        if (!path.startsWith(work))
            continue;
        QFile file(path);
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(path));
        const QByteArray data = file.readAll();
        const QImage image = loadPCX(data);
        QVERIFY2(!image.isNull(), qPrintable(path));
        const QImageInfo info = infoFromPCX(data);
        QCOMPARE(info.width, image.width());
        QCOMPARE(info.height, image.height());
        QCOMPARE(info.format, image.format());
        if (image.format() == QImage::Format_Indexed8)
            QVERIFY2(image.colorCount() == 256, qPrintable(path));

        const QImage again = loadPCX(encode(image));
        QVERIFY2(samePixels(image, again), qPrintable(path));
        QCOMPARE(again.colorTable(), image.colorTable());
        ++checked;
    }
    QVERIFY(checked > 300);
}

void TestFormats::pcxRoundTrip_data()
{
    QTest::addColumn<QImage>("image");
    QTest::newRow("8-bit noise, odd width") << randomImage(37, 11, QImage::Format_Indexed8, false);
    QTest::newRow("8-bit long runs") << randomImage(300, 5, QImage::Format_Indexed8, true);
    QTest::newRow("8-bit one pixel") << randomImage(1, 1, QImage::Format_Indexed8, false);
    // Lines narrower than a word, and padding of every width, over several lines.
    for (int width = 1; width <= 10; ++width)
        QTest::addRow("8-bit %d wide", width)
            << randomImage(width, 7, QImage::Format_Indexed8, width % 2 == 0);
    QTest::newRow("24-bit noise") << randomImage(29, 13, QImage::Format_RGB32, false);
    QTest::newRow("24-bit runs") << randomImage(200, 4, QImage::Format_RGB32, true);
    QTest::newRow("32-bit noise") << randomImage(17, 9, QImage::Format_ARGB32, false);
}

void TestFormats::pcxRoundTrip()
{
    QFETCH(QImage, image);
    const QByteArray data = encode(image);
    QVERIFY(!data.isEmpty());
    QPCXHeader written;
    QVERIFY(written.read(data.constData(), data.size()));
    QCOMPARE(int(written.planes), formatToDepth(image.format()) / 8);
    QCOMPARE(int(written.bytesPerLine), image.width());

    const QImage loaded = loadPCX(data);
    QVERIFY(samePixels(image, loaded));
    if (image.format() == QImage::Format_Indexed8) {
        QCOMPARE(loaded.colorTable(), image.colorTable());
        QCOMPARE(data.at(data.size() - 769), char(12));
    } else {
        QVERIFY(loaded.colorTable().isEmpty());
    }
}

void TestFormats::pcxRunBoundaries()
{
    auto body = [](const QVector<int>& row) {
        QImage image(row.size(), 1, QImage::Format_Indexed8);
        image.setColorTable(QVector<QRgb>(256, qRgb(1, 2, 3)));
        for (int x = 0; x < row.size(); ++x)
            image.scanLine(0)[x] = uchar(row[x]);
        const QByteArray data = encode(image);
        return data.mid(QPCXHeader::size, data.size() - QPCXHeader::size - 769);
    };
    QCOMPARE(body({ 191 }), QByteArray("\xBF", 1));
    QCOMPARE(body({ 192 }), QByteArray("\xC1\xC0", 2));
    QCOMPARE(body({ 0, 255 }), QByteArray("\x00\xC1\xFF", 3));
    QCOMPARE(body(QVector<int>(2, 191)), QByteArray("\xC2\xBF", 2));
    QCOMPARE(body(QVector<int>(63, 5)), QByteArray("\xFF\x05", 2));
    QCOMPARE(body(QVector<int>(64, 5)), QByteArray("\xFF\x05\x05", 3));
    QCOMPARE(body(QVector<int>(65, 200)), QByteArray("\xFF\xC8\xC2\xC8", 4));
    QCOMPARE(body(QVector<int>(126, 7)), QByteArray("\xFF\x07\xFF\x07", 4));

    // Runs stop at the end of each row, even when the next row starts alike.
    QImage twoRows(3, 2, QImage::Format_Indexed8);
    twoRows.fill(9);
    twoRows.setColorTable(QVector<QRgb>(256));
    const QByteArray data = encode(twoRows);
    QCOMPARE(data.mid(QPCXHeader::size, 4), QByteArray("\xC3\x09\xC3\x09", 4));

    // A decoder's view of the same boundaries: a run of 0 writes nothing, and a
    // run crossing the end of a line goes on in the next one.
    QByteArray crafted = headerBytes(header(4, 2, 1, 4)) + QByteArray("\xC0\x63\xC6\x07\x01\x02", 6);
    const QImage image = loadPCX(crafted);
    QCOMPARE(image.size(), QSize(4, 2));
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(image.constScanLine(0)), 4), QByteArray(4, 7));
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(image.constScanLine(1)), 4),
        QByteArray("\x07\x07\x01\x02", 4));
}

void TestFormats::pcxRefusedHeaders()
{
    const QByteArray body(64, '\x01');
    QPCXHeader good = header(8, 8, 1, 8);
    QVERIFY(!loadPCX(headerBytes(good) + body).isNull());

    QPCXHeader old = good;
    old.version = 3;
    QVERIFY(loadPCX(headerBytes(old) + body).isNull());
    QPCXHeader maker = good;
    maker.manufacturer = 11;
    QVERIFY(loadPCX(headerBytes(maker) + body).isNull());
    QPCXHeader mono = good;
    mono.bitsPerPixel = 1;
    QVERIFY(loadPCX(headerBytes(mono) + body).isNull());
    QVERIFY(infoFromPCX(headerBytes(mono) + body).isNull());
    QPCXHeader twoPlanes = good;
    twoPlanes.planes = 2;
    QVERIFY(loadPCX(headerBytes(twoPlanes) + body).isNull());
    QPCXHeader inverted = good;
    inverted.xMin = 9;
    QVERIFY(loadPCX(headerBytes(inverted) + body).isNull());
    QPCXHeader noLine = good;
    noLine.bytesPerLine = 0;
    QVERIFY(loadPCX(headerBytes(noLine) + body).isNull());
    QPCXHeader huge = header(65535, 65535, 4, 65535);
    QVERIFY(loadPCX(headerBytes(huge) + body).isNull());
    QVERIFY(loadPCX(headerBytes(good).left(127)).isNull());

    // The widest image a header can state loads, but its row length cannot be saved.
    QPCXHeader widest = header(65536, 1, 1, 65535);
    const QImage wide = loadPCX(headerBytes(widest) + QByteArray(3000, '\xFF'));
    QCOMPARE(wide.width(), 65536);
    QBuffer sink;
    sink.open(QIODevice::WriteOnly);
    QVERIFY(!savePCX(wide, &sink));
    QVERIFY(loadPCX(QByteArray()).isNull());

    QPCXHeader colour = header(5, 3, 3, 6);
    colour.xMin = 2;
    colour.xMax = 6;
    const QImageInfo info = infoFromPCX(headerBytes(colour));
    QCOMPARE(info.width, 5);
    QCOMPARE(info.height, 3);
    QCOMPARE(info.format, QImage::Format_RGB32);
}

void TestFormats::pcxDamagedData()
{
    // Cut short: what was decoded stays, the rest is zero, no colour table.
    QImage image = randomImage(40, 30, QImage::Format_Indexed8, false);
    const QByteArray data = encode(image);
    const QImage cut = loadPCX(data.left(QPCXHeader::size + 200));
    QCOMPARE(cut.size(), image.size());
    QCOMPARE(memcmp(cut.constScanLine(0), image.constScanLine(0), 40), 0);
    QCOMPARE(cut.constScanLine(29)[39], uchar(0));
    QVERIFY(cut.colorTable().isEmpty());

    // Padding bytes past the width are dropped, in every plane.
    QByteArray padded = headerBytes(header(2, 1, 3, 4));
    padded += QByteArray("\x10\x11\x55\x66\x20\x21\x55\x66\x30\x31\x55\x66", 12);
    const QImage colour = loadPCX(padded);
    QCOMPARE(colour.format(), QImage::Format_RGB32);
    QCOMPARE(colour.pixel(0, 0), qRgb(0x10, 0x20, 0x30));
    QCOMPARE(colour.pixel(1, 0), qRgb(0x11, 0x21, 0x31));

    // Planes the format does not expect (eight of one bit) stay inside the image.
    QPCXHeader bitPlanes = header(3, 2, 8, 3);
    bitPlanes.bitsPerPixel = 1;
    const QImage planar = loadPCX(headerBytes(bitPlanes) + QByteArray(200, '\xFF'));
    QCOMPARE(planar.format(), QImage::Format_Indexed8);
    QCOMPARE(planar.size(), QSize(3, 2));

    // Four planes: alpha is the fourth.
    QByteArray alpha = headerBytes(header(1, 1, 4, 1)) + QByteArray("\x01\x02\x03\x04", 4);
    QCOMPARE(loadPCX(alpha).pixel(0, 0), qRgba(1, 2, 3, 4));
}

void TestFormats::pcxDefinedBytes()
{
    // The cache hashes and compares whole scan lines, padding included, so two
    // decodes of one file must give the same bytes even when the heap hands
    // back memory that held something else.
    auto dirtyHeap = [](const QImage& like) {
        QImage dirt(like.size(), like.format());
        std::memset(dirt.bits(), 0xA5, size_t(dirt.sizeInBytes()));
    };
    auto bytes = [](const QImage& image) {
        return QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
    };
    const QByteArray odd = encode(randomImage(37, 11, QImage::Format_Indexed8, false));
    QByteArray wideLines = headerBytes(header(5, 3, 1, 8));
    for (int y = 0; y < 3; ++y)
        wideLines += QByteArray("\x01\x02\x03\xC3\x04\xC2\xD0", 7);
    const QList<QByteArray> cases = {
        odd,
        odd.left(QPCXHeader::size + 150), // cut short
        wideLines, // lines longer than the image: their tails are dropped
        headerBytes(header(3, 4, 1, 3)) + QByteArray("\xFF\x07", 2), // one run over every line
    };
    for (const QByteArray& data : cases) {
        const QImage first = loadPCX(data);
        QVERIFY(!first.isNull());
        dirtyHeap(first);
        const QImage second = loadPCX(data);
        QCOMPARE(bytes(second), bytes(first));
        for (int y = 0; y < first.height(); ++y)
            for (qsizetype x = first.width(); x < first.bytesPerLine(); ++x)
                QCOMPARE(first.constScanLine(y)[x], uchar(0));
    }
    const QImage wide = loadPCX(wideLines);
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(wide.constScanLine(2)), 5),
        QByteArray("\x01\x02\x03\x04\x04", 5));
    const QImage run = loadPCX(cases.last());
    QCOMPARE(run.constScanLine(3)[2], uchar(7));
}

void TestFormats::pcxPaletteTrailer()
{
    QImage image = randomImage(16, 4, QImage::Format_Indexed8, false);
    QByteArray data = encode(image);
    // Cut to the marker alone, as a same-palette sprite of an SFF keeps it: the
    // table comes from whatever lies 768 bytes before the end.
    const QByteArray marked = data.left(data.size() - 768);
    const QImage loaded = loadPCX(marked);
    QVERIFY(samePixels(image, loaded));
    QCOMPARE(loaded.colorCount(), 256);
    const int start = int(qMax<qsizetype>(0, marked.size() - 768));
    const auto* bytes = reinterpret_cast<const uchar*>(marked.constData()) + start;
    QCOMPARE(loaded.color(0), qRgb(bytes[0], bytes[1], bytes[2]));

    // No bytes after the pixels: no table at all.
    QVERIFY(loadPCX(data.left(data.size() - 769)).colorTable().isEmpty());
    // Decoding ends early at a marker that is not 12: no table.
    QByteArray early = headerBytes(header(2, 2, 1, 2)) + QByteArray("\x01\x02\x03", 3);
    QVERIFY(loadPCX(early).colorTable().isEmpty());
}

void TestFormats::imageFilesBySuffix()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QImage image = randomImage(12, 7, QImage::Format_Indexed8, false);
    for (const QString& name :
        { QStringLiteral("a.pcx"), QStringLiteral("b.PCX"), QStringLiteral("c.png") }) {
        const QString path = dir.filePath(name);
        QVERIFY(saveImage(path, image));
        const QImage loaded = loadImage(path);
        QCOMPARE(loaded.size(), image.size());
        QCOMPARE(loaded.convertToFormat(QImage::Format_ARGB32), image.convertToFormat(QImage::Format_ARGB32));
    }
    QFile pcx(dir.filePath(QStringLiteral("a.pcx")));
    QVERIFY(pcx.open(QIODevice::ReadOnly));
    QCOMPARE(pcx.read(2), QByteArray("\x0A\x05", 2));

    QVERIFY(!saveImage(dir.filePath(QStringLiteral("d.pcx")), image.convertToFormat(QImage::Format_RGB888)));
    QVERIFY(!QFile::exists(dir.filePath(QStringLiteral("d.pcx"))));
    QVERIFY(loadImage(dir.filePath(QStringLiteral("missing.pcx"))).isNull());

    const QByteArray png = savePNG(image);
    QVERIFY(png.startsWith("\x89PNG"));
    QCOMPARE(
        loadPNG(png).convertToFormat(QImage::Format_ARGB32), image.convertToFormat(QImage::Format_ARGB32));
    QVERIFY(loadPNG(QByteArray("not a png")).isNull());
}

void TestFormats::rawRows()
{
    const QImage indexed = loadRAW(3, 2, QImage::Format_Indexed8, QByteArray("\x01\x02\x03\x04\x05", 5));
    QCOMPARE(indexed.size(), QSize(3, 2));
    QCOMPARE(indexed.constScanLine(1)[1], uchar(5));
    QCOMPARE(indexed.constScanLine(1)[2], uchar(0));

    const QImage colour = loadRAW(2, 1, QImage::Format_RGB32, QByteArray("\x01\x02\x03\x04\x05\x06", 6));
    QCOMPARE(colour.pixel(0, 0), qRgb(3, 2, 1));
    QCOMPARE(colour.pixel(1, 0), qRgb(6, 5, 4));

    const QImage argb = loadRAW(1, 1, QImage::Format_ARGB32, QByteArray("\x01\x02\x03\x04", 4));
    QCOMPARE(argb.constScanLine(0)[3], uchar(4));
    QVERIFY(loadRAW(1, 1, QImage::Format_RGB888, QByteArray(3, 0)).isNull());
}
