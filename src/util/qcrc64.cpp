#include "util/qcrc64.h"

#include <QtEndian>
#include <cstring>

#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
#include <immintrin.h>
#define PF_CRC64_CLMUL 1
#endif

namespace {

constexpr quint64 polynomial = 0x95AC9329AC4BC9B5ull;
constexpr int slices = 16;
/// Inputs at least this long are hashed as three interleaved streams.
constexpr quint32 splitLength = 3 * 1024;

/**
 * slice[0] is the classic byte table. slice[k][b] is the effect of byte b
 * followed by k zero bytes, which lets sixteen input bytes be folded into the
 * CRC with sixteen independent look-ups instead of a chain of sixteen.
 * power[k] is x^(2^k) modulo the polynomial, in the reflected bit order.
 */
struct Crc64Tables
{
    quint64 slice[slices][256];
    quint64 power[64];

    Crc64Tables();
};

/// a * b modulo the polynomial; bit 63 holds x^0, as the register does.
quint64 multiply(quint64 a, quint64 b)
{
    quint64 product = 0;
    for (quint64 m = quint64(1) << 63; m != 0; m >>= 1) {
        if (a & m) {
            product ^= b;
            if ((a & (m - 1)) == 0)
                break;
        }
        b = (b & 1) ? (b >> 1) ^ polynomial : b >> 1;
    }
    return product;
}

Crc64Tables::Crc64Tables()
{
    for (int i = 0; i < 256; ++i) {
        quint64 crc = quint64(i);
        for (int bit = 0; bit < 8; ++bit) {
            const bool out = crc & 1;
            crc >>= 1;
            if (out)
                crc ^= polynomial;
        }
        slice[0][i] = crc;
    }
    for (int k = 1; k < slices; ++k)
        for (int i = 0; i < 256; ++i)
            slice[k][i] = (slice[k - 1][i] >> 8) ^ slice[0][slice[k - 1][i] & 0xFF];
    power[0] = quint64(1) << 62; // x^1
    for (int k = 1; k < 64; ++k)
        power[k] = multiply(power[k - 1], power[k - 1]);
}

const Crc64Tables& tables()
{
    static const Crc64Tables built;
    return built;
}

inline quint64 load64(const uchar* p)
{
    quint64 value;
    std::memcpy(&value, p, sizeof value);
    return qFromLittleEndian(value);
}

/// Folds sixteen bytes into a register.
inline quint64 fold16(const Crc64Tables& t, quint64 crc, const uchar* p)
{
    const quint64 a = load64(p) ^ crc;
    const quint64 b = load64(p + 8);
    return t.slice[15][a & 0xFF] ^ t.slice[14][(a >> 8) & 0xFF] ^ t.slice[13][(a >> 16) & 0xFF]
        ^ t.slice[12][(a >> 24) & 0xFF] ^ t.slice[11][(a >> 32) & 0xFF] ^ t.slice[10][(a >> 40) & 0xFF]
        ^ t.slice[9][(a >> 48) & 0xFF] ^ t.slice[8][a >> 56] ^ t.slice[7][b & 0xFF]
        ^ t.slice[6][(b >> 8) & 0xFF] ^ t.slice[5][(b >> 16) & 0xFF] ^ t.slice[4][(b >> 24) & 0xFF]
        ^ t.slice[3][(b >> 32) & 0xFF] ^ t.slice[2][(b >> 40) & 0xFF] ^ t.slice[1][(b >> 48) & 0xFF]
        ^ t.slice[0][b >> 56];
}

quint64 update(const Crc64Tables& t, quint64 crc, const uchar* p, quint32 length)
{
    for (; length >= 16; length -= 16, p += 16)
        crc = fold16(t, crc, p);
    for (; length > 0; --length, ++p)
        crc = t.slice[0][(crc ^ *p) & 0xFF] ^ (crc >> 8);
    return crc;
}

/// The register `crc` moved on over `length` zero bytes: crc * x^(8 * length).
quint64 shift(const Crc64Tables& t, quint64 crc, quint32 length)
{
    quint64 bits = quint64(length) * 8;
    for (int k = 0; bits != 0; bits >>= 1, ++k)
        if (bits & 1)
            crc = multiply(t.power[k], crc);
    return crc;
}

#ifdef PF_CRC64_CLMUL

/// x^n modulo the polynomial, in the register's bit order.
quint64 xPower(const Crc64Tables& t, quint32 n)
{
    quint64 result = quint64(1) << 63; // x^0
    for (int k = 0; n != 0; n >>= 1, ++k)
        if (n & 1)
            result = multiply(t.power[k], result);
    return result;
}

/// Inputs at least this long go through carry-less multiplication where the processor has it.
constexpr quint32 clmulLength = 64;

/**
 * Folding by carry-less multiplication. Sixteen input bytes loaded little-endian
 * are a polynomial of degree below 128 whose bit k is the coefficient of
 * x^(127-k), the register's own order widened to 128 bits; the low half holds
 * the higher degrees. A carry-less product of two 64-bit values in this order
 * comes out multiplied by x, so the constants are x^(n-1) for a move by x^n.
 * Moving a block 16 bytes on is lo * x^192 + hi * x^128, two products whose sum
 * stays below degree 128 and is XORed onto the next block. Four blocks are
 * folded side by side, 64 bytes apart, since each product waits several cycles.
 */
struct ClmulConstants
{
    __m128i by16; ///< x^191 and x^127: a block moved on by 16 bytes
    __m128i by64; ///< x^575 and x^511: a block moved on by 64 bytes

