#include "qpngfilters.h"

#include <cstdlib>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace {

inline quint32 load32(const uchar* p)
{
    quint32 value;
    std::memcpy(&value, p, sizeof value);
    return value;
}

inline void store32(uchar* p, quint32 value)
{
    std::memcpy(p, &value, sizeof value);
}

/// Four bytewise sums modulo 256 in one word: the top bits are added apart so no carry crosses a byte.
inline quint32 addBytes(quint32 x, quint32 y)
{
    return ((x & 0x7F7F7F7Fu) + (y & 0x7F7F7F7Fu)) ^ ((x ^ y) & 0x80808080u);
}

/// Four bytewise floor averages in one word.
inline quint32 averageBytes(quint32 x, quint32 y)
{
    return (x & y) + (((x ^ y) & 0xFEFEFEFEu) >> 1);
}

/**
 * The Paeth predictor: whichever of left, above and above-left is closest to
 * left + above - above-left, preferring them in that order on ties. Worked out
 * by cases, that is the smaller neighbour when above-left lies high enough
 * (the larger one is at most 3 * aboveLeft - left - above), the larger when it
 * lies low enough (that threshold at most the smaller one), else above-left.
 * The threshold depends on left only through one sum, which keeps the chain
 * from one pixel to the next short.
 */
inline int paeth(int left, int above, int aboveLeft)
{
    const int threshold = 3 * aboveLeft - left - above;
    const int low = qMin(left, above), high = qMax(left, above);
    if (high <= threshold)
        return low;
    return threshold <= low ? high : aboveLeft;
}

void unfilterUp(const uchar* in, uchar* out, const uchar* above, qsizetype length)
{
    qsizetype i = 0;
#ifdef __SSE2__
    for (; i + 16 <= length; i += 16) {
        const __m128i row = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in + i));
        const __m128i up = _mm_loadu_si128(reinterpret_cast<const __m128i*>(above + i));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + i), _mm_add_epi8(row, up));
    }
#endif
    for (; i < length; ++i)
        out[i] = uchar(in[i] + above[i]);
}

/// Sub, Average and Paeth for any pixel size, a byte at a time.
bool unfilterBytes(int channels, uchar filter, const uchar* in, uchar* out, const uchar* above, qsizetype length)
{
    const qsizetype first = qMin<qsizetype>(channels, length);
    switch (filter) {
    case 1:
        std::memmove(out, in, size_t(first));
        for (qsizetype i = channels; i < length; ++i)
            out[i] = uchar(in[i] + out[i - channels]);
        return true;
    case 3:
        for (qsizetype i = 0; i < first; ++i)
            out[i] = uchar(in[i] + (above[i] >> 1));
        for (qsizetype i = channels; i < length; ++i)
            out[i] = uchar(in[i] + ((out[i - channels] + above[i]) >> 1));
        return true;
    case 4:
        for (qsizetype i = 0; i < first; ++i)
            out[i] = uchar(in[i] + above[i]);
        for (qsizetype i = channels; i < length; ++i)
            out[i] = uchar(in[i] + paeth(out[i - channels], above[i], above[i - channels]));
        return true;
    default:
        return false;
    }
}

/// Sub and Average for four-byte pixels, a pixel at a time.
void unfilterPixels(uchar filter, const uchar* in, uchar* out, const uchar* above, qsizetype length)
{
    quint32 left = 0;
    for (qsizetype i = 0; i + 4 <= length; i += 4) {
        const quint32 predicted = filter == 1 ? left : averageBytes(left, load32(above + i));
        left = addBytes(load32(in + i), predicted);
        store32(out + i, left);
    }
}

#ifdef __SSE2__
/// Paeth for four-byte pixels, the four channels of a pixel side by side in 16-bit lanes.
void unfilterPaethPixels(const uchar* in, uchar* out, const uchar* above, qsizetype length)
{
    const __m128i zero = _mm_setzero_si128();
    const __m128i lowBytes = _mm_set1_epi16(0xFF);
    auto widen = [&](const uchar* p) { return _mm_unpacklo_epi8(_mm_cvtsi32_si128(int(load32(p))), zero); };
    auto select = [](__m128i mask, __m128i yes, __m128i no) {
        return _mm_or_si128(_mm_and_si128(mask, yes), _mm_andnot_si128(mask, no));
    };
    __m128i left = zero, aboveLeft = zero;
    for (qsizetype i = 0; i + 4 <= length; i += 4) {
        const __m128i up = widen(above + i);
        const __m128i threshold =
            _mm_sub_epi16(_mm_add_epi16(aboveLeft, _mm_add_epi16(aboveLeft, aboveLeft)), _mm_add_epi16(left, up));
        const __m128i low = _mm_min_epi16(left, up);
        const __m128i high = _mm_max_epi16(left, up);
        const __m128i lowOrAboveLeft = select(_mm_cmpgt_epi16(high, threshold), aboveLeft, low);
        const __m128i predicted = select(_mm_cmpgt_epi16(threshold, low), lowOrAboveLeft, high);
        left = _mm_and_si128(_mm_add_epi16(widen(in + i), predicted), lowBytes);
        store32(out + i, quint32(_mm_cvtsi128_si32(_mm_packus_epi16(left, left))));
        aboveLeft = up;
    }
}
#endif

} // namespace

bool unfilterRow(int channels, uchar filter, const uchar* in, uchar* out, const uchar* above, qsizetype length)
{
    switch (filter) {
    case 0:
        if (in != out)
            std::memcpy(out, in, size_t(length));
        return true;
    case 2:
        unfilterUp(in, out, above, length);
        return true;
    case 1:
    case 3:
        if (channels != 4)
            break;
        unfilterPixels(filter, in, out, above, length);
        return true;
#ifdef __SSE2__
    case 4:
        if (channels != 4)
            break;
        unfilterPaethPixels(in, out, above, length);
        return true;
#endif
    default:
        break;
    }
    return unfilterBytes(channels, filter, in, out, above, length);
}

void swapRedAndBlue(uchar* row, quint32 width)
{
    quint32 x = 0;
#ifdef __SSE2__
    const __m128i greenAndAlpha = _mm_set1_epi32(int(0xFF00FF00u));
    const __m128i low = _mm_set1_epi32(0xFF);
    for (; x + 4 <= width; x += 4, row += 16) {
        const __m128i pixels = _mm_loadu_si128(reinterpret_cast<const __m128i*>(row));
        const __m128i swapped = _mm_or_si128(
            _mm_and_si128(pixels, greenAndAlpha),
            _mm_or_si128(_mm_and_si128(_mm_srli_epi32(pixels, 16), low), _mm_slli_epi32(_mm_and_si128(pixels, low), 16)));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(row), swapped);
    }
#endif
    for (; x < width; ++x, row += 4) {
        const quint32 pixel = load32(row);
        store32(row, (pixel & 0xFF00FF00u) | ((pixel >> 16) & 0xFFu) | ((pixel & 0xFFu) << 16));
    }
}
