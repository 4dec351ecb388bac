#pragma once

// The image formats of sprites: the depth of a sprite and the QImage format
// that holds it, and the loaders and savers by file name or payload.

#include <QByteArray>
#include <QImage>
#include <QString>

/// The QImage format that holds pixels of a bit depth: 5 and 8 are indexed,
/// 24 is Format_RGB32 (four bytes a pixel in memory), 32 is Format_ARGB32.
/// Any other depth gives Format_Invalid.
QImage::Format depthToFormat(int depth);
/// The bit depth of a QImage format: 8, 24 or 32; any other format gives 0.
int formatToDepth(QImage::Format format);

/// Loads an image file: a PNG by its signature through loadPNG, "pcx" by
/// suffix through loadPCX, any other through QImage. A null image when the
/// file cannot be read, with the reason in `fault` when given.
QImage loadImage(const QString& path, QString* fault = nullptr);
/// Saves an image file, "pcx" by suffix through savePCX and any other through
/// QImage, replacing the target only when the whole file is written.
bool saveImage(const QString& path, const QImage& image);

/// Decodes a PNG payload; a null image on failure, with what was wrong in
/// `fault` when given (see pngFault()), which is emptied on success.
QImage loadPNG(const QByteArray& data, QString* fault = nullptr);
/// Encodes an image as PNG; empty on failure.
QByteArray savePNG(const QImage& image);

/// Reads uncompressed rows of depth * width / 8 bytes each (three bytes a pixel
/// for Format_RGB32) into a new image. Rows the data does not cover stay zero;
/// a null image for an unknown format.
QImage loadRAW(unsigned short width, unsigned short height, QImage::Format format, const QByteArray& data);
