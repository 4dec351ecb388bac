#pragma once

#include "image/qbasepentool.h"

/// Paints the foreground (left button) or background (other buttons);
/// a Shift-click draws a line from where the previous stroke ended.
class QPenTool : public QBasePenTool
{
    Q_OBJECT
public:
    explicit QPenTool(QImageCanvas* canvas)
        : QBasePenTool(canvas, true)
    {
    }

protected:
    void doDraw(const QPoint& at, QImagePainter* painter) override;
};
