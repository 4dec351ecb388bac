#pragma once

#include "qgifcolormap.h"

#include <QImage>

/**
 * One frame of an animated GIF: indexed pixels (Format_Indexed8, whose values
 * index the frame's own colour map, or the image's global map when the frame
 * has none), its place on the screen, how long it shows and whether the loop
 * extension goes ahead of it (set it on the first frame of a looping animation).
 */
struct QGIFFrame
{
    QImage image;
    QGIFColorMap colorMap;
    int left = 0;
    int top = 0;
    /// Hundredths of a second.
    int delay = 0;
    bool loop = false;
};
