#pragma once

// The pixel codecs of SFF version 2 sprites: RLE8, RLE5 and LZ5.
//
// Decoders take whatever bytes a file holds and never write outside the
// image: a stream that runs short leaves the rest of the image zero, one that
// runs long is cut at the image's end, and an LZ5 copy that reaches before
// the first pixel ends the decode there. Row padding is always zero, so equal
// pictures give equal bytes (the stream cache compares decoded bytes).

#include <QByteArray>
#include <QImage>

/**
 * Where a decoder writes: a buffer laid out like the bits of a QImage of
 * `width` x `height` pixels in Format_Indexed8 or the format given, rows
 * `bytesPerLine` apart. The stream cache decodes straight into the byte array
 * it returns through this, sparing a copy out of a QImage.
 */
struct QPixelBuffer
{
    uchar* bits = nullptr;
    int width = 0;
    int height = 0;
    qsizetype bytesPerLine = 0;

    qsizetype size() const { return qsizetype(height) * bytesPerLine; }
    /// The pixels of an image, or an empty buffer for a null image.
    static QPixelBuffer of(QImage& image)
    {
        if (image.isNull())
            return QPixelBuffer();
        return QPixelBuffer { image.bits(), image.width(), image.height(), image.bytesPerLine() };
    }
    /// Row stride of a QImage of this width and bit depth (rows padded to 32 bits).
    static qsizetype strideFor(int width, int bitsPerPixel) { return ((qsizetype(width) * bitsPerPixel + 31) >> 5) << 2; }
};

/// RLE8 of compression 2. Rows hold formatToDepth(format) * width / 8 bytes
/// of the stream each; a null image for a format without a depth.
QImage loadRLE8(int width, int height, QImage::Format format, const QByteArray& data);
/// Decodes RLE8 into `target`, laid out for an image of that format.
void decodeRLE8(const QByteArray& data, QImage::Format format, const QPixelBuffer& target);
/// Encodes every row of the image as one RLE8 stream; empty for a null image
/// or a format without a depth.
QByteArray saveRLE8(const QImage& image);

/// RLE5 of compression 3, read only: nothing writes it. Format_Indexed8.
QImage loadRLE5(int width, int height, const QByteArray& data);
void decodeRLE5(const QByteArray& data, const QPixelBuffer& target);

/// LZ5 of compression 4 into a Format_Indexed8 image.
QImage loadLZ5(int width, int height, const QByteArray& data);
void decodeLZ5(const QByteArray& data, const QPixelBuffer& target);
/**
 * Encodes the image's pixels (one byte each; only the low five bits reach the
 * stream) as LZ5. With `useLz` false only run packets are written, which is a
 * valid stream too. Empty for a null image or one of another depth than 8 bits.
 */
QByteArray saveLZ5(const QImage& image, bool useLz = true);
