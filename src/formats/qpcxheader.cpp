#include "qpcxheader.h"

#include <QByteArray>

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

bool QPCXHeader::read(const char* data, qsizetype size)
{
    if (size < QPCXHeader::size)
        return false;
    QDataStream stream(QByteArray::fromRawData(data, QPCXHeader::size));
    stream.setByteOrder(QDataStream::LittleEndian);
    stream >> *this;
    return stream.status() == QDataStream::Ok;
}
