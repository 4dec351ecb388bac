// The whole-buffer inflater against zlib: streams zlib's deflate makes in all
// its modes, blocks built bit by bit, and damaged streams. zlib is the
// reference for every answer, success or failure.
#include "tst_formats.h"

#include "formats/qinflate.h"

#include <QRandomGenerator>
#include <QtEndian>
#include <QtTest>
#include <optional>
#include <zlib.h>

namespace {

constexpr qsizetype guardBytes = 64;
constexpr char guardByte = char(0xA5);

const uchar* bytesOf(const QByteArray& data)
{
    return reinterpret_cast<const uchar*>(data.constData());
}

/// What zlib makes of a stream, up to `capacity` bytes; `ended` tells whether the stream ended right.
QByteArray zlibOutput(const QByteArray& stream, qsizetype capacity, int windowBits, bool* ended)
{
    QByteArray out(capacity, '\0');
    z_stream z{};
    inflateInit2(&z, windowBits);
    z.next_in = const_cast<Bytef*>(bytesOf(stream));
    z.avail_in = uInt(stream.size());
    z.next_out = reinterpret_cast<Bytef*>(out.data());
    z.avail_out = uInt(out.size());
    *ended = inflate(&z, Z_FINISH) == Z_STREAM_END;
    out.truncate(qsizetype(z.total_out));
    inflateEnd(&z);
    return out;
}

/// zlib's output when the stream holds exactly `length` bytes with a matching trailer, or nothing.
std::optional<QByteArray> zlibInflate(const QByteArray& stream, qsizetype length)
{
    bool ended = false;
    const QByteArray out = zlibOutput(stream, length + 1, 15, &ended);
    if (!ended || out.size() != length)
        return std::nullopt;
    return out;
}

/// What is wrong with inflateZlib's answer on a stream, or an empty string.
/// The output buffer starts as garbage, and the bytes past the slack must stay untouched.
QString mismatch(const QByteArray& stream, qsizetype length)
{
    const std::optional<QByteArray> expected = zlibInflate(stream, length);
    QByteArray buffer(length + qsizetype(inflateSlack) + guardBytes, char(0xCD));
    std::fill(buffer.end() - guardBytes, buffer.end(), guardByte);
    const bool ok = inflateZlib(bytesOf(stream), size_t(stream.size()), reinterpret_cast<uchar*>(buffer.data()),
                                size_t(length));
    const QString where = QString::asprintf(" (stream of %lld bytes, output %lld)", qlonglong(stream.size()),
                                            qlonglong(length));
    if (buffer.right(guardBytes) != QByteArray(guardBytes, guardByte))
        return QStringLiteral("wrote past the slack") + where;
    if (ok != expected.has_value())
        return QString::fromLatin1(ok ? "succeeded where zlib fails" : "failed where zlib succeeds") + where;
    if (ok && buffer.left(length) != *expected) {
        qsizetype at = 0;
        while (buffer.at(at) == expected->at(at))
            ++at;
        return QString::asprintf("first wrong byte at %lld", qlonglong(at)) + where;
    }
    return QString();
}

QByteArray deflated(const QByteArray& data, int level, int strategy, int windowBits = 15, int memLevel = 8,
                    int flushEvery = 0)
{
    z_stream z{};
    deflateInit2(&z, level, Z_DEFLATED, windowBits, memLevel, strategy);
    QByteArray out(qsizetype(deflateBound(&z, uLong(data.size()))) + 1024, '\0');
    z.next_out = reinterpret_cast<Bytef*>(out.data());
    z.avail_out = uInt(out.size());
    const qsizetype step = flushEvery > 0 ? flushEvery : qMax<qsizetype>(1, data.size());
    // Sync, partial and full flushes leave empty stored and fixed blocks in the stream.
    const int flushes[] = { Z_SYNC_FLUSH, Z_PARTIAL_FLUSH, Z_FULL_FLUSH, Z_BLOCK };
    int ret = Z_OK;
    for (qsizetype at = 0, n = 0; ret == Z_OK; at += step, ++n) {
        const qsizetype count = qBound<qsizetype>(0, data.size() - at, step);
        z.next_in = const_cast<Bytef*>(bytesOf(data) + qMin(at, data.size()));
        z.avail_in = uInt(count);
        const bool last = at + count >= data.size();
        ret = deflate(&z, last ? Z_FINISH : flushes[n % 4]);
        if (!last && ret == Z_OK && flushEvery > 0 && n % 3 == 2)
            deflateParams(&z, int(n % 10), strategy);
    }
    out.resize(qsizetype(z.total_out));
    deflateEnd(&z);
    return ret == Z_STREAM_END ? out : QByteArray();
}

QByteArray randomBytes(qsizetype count, quint32 seed)
{
    QRandomGenerator random(seed);
    QByteArray bytes(count, '\0');
    for (char& byte : bytes)
        byte = char(random.bounded(256));
    return bytes;
}

/// `period` random bytes repeated to `count`: matches at that distance.
QByteArray repeated(int period, qsizetype count)
{
    const QByteArray unit = randomBytes(period, quint32(period));
    QByteArray bytes;
    while (bytes.size() < count)
        bytes += unit;
    bytes.truncate(count);
    return bytes;
}

QByteArray text(qsizetype count)
{
    static const char* const words[] = { "the ", "sprite ", "of ", "group ", "9000", ", ", "palette ", "animation\r\n",
                                         "[State 200]\n", "type = ChangeState\n", "value = ", "trigger1 = " };
    QRandomGenerator random(7);
    QByteArray bytes;
    while (bytes.size() < count)
        bytes += words[random.bounded(int(std::size(words)))];
    bytes.truncate(count);
    return bytes;
}

QByteArray input(const QByteArray& name)
{
    QByteArray bytes;
    if (name == "one byte")
        bytes = "x";
    else if (name == "run")
        bytes = QByteArray(5000, 'a') + randomBytes(3, 1) + QByteArray(70000, '\0');
    else if (name == "distances 2-7" || name == "distances 8-15" || name == "distances 16+") {
        const QList<int> periods = name.endsWith("2-7") ? QList<int>{ 2, 3, 4, 5, 6, 7 }
                                   : name.endsWith("8-15") ? QList<int>{ 8, 9, 10, 11, 12, 13, 14, 15 }
                                                           : QList<int>{ 16, 17, 31, 32, 33, 64, 100, 258, 259, 1000, 4097 };
        for (int period : periods)
            bytes += repeated(period, 3000 + period * 3);
    } else if (name == "far distances")
        bytes = repeated(32000, 64000) + repeated(20000, 30000);
    else if (name == "random")
        bytes = randomBytes(100000, 2);
    else if (name == "text")
        bytes = text(200000);
    else if (name == "sparse") {
        bytes = QByteArray(100000, '\0');
        const QByteArray noise = randomBytes(2000, 3);
        for (int i = 0; i < noise.size(); ++i)
            bytes[i * 37 % bytes.size()] = noise.at(i);
    } else if (name == "long mixed")
        for (int i = 0; i < 6; ++i)
            bytes += text(30000) + randomBytes(20000, quint32(10 + i)) + QByteArray(9000, char(i));
    return bytes;
}

/// Writes a deflate bit stream: header bits from the lowest, Huffman codes from the highest.
class Bits
{
public:
    void put(quint32 value, int count)
    {
        for (int i = 0; i < count; ++i, ++m_count) {
            if (m_count % 8 == 0)
                m_bytes.append('\0');
            m_bytes.back() = char(m_bytes.back() | (((value >> i) & 1) << (m_count % 8)));
        }
    }
    void code(quint32 code, int length)
    {
        for (int i = length - 1; i >= 0; --i)
            put((code >> i) & 1, 1);
    }
    /// A symbol of the fixed literal/length code.
    void symbol(int value)
    {
        if (value < 144)
            code(quint32(0x30 + value), 8);
        else if (value < 256)
            code(quint32(0x190 + value - 144), 9);
        else if (value < 280)
            code(quint32(value - 256), 7);
        else
            code(quint32(0xC0 + value - 280), 8);
    }
    void match(int length, int distance)
    {
        static const int lengthBase[] = { 3, 4, 5, 6, 7, 8, 9, 10, 11, 13, 15, 17, 19, 23, 27,
                                          31, 35, 43, 51, 59, 67, 83, 99, 115, 131, 163, 195, 227, 258 };
        static const int distanceBase[] = { 1, 2, 3, 4, 5, 7, 9, 13, 17, 25, 33, 49, 65, 97, 129,
                                            193, 257, 385, 513, 769, 1025, 1537, 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577 };
        int l = 28;
        while (lengthBase[l] > length)
            --l;
        symbol(257 + l);
        put(quint32(length - lengthBase[l]), l < 8 || l == 28 ? 0 : (l - 4) / 4);
        int d = 29;
        while (distanceBase[d] > distance)
            --d;
        code(quint32(d), 5);
        put(quint32(distance - distanceBase[d]), d < 4 ? 0 : (d - 2) / 2);
    }
    void stored(const QByteArray& data, bool final, quint16 check = 0xFFFF)
    {
        put(final, 1);
        put(0, 2);
        m_count = m_bytes.size() * 8;
        const quint16 length = quint16(data.size());
        put(length, 16);
        put(quint16(length ^ check), 16);
        m_bytes += data;
        m_count = m_bytes.size() * 8;
    }
    /// The blocks in a zlib stream, with the trailer of what zlib makes of them.
    QByteArray zlib() const
    {
        bool ended = false;
        const QByteArray output = zlibOutput(m_bytes, 1 << 20, -15, &ended);
        QByteArray trailer(4, '\0');
        qToBigEndian(quint32(adler32(1, bytesOf(output), uInt(output.size()))), trailer.data());
        return QByteArray("\x78\x01") + m_bytes + trailer;
    }

private:
    QByteArray m_bytes;
    qsizetype m_count = 0;
};

Bits fixedBlock(bool final)
{
    Bits bits;
    bits.put(final, 1);
    bits.put(1, 2);
    return bits;
}

} // namespace

