#include "qpngfault.h"

#include <QImageReader>
#include <QLocale>
#include <QtEndian>

#include <cstring>
#include <png.h>
#include <vector>
#include <zlib.h>

namespace {

constexpr uchar signature[8] = {137, 80, 78, 71, 13, 10, 26, 10};

QString byteText(qsizetype at)
{
    return QLocale(QLocale::English).toString(qint64(at));
}

QString chunkName(const uchar* type)
{
    QString name;
    for (int i = 0; i < 4; ++i)
        name += type[i] >= 0x20 && type[i] < 0x7F ? QLatin1Char(char(type[i])) : QLatin1Char('?');
    return name;
}

constexpr uchar iendChunk[8] = {0, 0, 0, 0, 'I', 'E', 'N', 'D'};

/**
 * Whether the file ends in an IEND chunk that lacks (part of) its checksum.
 * The general reader takes such files, reading the checksum IEND always has.
 */
bool endsWithoutCrc(const uchar* bytes, qsizetype size, qsizetype at)
{
    return size - at >= 8 && size - at < 12 && std::memcmp(bytes + at, iendChunk, 8) == 0;
}

/// The faults a walk over the chunks finds without decoding anything.
QString chunkFault(const uchar* bytes, qsizetype size)
{
    if (size < 8 || std::memcmp(bytes, signature, sizeof signature) != 0)
        return QStringLiteral("not a PNG picture: no PNG signature at its start");
    for (qsizetype at = 8;;) {
        if (endsWithoutCrc(bytes, size, at))
            return QString();
        if (size - at < 12)
            return QStringLiteral("the picture ends at byte %1, before its IEND chunk").arg(byteText(size));
        const quint32 length = qFromBigEndian<quint32>(bytes + at);
        const uchar* type = bytes + at + 4;
        const QString name = chunkName(type);
        if (length > 0x7FFFFFFF || qsizetype(length) > size - at - 12)
            return QStringLiteral("chunk %1 at byte %2 claims %3 bytes, past the end of the picture at byte %4")
                .arg(name, byteText(at), byteText(qsizetype(length)), byteText(size));
        if ((at == 8) != (std::memcmp(type, "IHDR", 4) == 0))
            return at == 8 ? QStringLiteral("the picture does not start with its IHDR chunk")
                           : QStringLiteral("a second IHDR chunk at byte %1").arg(byteText(at));
        const uchar* body = type + 4;
        if (crc32(crc32(0, type, 4), body, length) != qFromBigEndian<quint32>(body + length))
            return QStringLiteral("chunk %1 at byte %2 has a bad checksum").arg(name, byteText(at));
        if (std::memcmp(type, "IEND", 4) == 0)
            return QString();
        at += 12 + qsizetype(length);
    }
}

/**
 * Refuses what the general reader would refuse, with a warning, before
 * decoding: a picture past its allocation limit. Its depth in memory is
 * taken as the widest the reader makes of such a file.
 */
QString sizeFault(const uchar* header)
{
    const quint32 width = qFromBigEndian<quint32>(header + 16);
    const quint32 height = qFromBigEndian<quint32>(header + 20);
    const int bitDepth = header[24], colourType = header[25];
    // Grey pictures become 32-bit ones when they have a transparent colour.
    const qint64 depth = bitDepth == 16 ? 64 : colourType == 3 ? 8 : 32;
    const qint64 limit = qint64(QImageReader::allocationLimit()) << 20;
    const qint64 bytes = (qint64(width) * depth + 31) / 32 * 4 * qint64(height);
    if (limit > 0 && bytes > limit)
        return QStringLiteral("the picture is %1x%2, larger than a picture this program loads").arg(width).arg(height);
    return QString();
}

/// What libpng reads from and what it reports.
struct Decoding
{
    Decoding(const uchar* bytes, qsizetype size)
        : bytes(bytes)
        , size(size)
    {
    }

    const uchar* bytes;
    qsizetype size;
    qsizetype at = 0;
    std::vector<png_byte> row;
    QString fault;
};

void onError(png_structp png, png_const_charp message)
{
    auto* decoding = static_cast<Decoding*>(png_get_error_ptr(png));
    if (decoding->fault.isEmpty())
        decoding->fault = QString::fromLatin1(message);
    png_longjmp(png, 1);
}

/// A warning is a fault too: the general reader would print it.
void onWarning(png_structp png, png_const_charp message)
{
    auto* decoding = static_cast<Decoding*>(png_get_error_ptr(png));
    if (decoding->fault.isEmpty())
        decoding->fault = QString::fromLatin1(message);
}

void readBytes(png_structp png, png_bytep out, size_t length)
{
    auto* decoding = static_cast<Decoding*>(png_get_io_ptr(png));
    if (length == 4 && decoding->at >= 8 && endsWithoutCrc(decoding->bytes, decoding->size, decoding->at - 8)) {
        static constexpr uchar iendCrc[4] = {0xAE, 0x42, 0x60, 0x82};
        std::memcpy(out, iendCrc, 4);
        decoding->at = decoding->size;
        return;
    }
    if (qsizetype(length) > decoding->size - decoding->at)
        png_error(png, "the picture ends before its data does");
    std::memcpy(out, decoding->bytes + decoding->at, length);
    decoding->at += qsizetype(length);
}

/**
 * Decodes every row of every pass, and the chunks after them, as the general
 * reader does. No object with a destructor lives in this frame, which
 * libpng's errors leave by longjmp.
 */
void decodeAll(png_structp png, png_infop info, png_infop end, Decoding* decoding)
{
    if (setjmp(png_jmpbuf(png)))
        return;
    png_set_read_fn(png, decoding, readBytes);
    // Real pictures may declare a smaller window than their stream uses; readers take them.
    png_set_option(png, PNG_MAXIMUM_INFLATE_WINDOW, PNG_OPTION_ON);
    png_read_info(png, info);
    // Rows are checked as they pass through transformations, the palette
    // indices among them, and the general reader always asks for some; this
    // one changes nothing of what is checked.
    png_set_bgr(png);
    const int passes = png_set_interlace_handling(png);
    png_read_update_info(png, info);
    // libpng has checked the width against its limits by now.
    decoding->row.resize(png_get_rowbytes(png, info));
    const png_uint_32 height = png_get_image_height(png, info);
    for (int pass = 0; pass < passes; ++pass)
        for (png_uint_32 y = 0; y < height; ++y)
            png_read_row(png, decoding->row.data(), nullptr);
    png_read_end(png, end);
}

QString decodeFault(const uchar* bytes, qsizetype size)
{
    Decoding decoding(bytes, size);
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &decoding, onError, onWarning);
    if (!png)
        return QStringLiteral("out of memory");
    png_infop info = png_create_info_struct(png);
    png_infop end = png_create_info_struct(png);
    if (info && end)
        decodeAll(png, info, end, &decoding);
    png_destroy_read_struct(&png, &info, &end);
    return decoding.fault.isEmpty() ? QString() : QStringLiteral("damaged picture: %1").arg(decoding.fault);
}

} // namespace

QString pngFault(const QByteArray& data)
{
    const auto* bytes = reinterpret_cast<const uchar*>(data.constData());
    QString fault = chunkFault(bytes, data.size());
    if (fault.isEmpty())
        fault = sizeFault(bytes);
    if (fault.isEmpty())
        fault = decodeFault(bytes, data.size());
    return fault;
}
