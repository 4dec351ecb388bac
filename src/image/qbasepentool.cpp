#include "qbasepentool.h"

#include "image/qimagecanvas.h"
#include "image/qimagepainter.h"

#include <QPainter>

QBasePenTool::QBasePenTool(QImageCanvas* canvas, bool recordsUndo)
    : QImageTool(canvas)
    , m_recordsUndo(recordsUndo)
{
}

void QBasePenTool::setPenSize(int size)
{
    size = qBound(1, size, maxPenSize);
    if (size == m_penSize)
        return;
    m_penSize = size;
    emit penSizeChanged(size);
}

bool QBasePenTool::keyPressed(Qt::KeyboardModifiers, int key)
{
    if (key == Qt::Key_Plus && m_penSize < maxPenSize) {
        setPenSize(m_penSize + 1);
        return true;
    }
    if (key == Qt::Key_Minus && m_penSize > 1) {
        setPenSize(m_penSize - 1);
        return true;
    }
    return false;
}

void QBasePenTool::mousePressed(const QImageToolMouseEvent& event, QCursor& cursor)
{
    QImageTool::mousePressed(event, cursor);
    QImageLayer* layer = visibleLayer();
    if (m_recordsUndo && layer)
        m_canvas->changing(layer);
    m_left = event.button == Qt::LeftButton;
    m_shift = event.modifiers.testFlag(Qt::ShiftModifier);
    m_last = event.canvas;
    cursor = QCursor(Qt::BlankCursor);
    if (layer)
        draw(event.canvas);
}

void QBasePenTool::mouseMoved(const QImageToolMouseEvent& event, QCursor& cursor)
{
    cursor = QCursor(Qt::BlankCursor);
    if (m_pressed && visibleLayer())
        draw(event.canvas);
}

void QBasePenTool::mouseReleased(const QImageToolMouseEvent& event, QCursor& cursor)
{
    QImageTool::mouseReleased(event, cursor);
    m_canvas->finishEdit();
}

void QBasePenTool::draw(const QPoint& at)
{
    QImagePainter* painter = m_canvas->painter();
    if (!painter)
        return;
    painter->setWidth(m_penSize);
    doDraw(at, painter);
    m_last = at;
    emit layerChanged();
}

void QBasePenTool::paintStroke(const QPoint& at, QImagePainter* painter, bool shiftJoins)
{
    if (at != m_last)
        painter->line(m_last, at);
    else if (shiftJoins && m_shift && m_hasStrokeEnd)
        painter->line(m_strokeEnd, at);
    else
        painter->point(at);
    m_strokeEnd = at;
    m_hasStrokeEnd = true;
}

void QBasePenTool::renderCursor(QPainter* painter, const QPoint& at, double)
{
    setColor(painter, QColor(0, 0, 0, 200));
    drawPlainRect(painter, QRect(at, QSize(m_penSize, m_penSize)).adjusted(-1, -1, 1, 1));
    setColor(painter, QColor(255, 255, 255, 200));
    drawPlainRect(painter, QRect(at, QSize(m_penSize, m_penSize)));
}