void TestFormats::inflateMatchesZlib_data()
{
    QTest::addColumn<QByteArray>("data");
    for (const char* name : { "empty", "one byte", "run", "distances 2-7", "distances 8-15", "distances 16+",
                              "far distances", "random", "text", "sparse", "long mixed" })
        QTest::newRow(name) << input(name);
}

void TestFormats::inflateMatchesZlib()
{
    QFETCH(QByteArray, data);
    QList<QPair<QByteArray, QByteArray>> streams;
    QByteArray compressed(qsizetype(compressBound(uLong(data.size()))), '\0');
    uLongf length = uLongf(compressed.size());
    QCOMPARE(compress2(reinterpret_cast<Bytef*>(compressed.data()), &length, bytesOf(data), uLong(data.size()),
                       Z_DEFAULT_COMPRESSION),
             Z_OK);
    streams.append({ "compress2", compressed.left(qsizetype(length)) });
    const int strategies[] = { Z_DEFAULT_STRATEGY, Z_FILTERED, Z_HUFFMAN_ONLY, Z_RLE, Z_FIXED };
    for (int level = 0; level <= 9; ++level)
        for (int strategy : strategies)
            streams.append({ QByteArray::number(level) + "/" + QByteArray::number(strategy),
                             deflated(data, level, strategy) });
    // Small windows and little memory make other headers and many short blocks.
    for (int windowBits = 9; windowBits < 15; ++windowBits)
        streams.append({ "window " + QByteArray::number(windowBits), deflated(data, 9, Z_DEFAULT_STRATEGY, windowBits, 1) });
    streams.append({ "flushes", deflated(data, 6, Z_DEFAULT_STRATEGY, 15, 8, 4000) });
    for (const auto& [name, stream] : streams) {
        QVERIFY2(!stream.isEmpty(), name.constData());
        QVERIFY(zlibInflate(stream, data.size()).has_value());
        for (qsizetype size : { data.size(), data.size() - 1, data.size() + 1 }) {
            const QString problem = size < 0 ? QString() : mismatch(stream, size);
            QVERIFY2(problem.isEmpty(), qPrintable(QString::fromLatin1(name) + QLatin1Char(' ') + problem));
        }
    }
}

