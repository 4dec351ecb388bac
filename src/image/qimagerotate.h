#pragma once

#include <QImage>

/**
 * Rotates `image` by `radians` without filtering: every target pixel takes
 * the source pixel under its centre, or `fill` (a palette index for indexed
 * pictures, a 0xAARRGGBB colour otherwise) where the source does not reach.
 * The target just holds the four rotated corners. Right-angle turns are
 * exact: no pixel is lost or repeated.
 */
QImage rotateImage(const QImage& image, float radians, unsigned int fill);
