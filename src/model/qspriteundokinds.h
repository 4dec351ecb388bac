#pragma once

// The shapes that the sprite commands and the palette commands have in
// common. The sprite list and the palette list are undone the same way, and
// so are shared pixels and shared colours; only what an item holds and how
// it is reached differ, and those stay with the sprite or palette commands.

#include "model/qspriteundocommand.h"

/**
 * An item inserted into its list at a position; make it after the insertion.
 * ItemCommand is the item's list command, which knows how to capture,
 * take out and put back one item at the position it was made with.
 */
template <class ItemCommand>
class ListInsert : public ItemCommand
{
public:
    using ItemCommand::ItemCommand;

protected:
    void doRedo() override { this->putBack(); }
    void doUndo() override { this->takeOut(); }
};

/// An item removed from its list; make it before the removal, which it records.
template <class ItemCommand>
class ListRemove : public ItemCommand
{
public:
    ListRemove(QSprites* sprites, int position)
        : ItemCommand(sprites, position)
    {
        this->capture();
    }

protected:
    void doRedo() override { this->takeOut(); }
    void doUndo() override { this->putBack(); }
};

/// An item moved within its list by one of the file's raw move operations.
class ListMove : public SpriteUndoCommand
{
public:
    using Mover = void (QSprites::*)(int from, int to);

    ListMove(QSprites* sprites, Mover move, int from, int to);

protected:
    void doRedo() override;
    void doUndo() override;

private:
    Mover m_move;
    int m_from;
    int m_to;
};

/// A command whose redo and undo are the same step: it exchanges the values
/// it holds with the ones the model has.
class SwapCommand : public SpriteUndoCommand
{
public:
    using SpriteUndoCommand::SpriteUndoCommand;

protected:
    virtual void swap() = 0;

    void doRedo() final { swap(); }
    void doUndo() final { swap(); }
};

/**
 * The shared data of one item (pixels of a sprite, colours of a palette),
 * swapped on each replay. A change that rewrote the shared data for all its
 * sharers (setInPlace) is replayed on that data; any other is replayed on
 * this item alone, rejoining the item it shared with before, or taking data
 * of its own.
 *
 * Data says how: `Held` keeps the data in the command, `value(held)` copies
 * it out, `hold(held, sprites, position)` keeps the item's present data, and
 * `sharer`, `store` (in place) and `restore` (relinking) reach the model.
 */
template <class Data>
class SharedDataChange : public SwapCommand
{
public:
    SharedDataChange(QSprites* sprites, int position)
        : SwapCommand(sprites)
        , m_position(position)
        , m_sharer(Data::sharer(sprites, position))
    {
        Data::hold(m_held, sprites, position);
    }

    void setInPlace(bool inPlace) { m_inPlace = inPlace; }

protected:
    void swap() override
    {
        const auto held = Data::value(m_held);
        Data::hold(m_held, m_sprites, m_position);
        const int sharer = Data::sharer(m_sprites, m_position);
        if (m_inPlace)
            Data::store(m_sprites, m_position, held);
        else
            Data::restore(m_sprites, m_position, held, m_sharer);
        m_sharer = sharer;
    }

private:
    int m_position;
    typename Data::Held m_held;
    int m_sharer;
    bool m_inPlace = false;
};
