#include "qerasertool.h"

#include "image/qimagecanvas.h"
#include "image/qimagepainter.h"
#include "image/qimagepalette.h"

void QEraserTool::doDraw(const QPoint& at, QImagePainter* painter)
{
    QImagePalette* palette = m_canvas->palette();
    painter->setColor(palette->background());
    if (!m_left)
        painter->setRemap(palette->foreground(), palette->background());
    paintStroke(at, painter, false);
    painter->clearRemap();
}
