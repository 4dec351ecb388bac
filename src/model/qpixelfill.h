#pragma once

#include <QtGlobal>
#include <cstring>

// Small-block helpers of the pixel decoders. Packets of these codecs cover a
// handful of pixels each, where a call to memset or memcpy costs more than the
// work; with room to spare up to `limit`, they store whole 8-byte words and
// let the next packet overwrite what went past the end of this one.

namespace pixelFill {

inline void fill(uchar* out, const uchar* limit, uchar value, qsizetype count)
{
    if (count <= 16 && limit - out >= 16) {
        const quint64 word = quint64(value) * 0x0101010101010101ull;
        std::memcpy(out, &word, 8);
        std::memcpy(out + 8, &word, 8);
    } else {
        std::memset(out, value, size_t(count));
    }
}

/// Forward copy from `offset` bytes behind `out`: a source that overlaps the
/// target repeats, as a byte-by-byte copy would.
inline void copyBack(uchar* out, const uchar* limit, qsizetype offset, qsizetype count)
{
    const uchar* from = out - offset;
    if (offset >= 8 && limit - out >= count + 8) {
        // Each word is read after the words it depends on were written.
        for (qsizetype i = 0; i < count; i += 8)
            std::memcpy(out + i, from + i, 8);
    } else {
        for (qsizetype i = 0; i < count; ++i)
            out[i] = from[i];
    }
}

} // namespace pixelFill
