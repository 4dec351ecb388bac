#pragma once

#include <QByteArray>
#include <QtGlobal>

/**
 * The 64-bit CRC that identifies decoded sprite and sound payloads: reflected,
 * polynomial 0x95AC9329AC4BC9B5, started at all ones, with no final inversion.
 * An empty input gives 0xFFFFFFFFFFFFFFFF. The stream cache stores it beside
 * each payload and compares it before comparing bytes, so it must be fast:
 * the tables are built on first use, the input is taken sixteen bytes at a
 * time, and inputs of a few kilobytes or more as three interleaved parts.
 * Not thread-safe on first use, like the rest of the cache.
 */
quint64 crc64(const char* data, quint32 length);

/// crc64 of a whole byte array.
inline quint64 crc64(const QByteArray& data)
{
    return crc64(data.constData(), quint32(data.size()));
}
