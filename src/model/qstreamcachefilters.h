#pragma once

// The five decoders a stream cache knows, one per encoding of
// QStreamCacheFilterType. RLE8, RLE5 and LZ5 streams carry no header: their
// filters read size (and, for RLE8, format) from a QStreamImageParam.

#include "model/qstreamcachefilter.h"
#include "util/qscratchbuffer.h"

/// The crc64 of an image's scan lines, row padding taken as zero: the CRC a
/// filter gives for a payload that decodes to this image.
quint64 imageChecksum(const QImage& image);

/// PCX payloads of SFF version 1.
class QPCXCacheFilter : public QStreamCacheFilter
{
public:
    QByteArray process(const QByteArray& data, void* param) override;
    quint64 checksum(const QByteArray& data, void* param) override;
};

class QRLE8CacheFilter : public QStreamCacheFilter
{
public:
    QByteArray process(const QByteArray& data, void* param) override;
};

class QRLE5CacheFilter : public QStreamCacheFilter
{
public:
    QByteArray process(const QByteArray& data, void* param) override;
};

class QLZ5CacheFilter : public QStreamCacheFilter
{
public:
    QByteArray process(const QByteArray& data, void* param) override;
};

class QPNGCacheFilter : public QStreamCacheFilter
{
public:
    QByteArray process(const QByteArray& data, void* param) override;
    quint64 checksum(const QByteArray& data, void* param) override;

private:
    QScratchBuffer m_pixels; ///< the picture checksum() hashes
};