void TestFormats::inflateBlocks_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<int>("length");
    const QByteArray window = randomBytes(32768, 4);

    Bits literals = fixedBlock(true);
    for (char c : QByteArray("abc"))
        literals.symbol(uchar(c));
    literals.symbol(256);
    QTest::newRow("fixed literals") << literals.zlib() << 3;

    Bits farthest;
    farthest.stored(window, false);
    farthest.put(1, 1);
    farthest.put(1, 2);
    farthest.match(258, 32768);
    farthest.symbol(256);
    QTest::newRow("distance 32768") << farthest.zlib() << 32768 + 258;

    Bits tooFar;
    tooFar.stored(window.left(32767), false);
    tooFar.put(1, 1);
    tooFar.put(1, 2);
    tooFar.match(3, 32768);
    tooFar.symbol(256);
    QTest::newRow("distance past the start") << tooFar.zlib() << 32767 + 3;

    Bits overlaps = fixedBlock(true);
    for (int i = 0; i < 40; ++i)
        overlaps.symbol(i * 5);
    int overlapLength = 40;
    for (int distance = 1; distance <= 40; ++distance) {
        overlaps.match(30 + distance, distance);
        overlaps.match(3, distance);
        overlapLength += 33 + distance;
    }
    overlaps.symbol(256);
    QTest::newRow("overlapping copies") << overlaps.zlib() << overlapLength;

    Bits code284 = fixedBlock(true);
    code284.symbol('a');
    code284.symbol(284);
    code284.put(31, 5);
    code284.code(0, 5);
    code284.symbol(256);
    QTest::newRow("length 258 by code 284") << code284.zlib() << 259;

    for (int bad : { 286, 287 }) {
        Bits badLiteral = fixedBlock(true);
        badLiteral.symbol('a');
        badLiteral.symbol(bad);
        badLiteral.symbol(256);
        QTest::newRow(qPrintable(QStringLiteral("literal code %1").arg(bad))) << badLiteral.zlib() << 2;
    }
    for (quint32 bad : { 30u, 31u }) {
        Bits badDistance = fixedBlock(true);
        badDistance.symbol('a');
        badDistance.symbol(257);
        badDistance.code(bad, 5);
        badDistance.symbol(256);
        QTest::newRow(qPrintable(QStringLiteral("distance code %1").arg(bad))) << badDistance.zlib() << 4;
    }

    Bits reserved;
    reserved.put(1, 1);
    reserved.put(3, 2);
    reserved.put(0, 16);
    QTest::newRow("block type 3") << reserved.zlib() << 0;

    Bits storedCheck;
    storedCheck.stored("hello", true, 0xFFFE);
    QTest::newRow("stored length check") << storedCheck.zlib() << 5;

    Bits storedShort;
    storedShort.stored(QByteArray(100, 'z'), true);
    QTest::newRow("stored past the input") << storedShort.zlib().chopped(10) << 100;

    Bits empties;
    empties.stored(QByteArray(), false);
    empties.put(0, 1);
    empties.put(1, 2);
    empties.symbol(256);
    empties.stored("xyz", true);
    QTest::newRow("empty blocks") << empties.zlib() << 3;

    Bits unfinished = fixedBlock(false);
    unfinished.symbol('a');
    unfinished.symbol(256);
    QTest::newRow("no final block") << unfinished.zlib() + QByteArray(8, '\0') << 1;

    QTest::newRow("garbage after the final block") << literals.zlib() + QByteArray(40, char(0xFF)) << 3;
}

