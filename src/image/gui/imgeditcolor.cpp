#include "imgeditcolor.h"

#include "image/qimagepalette.h"

#include <QMouseEvent>
#include <QPainter>

ImgEditColor::ImgEditColor(QImagePalette* palette, QWidget* parent)
    : QWidget(parent)
    , m_palette(palette)
{
    connect(palette, &QImagePalette::paletteChanged, this, qOverload<>(&QWidget::update));
    connect(palette, &QImagePalette::foregroundChanged, this, qOverload<>(&QWidget::update));
    connect(palette, &QImagePalette::backgroundChanged, this, qOverload<>(&QWidget::update));
    setToolTip(tr("Left click: foreground, right click: background"));
}

void ImgEditColor::setColor(const unsigned int& colour)
{
    m_shown = colour;
    update();
}

QSize ImgEditColor::sizeHint() const
{
    return QSize(16 * cell + 1, swatchHeight + 8 + 16 * cell + 1);
}

QRect ImgEditColor::entryRect(int index) const
{
    return QRect((index % 16) * cell, swatchHeight + 8 + (index / 16) * cell, cell, cell);
}

int ImgEditColor::entryAt(const QPoint& point) const
{
    const int x = point.x() / cell, y = (point.y() - swatchHeight - 8) / cell;
    if (point.y() < swatchHeight + 8 || x < 0 || x >= 16 || y >= 16)
        return -1;
    return y * 16 + x;
}

void ImgEditColor::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    // The background swatch lies behind the foreground one, as in most paint programs.
    const uchar fg = m_palette->foreground(), bg = m_palette->background();
    const QRect back(22, 14, 30, 24), front(4, 2, 30, 24);
    painter.setPen(Qt::black);
    painter.setBrush(m_palette->color(bg));
    painter.drawRect(back);
    painter.setBrush(m_palette->color(fg));
    painter.drawRect(front);
    painter.setBrush(QColor::fromRgba(m_shown));
    painter.drawRect(QRect(16 * cell - 30, 8, 28, 24));
    painter.drawText(QRect(60, 0, 16 * cell - 94, swatchHeight), Qt::AlignLeft | Qt::AlignVCenter,
        tr("FG %1\nBG %2").arg(fg).arg(bg));

    for (int i = 0; i < 256; ++i) {
        const QRect r = entryRect(i);
        painter.fillRect(r, m_palette->color(uchar(i)).rgb());
        painter.setPen(QColor(0, 0, 0, 60));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(r);
    }
    // Entry 0 is the transparent one: crossed out.
    painter.setPen(Qt::red);
    painter.drawLine(entryRect(0).topLeft(), entryRect(0).bottomRight());
    painter.setPen(QPen(Qt::white, 2));
    painter.drawRect(entryRect(bg).adjusted(1, 1, -1, -1));
    painter.setPen(QPen(Qt::black, 2));
    painter.drawRect(entryRect(fg).adjusted(1, 1, -1, -1));
}

void ImgEditColor::mousePressEvent(QMouseEvent* event)
{
    const int index = entryAt(event->position().toPoint());
    if (index < 0)
        return;
    const bool left = event->button() == Qt::LeftButton;
    if (left)
        m_palette->setForeground(uchar(index));
    else if (event->button() == Qt::RightButton)
        m_palette->setBackground(uchar(index));
    emit colorClicked(left, uchar(index));
}
