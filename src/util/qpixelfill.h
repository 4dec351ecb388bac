#pragma once

#include <QtGlobal>
#include <algorithm>
#include <cstring>

// Helpers of the pixel and deflate decoders. Packets of these codecs cover a handful of
// pixels each, where a call to memset or memcpy costs more than the work; with
// room to spare up to `limit`, they store whole 16-byte blocks and let the
// next packet overwrite what went past the end of this one. Decoders write
// rows end to end at the start of the image's buffer and spread them to their
// strides at the end.

namespace pixelFill {

constexpr qsizetype block = 16;
constexpr qsizetype wide = 4 * block;

using Block = uchar __attribute__((vector_size(16)));

/// Sixteen copies of a byte, made in registers (a byte stored and read back
/// as a wider value would stall the store forwarding on every packet).
inline Block broadcast(uchar value)
{
    const quint64 word = value * 0x0101010101010101ull;
    const quint64 pair[2] = { word, word };
    Block pattern;
    std::memcpy(&pattern, pair, block);
    return pattern;
}

/// Stores `wide` bytes of one value.
inline void fillWide(uchar* out, uchar value)
{
    const Block pattern = broadcast(value);
    std::memcpy(out, &pattern, block);
    std::memcpy(out + block, &pattern, block);
    std::memcpy(out + 2 * block, &pattern, block);
    std::memcpy(out + 3 * block, &pattern, block);
}

inline void fill(uchar* out, const uchar* limit, uchar value, qsizetype count)
{
    if (limit - out >= count + wide) {
        for (qsizetype i = 0; i < count; i += wide)
            fillWide(out + i, value);
    } else {
        std::memset(out, value, size_t(count));
    }
}

/// Forward copy from `offset` bytes behind `out`: a source that overlaps the
/// target repeats, as a byte-by-byte copy would. Blocks are only used when
/// each is read after the blocks it depends on were written.
inline void copyBack(uchar* out, const uchar* limit, qsizetype offset, qsizetype count)
{
    const uchar* from = out - offset;
    if (offset >= 2 * block && limit - out >= count + 2 * block) {
        for (qsizetype i = 0; i < count; i += 2 * block) {
            Block a, b;
            std::memcpy(&a, from + i, block);
            std::memcpy(&b, from + i + block, block);
            std::memcpy(out + i, &a, block);
            std::memcpy(out + i + block, &b, block);
        }
    } else if (offset >= block && limit - out >= count + block) {
        for (qsizetype i = 0; i < count; i += block)
            std::memcpy(out + i, from + i, block);
    } else if (offset >= 8 && limit - out >= count + 8) {
        for (qsizetype i = 0; i < count; i += 8)
            std::memcpy(out + i, from + i, 8);
    } else {
        for (qsizetype i = 0; i < count; ++i)
            out[i] = from[i];
    }
}

/// How many bytes of pixels a buffer of `size` bytes holds in rows of
/// `rowBytes` that start `pitch` bytes apart (the last row may be cut).
inline qsizetype rowCapacity(qsizetype rowBytes, qsizetype pitch, qsizetype size)
{
    const qsizetype rows = size / pitch;
    return rows * rowBytes + std::min(size - rows * pitch, rowBytes);
}

/**
 * Moves pixels decoded end to end at the start of `bits`, of which the first
 * `produced` are written, into rows `pitch` bytes apart, from the last row
 * backwards so that no row is overwritten before it has moved. Everything
 * that is not a decoded pixel ends up zero.
 */
inline void spreadRows(uchar* bits, qsizetype produced, qsizetype rowBytes, qsizetype pitch, qsizetype size)
{
    const qsizetype tight = rowCapacity(rowBytes, pitch, size);
    std::memset(bits + produced, 0, size_t(tight - produced));
    if (pitch == rowBytes) {
        std::memset(bits + tight, 0, size_t(size - tight));
        return;
    }
    const qsizetype rows = (tight + rowBytes - 1) / rowBytes;
    for (qsizetype r = rows - 1; r >= 0; --r) {
        const qsizetype length = std::min(rowBytes, tight - r * rowBytes);
        uchar* row = bits + r * pitch;
        std::memmove(row, bits + r * rowBytes, size_t(length));
        const qsizetype gapEnd = r == rows - 1 ? size : (r + 1) * pitch;
        std::memset(row + length, 0, size_t(gapEnd - r * pitch - length));
    }
}

} // namespace pixelFill