    explicit ClmulConstants(const Crc64Tables& t)
        : by16(_mm_set_epi64x(qint64(xPower(t, 127)), qint64(xPower(t, 191))))
        , by64(_mm_set_epi64x(qint64(xPower(t, 511)), qint64(xPower(t, 575))))
    {
    }
};

__attribute__((target("pclmul,sse2"))) inline __m128i fold(__m128i block, __m128i constants)
{
    return _mm_xor_si128(
        _mm_clmulepi64_si128(block, constants, 0x00), _mm_clmulepi64_si128(block, constants, 0x11));
}

/// Folds the blocks left after the wide loops, sixteen bytes at a time, then the last bytes.
__attribute__((target("pclmul,sse2"))) quint64 finish(const Crc64Tables& t, __m128i x, const uchar* p,
                                                      quint32 length)
{
    static const ClmulConstants k(t);
    for (; length >= 16; length -= 16, p += 16)
        x = _mm_xor_si128(fold(x, k.by16), _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)));
    // What is left of the folding is a message of sixteen bytes whose CRC from a
    // zero register is the CRC so far; the last bytes follow it as usual.
    uchar rest[16];
    _mm_storeu_si128(reinterpret_cast<__m128i*>(rest), x);
    return update(t, update(t, 0, rest, 16), p, length);
}

__attribute__((target("pclmul,sse2"))) quint64 clmulCrc(const Crc64Tables& t, const uchar* p, quint32 length)
{
    static const ClmulConstants k(t);
    auto load = [](const uchar* at) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at)); };

    // The initial register goes onto the first eight bytes, as in the table loop.
    __m128i a = _mm_xor_si128(load(p), _mm_set_epi64x(0, -1));
    __m128i b = load(p + 16);
    __m128i c = load(p + 32);
    __m128i d = load(p + 48);
    p += 64;
    length -= 64;
    for (; length >= 64; length -= 64, p += 64) {
        a = _mm_xor_si128(fold(a, k.by64), load(p));
        b = _mm_xor_si128(fold(b, k.by64), load(p + 16));
        c = _mm_xor_si128(fold(c, k.by64), load(p + 32));
        d = _mm_xor_si128(fold(d, k.by64), load(p + 48));
    }
    __m128i x = _mm_xor_si128(fold(a, k.by16), b);
    x = _mm_xor_si128(fold(x, k.by16), c);
    x = _mm_xor_si128(fold(x, k.by16), d);
    return finish(t, x, p, length);
}

