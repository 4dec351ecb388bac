#include "qpalettegrid.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

QPaletteGrid::QPaletteGrid(QWidget* parent)
    : QWidget(parent)
{
    setMinimumSize(16 * 8, 16 * 8);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    setToolTip(tr("Click a colour to pick it, double-click to change it."));
}

void QPaletteGrid::setColors(const QRGBA* colors)
{
    m_empty = colors == nullptr;
    if (colors)
        std::copy(colors, colors + 256, m_colors);
    update();
}

void QPaletteGrid::select(int index)
{
    if (index < 0 || index > 255 || index == m_selected)
        return;
    m_selected = index;
    update();
    emit picked(index);
}

QRect QPaletteGrid::cell(int index) const
{
    const int side = qMax(1, (qMin(width(), height()) - 1) / 16);
    return QRect((index % 16) * side, (index / 16) * side, side, side);
}

int QPaletteGrid::indexAt(const QPoint& point) const
{
    const int side = qMax(1, (qMin(width(), height()) - 1) / 16);
    const int column = point.x() / side;
    const int row = point.y() / side;
    return column >= 0 && column < 16 && row >= 0 && row < 16 ? row * 16 + column : -1;
}

void QPaletteGrid::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor line = palette().color(QPalette::Mid);
    for (int i = 0; i < 256; ++i) {
        const QRect box = cell(i);
        if (m_empty)
            painter.fillRect(box, palette().color(QPalette::Window));
        else
            painter.fillRect(box, QColor(m_colors[i].r, m_colors[i].g, m_colors[i].b));
        painter.setPen(line);
        painter.drawRect(box);
    }
    if (!m_empty) {
        // Entry 0 never shows in the engine.
        painter.setPen(QPen(palette().color(QPalette::Text), 1));
        painter.drawLine(cell(0).topLeft(), cell(0).bottomRight());
    }
    const QRect chosen = cell(m_selected).adjusted(0, 0, 0, 0);
    painter.setPen(QPen(Qt::white, 3));
    painter.drawRect(chosen);
    painter.setPen(QPen(Qt::black, 1));
    painter.drawRect(chosen);
}

void QPaletteGrid::mousePressEvent(QMouseEvent* event)
{
    const int index = indexAt(event->position().toPoint());
    if (index >= 0)
        select(index);
}

void QPaletteGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    const int index = indexAt(event->position().toPoint());
    if (index >= 0 && !m_empty)
        emit activated(index);
}
