#pragma once

// PCX, the payload of SFF version 1 sprites and the source images of the
// engine's own tools: version 5, run-length encoded, 1 plane with a trailing
// 256-colour table, or 3 or 4 planes of true colour.

#include "qimageinfo.h"

#include <QByteArray>
#include <QImage>

class QIODevice;
class QScratchBuffer;

/**
 * Decodes a PCX payload. One plane of 8 bits gives Format_Indexed8 with the
 * trailing colour table when there is one (none otherwise); 3 planes give
 * Format_RGB32 and 4 planes Format_ARGB32. A header that is not version 5, or
 * whose depth has no format, gives a null image. Damaged data never writes
 * outside the image: what the data does not cover stays zero (opaque black for
 * 3 planes), and values past the visible width are dropped.
 */
QImage loadPCX(const QByteArray& data);
/// As loadPCX, into `memory` rather than memory of its own: the image is
/// valid until the next use of `memory`. Opening a file of many pictures
/// thus decodes each into memory already in the cache. Without `colours`
/// the image has no colour table, for callers that want only the pixels.
QImage loadPCX(const QByteArray& data, QScratchBuffer& memory, bool colours = true);

/// Width, height and format from the header alone; null when loadPCX would refuse it.
QImageInfo infoFromPCX(const QByteArray& data);

/**
 * Encodes an image as PCX version 5: an indexed image as 1 plane followed by
 * the marker 12 and 256 triples of its colour table (missing entries black),
 * Format_RGB32 as 3 planes and Format_ARGB32 as 4. False for any other format
 * or when the device fails.
 */
bool savePCX(const QImage& image, QIODevice* device);
