#pragma once

#include <QByteArray>
#include <QImage>

/**
 * The leading fields of the record a sprite passes as an item's filter
 * parameter: the filters of headerless codecs take the image's size and
 * format from it. A sprite's image data record starts with these fields
 * (deriving from this struct keeps the layout right).
 */
struct QStreamImageParam
{
    quint16 width = 0;
    quint16 height = 0;
    QImage::Format format = QImage::Format_Indexed8;
};

/**
 * Turns a payload of one encoding into its decoded bytes: for images, the
 * scan lines of the QImage it decodes to, height times bytesPerLine, padding
 * included, so one picture gives the same bytes whatever its encoding.
 * A payload that cannot be decoded gives an empty array.
 */
class QStreamCacheFilter
{
public:
    virtual ~QStreamCacheFilter() = default;
    virtual QByteArray process(const QByteArray& data, void* param) = 0;
    /// The crc64 of what process() gives; decoders that fill an image of
    /// their own override it to hash its scan lines without copying them.
    virtual quint64 checksum(const QByteArray& data, void* param);
};
