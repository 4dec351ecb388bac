#pragma once

#include "image/qimagepainter.h"

/// The painter of indexed layers: a pixel is a byte, the palette index itself.
class QIndexPainter : public QImagePainter
{
public:
    using QImagePainter::QImagePainter;

    void setColor(unsigned char index) override { m_value = index; }
    unsigned int pixel(int x, int y) const override { return m_image->constScanLine(y)[x]; }
    void setPixel(int x, int y) override;
    bool canDraw(int x, int y) const override;
    unsigned char color(const QPoint& point) const override;

protected:
    QRgb valueColor(unsigned int value) const override;
};
