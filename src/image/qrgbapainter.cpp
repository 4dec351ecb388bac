#include "qrgbapainter.h"

#include "image/qimagepalette.h"

void QRGBAPainter::setColor(unsigned char index)
{
    m_value = m_palette->color(index).rgba();
}

void QRGBAPainter::setPixel(int x, int y)
{
    QRgb& target = reinterpret_cast<QRgb*>(m_image->scanLine(y))[x];
    target = hasRemap() ? m_palette->color(remapped(indexOf(target))).rgba() : m_value;
}

bool QRGBAPainter::canDraw(int x, int y) const
{
    return !hasRemap() || isRemapKey(indexOf(pixel(x, y)));
}

unsigned char QRGBAPainter::color(const QPoint& point) const
{
    return inImage(point.x(), point.y()) ? indexOf(pixel(point.x(), point.y())) : 0;
}

unsigned char QRGBAPainter::indexOf(unsigned int value) const
{
    return m_palette->index(QColor::fromRgba(value));
}
