// loadPNG and the PNG decoder behind it give exactly what the general image
// reader gives, on the engine's sprites, on files built here chunk by chunk
// (sound and damaged) and on files Qt writes.
#include "tst_formats.h"

#include "formats/qimagefiles.h"
#include "formats/qpngdecoder.h"
#include "model/qsffrecords.h"
#include "realdata.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>
#include <QRandomGenerator>
#include <QtEndian>
#include <QtTest>
#include <zlib.h>

namespace {

enum Path { Fallback, Fast, Either }; ///< whether QPngDecoder must take a file, refuse it, or may do either

QByteArray be32(quint32 value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

struct Chunk
{
    QByteArray type;
    QByteArray data;
    bool badCrc = false;
};
using Chunks = QList<Chunk>;

QByteArray fileOf(const Chunks& chunks)
{
    QByteArray file("\x89PNG\r\n\x1a\n", 8);
    for (const Chunk& chunk : chunks) {
        const QByteArray body = chunk.type + chunk.data;
        const quint32 crc = quint32(crc32(0, reinterpret_cast<const Bytef*>(body.constData()), uInt(body.size())));
        file += be32(quint32(chunk.data.size())) + body + be32(chunk.badCrc ? ~crc : crc);
    }
    return file;
}

qsizetype indexOf(const Chunks& chunks, const char* type)
{
    for (qsizetype i = 0; i < chunks.size(); ++i)
        if (chunks.at(i).type == type)
            return i;
    return -1;
}

QByteArray compressed(const QByteArray& data, int level)
{
    QByteArray out(qsizetype(compressBound(uLong(data.size()))), '\0');
    uLongf length = uLongf(out.size());
    compress2(reinterpret_cast<Bytef*>(out.data()), &length, reinterpret_cast<const Bytef*>(data.constData()),
              uLong(data.size()), level);
    return out.left(qsizetype(length));
}

int paeth(int a, int b, int c)
{
    const int p = a + b - c;
    const int pa = qAbs(p - a), pb = qAbs(p - b), pc = qAbs(p - c);
    return pa <= pb && pa <= pc ? a : pb <= pc ? b : c;
}

/// Rows of `rowBytes` bytes, each behind its filter byte: `filters` in turn, row by row.
QByteArray filtered(const QByteArray& pixels, qsizetype rowBytes, int bpp, const std::vector<int>& filters)
{
    QByteArray out;
    QByteArray previous(rowBytes, '\0');
    for (qsizetype y = 0; y * rowBytes < pixels.size(); ++y) {
        const QByteArray row = pixels.mid(y * rowBytes, rowBytes);
        const int filter = filters.at(size_t(y) % filters.size());
        out += char(filter);
        for (qsizetype x = 0; x < rowBytes; ++x) {
            const int a = x >= bpp ? uchar(row.at(x - bpp)) : 0;
            const int b = uchar(previous.at(x));
            const int c = x >= bpp ? uchar(previous.at(x - bpp)) : 0;
            const int predicted = filter == 1 ? a : filter == 2 ? b : filter == 3 ? (a + b) / 2 : filter == 4 ? paeth(a, b, c) : 0;
            out += char(uchar(row.at(x)) - predicted);
        }
        previous = row;
    }
    return out;
}

/// A picture to build a file of: 8-bit samples unless `depth` says otherwise.
struct Picture
{
    int width = 7;
    int height = 4;
    int colourType = 3;
    int colours = 256; ///< palette entries, for colour type 3
    QByteArray transparency; ///< tRNS data; none when empty
    std::vector<int> filters{ 0, 1, 2, 3, 4 };
    int level = 6;
    int depth = 8;
    bool interlaced = false;
};

int channels(int colourType)
{
    return colourType == 2 ? 3 : colourType == 4 ? 2 : colourType == 6 ? 4 : 1;
}

QByteArray randomBytes(qsizetype count, QRandomGenerator& random)
{
    QByteArray bytes(count, '\0');
    for (char& byte : bytes)
        byte = char(random.bounded(256));
    return bytes;
}

/// The rows of the seven Adam7 passes, each pass filtered on its own.
QByteArray interlacedRows(const Picture& p, const QByteArray& pixels, int bpp)
{
    static const int passes[7][4] = { { 0, 0, 8, 8 }, { 4, 0, 8, 8 }, { 0, 4, 4, 8 }, { 2, 0, 4, 4 },
                                      { 0, 2, 2, 4 }, { 1, 0, 2, 2 }, { 0, 1, 1, 2 } };
    QByteArray out;
    for (const auto& pass : passes) {
        QByteArray passPixels;
        qsizetype rowBytes = 0;
        for (int y = pass[1]; y < p.height; y += pass[3]) {
            const qsizetype before = passPixels.size();
            for (int x = pass[0]; x < p.width; x += pass[2])
                passPixels += pixels.mid((qsizetype(y) * p.width + x) * bpp, bpp);
            rowBytes = passPixels.size() - before;
        }
        if (rowBytes > 0)
            out += filtered(passPixels, rowBytes, bpp, p.filters);
    }
    return out;
}

QByteArray header(int width, int height, int depth, int colourType, bool interlaced = false)
{
    return be32(quint32(width)) + be32(quint32(height)) + char(depth) + char(colourType) + QByteArray(2, '\0')
           + char(interlaced);
}

Chunks chunksOf(const Picture& p, quint32 seed = 1)
{
    QRandomGenerator random(seed);
    const int bpp = channels(p.colourType) * p.depth / 8;
    const qsizetype rowBytes = (qsizetype(p.width) * channels(p.colourType) * p.depth + 7) / 8;
    const QByteArray pixels = randomBytes(rowBytes * p.height, random);
    Chunks chunks;
    chunks.append({ "IHDR", header(p.width, p.height, p.depth, p.colourType, p.interlaced) });
    if (p.colourType == 3)
        chunks.append({ "PLTE", randomBytes(3 * p.colours, random) });
    if (!p.transparency.isEmpty())
        chunks.append({ "tRNS", p.transparency });
    const QByteArray rows = p.interlaced ? interlacedRows(p, pixels, qMax(1, bpp)) : filtered(pixels, rowBytes, qMax(1, bpp), p.filters);
    chunks.append({ "IDAT", compressed(rows, p.level) });
    chunks.append({ "IEND", QByteArray() });
    return chunks;
}

/// Whether the decoder is meant to take a sound file: 8-bit palette, RGBA, or RGB without a
/// transparent colour, not interlaced.
bool decoderTakes(const QByteArray& file)
{
    if (file.size() < 33)
        return false;
    const int depth = file.at(24), colourType = file.at(25), interlace = file.at(28);
    const bool trns = file.indexOf("tRNS") >= 0;
    return depth == 8 && interlace == 0 && (colourType == 3 || colourType == 6 || (colourType == 2 && !trns));
}

/// QPngDecoder's own picture, in rows wider than it needs that start as garbage;
/// null when it refuses the file.
QImage fastDecode(const QByteArray& file, QString* problem)
{
    QPngDecoder decoder;
    if (!decoder.open(file))
        return QImage();
    const QSize size = decoder.size();
    const int depth = decoder.format() == QImage::Format_Indexed8 ? 8 : 32;
    if (decoder.bytesPerLine() != (qsizetype(size.width()) * depth + 31) / 32 * 4)
        *problem = QStringLiteral("bytesPerLine() %1 is not the one of QImage").arg(decoder.bytesPerLine());
    const qsizetype stride = decoder.bytesPerLine() + 8;
    QByteArray bits(stride * size.height(), char(0xCD));
    if (!decoder.decode(reinterpret_cast<uchar*>(bits.data()), stride))
        return QImage();
    const qsizetype used = qsizetype(size.width()) * depth / 8;
    for (int y = 0; y < size.height(); ++y)
        if (bits.mid(y * stride + used, stride - used) != QByteArray(stride - used, '\0'))
            *problem = QStringLiteral("padding of row %1 not zeroed").arg(y);
    QImage image(reinterpret_cast<const uchar*>(bits.constData()), size.width(), size.height(), stride,
                 decoder.format());
    image.setColorTable(decoder.colorTable());
    return image.copy();
}

QString describe(const char* who, const QImage& got, const QImage& expected)
{
    if (got.size() == expected.size() && got.format() == expected.format())
        return QString::fromLatin1(who) + QLatin1String(got.colorSpace() != expected.colorSpace() ? " differs in colour space"
                                                        : got.colorTable() != expected.colorTable() ? " differs in colours"
                                                                                                    : " differs in pixels");
    return QString::asprintf("%s gives %dx%d in format %d, the general reader %dx%d in format %d", who, got.width(),
                             got.height(), int(got.format()), expected.width(), expected.height(), int(expected.format()));
}

/// Messages Qt logged since the last look; libpng's warnings come through them.
int loggedMessages = 0;

void countMessage(QtMsgType, const QMessageLogContext&, const QString&)
{
    ++loggedMessages;
}

/**
 * Why loadPNG or the decoder disagrees with the general reader, or an empty
 * string; `fast` tells whether the decoder took the file. loadPNG may refuse,
 * naming the fault, only what the general reader refuses or complains about,
 * and never lets the general reader complain.
 */
QString disagreement(const QByteArray& file, bool* fast)
{
    const QtMessageHandler previous = qInstallMessageHandler(countMessage);
    loggedMessages = 0;
    QString fault;
    const QImage loaded = loadPNG(file, &fault);
    const int loadMessages = loggedMessages;
    const QImage expected = QImage::fromData(file, "PNG");
    const bool complained = loggedMessages > loadMessages || expected.isNull();
    qInstallMessageHandler(previous);
    if (loadMessages > 0)
        return QStringLiteral("loadPNG let the general reader complain");
    if (loaded.isNull() != !fault.isEmpty())
        return QStringLiteral("loadPNG gave %1 with the fault \"%2\"")
            .arg(loaded.isNull() ? QStringLiteral("nothing") : QStringLiteral("a picture"), fault);
    QString problem;
    const QImage decoded = fastDecode(file, &problem);
    *fast = !decoded.isNull();
    if (!problem.isEmpty())
        return problem;
    if (*fast && decoded != expected)
        return describe("QPngDecoder", decoded, expected);
    if (!fault.isEmpty())
        return complained ? QString() : QStringLiteral("loadPNG refused a file the general reader takes: ") + fault;
    return loaded == expected ? QString() : describe("loadPNG", loaded, expected);
}

QList<QByteArray> pngPayloads(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray data = file.readAll();
    QDataStream stream(data);
    stream.setByteOrder(QDataStream::LittleEndian);
    QSFFHeader header;
    QSFFv2Header v2;
    stream >> header;
    if (header.version < sffVersion200)
        return {};
    stream >> v2;
    QList<QByteArray> payloads;
    for (quint32 i = 0; i < v2.spriteCount; ++i) {
        QSFFv2Sprite sprite;
        stream.device()->seek(v2.spriteOffset + qint64(QSFFv2Sprite::size) * i);
        stream >> sprite;
        if (sprite.compression >= 10 && sprite.compression <= 12 && sprite.length > 4)
            payloads.append(data.mid((sprite.flags & 1 ? v2.tdataOffset : v2.ldataOffset) + qsizetype(sprite.offset) + 4,
                                     qsizetype(sprite.length) - 4));
    }
    return payloads;
}

/// The test of one row of `file` and `path`.
void compareWithGeneralReader()
{
    QFETCH(QByteArray, file);
    QFETCH(int, path);
    bool fast = false;
    const QString problem = disagreement(file, &fast);
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    if (path != Either)
        QCOMPARE(fast, path == Fast);
}

void addRow(const QString& name, const QByteArray& file, Path path)
{
    QTest::newRow(qPrintable(name)) << file << int(path);
}

void addRow(const QString& name, const Chunks& chunks, Path path)
{
    addRow(name, fileOf(chunks), path);
}

} // namespace

void TestFormats::pngRealSprites()
{
    PF_REQUIRE_REALDATA();
    int payloads = 0, fast = 0, eligible = 0;
    for (const QString& path : realDataFiles({ QStringLiteral("sff") }))
        for (const QByteArray& png : pngPayloads(path)) {
            bool took = false;
            const QString problem = disagreement(png, &took);
            QVERIFY2(problem.isEmpty(), qPrintable(path + QStringLiteral(" sprite %1: ").arg(payloads) + problem));
            ++payloads;
            fast += took;
            eligible += decoderTakes(png);
        }
    qInfo("%d PNG payloads, %d of them decoded by QPngDecoder", payloads, fast);
    QVERIFY(payloads > 0);
    QCOMPARE(fast, eligible);
}

void TestFormats::pngSynthetic_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("path");

