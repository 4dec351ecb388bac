#pragma once

// The choices that govern how sprites read and write their shared image and
// palette data, and the record of a sprite's properties.

#include <QtGlobal>

/// The colour table that QSprite::image gives an indexed image.
enum QSpriteImagePalette {
    sipNone = 0,    ///< none: the payload stores no colours
    sipOwn = 1,     ///< the sprite's palette, or 256 blank entries without one
    sipDisplay = 2, ///< as sipOwn, after the palette map's substitution of the palette
};

/// What a write does to data that other sprites or palettes share.
enum QSpriteShareMode {
    ssmShared = 0,  ///< reuse equal data found elsewhere; else change the shared record for all
    ssmPrivate = 1, ///< no search; shared data is copied for this object alone
    ssmAsk = 2,     ///< reuse equal data found elsewhere; else ask who goes along with the change
    ssmReplace = 3, ///< images only: overwrite the record's payload in place, no search
};

/// How addPalette treats a palette whose colours already exist.
enum QSpritePaletteShareMode {
    spsNew = 0,         ///< always a new palette
    spsReuse = 1,       ///< the existing palette with the same 1024 bytes
    spsReuseOthers = 2, ///< as spsReuse, but a match in group 1 (the character's) does not count
};

/// What QSprite::setImage does to the sprite's palette.
enum QSpritePaletteMode {
    spmKeep = 0,  ///< leave it; an indexed image on a sprite without palette brings one
    spmNew = 1,   ///< a new palette from the image's colour table
    spmAdapt = 2, ///< take the palette given, and remap the pixels to it
    spmUse = 3,   ///< take the palette given, pixels untouched
};

/// Bits of QSprite's flags.
enum QSpriteFlag {
    sfDecompressOnLoad = 0x0001, ///< SFF version 2: the engine decodes the sprite when it loads the file
};

/// Everything QSprite::setProperties sets in one step. A palette of -1 means none.
struct QSpriteProperties
{
    qint32 palette = -1; ///< position in the palette list
    qint32 group = 0;
    qint32 index = 0;
    qint32 x = 0;
    qint32 y = 0;
    quint16 flags = 0;

    bool operator==(const QSpriteProperties& o) const
    {
        return palette == o.palette && group == o.group && index == o.index && x == o.x && y == o.y
            && flags == o.flags;
    }
    bool operator!=(const QSpriteProperties& o) const { return !(*this == o); }
};
