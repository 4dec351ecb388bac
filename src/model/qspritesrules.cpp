// What the engine expects of a sprite file: the order of its sprites and
// the faults that checkErrors reports.

#include "qsprites.h"

#include "model/qproject.h"
#include "model/qspriteimagedata.h"

#include <QHash>
#include <iterator>

namespace {

/// The sprites every character must have: the hit and fall poses the engine
/// shows on its own.
const QSubItem requiredSprs[] = {
    {5000, 0}, {5000, 10}, {5000, 20}, {5001, 0}, {5001, 10}, {5001, 20}, {5002, 0}, {5002, 10}, {5002, 20},
    {5010, 0}, {5010, 10}, {5010, 20}, {5011, 0}, {5011, 10}, {5011, 20}, {5012, 0}, {5012, 10}, {5012, 20},
    {5020, 0}, {5020, 10}, {5020, 20}, {5030, 0}, {5030, 10}, {5030, 20}, {5030, 30}, {5030, 40}, {5030, 50},
    {5031, 0}, {5031, 10}, {5031, 20}, {5031, 30}, {5031, 40}, {5031, 50}, {5032, 0}, {5032, 10}, {5032, 20},
    {5032, 30}, {5032, 40}, {5032, 50}, {5040, 0}, {5040, 10}, {5040, 20}, {5041, 0}, {5041, 10}, {5041, 20},
    {5042, 0}, {5042, 10}, {5042, 20}, {5060, 0}, {5060, 10}, {5061, 0}, {5061, 10}, {5062, 0}, {5062, 10},
    {5070, 0}, {5070, 10}, {5070, 20}, {5071, 0}, {5071, 10}, {5071, 20}, {5072, 0}, {5072, 10}, {5072, 20},
};
static_assert(std::size(requiredSprs) == 63, "a character has 63 required sprites");

int compareValues(qint32 a, qint32 b)
{
    return a < b ? -1 : (a > b ? 1 : 0);
}

int compareItems(const QSubItem& a, const QSubItem& b)
{
    return a.group != b.group ? compareValues(a.group, b.group) : compareValues(a.index, b.index);
}

bool isCharacterPaletteGroup(const QSpritePalette* palette)
{
    return palette && palette->itemGroup() == 1;
}

/// Sprites 0,0 and 9000,0 take the character's palette in a character.
bool takesCharacterPalette(const QSprite* sprite)
{
    return sprite->subItem() == QSubItem(0, 0) || sprite->subItem() == QSubItem(9000, 0);
}

} // namespace

int QSprites::palOrgCompare(const QSprite* a, const QSprite* b) const
{
    if (m_version == version101) {
        const bool aPortrait = a->itemGroup() == 9000, bPortrait = b->itemGroup() == 9000;
        if (aPortrait != bPortrait)
            return aPortrait ? -1 : 1;
        const QSpritePalette* pa = a->palette();
        const QSpritePalette* pb = b->palette();
        if (!pa != !pb)
            return pa ? -1 : 1;
        if (isCharacterPaletteGroup(pa) != isCharacterPaletteGroup(pb))
            return isCharacterPaletteGroup(pa) ? -1 : 1;
        // The engine wants the sprites of one palette together; which palette
        // comes first has no meaning, so the objects' addresses decide.
        if (pa && pb && pa != pb && !isCharacterPaletteGroup(pa))
            return reinterpret_cast<quintptr>(pa) < reinterpret_cast<quintptr>(pb) ? -1 : 1;
    }
    return compareItems(a->subItem(), b->subItem());
}

void QSprites::autoOrganize()
{
    beginMacro(QStringLiteral("autoOrganize"));
    for (int i = 1; i < m_sprites.size(); ++i) {
        for (int j = 0; j < i; ++j) {
            if (palOrgCompare(m_sprites.at(i), m_sprites.at(j)) < 0) {
                move(unsigned(i), unsigned(j));
                break;
            }
        }
    }
    endMacro();
}

QProjectType QSprites::projectType() const
{
    // A sprite file opened on its own is checked by the rules of a character.
    return project() ? project()->type() : ptCharacter;
}

void QSprites::checkErrors()
{
    QMessages* list = messages();
    list->beginChange();
    list->clear();
    for (const QString& fault : qAsConst(m_readFaults))
        list->add(mtError, fault, -1, -1);
    if (!m_sprites.isEmpty()) {
        checkSprites(projectType());
        checkPalettes();
    }
    list->endChange();
}

void QSprites::checkSprites(QProjectType type)
{
    QMessages* list = messages();
    const bool character = type == ptCharacter;
    QHash<QSubItem, QList<int>> seen;
    for (int i = 0; i < m_sprites.size(); ++i) {
        const QSprite* sprite = m_sprites.at(i);
        const QImageInfo info = sprite->imageInfo();
        if (info.isNull())
            list->add(mtError, tr("Empty sprite!"), i, QMsg::SpriteItem);
        else if (info.format == QImage::Format_Indexed8 && !sprite->palette())
            list->add(mtError, tr("Indexed sprite without palette!"), i, QMsg::SpriteItem);
        if (!info.isNull() && m_version != defaultVersion && info.format != QImage::Format_Indexed8)
            list->add(mtError,
                      tr("Image format not supported for the current version (automatic conversion to "
                         "8bit will be made on save)!"),
                      i, QMsg::SpriteItem);
        if (character && m_version == version101 && i > 0 && isCharacterPaletteGroup(sprite->palette())
            && !takesCharacterPalette(sprite)) {
            const QSprite* previous = m_sprites.at(i - 1);
            if (!takesCharacterPalette(previous) && !isCharacterPaletteGroup(previous->palette()))
                list->add(mtWarning, tr("Sprite can't receive the group 1 (character) palette at his position!"),
                          i, QMsg::SpriteItem);
        }
        QList<int>& earlier = seen[sprite->subItem()];
        for (int other : std::as_const(earlier))
            list->add(mtWarning,
                      tr("The group %2, index %3 is already in use by sprite #%4!")
                          .arg(sprite->itemGroup())
                          .arg(sprite->itemIndex())
                          .arg(other + 1),
                      i, QMsg::SpriteItem);
        earlier.append(i);
    }
    if (!character)
        return;
    for (const QSubItem& required : requiredSprs)
        if (!seen.contains(required))
            list->add(mtWarning, tr("Required sprite %1, %2 is missing!").arg(required.group).arg(required.index),
                      -1, QMsg::SpriteItem);
}

void QSprites::checkPalettes()
{
    QMessages* list = messages();
    QHash<QSubItem, QList<int>> seen;
    for (int i = 0; i < m_palettes.size(); ++i) {
        const QSpritePalette* palette = m_palettes.at(i);
        if (!palette->data())
            list->add(mtError, tr("Empty palette!"), i, QMsg::PaletteItem);
        QList<int>& earlier = seen[palette->subItem()];
        for (int other : std::as_const(earlier))
            list->add(mtWarning,
                      tr("The group %2, index %3 is already in use by palette #%4!")
                          .arg(palette->itemGroup())
                          .arg(palette->itemIndex())
                          .arg(other + 1),
                      i, QMsg::PaletteItem);
        earlier.append(i);
    }
}