    // Every filter on the first row and on later ones, for each kind of pixel and odd widths.
    for (int colourType : { 3, 2, 6 })
        for (int width = 1; width <= 9; ++width)
            for (int first = 0; first < 5; ++first) {
                Picture p;
                p.width = width;
                p.height = 5;
                p.colourType = colourType;
                p.filters = { first, (first + 1) % 5, (first + 2) % 5, (first + 3) % 5, (first + 4) % 5 };
                p.level = QList<int>{ 0, 1, 6, 9 }.at((width + first) % 4);
                addRow(QStringLiteral("type %1 width %2 filter %3").arg(colourType).arg(width).arg(first),
                       chunksOf(p, quint32(width * 10 + first)), Fast);
            }

    // Random indices run past palettes of 1 and 16 colours; transparency covers all or part of them.
    for (int colours : { 1, 16, 256 })
        for (int alphas : { 0, 1, colours / 2, colours }) {
            Picture p;
            p.colours = colours;
            QRandomGenerator random(quint32(colours + alphas));
            p.transparency = randomBytes(alphas, random);
            addRow(QStringLiteral("%1 colours, %2 alphas").arg(colours).arg(alphas), chunksOf(p), Fast);
        }

    const Picture palette;
    Picture rgba;
    rgba.colourType = 6;
    Picture rgb;
    rgb.colourType = 2;
    const Chunks good = chunksOf(palette);
    const qsizetype idat = indexOf(good, "IDAT");
    const QByteArray stream = good.at(idat).data;
    const auto changed = [&good](const std::function<void(Chunks&)>& change) {
        Chunks chunks = good;
        change(chunks);
        return chunks;
    };

