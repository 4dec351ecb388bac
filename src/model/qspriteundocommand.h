#pragma once

#include "model/qstreamcache.h"

#include <QImage>
#include <QUndoCommand>

class QSprites;

/**
 * Base of the undo commands of a sprite file. A command is pushed after (or
 * around) the change it stands for, which the caller has already made, so
 * the first redo() that QUndoStack::push runs does nothing; later ones
 * replay the change through doRedo(). Both directions run under the file's
 * change lock, so that the edits they replay make no commands of their own.
 */
class SpriteUndoCommand : public QUndoCommand
{
public:
    explicit SpriteUndoCommand(QSprites* sprites);

    void redo() final;
    void undo() final;

    /// Where commands keep pixels off the model: one process-wide cache on
    /// disk, zlib-compressed, holding decoded images.
    static QStreamCache& undoCache();

protected:
    virtual void doRedo() = 0;
    virtual void doUndo() = 0;

    QSprites* m_sprites;

private:
    bool m_first = true;
};

/**
 * A picture kept by an undo command in the undo cache: its decoded bytes
 * with size and format, no colours (sprites store none). Holding a null
 * image keeps nothing. The payload is freed with the holder.
 */
class SpriteUndoImage
{
public:
    SpriteUndoImage() = default;
    ~SpriteUndoImage();
    SpriteUndoImage(const SpriteUndoImage&) = delete;
    SpriteUndoImage& operator=(const SpriteUndoImage&) = delete;

    void hold(const QImage& image);
    QImage image() const;

private:
    void release();

    QStreamCacheItem* m_item = nullptr;
    int m_width = 0;
    int m_height = 0;
    QImage::Format m_format = QImage::Format_Invalid;
};
