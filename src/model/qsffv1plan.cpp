#include "qsffv1plan.h"

#include "formats/qpalettematcher.h"
#include "model/qsprites.h"

#include <QHash>

namespace {

/// Sprites 0,0 and 9000,0 are read with the character's palette in a character.
bool takesCharacterPalette(const QSprite* sprite)
{
    return sprite->imageData() && sprite->itemIndex() == 0 && (sprite->itemGroup() == 0 || sprite->itemGroup() == 9000);
}

QVector<QRgb> tableOf(const QSprite* sprite)
{
    return sprite->palette() ? sprite->palette()->colorTable() : QVector<QRgb>(256, 0u);
}

/// The entries an indexed picture uses.
QList<bool> usedEntries(const QImage& image)
{
    QList<bool> used(256, false);
    for (int y = 0; y < image.height(); ++y) {
        const uchar* line = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x)
            used[line[x]] = true;
    }
    return used;
}

/**
 * Puts the colours of `image` that `table` lacks into entries nobody uses
 * (those `taken` does not mark), from 255 down; false when room runs out.
 */
bool addMissingColours(const QImage& image, QVector<QRgb>& table, QList<bool>& taken)
{
    const QList<bool> used = usedEntries(image);
    const QVector<QRgb> own = image.colorTable();
    int free = 255;
    for (int p = 1; p < 256; ++p) {
        if (!used.at(p))
            continue;
        const QRgb colour = own.value(p) & 0xFFFFFFu;
        bool present = false;
        for (int i = 1; i < 256 && !present; ++i)
            present = (table.at(i) & 0xFFFFFFu) == colour;
        if (present)
            continue;
        while (free > 0 && taken.at(free))
            --free;
        if (free == 0)
            return false;
        table[free] = colour | 0xFF000000u;
        taken[free] = true;
    }
    return true;
}

} // namespace

QByteArray pcxColours(const QVector<QRgb>& table)
{
    QByteArray colours(768, '\0');
    for (int i = 0; i < 256 && i < table.size(); ++i) {
        colours[3 * i] = char(qRed(table.at(i)));
        colours[3 * i + 1] = char(qGreen(table.at(i)));
        colours[3 * i + 2] = char(qBlue(table.at(i)));
    }
    return colours;
}

QSFFv1Plan::QSFFv1Plan(const QSprites* sprites, bool character)
{
    m_entries.resize(sprites->count());
    for (int i = 0; i < sprites->count(); ++i)
        m_entries[i].colours = pcxColours(tableOf(sprites->at(i)));
    if (character)
        fitCharacterPalette(sprites);
    planLinksAndPalettes(sprites, character);
}

void QSFFv1Plan::fitCharacterPalette(const QSprites* sprites)
{
    QList<int> special;
    for (int i = 0; i < sprites->count(); ++i)
        if (takesCharacterPalette(sprites->at(i)))
            special.append(i);
    if (special.isEmpty())
        return;
    m_carrier = special.first();
    // The standing pose's colours are the character's; the others fit around them.
    int base = special.first();
    for (int i : special)
        if (sprites->at(i)->itemGroup() == 0) {
            base = i;
            break;
        }
    QVector<QRgb> table = tableOf(sprites->at(base));
    QList<bool> taken = usedEntries(sprites->at(base)->image());
    taken[0] = true;
    QList<QImage> pictures;
    for (int i : special) {
        QImage picture = sprites->at(i)->image(sipOwn);
        if (i != base && !addMissingColours(picture, table, taken))
            m_losses << QStringLiteral("%1,%2").arg(sprites->at(i)->itemGroup()).arg(sprites->at(i)->itemIndex());
        pictures.append(picture);
    }
    const QByteArray colours = pcxColours(table);
    for (int k = 0; k < special.size(); ++k) {
        Entry& entry = m_entries[special.at(k)];
        QImage picture = pictures.at(k);
        const QByteArray before(reinterpret_cast<const char*>(picture.constBits()), picture.sizeInBytes());
        if (QPaletteMatcher::remapExactly(picture, table)
            && before != QByteArray::fromRawData(reinterpret_cast<const char*>(picture.constBits()), picture.sizeInBytes()))
            entry.remapped = picture;
        entry.colours = colours;
    }
}

void QSFFv1Plan::planLinksAndPalettes(const QSprites* sprites, bool character)
{
    // The colours the reader gives each sprite, and those in force after it.
    QList<QByteArray> shown(sprites->count());
    QByteArray current;
    QHash<const QSpriteImageData*, QList<int>> earlierOf; // the sprites written in full, by picture
    for (int i = 0; i < sprites->count(); ++i) {
        const QSprite* sprite = sprites->at(i);
        Entry& entry = m_entries[i];
        const bool special = character && takesCharacterPalette(sprite);
        if (!special && entry.remapped.isNull() && sprite->imageData()) {
            for (int j : earlierOf.value(sprite->imageData())) {
                if (shown.at(j) == entry.colours || current == entry.colours) {
                    entry.link = j;
                    break;
                }
            }
        }
        if (entry.link < 0 && entry.remapped.isNull() && sprite->imageData())
            earlierOf[sprite->imageData()].append(i);
        if (i == m_carrier)
            entry.samePalette = false; // the character's colours must be in the file
        else
            entry.samePalette = i > 0 && current == entry.colours;
        shown[i] = entry.colours;
        current = entry.colours;
    }
}
