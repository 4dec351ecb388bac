#include "qpalettecommands.h"

#include "model/qsprites.h"

#include <algorithm>

void PaletteUndoColors::hold(const QRGBA* colors)
{
    m_present = colors != nullptr;
    if (m_present)
        std::copy(colors, colors + 256, m_colors.begin());
}

PaletteListCommand::PaletteListCommand(QSprites* sprites, int position)
    : SpriteUndoCommand(sprites)
    , m_position(position)
{
}

void PaletteListCommand::capture()
{
    const QSpritePalette* palette = m_sprites->paletteAt(m_position);
    m_colors.hold(palette->colors());
    m_group = palette->itemGroup();
    m_index = palette->itemIndex();
    m_count = palette->colorCount();
    m_sharer = m_sprites->paletteSharer(m_position);
}

void PaletteListCommand::takeOut()
{
    capture();
    m_sprites->deletePalette(m_position);
}

void PaletteListCommand::putBack()
{
    QSpritePalette* palette = m_sprites->insertPaletteObject(m_position);
    palette->setSubItem(QSubItem(m_group, m_index));
    palette->setColorCount(m_count);
    m_sprites->restoreColors(m_position, m_colors.colors(), m_sharer);
}

PaletteMove::PaletteMove(QSprites* sprites, int from, int to)
    : ListMove(sprites, &QSprites::movePaletteObject, from, to)
{
}

PaletteChangeInfo::PaletteChangeInfo(QSprites* sprites, int position)
    : SwapCommand(sprites)
    , m_position(position)
    , m_group(sprites->paletteAt(position)->itemGroup())
    , m_index(sprites->paletteAt(position)->itemIndex())
    , m_count(sprites->paletteAt(position)->colorCount())
{
}

void PaletteChangeInfo::swap()
{
    QSpritePalette* palette = m_sprites->paletteAt(m_position);
    const QSubItem present = palette->subItem();
    const quint16 presentCount = palette->colorCount();
    palette->setSubItem(QSubItem(m_group, m_index));
    palette->setColorCount(m_count);
    m_group = present.group;
    m_index = present.index;
    m_count = presentCount;
}

void PaletteColors::hold(Held& held, QSprites* sprites, int position)
{
    held.hold(sprites->paletteAt(position)->colors());
}

int PaletteColors::sharer(QSprites* sprites, int position)
{
    return sprites->paletteSharer(position);
}

void PaletteColors::store(QSprites* sprites, int position, const PaletteUndoColors& colors)
{
    sprites->paletteAt(position)->storeColors(colors.colors());
}

void PaletteColors::restore(QSprites* sprites, int position, const PaletteUndoColors& colors, int sharer)
{
    sprites->restoreColors(position, colors.colors(), sharer);
}
