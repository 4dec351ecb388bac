#include "util/qadler32.h"

#include <algorithm>
#include <cstdint>
#include <zlib.h>

#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
#include <immintrin.h>
#define PF_ADLER_AVX2 1
#endif

namespace {

#ifdef PF_ADLER_AVX2

__attribute__((target("avx2"))) inline uint64_t sumLanes64(__m256i v)
{
    const __m128i half = _mm_add_epi64(_mm256_castsi256_si128(v), _mm256_extracti128_si256(v, 1));
    return uint64_t(_mm_cvtsi128_si64(half)) + uint64_t(_mm_extract_epi64(half, 1));
}

/**
 * Adler-32 thirty-two bytes at a time. Over a stretch of n bytes that starts
 * with sums s1 and s2, s1 gains every byte and s2 gains n * s1 plus each byte
 * times the number of bytes from it to the end. Per block of 32, that count is
 * 32 - i within the block (a weighted sum) plus 32 for every later block (the
 * byte sums of the blocks before each block, added up). Stretches are short
 * enough for the lanes not to overflow before the sums are reduced.
 */
__attribute__((target("avx2"))) uint32_t wideAdler32(uint32_t adler, const uint8_t* p, size_t length)
{
    constexpr uint32_t base = 65521;
    constexpr size_t blocksPerStretch = 173; // 5536 bytes, as far as 32-bit weighted lanes stay safe
    uint64_t s1 = adler & 0xFFFF, s2 = adler >> 16;
    const __m256i zero = _mm256_setzero_si256();
    const __m256i weights = _mm256_setr_epi8(32, 31, 30, 29, 28, 27, 26, 25, 24, 23, 22, 21, 20, 19, 18, 17, 16,
                                             15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1);
    const __m256i ones = _mm256_set1_epi16(1);
    while (length >= 32) {
        const size_t blocks = std::min(length / 32, blocksPerStretch);
        length -= blocks * 32;
        s2 += s1 * 32 * blocks;
        __m256i sums = zero, earlier = zero, weighted = zero;
        for (size_t i = 0; i < blocks; ++i, p += 32) {
            const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
            earlier = _mm256_add_epi64(earlier, sums);
            sums = _mm256_add_epi64(sums, _mm256_sad_epu8(bytes, zero));
            weighted = _mm256_add_epi32(weighted, _mm256_madd_epi16(_mm256_maddubs_epi16(bytes, weights), ones));
        }
        const __m256i weighted64 = _mm256_add_epi64(_mm256_unpacklo_epi32(weighted, zero),
                                                    _mm256_unpackhi_epi32(weighted, zero));
        s1 = (s1 + sumLanes64(sums)) % base;
        s2 = (s2 + 32 * sumLanes64(earlier) + sumLanes64(weighted64)) % base;
    }
    for (; length > 0; --length, ++p) {
        s1 += *p;
        s2 += s1;
    }
    return uint32_t((s2 % base) << 16 | (s1 % base));
}

bool hasAvx2()
{
    static const bool has = __builtin_cpu_supports("avx2");
    return has;
}

#endif

} // namespace

quint32 adler32Of(const uchar* data, size_t length)
{
#ifdef PF_ADLER_AVX2
    if (hasAvx2())
        return wideAdler32(1, data, length);
#endif
    return quint32(adler32_z(1, data, length));
}