/// Inputs at least this long go through the 256-bit multiplications where the processor has them.
constexpr quint32 wideClmulLength = 256;

#define PF_WIDE_TARGET __attribute__((target("avx2,vpclmulqdq,pclmul")))

PF_WIDE_TARGET inline __m256i load256(const uchar* at)
{
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(at));
}

PF_WIDE_TARGET inline __m256i fold256(__m256i blocks, __m256i constants)
{
    return _mm256_xor_si256(_mm256_clmulepi64_epi128(blocks, constants, 0x00),
                            _mm256_clmulepi64_epi128(blocks, constants, 0x11));
}

/**
 * The same folding with 256-bit registers, two blocks side by side in each:
 * four registers take 128 bytes a round, each moved on by x^1024. The eight
 * blocks they end with are then folded one after the other, in input order.
 */
PF_WIDE_TARGET quint64 wideClmulCrc(const Crc64Tables& t, const uchar* p, quint32 length)
{
    static const ClmulConstants k(t);
    static const __m256i by128 =
        _mm256_broadcastsi128_si256(_mm_set_epi64x(qint64(xPower(t, 1023)), qint64(xPower(t, 1087))));

    __m256i a = _mm256_xor_si256(load256(p), _mm256_set_epi64x(0, 0, 0, -1));
    __m256i b = load256(p + 32);
    __m256i c = load256(p + 64);
    __m256i d = load256(p + 96);
    p += 128;
    length -= 128;
    for (; length >= 128; length -= 128, p += 128) {
        a = _mm256_xor_si256(fold256(a, by128), load256(p));
        b = _mm256_xor_si256(fold256(b, by128), load256(p + 32));
        c = _mm256_xor_si256(fold256(c, by128), load256(p + 64));
        d = _mm256_xor_si256(fold256(d, by128), load256(p + 96));
    }
    __m128i x = _mm256_castsi256_si128(a);
    x = _mm_xor_si128(fold(x, k.by16), _mm256_extracti128_si256(a, 1));
    for (const __m256i pair : {b, c, d}) {
        x = _mm_xor_si128(fold(x, k.by16), _mm256_castsi256_si128(pair));
        x = _mm_xor_si128(fold(x, k.by16), _mm256_extracti128_si256(pair, 1));
    }
    return finish(t, x, p, length);
}

bool hasWideClmul()
{
    static const bool has = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("vpclmulqdq");
    return has;
}

bool hasClmul()
{
    static const bool has = __builtin_cpu_supports("pclmul");
    return has;
}

#endif

} // namespace

quint64 crc64(const char* data, quint32 length)
{
#ifdef PF_CRC64_CLMUL
    if (length >= wideClmulLength && hasWideClmul())
        return wideClmulCrc(tables(), reinterpret_cast<const uchar*>(data), length);
    if (length >= clmulLength && hasClmul())
        return clmulCrc(tables(), reinterpret_cast<const uchar*>(data), length);
#endif
    return crc64Portable(data, length);
}

quint64 crc64Portable(const char* data, quint32 length)
{
    const Crc64Tables& t = tables();
    const uchar* p = reinterpret_cast<const uchar*>(data);
    if (length < splitLength)
        return update(t, ~quint64(0), p, length);

    // One register waits for each table look-up of the one before; three
    // registers over three parts keep the loads busy. The CRC is linear, so
    // the second and third parts start from zero and are moved into place
    // afterwards: crc(AB) = crc(A) * x^(8|B|) + crc_from_zero(B).
    const quint32 part = (length / 3) & ~quint32(15);
    const uchar* second = p + part;
    const uchar* third = p + 2 * part;
    quint64 a = ~quint64(0), b = 0, c = 0;
    for (quint32 done = 0; done < part; done += 16) {
        a = fold16(t, a, p + done);
        b = fold16(t, b, second + done);
        c = fold16(t, c, third + done);
    }
    c = update(t, c, third + part, length - 3 * part);
    return shift(t, shift(t, a, part) ^ b, length - 2 * part) ^ c;
}
