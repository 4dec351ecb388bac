#include "qpaletteentries.h"

#include "qsprites.h"

#include <QSet>

#include <algorithm>
#include <numeric>

namespace {

/// The indexed sprites that use the table of the palette at `position`.
QList<QSprite*> followers(QSprites* sprites, int position)
{
    QList<QSprite*> found;
    const QSpritePalette* palette = sprites->paletteAt(position);
    if (!palette || !palette->data())
        return found;
    for (int i = 0; i < sprites->count(); ++i) {
        QSprite* sprite = sprites->at(i);
        if (sprite->palette() && sprite->palette()->data() == palette->data() && sprite->imageData()
            && sprite->imageInfo().format == QImage::Format_Indexed8)
            found.append(sprite);
    }
    return found;
}

} // namespace

namespace QPaletteEntries {

QVector<int> identity()
{
    QVector<int> order(256);
    std::iota(order.begin(), order.end(), 0);
    return order;
}

bool isOrder(const QVector<int>& order)
{
    if (order.size() != 256)
        return false;
    QVector<bool> seen(256, false);
    for (int each : order) {
        if (each < 0 || each > 255 || seen.at(each))
            return false;
        seen[each] = true;
    }
    return true;
}

QVector<int> swapped(int a, int b)
{
    QVector<int> order = identity();
    if (a >= 0 && a < 256 && b >= 0 && b < 256)
        std::swap(order[a], order[b]);
    return order;
}

QVector<int> moved(int from, int to)
{
    QVector<int> order = identity();
    if (from < 0 || from > 255 || to < 0 || to > 255)
        return order;
    order.remove(from);
    order.insert(to, from);
    return order;
}

QVector<int> combined(const QVector<int>& first, const QVector<int>& later)
{
    QVector<int> order(256);
    for (int i = 0; i < 256; ++i)
        order[i] = first.at(later.at(i));
    return order;
}

QVector<int> compacted(const QVector<bool>& used)
{
    QVector<int> order{0};
    for (int i = 1; i < 256; ++i)
        if (used.value(i))
            order.append(i);
    for (int i = 1; i < 256; ++i)
        if (!used.value(i))
            order.append(i);
    return order;
}

void reorderColors(const QRGBA* colors, const QVector<int>& order, QRGBA* out)
{
    for (int i = 0; i < 256; ++i)
        out[i] = colors[order.at(i)];
}

QImage reorderPixels(const QImage& image, const QVector<int>& order)
{
    if (image.format() != QImage::Format_Indexed8)
        return image;
    uchar newIndex[256];
    for (int i = 0; i < 256; ++i)
        newIndex[order.at(i)] = uchar(i);
    QImage out = image.copy();
    for (int y = 0; y < out.height(); ++y) {
        uchar* line = out.scanLine(y);
        for (int x = 0; x < out.width(); ++x)
            line[x] = newIndex[line[x]];
    }
    if (!image.colorTable().isEmpty()) {
        QVector<QRgb> table(256, 0);
        const QVector<QRgb> old = image.colorTable();
        for (int i = 0; i < 256; ++i)
            table[i] = old.value(order.at(i));
        out.setColorTable(table);
    }
    return out;
}

QVector<bool> usedEntries(QSprites* sprites, int position)
{
    QVector<bool> used(256, false);
    QSet<const void*> seen;
    for (const QSprite* sprite : followers(sprites, position)) {
        if (seen.contains(sprite->imageData()))
            continue;
        seen.insert(sprite->imageData());
        const QImage image = sprite->image();
        for (int y = 0; y < image.height(); ++y) {
            const uchar* line = image.constScanLine(y);
            for (int x = 0; x < image.width(); ++x)
                used[line[x]] = true;
        }
    }
    return used;
}

bool reorder(QSprites* sprites, int position, const QVector<int>& order)
{
    QSpritePalette* palette = sprites ? sprites->paletteAt(position) : nullptr;
    if (!palette || !palette->colors() || !isOrder(order))
        return false;
    if (order == identity())
        return true;
    sprites->beginMacro(QStringLiteral("reorderPalette"));
    // Each shared picture is rewritten once, in place, for all its sprites.
    QSet<const void*> done;
    for (QSprite* sprite : followers(sprites, position)) {
        if (done.contains(sprite->imageData()))
            continue;
        done.insert(sprite->imageData());
        sprite->setImage(reorderPixels(sprite->image(), order), ssmReplace);
    }
    QRGBA colors[256];
    reorderColors(palette->colors(), order, colors);
    palette->setColors(colors, ssmShared);
    sprites->endMacro();
    return true;
}

} // namespace QPaletteEntries
