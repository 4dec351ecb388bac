#pragma once

// A minimal walker over the sprite tables of SFF files, enough to reach the
// encoded payloads of real files for codec tests and benchmarks: version 2
// sprite records with their ldata/tdata payloads, and the PCX images of
// version 1. It keeps nothing else (no palettes, axes or links).

#include "model/qsffrecords.h"

#include <QDataStream>
#include <QFile>
#include <QList>

struct SffSprite
{
    /// The codec of a version 1 sprite; those of version 2 are their QSFFCompression.
    static constexpr int Pcx = 100;
    quint16 group = 0;
    quint16 index = 0;
    quint16 width = 0; ///< 0 for a PCX, whose own header says
    quint16 height = 0;
    int codec = scRaw; ///< a version 2 compression number, or Pcx
    quint8 depth = 0;
    quint32 decodedSize = 0; ///< the 32-bit prefix of a version 2 payload
    QByteArray payload; ///< empty for a linked sprite
};

/// A version 2 sprite record as it stands in the file, 28 bytes.
struct SffV2Record
{
    quint16 group, index, width, height;
    qint16 x, y;
    quint16 link;
    quint8 compression, depth;
    quint32 offset, size;
    quint16 palette, flags;
};

inline QDataStream& operator>>(QDataStream& in, SffV2Record& r)
{
    return in >> r.group >> r.index >> r.width >> r.height >> r.x >> r.y >> r.link >> r.compression >> r.depth
              >> r.offset >> r.size >> r.palette >> r.flags;
}

/// Every sprite of an SFF file of version 1.0.1.0, 2.0.0.0 or 2.0.1.0;
/// an empty list for anything else.
inline QList<SffSprite> readSffSprites(const QString& path)
{
    QList<SffSprite> sprites;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return sprites;
    QDataStream in(&file);
    in.setByteOrder(QDataStream::LittleEndian);
    char signature[12];
    quint32 version = 0;
    if (in.readRawData(signature, 12) != 12 || qstrncmp(signature, "ElecbyteSpr", 12) != 0)
        return sprites;
    in >> version;

    if (version == sffVersion101) {
        quint32 groups, images;
        in >> groups >> images;
        qint64 position = 512;
        for (quint32 i = 0; i < images && file.seek(position); ++i) {
            quint32 next, size;
            quint16 x, y, group, index, link;
            in >> next >> size >> x >> y >> group >> index >> link;
            SffSprite sprite;
            sprite.group = group;
            sprite.index = index;
            sprite.codec = SffSprite::Pcx;
            // Same-palette sprites still count the stripped palette in their
            // size field: the next offset is what bounds the PCX.
            if (size != 0 && file.seek(position + 32)) {
                const qint64 length = next != 0 ? qint64(next) - (position + 32) : qint64(size);
                sprite.payload = file.read(qMax<qint64>(0, length));
            }
            sprites.append(sprite);
            if (next == 0 || next <= position)
                break;
            position = next;
        }
        return sprites;
    }
    if (version != sffVersion200 && version != sffVersion201)
        return sprites;

    quint32 header[12];
    file.seek(36);
    for (quint32& field : header)
        in >> field;
    const quint32 spriteTable = header[0], spriteCount = header[1], ldata = header[4], tdata = header[6];
    file.seek(spriteTable);
    QList<SffV2Record> records(spriteCount);
    for (SffV2Record& record : records)
        in >> record;
    for (const SffV2Record& record : records) {
        SffSprite sprite;
        sprite.group = record.group;
        sprite.index = record.index;
        sprite.width = record.width;
        sprite.height = record.height;
        sprite.codec = record.compression;
        sprite.depth = record.depth;
        if (record.size >= 4 && file.seek(qint64((record.flags & 1) ? tdata : ldata) + record.offset)) {
            in >> sprite.decodedSize;
            sprite.payload = file.read(record.size - 4);
        }
        sprites.append(sprite);
    }
    return sprites;
}
