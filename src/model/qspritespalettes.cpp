// The palette list of a sprite file: adding, removing and tidying palettes.

#include "qsprites.h"

#include "formats/qrgbpalette.h"
#include "model/qpalettecommands.h"
#include "model/qspritepalettedata.h"

#include <QSet>

QSpritePalette* QSprites::addPalette(const QRGBA* colors, QSpritePaletteShareMode share, qint32 group,
                                     qint32 index)
{
    return newPalette(m_palettes.size(), colors, share, group, index);
}

QSpritePalette* QSprites::addPalette(const QVector<QRgb>& table, QSpritePaletteShareMode share, qint32 group,
                                     qint32 index)
{
    QRGBA colors[256];
    colorTableToPalette(table, colors);
    return addPalette(colors, share, group, index);
}

QSpritePalette* QSprites::insertPalette(int position, const QRGBA* colors, QSpritePaletteShareMode share,
                                        qint32 group, qint32 index)
{
    return newPalette(position, colors, share, group, index);
}

QSpritePalette* QSprites::insertPalette(int position, const QVector<QRgb>& table,
                                        QSpritePaletteShareMode share, qint32 group, qint32 index)
{
    QRGBA colors[256];
    colorTableToPalette(table, colors);
    return insertPalette(position, colors, share, group, index);
}

QSpritePalette* QSprites::newPalette(int position, const QRGBA* colors, QSpritePaletteShareMode share,
                                     qint32 group, qint32 index)
{
    if (share != spsNew) {
        const int found = findPalette(colors, m_palettes.size());
        if (found >= 0 && !(share == spsReuseOthers && m_palettes.at(found)->itemGroup() == 1))
            return m_palettes.at(found);
    }
    if (index < 0)
        index = nextPaletteIndex(group);
    if (position < 0 || position > m_palettes.size())
        position = m_palettes.size();
    QSpritePalette* palette = insertPaletteObject(position);
    {
        ChangeLock lock(this);
        palette->setSubItem(QSubItem(group, index));
        palette->setColors(colors, ssmShared);
        // Palettes that use only the first 32 entries are stored short.
        palette->setColorCount(getPaletteColorCount(colors) < 32 ? 32 : 256);
    }
    pushCommand(new PaletteInsert(this, position));
    setModified(true);
    return palette;
}

void QSprites::removePalette(int position)
{
    QSpritePalette* palette = paletteAt(position);
    if (!palette)
        return;
    beginMacro(QStringLiteral("removePalette"));
    // The sprites lose the palette through their own edits, so that undo
    // gives each its link back.
    for (QSprite* sprite : std::as_const(m_sprites))
        if (sprite->palette() == palette)
            sprite->setPalette(nullptr);
    if (!isChangeLocked())
        pushCommand(new PaletteRemove(this, position));
    deletePalette(position);
    endMacro();
    setModified(true);
}

void QSprites::movePalette(int from, int to)
{
    if (!paletteAt(from) || !paletteAt(to) || from == to)
        return;
    movePaletteObject(from, to);
    pushCommand(new PaletteMove(this, from, to));
    setModified(true);
}

void QSprites::clearPalettes()
{
    beginMacro(QStringLiteral("clearPalettes"));
    for (int i = m_palettes.size() - 1; i >= 0; --i)
        removePalette(i);
    endMacro();
}

void QSprites::removeDuplicatePalettes()
{
    bool opened = false;
    for (int i = m_palettes.size() - 1; i > 0; --i) {
        QSpritePalette* duplicate = m_palettes.at(i);
        if (!duplicate->data())
            continue;
        int original = -1;
        for (int j = 0; j < i && original < 0; ++j)
            if (m_palettes.at(j)->data() == duplicate->data())
                original = j;
        if (original < 0)
            original = findPalette(duplicate->colors(), i);
        if (original < 0)
            continue;
        if (!opened) {
            beginMacro(QStringLiteral("removeDuplicatePalettes"));
            opened = true;
        }
        for (QSprite* sprite : std::as_const(m_sprites))
            if (sprite->palette() == duplicate)
                sprite->setPalette(m_palettes.at(original));
        removePalette(i);
    }
    if (opened) {
        endMacro();
        setModified(true);
    }
}

void QSprites::clearUnusedPalettes()
{
    QSet<const QSpritePalette*> used;
    for (const QSprite* sprite : std::as_const(m_sprites))
        used.insert(sprite->palette());
    bool opened = false;
    for (int i = m_palettes.size() - 1; i >= 0; --i) {
        const QSpritePalette* palette = m_palettes.at(i);
        if (used.contains(palette) || palette->itemGroup() == 1)
            continue;
        if (!opened) {
            beginMacro(QStringLiteral("removeUnusedPalettes"));
            opened = true;
        }
        removePalette(i);
    }
    if (opened)
        endMacro();
}
