#include "qpcx.h"

#include "qimagefiles.h"
#include "qpcxheader.h"
#include "util/qscratchbuffer.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>
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

/// True when none of eight bytes is a run byte (both top bits set).
inline bool allLiterals(quint64 group)
{
    return (group & (group << 1) & 0x8080808080808080ull) == 0;
}

// One plane of one byte a pixel, the layout of every SFF 1.0 sprite, decoded
// straight into the scan lines with bounds checked once per run or per group of
// eight literal bytes. Runs are stored 16 or 64 bytes at a time (a run is at
// most 63) and literal groups 8 at a time, so a store may reach past the run, into the
// line's padding or the lines below, though never past the image. That is
// harmless because the cursor only moves forward: every byte ahead of it is
// written again later, zeroed as padding when its line ends, or zeroed with the
// rest of the image when the data runs out. So equal files give equal bytes.
DecodeEnd decodeIndexed(int bytesPerLine, const uchar* in, const uchar* end, QImage& image)
{
    constexpr int widestStore = 64;
    const int height = image.height();
    const qsizetype stride = image.bytesPerLine();
    const int shown = std::min(image.width(), bytesPerLine);
    uchar* const last = image.bits() + image.sizeInBytes();
    // Up to here a run byte always has its value after it.
    const uchar* const bothBytes = end - 1;
    uchar* line = image.bits();
    int count = 0; // pixels of a run that crossed the end of the line above
    uchar value = 0;

    for (int row = 0; row < height; ++row, line += stride) {
        // The columns of this line from which a store of 64 or of 8 bytes stays inside the image.
        const qsizetype room = last - line;
        const int runLimit = int(std::min<qsizetype>(shown, room - widestStore));
        const int groupLimit = int(std::min<qsizetype>(bytesPerLine, room) - 8);
        auto storeRun = [&](int column, int n) {
            if (column < runLimit) {
                // Most runs are short: one store of 16 covers them.
                std::memset(line + column, value, 16);
                if (n > 16)
                    std::memset(line + column + 16, value, widestStore - 16);
            } else if (column < shown) {
                std::memset(line + column, value, size_t(std::min(column + n, shown) - column));
            }
        };

        int column = std::min(count, bytesPerLine);
        if (column > 0)
            storeRun(0, column);
        count -= column;
        // Most of a line: one token a step without a branch on its kind, a
        // literal being a run of one, while a store of 64 stays in the image.
        const int quickLimit = std::min<qsizetype>(bytesPerLine, room - widestStore);
        while (column < quickLimit && in < bothBytes) {
            // Arithmetic rather than conditions, so the compiler cannot branch:
            // run is 1 for a run byte (192 and above), 0 for a literal.
            const int byte = in[0];
            const int run = (byte + 64) >> 8;
            const int n = (((byte & 63) - 1) & -run) + 1;
            if (column + n > bytesPerLine)
                break;
            const uchar repeated = in[run];
            std::memset(line + column, repeated, 16);
            if (n > 16)
                std::memset(line + column + 16, repeated, widestStore - 16);
            in += 1 + run;
            column += n;
        }
        while (column < bytesPerLine && in < bothBytes) {
            if (*in < 192) {
                if (column < shown)
                    line[column] = *in;
                ++in;
                ++column;
                while (column <= groupLimit && end - in >= 8) {
                    quint64 group;
                    std::memcpy(&group, in, 8);
                    if (!allLiterals(group))
                        break;
                    std::memcpy(line + column, &group, 8);
                    in += 8;
                    column += 8;
                }
                continue;
            }
            count = in[0] & 63;
            value = in[1];
            in += 2;
            const int n = std::min(count, bytesPerLine - column);
            storeRun(column, n);
            column += n;
            count -= n;
        }
        if (column < bytesPerLine && in < end) {
            // The last byte of the data: a literal, or a run byte without its value.
            if (*in < 192 && column < shown)
                line[column] = *in;
            column += *in < 192 ? 1 : 0;
            ++in;
        }
        if (column < bytesPerLine) {
            uchar* const reached = line + std::min(column, shown);
            std::memset(reached, 0, size_t(last - reached));
            return { in, false };
        }
        std::memset(line + shown, 0, size_t(stride - shown));
    }
    return { in, true };
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

/// Decodes into `image`, made for the header's size and format.
QImage decode(const QPCXHeader& header, const QByteArray& data, QImage image)
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
    if (header.depth() == 8 && in < end) {
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
    return decode(header, data, QImage(header.width(), header.height(), depthToFormat(header.depth())));
}

QImage loadPCX(const QByteArray& data, QScratchBuffer& memory)
{
    QPCXHeader header;
    if (!header.read(data.constData(), data.size()) || !acceptable(header, data.size()))
        return QImage();
    const QImage::Format format = depthToFormat(header.depth());
    const qsizetype stride = ((qsizetype(header.width()) * QImage::toPixelFormat(format).bitsPerPixel() + 31) >> 5) << 2;
    uchar* bits = memory.reserve(size_t(stride * header.height()));
    return decode(header, data, QImage(bits, header.width(), header.height(), stride, format));
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
