#pragma once

// The fixed records of an SFF sprite file, little-endian throughout. Each
// record has a stream reader and a stream writer that go field by field, so a
// QDataStream set to little-endian reads and writes them at any position.

#include "model/qstreamcacheitem.h"

#include <QByteArray>
#include <QDataStream>
#include <QtGlobal>

/// The SFF versions the program reads and writes, packed as the header holds
/// them (most significant byte first when shown: 1.0.1.0, 2.0.0.0, 2.0.1.0).
constexpr quint32 sffVersion101 = 0x01000100; ///< PCX payloads, palettes inside them
constexpr quint32 sffVersion200 = 0x02000000; ///< palette table; no true colour
constexpr quint32 sffVersion201 = 0x02000100; ///< PNG and true colour

/// The compression byte of a version 2 sprite record.
enum QSFFCompression : quint8 {
    scRaw = 0, ///< pixels as they are
    scEmpty = 1, ///< a sprite with no data
    scRLE8 = 2,
    scRLE5 = 3, ///< read, never written
    scLZ5 = 4,
    scPNG8 = 10,
    scPNG24 = 11,
    scPNG32 = 12,
};

/// The cache filter that decodes a compression; cfNone for raw pixels and unknown values.
QStreamCacheFilterType sffFilterOf(quint8 compression);

/// The first 16 bytes of every version: signature and version.
struct QSFFHeader
{
    static constexpr int size = 16;
    static const char signature[12]; ///< "ElecbyteSpr" and a NUL

    char id[12] = {};
    quint32 version = 0;

    bool hasSignature() const;
    void setSignature();
};

/// Version 1.0.1.0, offsets 16 to 512.
struct QSFFv1Header
{
    quint32 groupCount = 0;
    quint32 imageCount = 0;
    quint32 firstOffset = 512; ///< not trusted on reading: subheaders start at 512
    quint32 subHeaderSize = 32; ///< not read: real files hold odd values
    quint8 paletteType = 0;
    QByteArray comment; ///< 479 bytes from offset 33: three zero bytes and the comment field
};

/// Version 1.0.1.0, 32 bytes before each image.
struct QSFFv1SubHeader
{
    static constexpr int size = 32;
    /// The record from its `size` bytes as they lie in the file.
    static QSFFv1SubHeader fromBytes(const char* bytes);

    quint32 nextOffset = 0;
    quint32 length = 0; ///< 0: a linked sprite
    qint16 x = 0;
    qint16 y = 0;
    quint16 group = 0;
    quint16 index = 0;
    quint16 link = 0;
    quint8 samePalette = 0;
};

/// Versions 2.0.0.0 and 2.0.1.0, offsets 16 to 512.
struct QSFFv2Header
{
    quint32 compatibleVersion = 0;
    quint32 spriteOffset = 0;
    quint32 spriteCount = 0;
    quint32 paletteOffset = 0;
    quint32 paletteCount = 0;
    quint32 ldataOffset = 0;
    quint32 ldataSize = 0;
    quint32 tdataOffset = 0;
    quint32 tdataSize = 0;
    QByteArray comment; ///< 436 bytes from offset 76
};

/// Versions 2: one record of the palette table, 16 bytes.
struct QSFFv2Palette
{
    static constexpr int size = 16;

    quint16 group = 0;
    quint16 index = 0;
    quint16 colorCount = 0;
    quint16 link = 0;
    quint32 offset = 0; ///< in ldata
    quint32 length = 0; ///< 0: a linked palette
};

/// Versions 2: one record of the sprite table, 28 bytes.
struct QSFFv2Sprite
{
    static constexpr int size = 28;

    quint16 group = 0;
    quint16 index = 0;
    quint16 width = 0;
    quint16 height = 0;
    qint16 x = 0;
    qint16 y = 0;
    quint16 link = 0;
    quint8 compression = 0;
    quint8 depth = 0;
    quint32 offset = 0; ///< in ldata, or in tdata with flag bit 0
    quint32 length = 0; ///< with the 4-byte size prefix; 0: a linked sprite
    quint16 palette = 0;
    quint16 flags = 0;
};

/// The comment block this program writes into every header it makes: a fixed
/// 76 bytes, the rest of the comment field is zero.
QByteArray sffCommentBlock();

QDataStream& operator>>(QDataStream& stream, QSFFHeader& header);
QDataStream& operator<<(QDataStream& stream, const QSFFHeader& header);
QDataStream& operator>>(QDataStream& stream, QSFFv1Header& header);
QDataStream& operator<<(QDataStream& stream, const QSFFv1Header& header);
QDataStream& operator>>(QDataStream& stream, QSFFv1SubHeader& header);
QDataStream& operator<<(QDataStream& stream, const QSFFv1SubHeader& header);
QDataStream& operator>>(QDataStream& stream, QSFFv2Header& header);
QDataStream& operator<<(QDataStream& stream, const QSFFv2Header& header);
QDataStream& operator>>(QDataStream& stream, QSFFv2Palette& record);
QDataStream& operator<<(QDataStream& stream, const QSFFv2Palette& record);
QDataStream& operator>>(QDataStream& stream, QSFFv2Sprite& record);
QDataStream& operator<<(QDataStream& stream, const QSFFv2Sprite& record);
