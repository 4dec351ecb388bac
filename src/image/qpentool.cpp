#include "qpentool.h"

#include "image/qimagecanvas.h"
#include "image/qimagepainter.h"
#include "image/qimagepalette.h"

void QPenTool::doDraw(const QPoint& at, QImagePainter* painter)
{
    QImagePalette* palette = m_canvas->palette();
    painter->setColor(m_left ? palette->foreground() : palette->background());
    paintStroke(at, painter, true);
}