    Chunks split = good;
    split.removeAt(idat);
    for (const QByteArray& piece : { stream.left(1), stream.mid(1, 7), QByteArray(), stream.mid(8) })
        split.insert(split.size() - 1, { "IDAT", piece });
    addRow(QStringLiteral("several IDAT"), split, Fast);

    Chunks ancillary = good;
    ancillary.insert(1, { "tEXt", QByteArray("Comment\0made here", 17) });
    ancillary.insert(idat + 2, { "pHYs", be32(2835) + be32(2835) + char(1) });
    ancillary.insert(ancillary.size() - 1, { "tEXt", QByteArray("Author\0nobody", 13) });
    ancillary.insert(ancillary.size() - 1, { "prVt", QByteArray("private") });
    addRow(QStringLiteral("ancillary chunks"), ancillary, Fast);
    // Colour space chunks give the general reader's image a colour space, which images compare.
    addRow(QStringLiteral("gAMA"), changed([](Chunks& c) { c.insert(1, { "gAMA", be32(45455) }); }), Either);
    addRow(QStringLiteral("sRGB"), changed([](Chunks& c) { c.insert(1, { "sRGB", QByteArray(1, '\0') }); }), Either);
    addRow(QStringLiteral("cHRM"),
           changed([](Chunks& c) {
               c.insert(1, { "cHRM", be32(31270) + be32(32900) + be32(64000) + be32(33000) + be32(30000) + be32(60000)
                                        + be32(15000) + be32(6000) });
           }),
           Either);

