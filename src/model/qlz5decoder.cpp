#include "util/qpixelfill.h"
#include "model/qspritecodecs.h"

#include <algorithm>
#include <cstring>

namespace {

/// Decodes an LZ5 stream into `size` tight bytes; returns how many it produced.
qsizetype decodeTight(const uchar* in, const uchar* const end, uchar* const dst, const qsizetype size)
{
    uchar* out = dst;
    uchar* const outEnd = dst + size;
    unsigned flags = 0;
    int packet = 8; // packets described by the current flag byte so far
    int shortCount = 0; // short LZ packets read in the current group of four
    unsigned accumulated = 0; // offset bits of the group's fourth packet
    while (in < end && out < outEnd) {
        if (packet == 8) {
            flags = *in++;
            packet = 0;
            if (in == end)
                break;
        }
        const bool isLz = flags & (1u << packet++);
        const unsigned b = *in++;
        if (!isLz) {
            qsizetype count = b >> 5;
            if (count == 0) {
                if (in == end)
                    break;
                count = qsizetype(*in++) + 8;
            }
            count = std::min<qsizetype>(count, outEnd - out);
            pixelFill::fill(out, outEnd, uchar(b & 0x1F), count);
            out += count;
            continue;
        }
        const unsigned top = b >> 6;
        const unsigned low = b & 0x3F;
        qsizetype offset;
        qsizetype length;
        if (low == 0) {
            if (end - in < 2)
                break;
            offset = qsizetype((top << 8) | in[0]) + 1;
            length = qsizetype(in[1]) + 3;
            in += 2;
        } else {
            length = qsizetype(low) + 1;
            if (shortCount < 3) {
                if (in == end)
                    break;
                offset = qsizetype(*in++) + 1;
                accumulated |= top << (6 - 2 * shortCount);
                ++shortCount;
            } else {
                offset = qsizetype(top | accumulated) + 1;
                shortCount = 0;
                accumulated = 0;
            }
        }
        // A copy from before the first pixel means a damaged stream: stop.
        if (offset > out - dst)
            break;
        length = std::min<qsizetype>(length, outEnd - out);
        pixelFill::copyBack(out, outEnd, offset, length);
        out += length;
    }
    return out - dst;
}

} // namespace

void decodeLZ5(const QByteArray& data, const QPixelBuffer& target)
{
    const qsizetype size = target.size();
    if (size <= 0 || target.width <= 0 || target.bytesPerLine < target.width)
        return;
    const uchar* in = reinterpret_cast<const uchar*>(data.constData());
    const qsizetype produced = decodeTight(in, in + data.size(), target.bits,
                                           pixelFill::rowCapacity(target.width, target.bytesPerLine, size));
    pixelFill::spreadRows(target.bits, produced, target.width, target.bytesPerLine, size);
}

QImage loadLZ5(int width, int height, const QByteArray& data)
{
    if (width <= 0 || height <= 0)
        return QImage();
    QImage image(width, height, QImage::Format_Indexed8);
    decodeLZ5(data, QPixelBuffer::of(image));
    return image;
}
