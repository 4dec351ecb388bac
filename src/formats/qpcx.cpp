#include "qpcx.h"

#include "qimagefiles.h"
#include "qpcxheader.h"
#include "util/qscratchbuffer.h"

#include <QDataStream>
#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr int paletteMarker = 12;
constexpr int paletteBytes = 768;
// A run byte and its value give at most 63 pixels, so a header asking for far
// more bytes than the payload could ever hold is damaged; refusing it keeps a
// few corrupt bytes from allocating gigabytes.
constexpr qsizetype maxExpansion = 64;

// The byte of a pixel in memory that holds a file plane. True-colour planes are
// red, green, blue, alpha, and a 32-bit pixel 0xAARRGGBB is stored in native
// order; any other layout keeps the file's order.
int planeByte(int plane, int planes)
{
    if (planes != 3 && planes != 4)
        return plane;
#if Q_BYTE_ORDER == Q_LITTLE_ENDIAN
    static const int offsets[4] = { 2, 1, 0, 3 };
#else
    static const int offsets[4] = { 1, 2, 3, 0 };
#endif
    return plane < 4 ? offsets[plane] : plane;
}

bool acceptable(const QPCXHeader& header, qsizetype dataSize)
{
    if (header.manufacturer != 10 || header.version != 5
        || depthToFormat(header.depth()) == QImage::Format_Invalid)
        return false;
    if (header.width() <= 0 || header.height() <= 0 || header.bytesPerLine == 0)
        return false;
    const qsizetype limit = maxExpansion * dataSize + 65536;
    const qsizetype decoded = qsizetype(header.bytesPerLine) * header.planes * header.height();
    const qsizetype pixels = qsizetype(header.width()) * header.height();
    return decoded <= limit && pixels <= limit;
}

/// Where decoding stopped: the first byte not consumed, and whether every row was filled.
struct DecodeEnd
{
    const uchar* in;
    bool complete;
};

/// Bit i set when byte i of eight (in memory order) is a run byte.
inline unsigned runBytes(quint64 group)
{
    const quint64 bytes = qFromLittleEndian(group);
    const quint64 tops = bytes & (bytes << 1) & 0x8080808080808080ull;
    return unsigned(((tops >> 7) * 0x0102040810204080ull) >> 56);
}

/// Where the first four tokens of eight bytes start, and the bytes those four take.
struct FourTokens
{
    uchar at[4];
    uchar used;
};

/// FourTokens for each pattern of run bytes among eight, the first byte starting a token.
/// A token takes one or two bytes, so eight always hold four.
constexpr std::array<FourTokens, 256> fourTokenTable()
{
    std::array<FourTokens, 256> table {};
    for (unsigned runs = 0; runs < 256; ++runs) {
        unsigned at = 0;
        for (int token = 0; token < 4; ++token) {
            table[runs].at[token] = uchar(at);
            at += (runs >> at & 1) ? 2 : 1;
        }
        table[runs].used = uchar(at);
    }
    return table;
}

constexpr std::array<FourTokens, 256> fourTokens = fourTokenTable();

