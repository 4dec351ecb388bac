#pragma once

#include "qrgba.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// The palette files the program writes: each of the formats it reads.
enum QPaletteFileFormat {
    pffACT = 0,     ///< 768 bytes of triples, entry 0 last
    pffRIFF = 1,    ///< Microsoft "PAL data", entry 0 last as in ACT
    pffJASC = 2,    ///< text, one "r g b" line per entry
    pffPainter = 3, ///< text after "ROWS", one "R: r, G: g, B: b" line per entry
    pffACO = 4,     ///< Adobe swatches, version 1, 16-bit channels
    pffASE = 5,     ///< Adobe swatch exchange, float channels
    pffPCX = 6,     ///< a 16 by 16 indexed picture of the entries, which carries the palette
    pffPNG = 7,
    pffCount = 8,
};

/**
 * Writes a table of 256 colours in any format the program reads, so that
 * reading the file back gives the table again. Two formats lose detail the
 * readers cannot keep: ACT and RIFF store no alpha, and ACO channels of 128
 * and above come back wrapped, as this program has always read ACO (other
 * programs read them right). Every file is replaced only when it is complete.
 */
class QPaletteWriter
{
public:
    /// The file-dialog filters of the formats, in the order of QPaletteFileFormat.
    static QStringList filters();
    /// The format a file-dialog filter of filters() names; ACT for another.
    static QPaletteFileFormat formatOfFilter(const QString& filter);
    /// The suffix a file of the format gets when its name has none ("act", ...).
    static QString suffix(QPaletteFileFormat format);

    /// The bytes of the file; empty for the picture formats, which go through saveImage.
    static QByteArray bytes(QPaletteFileFormat format, const QRGBA* colors);
    /// Writes the file; false when it could not be written.
    static bool save(const QString& path, QPaletteFileFormat format, const QRGBA* colors);
};
