#include "qpcx.h"

#include "qimagefiles.h"
#include "qpcxheader.h"

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

QImage decode(const QPCXHeader& header, const QByteArray& data)
{
    const int width = header.width();
    const int height = header.height();
    const int planes = header.planes;
    const int bytesPerLine = header.bytesPerLine;
    const QImage::Format format = depthToFormat(header.depth());
    QImage image(width, height, format);
    if (image.isNull())
        return image;
    image.fill(format == QImage::Format_RGB32 ? qRgb(0, 0, 0) : 0u);

    const int step = planes == 3 ? 4 : planes;
    const int pixelBytes = format == QImage::Format_Indexed8 ? 1 : 4;
    // How many columns of a plane fit in a row of the image: a plane layout the
    // format does not expect (8 planes of 1 bit, say) must still stay inside.
    auto columnsOf = [&](int plane) {
        const int offset = planeByte(plane, planes);
        const int rowBytes = width * pixelBytes;
        return offset >= rowBytes ? 0 : std::min(width, (rowBytes - offset + step - 1) / step);
    };

    const auto* in = reinterpret_cast<const uchar*>(data.constData()) + QPCXHeader::size;
    const auto* end = reinterpret_cast<const uchar*>(data.constData()) + data.size();
    int row = 0;
    int plane = 0;
    int column = 0;
    int visible = columnsOf(0);
    uchar* place = image.scanLine(0) + planeByte(0, planes);
    bool complete = false;

    while (!complete && in < end) {
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
            if (shown > 0) {
                if (step == 1) {
                    std::memset(place + column, value, size_t(shown));
                } else {
                    uchar* at = place + qsizetype(column) * step;
                    for (int i = 0; i < shown; ++i, at += step)
                        *at = value;
                }
            }
            column += n;
            count -= n;
            if (column < bytesPerLine)
                continue;
            column = 0;
            if (++plane == planes) {
                plane = 0;
                if (++row == height) {
                    complete = true;
                    break;
                }
            }
            visible = columnsOf(plane);
            place = image.scanLine(row) + planeByte(plane, planes);
        }
    }

    if (header.depth() == 8 && in < end) {
        int marker = paletteMarker;
        if (complete)
            in = reinterpret_cast<const uchar*>(data.constData())
                + std::max<qsizetype>(0, data.size() - paletteBytes);
        else
            marker = *in++;
        if (marker == paletteMarker && in < end) {
            QVector<QRgb> colours(256, qRgb(0, 0, 0));
            for (int i = 0; i < 256 && end - in >= 3; ++i, in += 3)
                colours[i] = qRgb(in[0], in[1], in[2]);
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
    return decode(header, data);
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
