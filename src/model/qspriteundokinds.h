#pragma once

// The shapes that the sprite commands and the palette commands have in
// common. The sprite list and the palette list are undone the same way; only
// what an item holds differs, and that stays in the item's own command.

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
