#include "qselmovetool.h"

#include "image/qimagecanvas.h"
#include "image/qimagelayer.h"

#include <cstring>

bool QSelMoveTool::begin()
{
    QImageLayer* layer = visibleLayer();
    const QImageSelection* selection = m_canvas->selection();
    if (!layer || !selection->isActive())
        return false;
    m_canvas->changing(layer);
    m_floating = layer->image();
    m_base = selection->filter(m_floating, false, 0);
    m_mask = selection->mask().copy();
    m_moving = true;
    return true;
}

void QSelMoveTool::moved(const QPoint& offset)
{
    QImage image = m_base.copy();
    const int bytes = image.depth() / 8;
    QImage mask(m_mask.size(), m_mask.format());
    mask.fill(0);
    for (int y = 0; y < m_mask.height(); ++y) {
        const int ty = y + offset.y();
        if (ty < 0 || ty >= image.height() || ty >= mask.height())
            continue;
        const uchar* selected = m_mask.constScanLine(y);
        for (int x = 0; x < m_mask.width(); ++x) {
            const int tx = x + offset.x();
            if (!selected[x] || tx < 0 || tx >= image.width() || tx >= mask.width())
                continue;
            std::memcpy(
                image.scanLine(ty) + tx * bytes, m_floating.constScanLine(y) + x * bytes, size_t(bytes));
            mask.scanLine(ty)[tx] = 1;
        }
    }
    QImageLayer* layer = m_canvas->activeLayer();
    layer->setImage(image);
    m_canvas->selection()->fromMask(mask);
    emit m_canvas->selectionChanged();
    m_canvas->layerPixelsChanged(layer);
    emit layerChanged();
}

void QSelMoveTool::end()
{
    m_moving = false;
    m_base = QImage();
    m_floating = QImage();
    m_canvas->finishEdit();
}

bool QSelMoveTool::keyPressed(Qt::KeyboardModifiers, int key)
{
    QPoint step;
    switch (key) {
    case Qt::Key_Left:
        step = QPoint(-1, 0);
        break;
    case Qt::Key_Up:
        step = QPoint(0, -1);
        break;
    case Qt::Key_Right:
        step = QPoint(1, 0);
        break;
    case Qt::Key_Down:
        step = QPoint(0, 1);
        break;
    default:
        return false;
    }
    if (m_moving || !begin())
        return false;
    moved(step);
    end();
    return true;
}

void QSelMoveTool::mousePressed(const QImageToolMouseEvent& event, QCursor& cursor)
{
    QImageTool::mousePressed(event, cursor);
    cursor = QCursor(Qt::SizeAllCursor);
    begin();
}

void QSelMoveTool::mouseMoved(const QImageToolMouseEvent& event, QCursor& cursor)
{
    cursor = QCursor(Qt::SizeAllCursor);
    if (m_pressed && m_moving)
        moved(event.canvas - m_pressCanvas);
}

void QSelMoveTool::mouseReleased(const QImageToolMouseEvent& event, QCursor& cursor)
{
    QImageTool::mouseReleased(event, cursor);
    if (m_moving)
        end();
}
