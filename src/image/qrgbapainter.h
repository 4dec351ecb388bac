#pragma once

#include "image/qimagepainter.h"

/**
 * The painter of true-colour layers: a pixel is 0xAARRGGBB. Palette indices
 * become their colours on the way in, and colours the nearest entry on the
 * way out, which is how remaps and the colour picker work here.
 */
class QRGBAPainter : public QImagePainter
{
public:
    using QImagePainter::QImagePainter;

    void setColor(unsigned char index) override;
    unsigned int pixel(int x, int y) const override
    {
        return reinterpret_cast<const QRgb*>(m_image->constScanLine(y))[x];
    }
    void setPixel(int x, int y) override;
    bool canDraw(int x, int y) const override;
    unsigned char color(const QPoint& point) const override;

protected:
    QRgb valueColor(unsigned int value) const override { return value; }

private:
    unsigned char indexOf(unsigned int value) const;
};
