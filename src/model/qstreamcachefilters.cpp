#include "model/qstreamcachefilters.h"

#include "formats/qimagefiles.h"
#include "formats/qpcx.h"
#include "formats/qpngdecoder.h"
#include "model/qspritecodecs.h"
#include "util/qcrc64.h"

#include <cstring>

namespace {

/// The scan lines of a decoded image, row padding zeroed: image readers
/// leave it as the allocator gave it, and equal pictures must give equal bytes.
QByteArray bitsOf(const QImage& image)
{
    QByteArray out(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
    const qsizetype used = (qsizetype(image.width()) * image.depth() + 7) / 8;
    const qsizetype padding = image.bytesPerLine() - used;
    if (padding > 0)
        for (qsizetype y = 0; y < image.height(); ++y)
            std::memset(out.data() + y * image.bytesPerLine() + used, 0, size_t(padding));
    return out;
}

/// Whether every row's padding is already zero, as the SFF decoders leave it (a few bytes a row to look at).
bool paddingIsZero(const QImage& image)
{
    const qsizetype used = (qsizetype(image.width()) * image.depth() + 7) / 8;
    const qsizetype stride = image.bytesPerLine();
    const qsizetype height = image.height();
    const uchar* bits = image.constBits();
    for (qsizetype y = 0; y < height; ++y)
        for (qsizetype x = used; x < stride; ++x)
            if (bits[y * stride + x] != 0)
                return false;
    return true;
}

} // namespace

quint64 imageChecksum(const QImage& image)
{
    // Rows whose padding is zero are hashed where they are, with no copy into
    // fresh memory.
    if (!image.isNull() && paddingIsZero(image))
        return crc64(reinterpret_cast<const char*>(image.constBits()), quint32(image.sizeInBytes()));
    return crc64(bitsOf(image));
}

quint64 QStreamCacheFilter::checksum(const QByteArray& data, void* param)
{
    return crc64(process(data, param));
}

QByteArray QPCXCacheFilter::process(const QByteArray& data, void*)
{
    return bitsOf(loadPCX(data));
}

quint64 QPCXCacheFilter::checksum(const QByteArray& data, void*)
{
    return imageChecksum(loadPCX(data, m_pixels, false));
}

QImage::Format QPixelStreamFilter::formatOf(const QStreamImageParam&) const
{
    return QImage::Format_Indexed8;
}

QPixelBuffer QPixelStreamFilter::layoutFor(const void* param, QImage::Format& format) const
{
    const auto* image = static_cast<const QStreamImageParam*>(param);
    format = image ? formatOf(*image) : QImage::Format_Invalid;
    if (!image || image->width == 0 || image->height == 0 || format == QImage::Format_Invalid)
        return QPixelBuffer();
    QPixelBuffer buffer;
    buffer.width = image->width;
    buffer.height = image->height;
    buffer.bytesPerLine = QPixelBuffer::strideFor(buffer.width, QImage::toPixelFormat(format).bitsPerPixel());
    return buffer;
}

QByteArray QPixelStreamFilter::process(const QByteArray& data, void* param)
{
    QImage::Format format;
    QPixelBuffer buffer = layoutFor(param, format);
    if (buffer.size() == 0)
        return QByteArray();
    QByteArray out(buffer.size(), Qt::Uninitialized);
    buffer.bits = reinterpret_cast<uchar*>(out.data());
    decode(data, format, buffer);
    return out;
}

quint64 QPixelStreamFilter::checksum(const QByteArray& data, void* param)
{
    QImage::Format format;
    QPixelBuffer buffer = layoutFor(param, format);
    if (buffer.size() == 0)
        return crc64(QByteArray());
    buffer.bits = m_pixels.reserve(size_t(buffer.size()));
    decode(data, format, buffer);
    return crc64(reinterpret_cast<const char*>(buffer.bits), quint32(buffer.size()));
}

QImage::Format QRLE8CacheFilter::formatOf(const QStreamImageParam& image) const
{
    return formatToDepth(image.format) == 0 ? QImage::Format_Invalid : image.format;
}

void QRLE8CacheFilter::decode(const QByteArray& data, QImage::Format format, const QPixelBuffer& target) const
{
    decodeRLE8(data, format, target);
}

void QRLE5CacheFilter::decode(const QByteArray& data, QImage::Format, const QPixelBuffer& target) const
{
    decodeRLE5(data, target);
}

void QLZ5CacheFilter::decode(const QByteArray& data, QImage::Format, const QPixelBuffer& target) const
{
    decodeLZ5(data, target);
}

QByteArray QPNGCacheFilter::process(const QByteArray& data, void*)
{
    return bitsOf(loadPNG(data));
}

quint64 QPNGCacheFilter::checksum(const QByteArray& data, void*)
{
    return hashPNG(data, m_pixels).crc;
}

QPngHash hashPNG(const QByteArray& data, QScratchBuffer& pixels)
{
    // Opening a file hashes every picture: decoding into memory kept from the
    // picture before saves allocating, and touching fresh pages, for each one.
    QPngHash hash;
    QPngDecoder decoder;
    if (decoder.open(data)) {
        const qsizetype length = decoder.bytesPerLine() * decoder.size().height();
        uchar* bits = pixels.reserve(size_t(length));
        if (decoder.decode(bits, decoder.bytesPerLine())) {
            hash.crc = crc64(reinterpret_cast<const char*>(bits), quint32(length));
            hash.size = decoder.size();
            hash.format = decoder.format();
            return hash;
        }
    }
    const QImage image = loadPNG(data, &hash.fault);
    hash.crc = imageChecksum(image);
    hash.size = image.size();
    hash.format = image.format();
    return hash;
}
