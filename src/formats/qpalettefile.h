#pragma once

#include "qrgba.h"

#include <QString>

/**
 * Reads a palette file for an editor, stricter than the sprite loaders: a
 * file that is not wholly a palette is refused rather than read in part, so
 * that loading it changes nothing. Any format QRGBPalette reads.
 *
 * On failure `fault` is one line naming the file and what was wrong, and
 * `colors` is untouched.
 */
bool readPaletteFile(const QString& path, QRGBA (&colors)[256], QString& fault);
