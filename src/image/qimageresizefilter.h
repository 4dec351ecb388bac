#pragma once

/**
 * How resizeImage() scales. The pixel-art filters (EPX, HQ) enlarge by a
 * whole factor first; the plain filter named second then brings the result
 * to the exact size, so they also shrink, by enlarging first.
 */
enum QImageResizeFilter {
    irfNearest = 0,
    irfBilinear = 1,
    irfEpxNearest = 2,   ///< "EPX + Nearest Neighbor"
    irfEpxBilinear = 3,  ///< "EPX + Bilinear"
    irfHqNearest = 4,    ///< "HQ + Nearest Neighbor"
    irfHqBilinear = 5,   ///< "HQ + Bilinear"
};
