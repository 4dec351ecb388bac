#include "qpcxheader.h"

#include <QtEndian>

#include <cstring>

QDataStream& operator>>(QDataStream& stream, QPCXHeader& header)
{
    stream >> header.manufacturer >> header.version >> header.encoding >> header.bitsPerPixel >> header.xMin
        >> header.yMin >> header.xMax >> header.yMax >> header.hRes >> header.vRes;
    stream.readRawData(reinterpret_cast<char*>(header.egaPalette), sizeof header.egaPalette);
    stream >> header.reserved >> header.planes >> header.bytesPerLine >> header.paletteType;
    stream.readRawData(reinterpret_cast<char*>(header.filler), sizeof header.filler);
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const QPCXHeader& header)
{
    stream << header.manufacturer << header.version << header.encoding << header.bitsPerPixel << header.xMin
           << header.yMin << header.xMax << header.yMax << header.hRes << header.vRes;
    stream.writeRawData(reinterpret_cast<const char*>(header.egaPalette), sizeof header.egaPalette);
    stream << header.reserved << header.planes << header.bytesPerLine << header.paletteType;
    stream.writeRawData(reinterpret_cast<const char*>(header.filler), sizeof header.filler);
    return stream;
}

// Read field by field from the bytes rather than through a QDataStream: every
// sprite of an SFF 1.0 file is a PCX whose header is read when the file opens,
// and a stream costs more than decoding a small sprite.
bool QPCXHeader::read(const char* data, qsizetype size)
{
    if (size < QPCXHeader::size)
        return false;
    const auto* bytes = reinterpret_cast<const uchar*>(data);
    auto word = [bytes](int offset) { return qFromLittleEndian<quint16>(bytes + offset); };
    manufacturer = bytes[0];
    version = bytes[1];
    encoding = bytes[2];
    bitsPerPixel = bytes[3];
    xMin = word(4);
    yMin = word(6);
    xMax = word(8);
    yMax = word(10);
    hRes = word(12);
    vRes = word(14);
    std::memcpy(egaPalette, bytes + 16, sizeof egaPalette);
    reserved = bytes[64];
    planes = bytes[65];
    bytesPerLine = word(66);
    paletteType = word(68);
    std::memcpy(filler, bytes + 70, sizeof filler);
    return true;
}
