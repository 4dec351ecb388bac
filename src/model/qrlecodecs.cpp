#include "model/qspritecodecs.h"

#include "formats/qimagefiles.h"
#include "util/qpixelfill.h"

#include <QtEndian>

namespace {

inline bool isRle8Marker(uchar b)
{
    return (b & 0xC0) == 0x40;
}

/// Decodes RLE8 into `size` tight bytes; returns how many it produced.
qsizetype decodeRle8Tight(const uchar* in, const uchar* const end, uchar* const dst, const qsizetype size)
{
    uchar* out = dst;
    uchar* const outEnd = dst + size;
    // While a whole run fits, a packet stores 64 bytes at once (a run is at
    // most 63 pixels; the next packet overwrites the excess), and single
    // pixels are taken up to eight at a time, as far as the next run marker.
    while (end - in >= 8 && outEnd - out >= pixelFill::wide) {
        quint64 word;
        std::memcpy(&word, in, 8);
        word = qFromLittleEndian(word);
        const quint64 markers = word & ~(word >> 1) & 0x4040404040404040ull;
        if (markers & 0x40) {
            pixelFill::fillWide(out, uchar(word >> 8));
            out += word & 0x3F;
            in += 2;
        } else {
            const int pixels = markers ? int(qCountTrailingZeroBits(markers) >> 3) : 8;
            std::memcpy(out, in, 8);
            out += pixels;
            in += pixels;
        }
    }
    while (end - in >= 2 && out < outEnd) {
        const uchar b = in[0];
        const bool run = isRle8Marker(b);
        const uchar value = run ? in[1] : b;
        const qsizetype count = std::min<qsizetype>(run ? b & 0x3F : 1, outEnd - out);
        in += run ? 2 : 1;
        std::memset(out, value, size_t(count));
        out += count;
    }
    // A last byte is a pixel, unless it is a run marker without its value.
    if (in < end && out < outEnd && !isRle8Marker(*in))
        *out++ = *in;
    return out - dst;
}

/// Decodes RLE5 into `size` tight bytes; returns how many it produced.
qsizetype decodeRle5Tight(const uchar* in, const uchar* const end, uchar* const dst, const qsizetype size)
{
    uchar* out = dst;
    uchar* const outEnd = dst + size;
    while (end - in >= 2 && out < outEnd) {
        const qsizetype runLength = qsizetype(in[0]) + 1;
        const uchar control = in[1];
        in += 2;
        uchar colour = 0;
        if (control & 0x80) {
            if (in == end)
                break;
            colour = *in++ & 0x1F;
        }
        qsizetype count = std::min(runLength, qsizetype(outEnd - out));
        pixelFill::fill(out, outEnd, colour, count);
        out += count;
        for (int n = control & 0x1F; n > 0 && in < end && out < outEnd; --n) {
            const uchar p = *in++;
            count = std::min(qsizetype(p >> 5) + 1, qsizetype(outEnd - out));
            pixelFill::fill(out, outEnd, p & 0x1F, count);
            out += count;
        }
    }
    return out - dst;
}

} // namespace

void decodeRLE8(const QByteArray& data, QImage::Format format, const QPixelBuffer& target)
{
    const qsizetype rowBytes = qsizetype(formatToDepth(format)) * target.width / 8;
    const qsizetype size = target.size();
    if (size <= 0 || rowBytes <= 0 || rowBytes > target.bytesPerLine)
        return;
    // The padding count is kept in a byte, as the engine's own tools do; for
    // indexed images it is the 0 to 3 bytes that align a row.
    const qsizetype pitch = rowBytes + ((target.bytesPerLine - rowBytes) & 0xFF);
    const uchar* in = reinterpret_cast<const uchar*>(data.constData());
    const qsizetype produced = decodeRle8Tight(in, in + data.size(), target.bits,
                                               pixelFill::rowCapacity(rowBytes, pitch, size));
    pixelFill::spreadRows(target.bits, produced, rowBytes, pitch, size);
}

QImage loadRLE8(int width, int height, QImage::Format format, const QByteArray& data)
{
    if (width <= 0 || height <= 0 || formatToDepth(format) == 0)
        return QImage();
    QImage image(width, height, format);
    decodeRLE8(data, format, QPixelBuffer::of(image));
    return image;
}

QByteArray saveRLE8(const QImage& image)
{
    const qsizetype rowBytes = qsizetype(formatToDepth(image.format()) / 8) * image.width();
    if (image.isNull() || rowBytes <= 0)
        return QByteArray();

    // Runs cross row ends, so the rows are encoded as one stream.
    QByteArray tight;
    const uchar* src = image.constBits();
    if (rowBytes < image.bytesPerLine()) {
        tight.resize(rowBytes * image.height());
        for (int y = 0; y < image.height(); ++y)
            std::memcpy(tight.data() + y * rowBytes, image.constScanLine(y), size_t(rowBytes));
        src = reinterpret_cast<const uchar*>(tight.constData());
    }
    const qsizetype total = rowBytes * image.height();

    QByteArray out(total * 2, Qt::Uninitialized);
    uchar* o = reinterpret_cast<uchar*>(out.data());
    for (qsizetype pos = 0; pos < total;) {
        const uchar b = src[pos];
        const qsizetype limit = std::min<qsizetype>(total - pos, 63);
        qsizetype run = 1;
        while (run < limit && src[pos + run] == b)
            ++run;
        // A lone byte that reads as a run marker goes out as a run of one.
        if (run > 1 || isRle8Marker(b))
            *o++ = uchar(0x40 + run);
        *o++ = b;
        pos += run;
    }
    out.truncate(o - reinterpret_cast<uchar*>(out.data()));
    return out;
}

void decodeRLE5(const QByteArray& data, const QPixelBuffer& target)
{
    const qsizetype size = target.size();
    if (size <= 0 || target.width <= 0)
        return;
    const uchar* in = reinterpret_cast<const uchar*>(data.constData());
    const qsizetype produced = decodeRle5Tight(in, in + data.size(), target.bits,
                                               pixelFill::rowCapacity(target.width, target.bytesPerLine, size));
    pixelFill::spreadRows(target.bits, produced, target.width, target.bytesPerLine, size);
}

QImage loadRLE5(int width, int height, const QByteArray& data)
{
    if (width <= 0 || height <= 0)
        return QImage();
    QImage image(width, height, QImage::Format_Indexed8);
    decodeRLE5(data, QPixelBuffer::of(image));
    return image;
}
