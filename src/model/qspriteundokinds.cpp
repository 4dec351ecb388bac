#include "qspriteundokinds.h"

#include "model/qsprites.h"

ListMove::ListMove(QSprites* sprites, Mover move, int from, int to)
    : SpriteUndoCommand(sprites)
    , m_move(move)
    , m_from(from)
    , m_to(to)
{
}

void ListMove::doRedo()
{
    (m_sprites->*m_move)(m_from, m_to);
}

void ListMove::doUndo()
{
    (m_sprites->*m_move)(m_to, m_from);
}
