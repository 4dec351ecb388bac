#include "qfntheader.h"

#include <cstring>

bool QFNTHeader::isValid() const
{
    return std::memcmp(signature, "ElecbyteFnt", 12) == 0;
}

QDataStream& operator>>(QDataStream& stream, QFNTHeader& header)
{
    stream.readRawData(header.signature, sizeof header.signature);
    stream >> header.version >> header.pcxOffset >> header.pcxSize >> header.textOffset >> header.textSize;
    stream.readRawData(header.comment, sizeof header.comment);
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const QFNTHeader& header)
{
    stream.writeRawData(header.signature, sizeof header.signature);
    stream << header.version << header.pcxOffset << header.pcxSize << header.textOffset << header.textSize;
    stream.writeRawData(header.comment, sizeof header.comment);
    return stream;
}
