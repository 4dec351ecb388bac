#pragma once

#include <QDataStream>
#include <QtGlobal>

/**
 * The 128-byte header of a PCX image, little-endian. Only version 5 with
 * run-length encoding is read and written; the 16-colour palette and the filler
 * are carried but unused.
 */
struct QPCXHeader
{
    static constexpr int size = 128;

    quint8 manufacturer = 10;
    quint8 version = 5;
    quint8 encoding = 1;
    quint8 bitsPerPixel = 8;
    quint16 xMin = 0;
    quint16 yMin = 0;
    quint16 xMax = 0;
    quint16 yMax = 0;
    quint16 hRes = 0;
    quint16 vRes = 0;
    quint8 egaPalette[48] = {};
    quint8 reserved = 0;
    quint8 planes = 1;
    quint16 bytesPerLine = 0;
    quint16 paletteType = 0;
    quint8 filler[58] = {};

    /// Bits of one pixel over all planes.
    int depth() const { return int(planes) * int(bitsPerPixel); }
    /// Width and height from the bounds; zero or negative for a damaged header.
    int width() const { return int(xMax) + 1 - int(xMin); }
    int height() const { return int(yMax) + 1 - int(yMin); }
    /// Reads the header from the first 128 bytes of a payload; false when shorter.
    bool read(const char* data, qsizetype size);
};

QDataStream& operator>>(QDataStream& stream, QPCXHeader& header);
QDataStream& operator<<(QDataStream& stream, const QPCXHeader& header);
