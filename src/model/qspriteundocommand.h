#pragma once

#include "model/qmodelundocommand.h"
#include "model/qsprites.h"
#include "model/qstreamcache.h"

#include <QImage>


/**
 * Base of the undo commands of a sprite file (see QModelUndoCommand): the
 * first redo() does nothing, both directions run under the file's change lock.
 */
class SpriteUndoCommand : public QModelUndoCommand<QSprites>
{
public:
    explicit SpriteUndoCommand(QSprites* sprites);

    /// Where commands keep pixels off the model: one process-wide cache on
    /// disk, zlib-compressed, holding decoded images.
    static QStreamCache& undoCache();

protected:
    QSprites* const m_sprites;
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
