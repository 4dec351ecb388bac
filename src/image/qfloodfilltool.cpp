#include "qfloodfilltool.h"

#include "image/qimagecanvas.h"
#include "image/qimagepainter.h"
#include "image/qimagepalette.h"

void QFloodFillTool::pick(QImagePainter* painter, const QPoint& at)
{
    m_canvas->changing(m_canvas->activeLayer());
    painter->setWidth(1);
    painter->setColor(m_canvas->palette()->foreground());
    painter->floodFill(at, m_tolerance);
    m_canvas->finishEdit();
    m_canvas->layerPixelsChanged(m_canvas->activeLayer());
    emit layerChanged();
}
