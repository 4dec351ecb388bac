#include "qpaletteobject.h"

#include "model/qsprites.h"

QPaletteObject::QPaletteObject(QSprites* sprites)
    : m_sprites(sprites)
{
}

void QPaletteObject::beginChange()
{
    m_sprites->beginChange();
}

void QPaletteObject::endChange()
{
    m_sprites->endChange();
}

void QPaletteObject::remove(unsigned int position)
{
    m_sprites->removePalette(int(position));
}

void QPaletteObject::move(unsigned int from, unsigned int to)
{
    m_sprites->movePalette(int(from), int(to));
}

int QPaletteObject::orgCompare(const QSpritePalette* a, const QSpritePalette* b)
{
    if (a->itemGroup() != b->itemGroup())
        return a->itemGroup() < b->itemGroup() ? -1 : 1;
    return a->itemIndex() < b->itemIndex() ? -1 : (a->itemIndex() > b->itemIndex() ? 1 : 0);
}

void QPaletteObject::autoOrganize()
{
    m_sprites->beginMacro(QStringLiteral("autoOrganize"));
    for (int i = 1; i < m_sprites->paletteCount(); ++i) {
        for (int j = 0; j < i; ++j) {
            if (orgCompare(m_sprites->paletteAt(i), m_sprites->paletteAt(j)) < 0) {
                m_sprites->movePalette(i, j);
                break;
            }
        }
    }
    m_sprites->endMacro();
}

int QPaletteObject::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_sprites->paletteCount();
}

QVariant QPaletteObject::data(const QModelIndex& index, int role) const
{
    const QSpritePalette* palette = m_sprites->paletteAt(index.row());
    if (!palette || role != Qt::DisplayRole)
        return QVariant();
    return QStringLiteral("%1, %2").arg(palette->itemGroup()).arg(palette->itemIndex());
}
