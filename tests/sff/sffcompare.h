#pragma once

// What the SFF tests compare between two sprite files: properties, shown
// pixels, palettes and payloads, each as a list of readable differences.

#include "model/qsffrecords.h"

#include <QByteArray>
#include <QList>
#include <QRgb>
#include <QString>
#include <QStringList>
#include <QVector>
#include <memory>

class QSprites;
class QSprite;

/// A model of its own, read from a file; null when the file did not load.
std::unique_ptr<QSprites> loadSprites(const QString& path);
/// An empty model.
std::unique_ptr<QSprites> newSprites();

/**
 * The picture as the engine shows it, one 0xAARRGGBB a pixel: an indexed
 * pixel 0 is transparent (0), any other index is its palette colour, opaque;
 * a true-colour pixel is itself, with every fully transparent one as 0. What
 * a save must keep is this, not the index bytes or the palette's order.
 */
QVector<QRgb> shownColours(const QSprite* sprite);

/// The largest difference of one colour channel between two pictures of
/// one size; 256 when a transparent pixel became visible or the reverse.
int worstColourError(const QVector<QRgb>& expected, const QVector<QRgb>& actual);

/// Differences of group, index, axis and shown colours, sprite by sprite.
QStringList spriteDifferences(const QSprites& expected, const QSprites& actual, bool flags);
/// Differences of the palette lists: group, index and the colours each had
/// (a count may grow, never shrink); `alpha` compares the alpha bytes too.
QStringList paletteDifferences(const QSprites& expected, const QSprites& actual, bool alpha);
/// Sprites whose pixels are shared in one model and not the other.
QStringList linkDifferences(const QSprites& expected, const QSprites& actual);

/// A version 2 file put together from its records (offsets are filled in).
struct SffV2Builder
{
    quint32 version = sffVersion201;
    QList<QSFFv2Palette> palettes;
    QList<QSFFv2Sprite> sprites;
    QByteArray ldata;
    QByteArray tdata;

    QByteArray bytes() const;
};

/// Writes bytes to a file; false on failure.
bool writeFile(const QString& path, const QByteArray& bytes);
QByteArray readFile(const QString& path);