    Picture transparent = palette;
    transparent.transparency = QByteArray(100, char(0x80));
    const Chunks withAlpha = chunksOf(transparent);
    const qsizetype trns = indexOf(withAlpha, "tRNS");

    // Files the general reader may take with a warning: the decoder may take them too, if it agrees.
    addRow(QStringLiteral("extra data after the stream"), changed([&](Chunks& c) { c[idat].data += "tail"; }), Either);
    addRow(QStringLiteral("bytes after IEND"), fileOf(good) + "trailing", Either);
    addRow(QStringLiteral("bad Adler-32"), changed([&](Chunks& c) { c[idat].data.back() = char(c[idat].data.back() ^ 1); }), Either);
    addRow(QStringLiteral("bad ancillary CRC"), changed([&](Chunks& c) { c.insert(1, { "tEXt", QByteArray("a\0b", 3), true }); }), Either);
    addRow(QStringLiteral("IEND with data"), changed([&](Chunks& c) { c.last().data = "x"; }), Either);
    Chunks badAlpha = withAlpha;
    badAlpha[trns].badCrc = true;
    addRow(QStringLiteral("bad tRNS CRC"), badAlpha, Either);
    Chunks lateAlpha = withAlpha;
    lateAlpha.move(trns, lateAlpha.size() - 2);
    addRow(QStringLiteral("tRNS after IDAT"), lateAlpha, Either);
    Chunks alphaFirst = withAlpha;
    alphaFirst.move(trns, 1);
    addRow(QStringLiteral("tRNS before PLTE"), alphaFirst, Either);
    Chunks longAlpha = withAlpha;
    longAlpha[trns].data = QByteArray(300, char(0x40));
    addRow(QStringLiteral("tRNS longer than the palette"), longAlpha, Either);
    Chunks twoAlphas = withAlpha;
    twoAlphas.insert(trns, { "tRNS", QByteArray(3, '\0') });
    addRow(QStringLiteral("two tRNS"), twoAlphas, Either);
    Chunks suggested = chunksOf(rgb);
    suggested.insert(1, { "PLTE", QByteArray(48, 'p') });
    addRow(QStringLiteral("PLTE in an RGB picture"), suggested, Either);

