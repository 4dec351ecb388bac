#pragma once

#include "qimageresizefilter.h"

#include <QImage>
#include <QRgb>
#include <QSize>
#include <QVector>

/*
 * Scaling that knows about palettes. An indexed picture stays indexed: the
 * filters that only move pixels (nearest, EPX) keep its indices, and those
 * that blend (bilinear, HQ) blend the palette's colours and map each result
 * back to the nearest entry of `palette` (256 colours, 0xAARRGGBB).
 *
 * Pictures are worked on as Format_Indexed8 or as 32-bit colours
 * (Format_RGB32 and Format_ARGB32 are kept, anything else becomes
 * Format_ARGB32), and come back in that format.
 */

/// `image` in a format the scalers work on, as above.
QImage toScalableFormat(const QImage& image);

/// Scales with `filter`; an unknown filter value gives a null image.
QImage resizeImage(const QImage& image, const QSize& size, const QVector<QRgb>& palette,
                   QImageResizeFilter filter);

/**
 * Nearest neighbour in 16.16 fixed point. Each step is one unit more than
 * the exact ratio, so in a wide enlargement a source column may be skipped
 * near the right edge; pixels are copied whole, palette indices included.
 */
QImage resizeImageNearest(const QImage& image, const QSize& size);

QImage resizeImageBilinear(const QImage& image, const QSize& size, const QVector<QRgb>& palette);

/// EPX by 2, 3 or 4 (twice 2), then `filter`'s plain half to the exact size.
QImage resizeImageEPX(const QImage& image, const QSize& size, const QVector<QRgb>& palette,
                      QImageResizeFilter filter);

/// hq2x, hq3x or hq4x, then `filter`'s plain half to the exact size.
QImage resizeImageHQxX(const QImage& image, const QSize& size, const QVector<QRgb>& palette,
                       QImageResizeFilter filter);
