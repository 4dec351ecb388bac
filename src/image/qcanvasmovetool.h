#pragma once

#include "image/qimagetool.h"

/// Pans the view by dragging, in screen pixels.
class QCanvasMoveTool : public QImageTool
{
    Q_OBJECT
public:
    using QImageTool::QImageTool;

    void mousePressed(const QImageToolMouseEvent& event, QCursor& cursor) override;
    void mouseMoved(const QImageToolMouseEvent& event, QCursor& cursor) override;
    void mouseReleased(const QImageToolMouseEvent& event, QCursor& cursor) override;

private:
    QPoint m_start;
};