    // Damaged or misplaced critical chunks and pictures the decoder does not take: the general reader decides.
    for (const char* type : { "IHDR", "PLTE", "IDAT", "IEND" })
        addRow(QStringLiteral("bad %1 CRC").arg(QLatin1String(type)),
               changed([&](Chunks& c) { c[indexOf(c, type)].badCrc = true; }), Fallback);
    Chunks splitBadCrc = split;
    splitBadCrc[idat + 1].badCrc = true;
    addRow(QStringLiteral("bad CRC on a middle IDAT"), splitBadCrc, Fallback);
    addRow(QStringLiteral("missing IEND"), changed([](Chunks& c) { c.removeLast(); }), Fallback);
    addRow(QStringLiteral("missing PLTE"), changed([](Chunks& c) { c.removeAt(indexOf(c, "PLTE")); }), Fallback);
    addRow(QStringLiteral("missing IDAT"), changed([&](Chunks& c) { c.removeAt(idat); }), Fallback);
    addRow(QStringLiteral("PLTE after IDAT"), changed([&](Chunks& c) { c.move(indexOf(c, "PLTE"), idat); }), Fallback);
    addRow(QStringLiteral("IHDR not first"), changed([](Chunks& c) { c.move(0, 1); }), Fallback);
    addRow(QStringLiteral("two IHDR"), changed([](Chunks& c) { c.insert(1, c.first()); }), Fallback);
    addRow(QStringLiteral("short IHDR"), changed([](Chunks& c) { c.first().data.chop(1); }), Fallback);
    addRow(QStringLiteral("PLTE not whole colours"), changed([](Chunks& c) { c[1].data.chop(1); }), Fallback);
    addRow(QStringLiteral("empty PLTE"), changed([](Chunks& c) { c[1].data.clear(); }), Fallback);
    addRow(QStringLiteral("PLTE of 257"), changed([](Chunks& c) { c[1].data += "abc"; }), Fallback);
    addRow(QStringLiteral("zero width"), changed([](Chunks& c) { c[0].data.replace(0, 4, be32(0)); }), Fallback);
    addRow(QStringLiteral("compression method 1"), changed([](Chunks& c) { c[0].data[10] = 1; }), Fallback);
    addRow(QStringLiteral("filter method 1"), changed([](Chunks& c) { c[0].data[11] = 1; }), Fallback);
    addRow(QStringLiteral("unknown critical chunk"), changed([&](Chunks& c) { c.insert(idat, { "CRIT", "x" }); }), Fallback);
    addRow(QStringLiteral("unknown critical chunk after IDAT"), changed([&](Chunks& c) { c.insert(idat + 1, { "CRIT", "" }); }), Fallback);
    addRow(QStringLiteral("IDATs split by tEXt"),
           changed([&](Chunks& c) {
               c[idat].data = stream.left(10);
               c.insert(idat + 1, { "tEXt", QByteArray("a\0b", 3) });
               c.insert(idat + 2, { "IDAT", stream.mid(10) });
           }),
           Fallback);
    addRow(QStringLiteral("bad zlib header"), changed([&](Chunks& c) { c[idat].data[0] = 0x79; }), Fallback);
    addRow(QStringLiteral("filter type 5"),
           changed([&](Chunks& c) { c[idat].data = compressed(QByteArray(1, 5) + QByteArray(7, 'a') + QByteArray(24, '\0'), 6); }),
           Fallback);
    addRow(QStringLiteral("rows short"), changed([&](Chunks& c) { c[idat].data = compressed(QByteArray(31, '\0'), 6); }), Fallback);
    addRow(QStringLiteral("rows long"), changed([&](Chunks& c) { c[idat].data = compressed(QByteArray(33, '\0'), 6); }), Fallback);
    addRow(QStringLiteral("bad signature"), fileOf(good).replace(1, 1, "p"), Fallback);
    Chunks rgbAlpha = chunksOf(rgb);
    rgbAlpha.insert(1, { "tRNS", QByteArray(6, '\0') });
    addRow(QStringLiteral("RGB with tRNS"), rgbAlpha, Fallback);
    for (const Picture& base : { palette, rgb, rgba }) {
        Picture interlaced = base;
        interlaced.interlaced = true;
        interlaced.width = 11;
        interlaced.height = 9;
        addRow(QStringLiteral("interlaced type %1").arg(base.colourType), chunksOf(interlaced), Fallback);
    }
    for (int colourType : { 0, 4, 2, 6 }) {
        Picture deep;
        deep.colourType = colourType;
        deep.depth = 16;
        addRow(QStringLiteral("16-bit type %1").arg(colourType), chunksOf(deep), Fallback);
    }
    for (int colourType : { 0, 4 }) {
        Picture grey;
        grey.colourType = colourType;
        addRow(QStringLiteral("grey type %1").arg(colourType), chunksOf(grey), Fallback);
    }
    for (int depth : { 1, 2, 4 }) {
        Picture small;
        small.depth = depth;
        small.colours = 1 << depth;
        addRow(QStringLiteral("%1-bit palette").arg(depth), chunksOf(small), Fallback);
    }

