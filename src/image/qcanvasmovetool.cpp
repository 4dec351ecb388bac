#include "qcanvasmovetool.h"

#include "image/qimagecanvas.h"

void QCanvasMoveTool::mousePressed(const QImageToolMouseEvent& event, QCursor& cursor)
{
    QImageTool::mousePressed(event, cursor);
    m_start = m_canvas->position();
    cursor = QCursor(Qt::ClosedHandCursor);
}

void QCanvasMoveTool::mouseMoved(const QImageToolMouseEvent& event, QCursor& cursor)
{
    if (!m_pressed) {
        cursor = QCursor(Qt::OpenHandCursor);
        return;
    }
    cursor = QCursor(Qt::ClosedHandCursor);
    m_canvas->setPosition(m_start + event.screen - m_pressScreen);
}

void QCanvasMoveTool::mouseReleased(const QImageToolMouseEvent& event, QCursor& cursor)
{
    QImageTool::mouseReleased(event, cursor);
    cursor = QCursor(Qt::OpenHandCursor);
}
