#include "qsndrecords.h"

#include "model/qsffrecords.h"

#include <cstring>

const char QSNDHeader::signature[12] = { 'E', 'l', 'e', 'c', 'b', 'y', 't', 'e', 'S', 'n', 'd', '\0' };

bool QSNDHeader::hasSignature() const
{
    return std::memcmp(id, signature, sizeof(id)) == 0;
}

void QSNDHeader::setSignature()
{
    std::memcpy(id, signature, sizeof(id));
}

QByteArray QSNDHeader::ownComment()
{
    // Sprite and sound files carry the same block.
    return sffCommentBlock().leftJustified(commentSize, '\0', true);
}

QDataStream& operator>>(QDataStream& stream, QSNDHeader& header)
{
    if (stream.readRawData(header.id, sizeof(header.id)) != int(sizeof(header.id))) {
        stream.setStatus(QDataStream::ReadPastEnd);
        return stream;
    }
    stream >> header.version >> header.count >> header.firstOffset;
    header.comment.resize(QSNDHeader::commentSize);
    if (stream.readRawData(header.comment.data(), QSNDHeader::commentSize) != QSNDHeader::commentSize)
        stream.setStatus(QDataStream::ReadPastEnd);
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const QSNDHeader& header)
{
    stream.writeRawData(header.id, sizeof(header.id));
    stream << header.version << header.count << header.firstOffset;
    const QByteArray comment = header.comment.leftJustified(QSNDHeader::commentSize, '\0', true);
    stream.writeRawData(comment.constData(), QSNDHeader::commentSize);
    return stream;
}

QDataStream& operator>>(QDataStream& stream, QSNDSubHeader& header)
{
    return stream >> header.nextOffset >> header.length >> header.group >> header.sample;
}

QDataStream& operator<<(QDataStream& stream, const QSNDSubHeader& header)
{
    return stream << header.nextOffset << header.length << header.group << header.sample;
}
