#pragma once

// The fixed records of an SND sound file, little-endian: a 512-byte header,
// then each sound behind a 16-byte subheader that gives the offset of the
// next one. A sound's payload is a whole WAV file.

#include <QByteArray>
#include <QDataStream>
#include <QtGlobal>

struct QSNDHeader
{
    static constexpr int size = 512;
    static constexpr int commentSize = 488; ///< from offset 24 to the first subheader
    static const char signature[12]; ///< "ElecbyteSnd" and a NUL
    /// The version this program stamps on files it makes: the bytes 1, 0, 1, 0.
    static constexpr quint32 ownVersion = 0x00010001;
    /// The version the engine's own sound compiler stamps: the bytes 4, 0, 0, 0.
    static constexpr quint32 compilerVersion = 0x00000004;

    char id[12] = {};
    quint32 version = ownVersion; ///< kept as read, never checked
    quint32 count = 0;
    quint32 firstOffset = size; ///< not trusted on reading: the first subheader is at 512
    QByteArray comment; ///< commentSize bytes

    bool hasSignature() const;
    void setSignature();
    /// This program's comment: its fixed block, then zeros.
    static QByteArray ownComment();
};

struct QSNDSubHeader
{
    static constexpr int size = 16;

    quint32 nextOffset = 0;
    quint32 length = 0; ///< bytes of the WAV file; 0 for an empty sound
    quint32 group = 0;
    quint32 sample = 0;
};

QDataStream& operator>>(QDataStream& stream, QSNDHeader& header);
QDataStream& operator<<(QDataStream& stream, const QSNDHeader& header);
QDataStream& operator>>(QDataStream& stream, QSNDSubHeader& header);
QDataStream& operator<<(QDataStream& stream, const QSNDSubHeader& header);