    const QByteArray whole = fileOf(withAlpha);
    for (qsizetype cut = 0; cut < whole.size(); cut += cut < 64 ? 1 : 7)
        addRow(QStringLiteral("cut at %1").arg(cut), whole.left(cut), Fallback);
    addRow(QStringLiteral("last byte cut"), whole.chopped(1), Fallback);

    // The general reader refuses pictures of more bytes than its allocation limit, whatever the
    // file holds: a megabyte is 64 rows of 4096 ARGB pixels.
    const int limitRows = QImageReader::allocationLimit() * 64;
    for (int height : { limitRows, limitRows + 1 }) {
        const Chunks huge = { { "IHDR", header(4096, height, 8, 6) },
                              { "IDAT", compressed(QByteArray((4096 * 4 + 1) * qsizetype(height), '\0'), 1) },
                              { "IEND", QByteArray() } };
        addRow(QStringLiteral("4096x%1").arg(height), huge, Either);
    }
}

void TestFormats::pngFaultsNamed()
{
    Picture palette;
    palette.colours = 4;
    const Chunks good = chunksOf(palette);
    const QByteArray whole = fileOf(good);
    const qsizetype idat = indexOf(good, "IDAT");
    const auto faultOf = [](const QByteArray& file) {
        QString fault;
        const QImage image = loadPNG(file, &fault);
        return image.isNull() ? fault : QStringLiteral("loaded");
    };
    const auto changed = [&good](const std::function<void(Chunks&)>& change) {
        Chunks chunks = good;
        change(chunks);
        return fileOf(chunks);
    };
    QCOMPARE(faultOf(whole), QStringLiteral("loaded"));
    QString fault = QStringLiteral("stale");
    QVERIFY(!loadPNG(whole, &fault).isNull());
    QVERIFY(fault.isEmpty());

    QCOMPARE(faultOf("GIF89a and more"), QStringLiteral("not a PNG picture: no PNG signature at its start"));
    QCOMPARE(faultOf(whole.left(50)), QStringLiteral("chunk PLTE at byte 33 claims 12 bytes, past the end of the picture at byte 50"));
    QCOMPARE(faultOf(whole.chopped(12)), QStringLiteral("the picture ends at byte %1, before its IEND chunk").arg(whole.size() - 12));
    QCOMPARE(faultOf(changed([&](Chunks& c) { c[idat].badCrc = true; })),
             QStringLiteral("chunk IDAT at byte 57 has a bad checksum"));
    QCOMPARE(faultOf(changed([](Chunks& c) { c.move(0, 1); })),
             QStringLiteral("the picture does not start with its IHDR chunk"));
    QCOMPARE(faultOf(changed([](Chunks& c) { c.insert(1, c.first()); })), QStringLiteral("a second IHDR chunk at byte 33"));
    // Rows too few for the header's height, and rows of a filter type there is not: libpng's word for it.
    QVERIFY(faultOf(changed([&](Chunks& c) { c[idat].data = compressed(QByteArray(20, '\0'), 6); }))
                .startsWith(QStringLiteral("damaged picture: ")));
    QCOMPARE(faultOf(changed([&](Chunks& c) { c[idat].data = compressed(QByteArray(1, 5) + QByteArray(31, '\0'), 6); })),
             QStringLiteral("damaged picture: bad adaptive filter value"));
    // A text chunk before the rows claims 788 MB of a file of a hundred bytes: nothing is allocated for it.
    QByteArray lying = changed([](Chunks& c) { c.insert(1, { "tEXt", QByteArray("Comment\0seed", 12) }); });
    qToBigEndian(quint32(0x2F00000C), lying.data() + 8 + 25);
    QVERIFY(faultOf(lying).startsWith(QStringLiteral("chunk tEXt at byte 33 claims 788,529,164 bytes")));
    // An interlaced picture (which the general reader decodes) with a damaged text chunk would make libpng warn.
    Picture interlaced;
    interlaced.interlaced = true;
    Chunks warned = chunksOf(interlaced);
    QCOMPARE(faultOf(fileOf(warned)), QStringLiteral("loaded"));
    warned.insert(1, { "tEXt", QByteArray("a\0b", 3), true });
    QCOMPARE(faultOf(fileOf(warned)), QStringLiteral("chunk tEXt at byte 33 has a bad checksum"));
    // Indices past a palette of four colours: libpng warns of them as the general reader reads the rows.
    interlaced.colours = 4;
    QCOMPARE(faultOf(fileOf(chunksOf(interlaced))),
             QStringLiteral("damaged picture: IDAT: Read palette index exceeding num_palette"));
}