void TestFormats::inflateBlocks()
{
    QFETCH(QByteArray, stream);
    QFETCH(int, length);
    for (int size : { length - 1, length, length + 1 }) {
        const QString problem = size < 0 ? QString() : mismatch(stream, size);
        QVERIFY2(problem.isEmpty(), qPrintable(problem));
    }
}

void TestFormats::inflateHeaders_data()
{
    QTest::addColumn<int>("cmf");
    QTest::addColumn<int>("flg");
    // FLG with a correct check unless the row says otherwise.
    const auto checked = [](int cmf, int flg) { return flg + (31 - (cmf * 256 + flg) % 31) % 31; };
    for (int cinfo = 0; cinfo <= 8; ++cinfo)
        QTest::newRow(qPrintable(QStringLiteral("window %1").arg(cinfo))) << (cinfo << 4 | 8) << checked(cinfo << 4 | 8, 0);
    for (int level = 0; level < 4; ++level)
        QTest::newRow(qPrintable(QStringLiteral("level %1").arg(level))) << 0x78 << checked(0x78, level << 6);
    QTest::newRow("method 7") << 0x77 << checked(0x77, 0);
    QTest::newRow("method 15") << 0x7F << checked(0x7F, 0);
    QTest::newRow("preset dictionary") << 0x78 << checked(0x78, 0x20);
    QTest::newRow("bad check") << 0x78 << 0x9D;
}

void TestFormats::inflateHeaders()
{
    QFETCH(int, cmf);
    QFETCH(int, flg);
    const QByteArray data = text(2000);
    const QByteArray stream = deflated(data, 6, Z_DEFAULT_STRATEGY);
    QByteArray changed = stream;
    changed[0] = char(cmf);
    changed[1] = char(flg);
    const QString problem = mismatch(changed, data.size());
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
}

void TestFormats::inflateDamaged_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<int>("length");
    const QByteArray small = text(1500) + randomBytes(100, 5) + QByteArray(300, 'q');
    for (int strategy : { Z_DEFAULT_STRATEGY, Z_FIXED, Z_HUFFMAN_ONLY })
        QTest::newRow(qPrintable(QStringLiteral("strategy %1").arg(strategy)))
            << deflated(small, 9, strategy) << int(small.size());
    QTest::newRow("stored") << deflated(small.left(300), 0, Z_DEFAULT_STRATEGY) << 300;
}

void TestFormats::inflateDamaged()
{
    QFETCH(QByteArray, stream);
    QFETCH(int, length);
    for (qsizetype cut = 0; cut < stream.size(); ++cut) {
        const QString problem = mismatch(stream.left(cut), length);
        QVERIFY2(problem.isEmpty(), qPrintable(QStringLiteral("cut at %1: ").arg(cut) + problem));
    }
    for (qsizetype bit = 0; bit < stream.size() * 8; ++bit) {
        QByteArray flipped = stream;
        flipped[bit / 8] = char(flipped.at(bit / 8) ^ (1 << bit % 8));
        const QString problem = mismatch(flipped, length);
        QVERIFY2(problem.isEmpty(), qPrintable(QStringLiteral("bit %1 flipped: ").arg(bit) + problem));
    }
}
