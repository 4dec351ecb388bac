#include "qpenseltool.h"

#include "image/qimagecanvas.h"

QPenSelTool::QPenSelTool(QImageCanvas* canvas)
    : QBasePenTool(canvas, false)
    , m_painter(&m_mono, &m_everywhere)
{
}

void QPenSelTool::mousePressed(const QImageToolMouseEvent& event, QCursor& cursor)
{
    // The selection may have changed by other tools since the last stroke.
    const QImageSelection* selection = m_canvas->selection();
    m_mask = selection->mask().copy();
    if (!selection->isActive())
        m_mask.fill(0);
    m_everywhere.setSize(m_mask.size());
    QBasePenTool::mousePressed(event, cursor);
}

void QPenSelTool::draw(const QPoint& at)
{
    m_painter.setImage(&m_mask);
    m_painter.setWidth(penSize());
    doDraw(at, &m_painter);
    m_last = at;
    m_canvas->selection()->fromMask(m_mask);
    emit m_canvas->selectionChanged();
    emit layerChanged();
}

void QPenSelTool::doDraw(const QPoint& at, QImagePainter* painter)
{
    painter->setColor(m_left ? 1 : 0);
    if (at != m_last)
        painter->line(m_last, at);
    else
        painter->point(at);
}
