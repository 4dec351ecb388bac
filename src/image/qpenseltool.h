#pragma once

#include "image/qbasepentool.h"
#include "image/qimageselection.h"
#include "image/qindexpainter.h"
#include "image/qmonopalette.h"

/// Paints the selection instead of pixels: the left button adds to it, another button takes away.
class QPenSelTool : public QBasePenTool
{
    Q_OBJECT
public:
    explicit QPenSelTool(QImageCanvas* canvas);

    void mousePressed(const QImageToolMouseEvent& event, QCursor& cursor) override;

protected:
    void draw(const QPoint& at) override;
    void doDraw(const QPoint& at, QImagePainter* painter) override;

private:
    QImage m_mask;
    QMonoPalette m_mono;
    QImageSelection m_everywhere; // the mask itself is never clipped
    QIndexPainter m_painter;
};
