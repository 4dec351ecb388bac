#pragma once

// The five decoders a stream cache knows, one per encoding of
// QStreamCacheFilterType. RLE8, RLE5 and LZ5 streams carry no header: their
// filters read size (and, for RLE8, format) from a QStreamImageParam.

#include "model/qspritecodecs.h"
#include "model/qstreamcachefilter.h"
#include "util/qscratchbuffer.h"

#include <QSize>
#include <QString>

/// The crc64 of an image's scan lines, row padding taken as zero: the CRC a
/// filter gives for a payload that decodes to this image.
quint64 imageChecksum(const QImage& image);

/// PCX payloads of SFF version 1.
class QPCXCacheFilter : public QStreamCacheFilter
{
public:
    QByteArray process(const QByteArray& data, void* param) override;
    quint64 checksum(const QByteArray& data, void* param) override;

private:
    QScratchBuffer m_pixels; ///< the picture checksum() hashes
};

/**
 * The headerless streams: each decodes into rows laid out like the QImage its
 * QStreamImageParam describes. Hashing decodes into memory kept from the
 * picture before, as opening a file hashes every one.
 */
class QPixelStreamFilter : public QStreamCacheFilter
{
public:
    QByteArray process(const QByteArray& data, void* param) override;
    quint64 checksum(const QByteArray& data, void* param) override;

protected:
    /// The format the stream decodes to; Format_Invalid when the parameter allows none.
    virtual QImage::Format formatOf(const QStreamImageParam& image) const;
    virtual void decode(const QByteArray& data, QImage::Format format, const QPixelBuffer& target) const = 0;

private:
    /// The layout of the decoded rows, without memory; empty when there is no picture to decode.
    QPixelBuffer layoutFor(const void* param, QImage::Format& format) const;

    QScratchBuffer m_pixels;
};

class QRLE8CacheFilter : public QPixelStreamFilter
{
protected:
    QImage::Format formatOf(const QStreamImageParam& image) const override;
    void decode(const QByteArray& data, QImage::Format format, const QPixelBuffer& target) const override;
};

class QRLE5CacheFilter : public QPixelStreamFilter
{
protected:
    void decode(const QByteArray& data, QImage::Format format, const QPixelBuffer& target) const override;
};

class QLZ5CacheFilter : public QPixelStreamFilter
{
protected:
    void decode(const QByteArray& data, QImage::Format format, const QPixelBuffer& target) const override;
};

/// What hashing a PNG payload found: the crc64 of its decoded picture, its
/// size and format, or what is wrong with it (the rest then describe no picture).
struct QPngHash
{
    quint64 crc = 0;
    QSize size;
    QImage::Format format = QImage::Format_Invalid;
    QString fault;
};

/// Decodes a PNG payload into `pixels` and hashes it as imageChecksum() would the picture.
QPngHash hashPNG(const QByteArray& data, QScratchBuffer& pixels);

class QPNGCacheFilter : public QStreamCacheFilter
{
public:
    QByteArray process(const QByteArray& data, void* param) override;
    quint64 checksum(const QByteArray& data, void* param) override;

private:
    QScratchBuffer m_pixels; ///< the picture checksum() hashes
};
