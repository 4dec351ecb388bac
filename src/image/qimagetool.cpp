#include "qimagetool.h"

#include "image/qimagecanvas.h"
#include "image/qimagelayer.h"

#include <QPainter>

QImageTool::QImageTool(QImageCanvas* canvas)
    : m_canvas(canvas)
{
}

bool QImageTool::keyPressed(Qt::KeyboardModifiers, int)
{
    return false;
}

void QImageTool::mousePressed(const QImageToolMouseEvent& event, QCursor&)
{
    m_pressed = true;
    m_pressScreen = event.screen;
    m_pressCanvas = event.canvas;
}

void QImageTool::mouseReleased(const QImageToolMouseEvent&, QCursor&)
{
    m_pressed = false;
}

void QImageTool::mouseMoved(const QImageToolMouseEvent&, QCursor&)
{
}

void QImageTool::renderCursor(QPainter*, const QPoint&, double)
{
}

void QImageTool::colorClicked(bool, unsigned char)
{
}

void QImageTool::setColor(QPainter* painter, const QColor& colour)
{
    painter->setPen(Qt::NoPen);
    painter->setBrush(colour);
}

void QImageTool::drawPlainLine(QPainter* painter, const QPoint& at, const QSize& size)
{
    painter->drawRect(QRect(at, size));
}

void QImageTool::drawPlainRect(QPainter* painter, const QRect& rect)
{
    drawPlainLine(painter, rect.topLeft(), QSize(rect.width(), 1));
    drawPlainLine(painter, rect.bottomLeft(), QSize(rect.width(), 1));
    drawPlainLine(painter, rect.topLeft(), QSize(1, rect.height()));
    drawPlainLine(painter, rect.topRight(), QSize(1, rect.height()));
}

QImageLayer* QImageTool::visibleLayer() const
{
    QImageLayer* layer = m_canvas->activeLayer();
    return layer && layer->isVisible() ? layer : nullptr;
}
