#include "qindexpainter.h"

#include "image/qimagepalette.h"

void QIndexPainter::setPixel(int x, int y)
{
    uchar& byte = m_image->scanLine(y)[x];
    byte = hasRemap() ? remapped(byte) : uchar(m_value);
}

bool QIndexPainter::canDraw(int x, int y) const
{
    return !hasRemap() || isRemapKey(uchar(pixel(x, y)));
}

unsigned char QIndexPainter::color(const QPoint& point) const
{
    return inImage(point.x(), point.y()) ? uchar(pixel(point.x(), point.y())) : 0;
}

QRgb QIndexPainter::valueColor(unsigned int value) const
{
    return m_palette->color(uchar(value)).rgba();
}
