#pragma once

#include "image/qbasepentool.h"

/// Paints the background over everything (left button), or only over
/// pixels of the foreground colour (right button).
class QEraserTool : public QBasePenTool
{
    Q_OBJECT
public:
    explicit QEraserTool(QImageCanvas* canvas)
        : QBasePenTool(canvas, true)
    {
    }

protected:
    void doDraw(const QPoint& at, QImagePainter* painter) override;
};
