#pragma once

#include <QString>

class QSprites;

/**
 * Converts an old font file (FNT version 1) into the form of the engine's
 * 1.0 fonts: `text` receives the "[FNT v2]" definition, which names
 * "<name>.sff", and `sprites` is refilled with that sprite file, version
 * 2.0.0.0: one palette per colour bank (0,0 first, the last slice of the
 * font's colour table) and one sprite per mapped character, group 0, its
 * index the character's code. False, with both left alone, when the file is
 * no font or its glyph image cannot be read.
 */
bool loadFont(const QString& path, QString& text, QSprites* sprites);
