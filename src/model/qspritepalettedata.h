#pragma once

#include "formats/qrgba.h"

#include <cstring>

/**
 * The colours of one or more palettes: all 256 entries always exist, whatever
 * count the palette gives its file. Palettes with the same 1024 bytes may
 * point to one table (the SFF's linked palettes); it dies with the last
 * reference.
 */
struct QSpritePaletteData
{
    QRGBA colors[256];
    int references = 0;

    bool sameColors(const QRGBA* other) const { return std::memcmp(colors, other, sizeof(colors)) == 0; }
};
