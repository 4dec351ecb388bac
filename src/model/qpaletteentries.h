#pragma once

#include "formats/qrgba.h"

#include <QImage>
#include <QVector>

class QSprites;

/**
 * Edits of a palette's entries that the sprites' pixels follow. An order is
 * 256 numbers: order[new] is the entry that goes to position `new`. Entry 0
 * is the transparent colour; orders may move it like any other, though the
 * editors keep it in place.
 *
 * A sprite follows a palette when it is indexed and uses the palette's
 * table (its own palette or one sharing the same colours). A picture shared
 * with a sprite that uses other colours changes for that sprite too.
 */
namespace QPaletteEntries {

/// The order that changes nothing.
QVector<int> identity();
/// True when `order` holds each of 0 to 255 once.
bool isOrder(const QVector<int>& order);
/// The order that trades entries `a` and `b`.
QVector<int> swapped(int a, int b);
/// The order that takes entry `from` out and puts it in at `to`, the entries between moving up or down one.
QVector<int> moved(int from, int to);
/// `later` applied after `first`: one order doing both.
QVector<int> combined(const QVector<int>& first, const QVector<int>& later);
/// Entry 0 first, then the entries that `used` marks in their order, then the rest.
QVector<int> compacted(const QVector<bool>& used);

/// The colours in the new order.
void reorderColors(const QRGBA* colors, const QVector<int>& order, QRGBA* out);
/// An indexed picture whose pixels point to the same colours after the palette is put in `order`.
QImage reorderPixels(const QImage& image, const QVector<int>& order);
/// The entries that the pixels of the sprites following the palette at `position` use.
QVector<bool> usedEntries(QSprites* sprites, int position);

/**
 * Puts the palette at `position` in `order` and rewrites the pixels of every
 * sprite that follows it, so each keeps its look: one undoable edit of the
 * sprite file. False, with nothing changed, for a bad order or position.
 */
bool reorder(QSprites* sprites, int position, const QVector<int>& order);

} // namespace QPaletteEntries
