#pragma once

#include "image/qimageundocommand.h"

#include <QImage>
#include <QPoint>

class QImageLayer;

/**
 * The undo step of an edit of a layer's pixels. It starts as a copy of the
 * whole image taken before the edit (shared with the layer until the layer
 * is first written). Once the edit is over, compact() keeps only the
 * rectangle that changed, so a stroke of a few pixels holds a few pixels
 * rather than a second picture. Undo and redo swap the held pixels with the
 * layer's.
 */
class RasterLayerEdit : public ImageUndoCommand
{
public:
    explicit RasterLayerEdit(QImageLayer* layer);
    ~RasterLayerEdit() override;

    void undo() override { swap(); }
    /// Shrinks the held copy to the rectangle that differs from the layer now.
    void compact();
    /// Bytes of pixels this step holds.
    qsizetype heldBytes() const { return m_saved.sizeInBytes(); }
    QImageLayer* layer() const { return m_layer; }

    /// The smallest rectangle in which two images of one size and format differ.
    static QRect changedRect(const QImage& before, const QImage& after);

protected:
    void doRedo() override { swap(); }

private:
    void swap();

    QImageLayer* m_layer;
    QImage m_saved;
    QPoint m_at;
    bool m_compact = false;
    bool m_whole = true;
};
