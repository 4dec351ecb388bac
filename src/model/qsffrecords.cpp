#include "qsffrecords.h"

#include <QtEndian>

#include <cstring>

QStreamCacheFilterType sffFilterOf(quint8 compression)
{
    switch (compression) {
    case scRLE8:
        return cfRLE8;
    case scRLE5:
        return cfRLE5;
    case scLZ5:
        return cfLZ5;
    case scPNG8:
    case scPNG24:
    case scPNG32:
        return cfPNG;
    default:
        return cfNone;
    }
}

namespace {

constexpr int v1CommentSize = 476;
constexpr int v2CommentSize = 436;
constexpr int commentBlockSize = 76;

void readBytes(QDataStream& stream, char* target, int size)
{
    if (stream.readRawData(target, size) != size)
        stream.setStatus(QDataStream::ReadPastEnd);
}

QByteArray readBlock(QDataStream& stream, int size)
{
    QByteArray block(size, '\0');
    readBytes(stream, block.data(), size);
    return block;
}

void writeZeros(QDataStream& stream, int size)
{
    static const char zeros[64] = {};
    while (size > 0) {
        const int part = qMin(size, int(sizeof(zeros)));
        stream.writeRawData(zeros, part);
        size -= part;
    }
}

/// Writes a comment field of exactly `size` bytes: the comment cut or padded with zeros.
void writeComment(QDataStream& stream, const QByteArray& comment, int size)
{
    const int used = qMin(size, int(comment.size()));
    stream.writeRawData(comment.constData(), used);
    writeZeros(stream, size - used);
}

} // namespace

const char QSFFHeader::signature[12] = { 'E', 'l', 'e', 'c', 'b', 'y', 't', 'e', 'S', 'p', 'r', '\0' };

bool QSFFHeader::hasSignature() const
{
    return std::memcmp(id, signature, sizeof(id)) == 0;
}

void QSFFHeader::setSignature()
{
    std::memcpy(id, signature, sizeof(id));
}

QByteArray sffCommentBlock()
{
    QByteArray block("Made in Quorvantek\nPowered by Pugilforge 3\nhttps://pugilforge.example\n");
    block.append(commentBlockSize - block.size(), '\0');
    return block;
}

QDataStream& operator>>(QDataStream& stream, QSFFHeader& header)
{
    readBytes(stream, header.id, sizeof(header.id));
    return stream >> header.version;
}

QDataStream& operator<<(QDataStream& stream, const QSFFHeader& header)
{
    stream.writeRawData(header.id, sizeof(header.id));
    return stream << header.version;
}

QDataStream& operator>>(QDataStream& stream, QSFFv1Header& header)
{
    quint8 zero[3];
    stream >> header.groupCount >> header.imageCount >> header.firstOffset >> header.subHeaderSize
        >> header.paletteType;
    readBytes(stream, reinterpret_cast<char*>(zero), sizeof(zero));
    header.comment = readBlock(stream, v1CommentSize);
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const QSFFv1Header& header)
{
    stream << header.groupCount << header.imageCount << header.firstOffset << header.subHeaderSize
           << header.paletteType;
    writeZeros(stream, 3);
    writeComment(stream, header.comment, v1CommentSize);
    return stream;
}

QSFFv1SubHeader QSFFv1SubHeader::fromBytes(const char* bytes)
{
    QSFFv1SubHeader header;
    header.nextOffset = qFromLittleEndian<quint32>(bytes);
    header.length = qFromLittleEndian<quint32>(bytes + 4);
    header.x = qFromLittleEndian<qint16>(bytes + 8);
    header.y = qFromLittleEndian<qint16>(bytes + 10);
    header.group = qFromLittleEndian<quint16>(bytes + 12);
    header.index = qFromLittleEndian<quint16>(bytes + 14);
    header.link = qFromLittleEndian<quint16>(bytes + 16);
    header.samePalette = quint8(bytes[18]);
    return header;
}

QDataStream& operator>>(QDataStream& stream, QSFFv1SubHeader& header)
{
    char bytes[QSFFv1SubHeader::size];
    readBytes(stream, bytes, sizeof(bytes));
    if (stream.status() == QDataStream::Ok)
        header = QSFFv1SubHeader::fromBytes(bytes);
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const QSFFv1SubHeader& header)
{
    stream << header.nextOffset << header.length << header.x << header.y << header.group << header.index
           << header.link << header.samePalette;
    writeZeros(stream, 13);
    return stream;
}

QDataStream& operator>>(QDataStream& stream, QSFFv2Header& header)
{
    quint32 zero;
    stream >> zero >> zero >> header.compatibleVersion >> zero >> zero >> header.spriteOffset
        >> header.spriteCount >> header.paletteOffset >> header.paletteCount >> header.ldataOffset
        >> header.ldataSize >> header.tdataOffset >> header.tdataSize >> zero >> zero;
    header.comment = readBlock(stream, v2CommentSize);
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const QSFFv2Header& header)
{
    const quint32 zero = 0;
    stream << zero << zero << header.compatibleVersion << zero << zero << header.spriteOffset
           << header.spriteCount << header.paletteOffset << header.paletteCount << header.ldataOffset
           << header.ldataSize << header.tdataOffset << header.tdataSize << zero << zero;
    writeComment(stream, header.comment, v2CommentSize);
    return stream;
}

QDataStream& operator>>(QDataStream& stream, QSFFv2Palette& record)
{
    return stream >> record.group >> record.index >> record.colorCount >> record.link >> record.offset
                  >> record.length;
}

QDataStream& operator<<(QDataStream& stream, const QSFFv2Palette& record)
{
    return stream << record.group << record.index << record.colorCount << record.link << record.offset
                  << record.length;
}

QDataStream& operator>>(QDataStream& stream, QSFFv2Sprite& record)
{
    return stream >> record.group >> record.index >> record.width >> record.height >> record.x >> record.y
                  >> record.link >> record.compression >> record.depth >> record.offset >> record.length
                  >> record.palette >> record.flags;
}

QDataStream& operator<<(QDataStream& stream, const QSFFv2Sprite& record)
{
    return stream << record.group << record.index << record.width << record.height << record.x << record.y
                  << record.link << record.compression << record.depth << record.offset << record.length
                  << record.palette << record.flags;
}
