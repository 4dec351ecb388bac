#pragma once

#include "image/qimagetool.h"

#include <QImage>

/**
 * Moves the selected pixels of the active layer, leaving transparency
 * behind; the selection moves with them. A drag is one undo step, and so
 * is each arrow key, which moves by one pixel.
 */
class QSelMoveTool : public QImageTool
{
    Q_OBJECT
public:
    using QImageTool::QImageTool;

    bool keyPressed(Qt::KeyboardModifiers modifiers, int key) override;
    void mousePressed(const QImageToolMouseEvent& event, QCursor& cursor) override;
    void mouseMoved(const QImageToolMouseEvent& event, QCursor& cursor) override;
    void mouseReleased(const QImageToolMouseEvent& event, QCursor& cursor) override;

private:
    bool begin();
    void moved(const QPoint& offset);
    void end();

    bool m_moving = false;
    QImage m_base; // the layer with the selected pixels taken out
    QImage m_floating; // the layer as it was, read where the mask is set
    QImage m_mask;
};
