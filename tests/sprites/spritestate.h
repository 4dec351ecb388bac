#pragma once

#include "model/qsprites.h"

#include <QByteArray>
#include <QList>
#include <QString>

/**
 * Everything a sprite file holds, as values: properties, pixels, colours,
 * and which sprites and palettes share their data (each item names the first
 * item that shares its record). Two files are in the same state when their
 * snapshots are equal.
 */
struct SpriteState
{
    QSpriteProperties properties;
    int width = 0;
    int height = 0;
    int format = 0;
    QByteArray pixels;
    int sharesWith = -1;

    bool operator==(const SpriteState& o) const
    {
        return properties == o.properties && width == o.width && height == o.height && format == o.format
            && pixels == o.pixels && sharesWith == o.sharesWith;
    }
};

struct PaletteState
{
    qint32 group = 0;
    qint32 index = 0;
    int count = 0;
    QByteArray colors;
    int sharesWith = -1;

    bool operator==(const PaletteState& o) const
    {
        return group == o.group && index == o.index && count == o.count && colors == o.colors
            && sharesWith == o.sharesWith;
    }
};

struct ModelState
{
    QList<SpriteState> sprites;
    QList<PaletteState> palettes;

    static ModelState of(const QSprites& sprites);
    bool operator==(const ModelState& o) const { return sprites == o.sprites && palettes == o.palettes; }
    bool operator!=(const ModelState& o) const { return !(*this == o); }
    /// The first difference from `other`, for failure messages.
    QString difference(const ModelState& other) const;
};

/// A deterministic indexed picture: pattern `seed`, 256 opaque colours
/// of tone `tone`, entry 0 transparent.
QImage indexedImage(int width, int height, int seed, int tone = 0);
/// A deterministic true-colour picture with a transparent border of `border` pixels.
QImage argbImage(int width, int height, int seed, int border = 0);
/// A palette table of tone `tone`.
void toneColors(int tone, QRGBA (&colors)[256]);
/// Raw bytes of an image as the cache keeps them.
QByteArray bytesOf(const QImage& image);
