#pragma once

// The undo commands of sprite edits. Each is made before its change and
// captures what the change will replace; positions stay valid because the
// undo stack replays changes strictly in reverse order.

#include "model/qspritetypes.h"
#include "model/qspriteundokinds.h"

/**
 * A whole sprite taken out of the list or put back: its properties, its
 * pixels in the undo cache, and which sprite it shared its record with, so
 * that putting it back restores the link as well as the picture.
 */
class SpriteListCommand : public SpriteUndoCommand
{
public:
    SpriteListCommand(QSprites* sprites, int position);

protected:
    /// Records the sprite as it stands, without touching it.
    void capture();
    void takeOut();
    void putBack();

private:
    int m_position;
    QSpriteProperties m_properties;
    SpriteUndoImage m_image;
    int m_sharer = -1;
};

/// An empty sprite inserted at a position.
using SpriteInsert = ListInsert<SpriteListCommand>;
/// A sprite removed; make it before the removal, which it records.
using SpriteRemove = ListRemove<SpriteListCommand>;

class SpriteMove : public ListMove
{
public:
    SpriteMove(QSprites* sprites, int from, int to);
};

/// Group, index, axis, flags and palette of one sprite, swapped on each replay.
class SpriteChangeInfo : public SwapCommand
{
public:
    SpriteChangeInfo(QSprites* sprites, int position);

protected:
    void swap() override;

private:
    int m_position;
    QSpriteProperties m_properties;
};

/// How SharedDataChange reaches the pixels of a sprite.
struct SpritePixels
{
    using Held = SpriteUndoImage;
    static QImage value(const Held& held) { return held.image(); }
    static void hold(Held& held, QSprites* sprites, int position);
    static int sharer(QSprites* sprites, int position);
    static void store(QSprites* sprites, int position, const QImage& image);
    static void restore(QSprites* sprites, int position, const QImage& image, int sharer);
};

/// The pixels of one sprite, swapped on each replay (see SharedDataChange).
using SpriteChangeImage = SharedDataChange<SpritePixels>;
