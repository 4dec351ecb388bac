#pragma once

// The input of the fuzz targets of the five-bit codecs: width (2 bytes, low 9
// bits), height (1 byte), then the stream; and the checks their pictures share.

#include "model/qstreamcachefilter.h"

#include <QByteArray>
#include <QImage>
#include <cstdint>
#include <cstdlib>

struct FiveBitInput
{
    QStreamImageParam param;
    QByteArray stream;

    /// False when the input is too short to give a size.
    bool read(const uint8_t* data, size_t size)
    {
        if (size < 3)
            return false;
        param.width = quint16(1 + ((data[0] | (data[1] << 8)) & 0x1FF));
        param.height = quint16(1 + data[2] % 16);
        stream = QByteArray(reinterpret_cast<const char*>(data + 3), qsizetype(size - 3));
        return true;
    }
};

inline QByteArray bitsOf(const QImage& image)
{
    return QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
}

/// Aborts unless every byte is a five-bit value.
inline void requireFiveBits(const QByteArray& bits)
{
    for (const char c : bits)
        if (uchar(c) >= 32)
            std::abort();
}