// One plane of one byte a pixel, the layout of every SFF 1.0 sprite. The
// plane's lines lie end to end in the data, and a run may go on from one line
// into the next, so the data is first decoded as one stream into memory of
// `bytesPerLine` bytes a line, with no line ends to watch: sprites' lines are
// short (a few dozen pixels, about a dozen tokens), and ending and starting
// each one cost as much as its tokens. The lines are then copied to their
// place in the image and their padding zeroed.
//
// Most of the stream goes four tokens a step: a table says where they start
// in the next eight bytes, so that finding a token does not wait on reading
// the one before. Each token is stored without a branch on its kind (a
// literal is a run of one) by one store of 64 bytes, as a run is at most 63;
// near the end one token a step, by 16 bytes and 48 more for a longer run.
// The memory has room for a store past the last line. A store may thus reach
// past its token, which is harmless because the cursor only moves forward:
// every byte ahead of it is written again later, or zeroed when the data runs
// out. So equal files give equal bytes.
DecodeEnd decodeIndexed(int bytesPerLine, const uchar* in, const uchar* end, QImage& image)
{
    constexpr int widestStore = 64;
    const int height = image.height();
    const qsizetype total = qsizetype(bytesPerLine) * height;
    thread_local QScratchBuffer memory;
    uchar* const stream = memory.reserve(size_t(total + widestStore));
    // Up to here a run byte always has its value after it.
    const uchar* const bothBytes = end - 1;
    qsizetype at = 0;
    auto token = [&](const uchar* head) {
        // Arithmetic rather than conditions: run is 1 for a run byte (192 and above), 0 for a literal.
        const int run = (head[0] + 64) >> 8;
        const int n = (((head[0] & 63) - 1) & -run) + 1;
        const uchar repeated = head[run];
        std::memset(stream + at, repeated, widestStore);
        at += n;
    };
    // Four tokens cover at most 4 * 63 bytes.
    while (at < total - 4 * 63 && end - in >= 8) {
        quint64 group;
        std::memcpy(&group, in, 8);
        const FourTokens& tokens = fourTokens[runBytes(group)];
        token(in + tokens.at[0]);
        token(in + tokens.at[1]);
        token(in + tokens.at[2]);
        token(in + tokens.at[3]);
        in += tokens.used;
    }
    while (at < total && in < bothBytes) {
        const int byte = in[0];
        const int run = (byte + 64) >> 8;
        const int n = (((byte & 63) - 1) & -run) + 1;
        const uchar repeated = in[run];
        std::memset(stream + at, repeated, 16);
        if (n > 16)
            std::memset(stream + at + 16, repeated, widestStore - 16);
        in += 1 + run;
        at += n;
    }
    if (at < total && in < end) {
        // The last byte of the data: a literal, or a run byte without its value.
        if (*in < 192)
            stream[at++] = *in;
        ++in;
    }
    const bool complete = at >= total;
    if (!complete)
        std::memset(stream + at, 0, size_t(total - at));

    const qsizetype stride = image.bytesPerLine();
    const int shown = std::min(image.width(), bytesPerLine);
    uchar* line = image.bits();
    const uchar* from = stream;
    // Lines are copied eight bytes at a time and their padding zeroed with
    // eight more: what that writes past a line lies in the next line (lines
    // of at least eight bytes), written again right after. The last line
    // gets exact copies.
    const bool shortPadding = stride >= 8 && stride - shown <= 8;
    for (int row = 0; row < height; ++row, line += stride, from += bytesPerLine) {
        if (row + 1 == height || !shortPadding) {
            std::memcpy(line, from, size_t(shown));
            std::memset(line + shown, 0, size_t(stride - shown));
            continue;
        }
        for (int x = 0; x < shown; x += 8)
            std::memcpy(line + x, from + x, 8);
        std::memset(line + shown, 0, 8);
    }
    return { in, complete };
}

// Any other plane layout: each plane of a line goes to its byte of every pixel.
// The image is cleared first, since damaged data may leave any part unwritten.
DecodeEnd decodePlanes(const QPCXHeader& header, const uchar* in, const uchar* end, QImage& image)
{
    const int width = image.width();
    const int height = image.height();
    const int planes = header.planes;
    const int bytesPerLine = header.bytesPerLine;
    if (image.format() == QImage::Format_RGB32)
        image.fill(qRgb(0, 0, 0));
    else
        std::memset(image.bits(), 0, size_t(image.sizeInBytes()));

    const int step = planes == 3 ? 4 : planes;
    const int pixelBytes = image.format() == QImage::Format_Indexed8 ? 1 : 4;
    // How many columns of a plane fit in a row of the image: a plane layout the
    // format does not expect (8 planes of 1 bit, say) must still stay inside.
    auto columnsOf = [&](int plane) {
        const int offset = planeByte(plane, planes);
        const int rowBytes = width * pixelBytes;
        return offset >= rowBytes ? 0 : std::min(width, (rowBytes - offset + step - 1) / step);
    };

    int row = 0;
    int plane = 0;
    int column = 0;
    int visible = columnsOf(0);
    uchar* place = image.scanLine(0) + planeByte(0, planes);

    while (in < end) {
        uchar value = *in++;
        int count = 1;
        if (value > 191) {
            if (in == end)
                break;
            count = value & 63;
            value = *in++;
        }
        while (count > 0) {
            const int n = std::min(count, bytesPerLine - column);
            const int shown = std::min(column + n, visible) - column;
            uchar* at = place + qsizetype(column) * step;
            for (int i = 0; i < shown; ++i, at += step)
                *at = value;
            column += n;
            count -= n;
            if (column < bytesPerLine)
                continue;
            column = 0;
            if (++plane == planes) {
                plane = 0;
                if (++row == height)
                    return { in, true };
            }
            visible = columnsOf(plane);
            place = image.scanLine(row) + planeByte(plane, planes);
        }
    }
    return { in, false };
}

