#pragma once

#include <QImage>
#include <QRect>

/// The smallest rectangle holding every pixel that is not transparent:
/// a non-zero byte of an 8-bit image (index 0 of an indexed one, an
/// unselected pixel of a mask), alpha above 0 of an ARGB32 one. A
/// true-colour image without alpha is opaque throughout. Empty for none.
QRect opaqueBounds(const QImage& image);
