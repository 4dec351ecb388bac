#include "util/qcrc64.h"

#include <QtEndian>
#include <cstring>

namespace {

constexpr quint64 polynomial = 0x95AC9329AC4BC9B5ull;
constexpr int slices = 16;

/**
 * slice[0] is the classic byte table. slice[k][b] is the effect of byte b
 * followed by k zero bytes, which lets sixteen input bytes be folded into the
 * CRC with sixteen independent look-ups instead of a chain of sixteen.
 */
struct Crc64Tables
{
    quint64 slice[slices][256];

    Crc64Tables()
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
    }
};

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

} // namespace

quint64 crc64(const char* data, quint32 length)
{
    const Crc64Tables& t = tables();
    const uchar* p = reinterpret_cast<const uchar*>(data);
    quint64 crc = ~quint64(0);

    for (; length >= 16; length -= 16, p += 16) {
        const quint64 a = load64(p) ^ crc;
        const quint64 b = load64(p + 8);
        crc = t.slice[15][a & 0xFF] ^ t.slice[14][(a >> 8) & 0xFF] ^ t.slice[13][(a >> 16) & 0xFF]
            ^ t.slice[12][(a >> 24) & 0xFF] ^ t.slice[11][(a >> 32) & 0xFF] ^ t.slice[10][(a >> 40) & 0xFF]
            ^ t.slice[9][(a >> 48) & 0xFF] ^ t.slice[8][a >> 56] ^ t.slice[7][b & 0xFF]
            ^ t.slice[6][(b >> 8) & 0xFF] ^ t.slice[5][(b >> 16) & 0xFF] ^ t.slice[4][(b >> 24) & 0xFF]
            ^ t.slice[3][(b >> 32) & 0xFF] ^ t.slice[2][(b >> 40) & 0xFF] ^ t.slice[1][(b >> 48) & 0xFF]
            ^ t.slice[0][b >> 56];
    }
    for (; length > 0; --length, ++p)
        crc = t.slice[0][(crc ^ *p) & 0xFF] ^ (crc >> 8);
    return crc;
}
