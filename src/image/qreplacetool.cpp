#include "qreplacetool.h"

#include "image/qimagepainter.h"

void QReplaceTool::setPair(int row, unsigned char from, unsigned char to)
{
    m_pairs[row] = Pair { true, from, to };
    emit pairsChanged();
}

void QReplaceTool::clearPair(int row)
{
    m_pairs[row] = Pair();
    emit pairsChanged();
}

void QReplaceTool::setCurrentRow(int row)
{
    m_row = qBound(0, row, pairCount - 1);
    emit pairsChanged();
}

bool QReplaceTool::keyPressed(Qt::KeyboardModifiers modifiers, int key)
{
    if (QBasePenTool::keyPressed(modifiers, key))
        return true;
    if (key == Qt::Key_Up && m_row > 0) {
        setCurrentRow(m_row - 1);
        return true;
    }
    if (key == Qt::Key_Down && m_row < pairCount - 1) {
        setCurrentRow(m_row + 1);
        return true;
    }
    return false;
}

void QReplaceTool::colorClicked(bool left, unsigned char index)
{
    Pair& pair = m_pairs[m_row];
    if (!pair.set)
        pair = Pair { true, index, index };
    (left ? pair.from : pair.to) = index;
    emit pairsChanged();
}

void QReplaceTool::doDraw(const QPoint& at, QImagePainter* painter)
{
    if (m_shift)
        return;
    bool any = false;
    for (const Pair& pair : m_pairs) {
        if (!pair.set)
            continue;
        painter->setRemap(m_left ? pair.from : pair.to, m_left ? pair.to : pair.from);
        any = true;
    }
    if (any)
        paintStroke(at, painter, false);
    painter->clearRemap();
}
