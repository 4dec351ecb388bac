#include "model/qspritecodecs.h"

#include "formats/qimagefiles.h"
#include "model/qpixelrowwriter.h"

namespace {

inline bool isRle8Marker(uchar b)
{
    return (b & 0xC0) == 0x40;
}

} // namespace

void decodeRLE8(const QByteArray& data, QImage::Format format, const QPixelBuffer& target)
{
    const qsizetype rowBytes = qsizetype(formatToDepth(format)) * target.width / 8;
    if (target.size() <= 0 || rowBytes <= 0)
        return;
    // The padding count is kept in a byte, as the engine's own tools do; for
    // indexed images it is the 0 to 3 bytes that align a row.
    const qsizetype padding = (target.bytesPerLine - rowBytes) & 0xFF;
    QPixelRowWriter writer(target, rowBytes, padding);
    const uchar* in = reinterpret_cast<const uchar*>(data.constData());
    const uchar* const end = in + data.size();
    while (in < end) {
        const uchar b = *in++;
        if (isRle8Marker(b)) {
            if (in == end || !writer.fill(*in++, b & 0x3F))
                break;
        } else if (!writer.put(b)) {
            break;
        }
    }
    writer.finish();
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
    if (target.size() <= 0 || target.width <= 0)
        return;
    QPixelRowWriter writer(target, target.width, target.bytesPerLine - target.width);
    const uchar* in = reinterpret_cast<const uchar*>(data.constData());
    const uchar* const end = in + data.size();
    while (end - in >= 2) {
        const qsizetype runLength = qsizetype(in[0]) + 1;
        const uchar control = in[1];
        in += 2;
        uchar colour = 0;
        if (control & 0x80) {
            if (in == end)
                break;
            colour = *in++ & 0x1F;
        }
        if (!writer.fill(colour, runLength))
            break;
        bool full = false;
        for (int n = control & 0x1F; n > 0 && in < end && !full; --n) {
            const uchar p = *in++;
            full = !writer.fill(p & 0x1F, (p >> 5) + 1);
        }
        if (full)
            break;
    }
    writer.finish();
}

QImage loadRLE5(int width, int height, const QByteArray& data)
{
    if (width <= 0 || height <= 0)
        return QImage();
    QImage image(width, height, QImage::Format_Indexed8);
    decodeRLE5(data, QPixelBuffer::of(image));
    return image;
}