/// Decodes into `image`, made for the header's size and format, with the colour table when `colours` is set.
QImage decode(const QPCXHeader& header, const QByteArray& data, QImage image, bool colours)
{
    const QImage::Format format = image.format();
    if (image.isNull())
        return image;
    const auto* begin = reinterpret_cast<const uchar*>(data.constData());
    const auto* end = begin + data.size();
    const auto* pixels = begin + QPCXHeader::size;
    const DecodeEnd stop = format == QImage::Format_Indexed8 && header.planes == 1
        ? decodeIndexed(header.bytesPerLine, pixels, end, image)
        : decodePlanes(header, pixels, end, image);

    const uchar* in = stop.in;
    if (colours && header.depth() == 8 && in < end) {
        int marker = paletteMarker;
        if (stop.complete)
            in = begin + std::max<qsizetype>(0, data.size() - paletteBytes);
        else
            marker = *in++;
        if (marker == paletteMarker && in < end) {
            QVector<QRgb> colours(256, qRgb(0, 0, 0));
            QRgb* colour = colours.data();
            for (int i = 0; i < 256 && end - in >= 3; ++i, in += 3)
                colour[i] = qRgb(in[0], in[1], in[2]);
            image.setColorTable(colours);
        }
    }
    return image;
}

// Encodes one plane of a row into out, which has room for two bytes a pixel:
// runs of up to 63 equal bytes that never cross the end of the row; a single
// byte below 192 stands alone. Returns the end of what was written.
char* encodePlane(const uchar* pixels, int count, int step, char* out)
{
    int x = 0;
    while (x < count) {
        const uchar value = pixels[qsizetype(x) * step];
        int run = 1;
        while (run < 63 && x + run < count && pixels[qsizetype(x + run) * step] == value)
            ++run;
        if (run > 1 || value > 191)
            *out++ = char(0xC0 | run);
        *out++ = char(value);
        x += run;
    }
    return out;
}

} // namespace

QImage loadPCX(const QByteArray& data)
{
    QPCXHeader header;
    if (!header.read(data.constData(), data.size()) || !acceptable(header, data.size()))
        return QImage();
    return decode(header, data, QImage(header.width(), header.height(), depthToFormat(header.depth())), true);
}

QImage loadPCX(const QByteArray& data, QScratchBuffer& memory, bool colours)
{
    QPCXHeader header;
    if (!header.read(data.constData(), data.size()) || !acceptable(header, data.size()))
        return QImage();
    const QImage::Format format = depthToFormat(header.depth());
    const qsizetype stride = ((qsizetype(header.width()) * QImage::toPixelFormat(format).bitsPerPixel() + 31) >> 5) << 2;
    uchar* bits = memory.reserve(size_t(stride * header.height()));
    return decode(header, data, QImage(bits, header.width(), header.height(), stride, format), colours);
}

QImageInfo infoFromPCX(const QByteArray& data)
{
    QPCXHeader header;
    if (!header.read(data.constData(), data.size()) || !acceptable(header, data.size()))
        return QImageInfo();
    return QImageInfo { header.width(), header.height(), depthToFormat(header.depth()) };
}

bool savePCX(const QImage& image, QIODevice* device)
{
    const int depth = formatToDepth(image.format());
    if (depth == 0 || image.isNull() || image.width() > 65535 || image.height() > 65535 || !device)
        return false;
    QPCXHeader header;
    header.xMax = quint16(image.width() - 1);
    header.yMax = quint16(image.height() - 1);
    header.planes = quint8(depth / 8);
    header.bytesPerLine = quint16(image.width());
    header.paletteType = 1;

    QDataStream stream(device);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << header;

    const int planes = header.planes;
    const int step = planes > 1 ? 4 : 1;
    QByteArray rows(qsizetype(image.width()) * planes * 2, Qt::Uninitialized);
    for (int y = 0; y < image.height(); ++y) {
        const uchar* line = image.constScanLine(y);
        char* end = rows.data();
        for (int plane = 0; plane < planes; ++plane)
            end = encodePlane(line + planeByte(plane, planes), image.width(), step, end);
        stream.writeRawData(rows.constData(), int(end - rows.constData()));
    }

    if (planes == 1) {
        const QVector<QRgb> table = image.colorTable();
        char trailer[1 + paletteBytes] = { char(paletteMarker) };
        for (int i = 0; i < 256 && i < table.size(); ++i) {
            trailer[1 + 3 * i] = char(qRed(table[i]));
            trailer[2 + 3 * i] = char(qGreen(table[i]));
            trailer[3 + 3 * i] = char(qBlue(table[i]));
        }
        stream.writeRawData(trailer, sizeof trailer);
    }
    return stream.status() == QDataStream::Ok;
}