void TestFormats::pngSynthetic()
{
    compareWithGeneralReader();
}

void TestFormats::pngWrittenByQt_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("path");
    QRandomGenerator random(9);
    for (QImage::Format format : { QImage::Format_Indexed8, QImage::Format_RGB32, QImage::Format_ARGB32 })
        for (const QSize size : { QSize(1, 1), QSize(7, 5), QSize(64, 33) })
            for (int colours : { 2, 16, 256 }) {
                QImage image(size, format);
                if (format == QImage::Format_Indexed8) {
                    QList<QRgb> table;
                    for (int i = 0; i < colours; ++i)
                        table.append(qRgba(i, random.bounded(256), 255 - i, i % 3 ? 255 : random.bounded(256)));
                    image.setColorTable(table);
                } else if (colours != 256) {
                    continue;
                }
                for (int y = 0; y < size.height(); ++y)
                    for (int x = 0; x < size.width(); ++x)
                        if (format == QImage::Format_Indexed8)
                            image.setPixel(x, y, uint(random.bounded(colours)));
                        else
                            image.setPixel(x, y, random.generate() | (x % 2 ? 0xFF000000u : 0));
                QByteArray file;
                QBuffer buffer(&file);
                buffer.open(QIODevice::WriteOnly);
                QVERIFY(image.save(&buffer, "PNG"));
                addRow(QStringLiteral("format %1 %2x%3, %4 colours").arg(int(format)).arg(size.width()).arg(size.height()).arg(colours),
                       file, decoderTakes(file) ? Fast : Fallback);
            }
}

void TestFormats::pngWrittenByQt()
{
    compareWithGeneralReader();
}
