#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QSize>

/**
 * Decodes the PNG pictures sprites are stored as, faster than the general
 * image reader, to exactly the pixels the general reader gives: 8-bit
 * palette pictures to Format_Indexed8 (indices past the palette read as 0),
 * 8-bit RGBA to Format_ARGB32 and 8-bit RGB without a transparent colour to
 * Format_RGB32, never interlaced.
 *
 * open() refuses every other picture, pictures with a colour space (gamma,
 * sRGB or ICC chunks), pictures past the general reader's allocation limit,
 * and any file with a damaged or misplaced critical or transparency chunk:
 * the caller then hands the bytes to the general reader, which decides what
 * such a file gives. decode() fails when the compressed rows are damaged,
 * with the same meaning.
 *
 * The decoder keeps pointers into the data given to open(), which must stay
 * alive and unchanged until decoding is done.
 */
class QPngDecoder
{
public:
    /// Reads the chunks; false when this decoder does not take the picture.
    bool open(const QByteArray& data);

    QSize size() const { return QSize(int(m_width), int(m_height)); }
    QImage::Format format() const { return m_format; }
    /// The palette with the alpha of the transparency chunk, for indexed pictures.
    QList<QRgb> colorTable() const { return m_colors; }
    /// Bytes from one row to the next in the image decode() fills, as QImage lays it out.
    qsizetype bytesPerLine() const;

    /**
     * Fills `bits`, size().height() rows of `bytesPerLine` bytes (at least
     * bytesPerLine()), padding bytes zeroed.
     */
    bool decode(uchar* bits, qsizetype bytesPerLine) const;

private:
    bool readHeader(const uchar* chunk, quint32 length);
    bool readPalette(const uchar* chunk, quint32 length);
    bool readTransparency(const uchar* chunk, quint32 length);
    /// The compressed rows as one stream, joined into `joined` when the file splits them.
    QByteArrayView compressedRows(QByteArray& joined) const;

    quint32 m_width = 0;
    quint32 m_height = 0;
    int m_channels = 0; ///< bytes a pixel in the rows: 1, 3 or 4
    QImage::Format m_format = QImage::Format_Invalid;
    QList<QRgb> m_colors;
    bool m_transparency = false; ///< a transparency chunk came before the rows
    /// The data of each compressed-rows chunk in file order; one stream when joined.
    QList<QByteArrayView> m_idat;
};
