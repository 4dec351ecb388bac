#include "qspritecommands.h"

#include "model/qsprites.h"

SpriteListCommand::SpriteListCommand(QSprites* sprites, int position)
    : SpriteUndoCommand(sprites)
    , m_position(position)
{
}

void SpriteListCommand::capture()
{
    const QSprite* sprite = m_sprites->at(m_position);
    m_properties = sprite->properties();
    m_image.hold(sprite->image());
    m_sharer = m_sprites->imageSharer(m_position);
}

void SpriteListCommand::takeOut()
{
    capture();
    m_sprites->deleteSprite(m_position);
}

void SpriteListCommand::putBack()
{
    QSprite* sprite = m_sprites->insertSprite(m_position);
    sprite->setProperties(m_properties);
    m_sprites->restoreImage(m_position, m_image.image(), m_sharer);
    m_image.hold(QImage());
}

SpriteMove::SpriteMove(QSprites* sprites, int from, int to)
    : ListMove(sprites, &QSprites::moveSprite, from, to)
{
}

SpriteChangeInfo::SpriteChangeInfo(QSprites* sprites, int position)
    : SwapCommand(sprites)
    , m_position(position)
    , m_properties(sprites->at(position)->properties())
{
}

void SpriteChangeInfo::swap()
{
    QSprite* sprite = m_sprites->at(m_position);
    const QSpriteProperties present = sprite->properties();
    sprite->setProperties(m_properties);
    m_properties = present;
}

void SpritePixels::hold(Held& held, QSprites* sprites, int position)
{
    held.hold(sprites->at(position)->image());
}

int SpritePixels::sharer(QSprites* sprites, int position)
{
    return sprites->imageSharer(position);
}

void SpritePixels::store(QSprites* sprites, int position, const QImage& image)
{
    sprites->at(position)->storeImage(image);
}

void SpritePixels::restore(QSprites* sprites, int position, const QImage& image, int sharer)
{
    sprites->restoreImage(position, image, sharer);
}
