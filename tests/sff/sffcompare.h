#pragma once

// What the SFF tests compare between two sprite files: properties, shown
// pixels, palettes and payloads, each as a list of readable differences.

#include "model/qsffrecords.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <memory>

class QSprites;
class QSprite;

/// A model of its own, read from a file; null when the file did not load.
std::unique_ptr<QSprites> loadSprites(const QString& path);
/// An empty model.
std::unique_ptr<QSprites> newSprites();

/// The picture as it is shown: for an indexed sprite its index bytes and the
/// red, green and blue of its displayed palette (alpha aside); for true
/// colour its pixels.
QByteArray shownPixels(const QSprite* sprite);

/// Differences of group, index, axis and shown pixels, sprite by sprite.
QStringList spriteDifferences(const QSprites& expected, const QSprites& actual, bool flags);
/// Differences of the palette lists; `alpha` compares the alpha bytes too.
QStringList paletteDifferences(const QSprites& expected, const QSprites& actual, bool alpha);
/// Sprites whose pixels are shared in one model and not the other.
QStringList linkDifferences(const QSprites& expected, const QSprites& actual);

/// A version 2 file put together from its records (offsets are filled in).
struct SffV2Builder
{
    quint32 version = 0x02000100;
    QList<QSFFv2Palette> palettes;
    QList<QSFFv2Sprite> sprites;
    QByteArray ldata;
    QByteArray tdata;

    QByteArray bytes() const;
};

/// Writes bytes to a file; false on failure.
bool writeFile(const QString& path, const QByteArray& bytes);
QByteArray readFile(const QString& path);
