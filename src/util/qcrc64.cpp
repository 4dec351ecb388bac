#include "util/qcrc64.h"

#include <QtEndian>
#include <cstring>

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

} // namespace

quint64 crc64(const char* data, quint32 length)
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
