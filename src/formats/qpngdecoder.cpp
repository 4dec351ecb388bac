#include "qpngdecoder.h"

#include "qinflate.h"
#include "qpngfilters.h"
#include "util/qscratchbuffer.h"

#include <QImageReader>
#include <QtEndian>

#include <cstring>
#include <vector>
#include <zlib.h>

namespace {

constexpr uchar signature[8] = {137, 80, 78, 71, 13, 10, 26, 10};
constexpr quint32 largestSide = 65535;

constexpr quint32 chunkType(const char (&name)[5])
{
    return quint32(uchar(name[0])) << 24 | quint32(uchar(name[1])) << 16 | quint32(uchar(name[2])) << 8
        | quint32(uchar(name[3]));
}

bool isLetter(uchar c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// Indices past the palette read as 0, as the general reader has them.
void clampIndices(uchar* row, quint32 width, int colors)
{
    for (quint32 x = 0; x < width; ++x)
        row[x] = row[x] < colors ? row[x] : 0;
}

/// RGB bytes to the opaque 32-bit pixels of Format_RGB32.
void copyRgb(const uchar* row, uchar* to, quint32 width)
{
    auto* pixels = reinterpret_cast<QRgb*>(to);
    for (quint32 x = 0; x < width; ++x, row += 3)
        pixels[x] = qRgb(row[0], row[1], row[2]);
}

/// The filtered rows of the picture being decoded.
thread_local QScratchBuffer filteredRows;

} // namespace

bool QPngDecoder::open(const QByteArray& data)
{
    *this = QPngDecoder();
    const auto* bytes = reinterpret_cast<const uchar*>(data.constData());
    const qsizetype size = data.size();
    if (size < 8 || std::memcmp(bytes, signature, sizeof signature) != 0)
        return false;
    bool ended = false;
    bool idatEnded = false;
    for (qsizetype at = 8; !ended;) {
        if (size - at < 12)
            return false;
        const quint32 length = qFromBigEndian<quint32>(bytes + at);
        const uchar* type = bytes + at + 4;
        if (length > 0x7FFFFFFF || qsizetype(length) > size - at - 12)
            return false;
        if (!isLetter(type[0]) || !isLetter(type[1]) || !isLetter(type[2]) || !isLetter(type[3]))
            return false;
        const uchar* body = type + 4;
        const quint32 name = qFromBigEndian<quint32>(type);
        // The general reader stops at a damaged critical chunk and drops a
        // damaged transparency chunk; both are left to it.
        const bool critical = !(type[0] & 0x20);
        const bool checked = critical || name == chunkType("tRNS");
        if (checked && crc32(crc32(0, type, 4), body, length) != qFromBigEndian<quint32>(body + length))
            return false;
        const bool first = at == 8;
        at += 12 + qsizetype(length);
        if (first != (name == chunkType("IHDR")))
            return false;
        if (!m_idat.isEmpty() && name != chunkType("IDAT"))
            idatEnded = true;
        switch (name) {
        case chunkType("IHDR"):
            if (!readHeader(body, length))
                return false;
            break;
        case chunkType("PLTE"):
            if (!m_idat.isEmpty() || !readPalette(body, length))
                return false;
            break;
        case chunkType("tRNS"):
            if (!m_idat.isEmpty())
                break;
            if (!readTransparency(body, length))
                return false;
            break;
        case chunkType("IDAT"):
            if (idatEnded)
                return false;
            m_idat.append(QByteArrayView(body, length));
            break;
        case chunkType("IEND"):
            ended = true;
            break;
        case chunkType("gAMA"):
        case chunkType("sRGB"):
        case chunkType("iCCP"):
            // The general reader gives such pictures a colour space; leave them to it.
            return false;
        default:
            if (critical)
                return false;
        }
    }
    if (m_idat.isEmpty() || (m_format == QImage::Format_Indexed8 && m_colors.isEmpty()))
        return false;
    // An RGB picture with a transparent colour gains an alpha channel in the
    // general reader, which this decoder leaves to it.
    if (m_transparency && m_format == QImage::Format_RGB32)
        return false;
    // Four-byte pixels are written in the byte order of little-endian QRgb.
    if (m_channels > 1 && QSysInfo::ByteOrder != QSysInfo::LittleEndian)
        return false;
    // The general reader refuses pictures past its allocation limit; so must this decoder.
    const qsizetype limit = qsizetype(QImageReader::allocationLimit()) << 20;
    return limit <= 0 || qsizetype(m_height) * bytesPerLine() <= limit;
}

bool QPngDecoder::readHeader(const uchar* chunk, quint32 length)
{
    if (length != 13)
        return false;
    m_width = qFromBigEndian<quint32>(chunk);
    m_height = qFromBigEndian<quint32>(chunk + 4);
    const uchar depth = chunk[8], colorType = chunk[9];
    const bool plain = chunk[10] == 0 && chunk[11] == 0 && chunk[12] == 0; // deflate, adaptive filters, no interlace
    if (!plain || depth != 8 || m_width == 0 || m_height == 0 || m_width > largestSide || m_height > largestSide)
        return false;
    switch (colorType) {
    case 2:
        m_channels = 3;
        m_format = QImage::Format_RGB32;
        return true;
    case 3:
        m_channels = 1;
        m_format = QImage::Format_Indexed8;
        return true;
    case 6:
        m_channels = 4;
        m_format = QImage::Format_ARGB32;
        return true;
    default:
        return false;
    }
}

bool QPngDecoder::readPalette(const uchar* chunk, quint32 length)
{
    if (!m_colors.isEmpty() || length == 0 || length % 3 != 0 || length > 3 * 256)
        return false;
    // Only palette pictures use it; the others may carry one as a suggestion.
    if (m_format != QImage::Format_Indexed8)
        return true;
    m_colors.resize(length / 3);
    for (qsizetype i = 0; i < m_colors.size(); ++i, chunk += 3)
        m_colors[i] = qRgb(chunk[0], chunk[1], chunk[2]);
    return true;
}

bool QPngDecoder::readTransparency(const uchar* chunk, quint32 length)
{
    if (m_transparency)
        return false;
    m_transparency = true;
    switch (m_format) {
    case QImage::Format_Indexed8:
        // Alpha of the first palette entries; the rest stay opaque.
        if (m_colors.isEmpty() || length == 0 || length > quint32(m_colors.size()))
            return false;
        for (quint32 i = 0; i < length; ++i)
            m_colors[i] = qRgba(qRed(m_colors[i]), qGreen(m_colors[i]), qBlue(m_colors[i]), chunk[i]);
        return true;
    default:
        return true;
    }
}

qsizetype QPngDecoder::bytesPerLine() const
{
    const int depth = m_format == QImage::Format_Indexed8 ? 8 : 32;
    return ((qsizetype(m_width) * depth + 31) / 32) * 4;
}

QByteArrayView QPngDecoder::compressedRows(QByteArray& joined) const
{
    if (m_idat.size() == 1)
        return m_idat.first();
    for (const QByteArrayView& part : m_idat)
        joined.append(part);
    return joined;
}

bool QPngDecoder::decode(uchar* bits, qsizetype bytesPerLine) const
{
    if (m_format == QImage::Format_Invalid || bytesPerLine < this->bytesPerLine())
        return false;
    QByteArray joined;
    const QByteArrayView compressed = compressedRows(joined);

    const qsizetype rowLength = qsizetype(m_width) * m_channels;
    const qsizetype filteredLength = (rowLength + 1) * m_height;
    uchar* rows = filteredRows.reserve(size_t(filteredLength) + inflateSlack);
    if (!inflateZlib(reinterpret_cast<const uchar*>(compressed.data()), size_t(compressed.size()), rows, size_t(filteredLength)))
        return false;

    // Palette and RGBA rows are undone straight into the image, each against
    // the image row above; RGB rows in place, then widened to four bytes.
    const std::vector<uchar> blank(size_t(rowLength), 0);
    const uchar* above = blank.data();
    const qsizetype used = m_channels == 1 ? qsizetype(m_width) : qsizetype(m_width) * 4;
    for (quint32 y = 0; y < m_height; ++y, rows += rowLength + 1) {
        uchar* row = rows + 1;
        uchar* to = bits + y * bytesPerLine;
        uchar* undone = m_channels == 3 ? row : to;
        if (m_channels == 4)
            swapRedAndBlue(row, m_width);
        if (!unfilterRow(m_channels, rows[0], row, undone, above, rowLength))
            return false;
        if (m_channels == 3)
            copyRgb(row, to, m_width);
        std::memset(to + used, 0, size_t(bytesPerLine - used));
        above = undone;
    }
    // Only once every row is undone: the rows below were filtered against the indices as they are.
    if (m_channels == 1 && m_colors.size() < 256)
        for (quint32 y = 0; y < m_height; ++y)
            clampIndices(bits + y * bytesPerLine, m_width, int(m_colors.size()));
    return true;
}
