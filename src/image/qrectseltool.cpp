#include "qrectseltool.h"

#include "image/qimagecanvas.h"

#include <QPainter>

#include <cstring>

void QRectSelTool::mousePressed(const QImageToolMouseEvent& event, QCursor& cursor)
{
    QImageTool::mousePressed(event, cursor);
    m_current = event.canvas;
    cursor = QCursor(Qt::CrossCursor);
}

void QRectSelTool::mouseMoved(const QImageToolMouseEvent& event, QCursor& cursor)
{
    if (m_pressed)
        m_current = event.canvas;
    cursor = QCursor(Qt::CrossCursor);
}

void QRectSelTool::mouseReleased(const QImageToolMouseEvent& event, QCursor& cursor)
{
    QImageTool::mouseReleased(event, cursor);
    QImageSelection* selection = m_canvas->selection();
    const QRect rect = event.canvas == m_pressCanvas ? QRect(QPoint(0, 0), m_canvas->size())
                                                     : QRect(m_pressCanvas, event.canvas).normalized();
    Mode mode = m_mode;
    if (event.modifiers.testFlag(Qt::ShiftModifier))
        mode = Add;
    else if (event.modifiers.testFlag(Qt::ControlModifier))
        mode = Subtract;

    if (mode == Replace || (mode == Add && !selection->isActive())) {
        selection->fromRect(rect);
    } else {
        QImage mask = selection->mask().copy();
        if (!selection->isActive())
            mask.fill(mode == Subtract ? 1 : 0); // taking from nothing selected means from everything
        const QRect inside = rect & mask.rect();
        for (int y = inside.top(); y <= inside.bottom(); ++y)
            std::memset(mask.scanLine(y) + inside.left(), mode == Add ? 1 : 0, size_t(inside.width()));
        selection->fromMask(mask);
    }
    emit m_canvas->selectionChanged();
    emit layerChanged();
}

void QRectSelTool::renderCursor(QPainter* painter, const QPoint& at, double)
{
    if (!m_pressed) {
        setColor(painter, QColor(0, 0, 0, 180));
        drawPlainRect(painter, QRect(at, QSize(1, 1)));
        return;
    }
    setColor(painter, QColor(20, 80, 220));
    drawPlainRect(painter, QRect(m_pressCanvas, m_current).normalized());
}
