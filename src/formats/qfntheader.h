#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QtGlobal>

/**
 * The first 64 bytes of an old font file (FNT version 1), little-endian: a
 * signature, where the PCX image and the definition text lie in the file, and
 * a free comment.
 */
struct QFNTHeader
{
    static constexpr int size = 64;

    char signature[12] = {};
    quint32 version = 0;
    quint32 pcxOffset = 0;
    quint32 pcxSize = 0;
    quint32 textOffset = 0;
    quint32 textSize = 0;
    char comment[32] = {};

    /// Whether the signature is "ElecbyteFnt" followed by a NUL.
    bool isValid() const;
};

QDataStream& operator>>(QDataStream& stream, QFNTHeader& header);
QDataStream& operator<<(QDataStream& stream, const QFNTHeader& header);
