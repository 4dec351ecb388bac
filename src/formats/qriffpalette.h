#pragma once

#include "qabstractpalette.h"

/**
 * Microsoft RIFF palette ("PAL data"), little-endian entries of red, green, blue and flags. The chunk
 * size less 8 is taken as the number of entry bytes, which is four short of what the chunk holds: in a
 * file of 256 entries the last stays empty. The table is reversed like ACT.
 */
class QRIFFPalette : public QAbstractPalette
{
public:
    bool fromFile(QIODevice* device, QRGBA (*palette)[256]) override;
    QString name() const override { return QStringLiteral("RIFF"); }
};
