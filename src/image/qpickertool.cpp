#include "qpickertool.h"

#include "image/qimagecanvas.h"
#include "image/qimagepainter.h"
#include "image/qimagepalette.h"

#include <QPainter>

void QPickerTool::mousePressed(const QImageToolMouseEvent& event, QCursor& cursor)
{
    QImageTool::mousePressed(event, cursor);
    cursor = QCursor(Qt::BlankCursor);
}

void QPickerTool::mouseMoved(const QImageToolMouseEvent&, QCursor& cursor)
{
    cursor = QCursor(Qt::BlankCursor);
}

void QPickerTool::mouseReleased(const QImageToolMouseEvent& event, QCursor& cursor)
{
    QImageTool::mouseReleased(event, cursor);
    m_button = event.button;
    QImagePainter* painter = visibleLayer() ? m_canvas->painter() : nullptr;
    if (painter)
        pick(painter, event.canvas);
}

void QPickerTool::pick(QImagePainter* painter, const QPoint& at)
{
    if (m_button == Qt::LeftButton)
        m_canvas->palette()->setForeground(painter->color(at));
    else if (m_button == Qt::RightButton)
        m_canvas->palette()->setBackground(painter->color(at));
}

void QPickerTool::renderCursor(QPainter* painter, const QPoint& at, double)
{
    // A cross around the pixel that would be taken, open in the middle.
    setColor(painter, QColor(0, 0, 0, 220));
    drawPlainLine(painter, at + QPoint(-4, 0), QSize(3, 1));
    drawPlainLine(painter, at + QPoint(2, 0), QSize(3, 1));
    drawPlainLine(painter, at + QPoint(0, -4), QSize(1, 3));
    drawPlainLine(painter, at + QPoint(0, 2), QSize(1, 3));
    setColor(painter, QColor(255, 255, 255, 220));
    drawPlainRect(painter, QRect(at - QPoint(1, 1), QSize(3, 3)));
}
