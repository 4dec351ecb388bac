#pragma once

// Small canvases with a known palette, shared by the image editor's tests.

#include "image/qimagecanvas.h"
#include "image/qrasterlayer.h"
#include "image/qtableimagepalette.h"

#include <QImage>

/// A palette whose entry i is a distinct opaque colour (entry 0 transparent).
inline void fillTestPalette(QTableImagePalette& palette)
{
    QRGBA colors[256];
    for (int i = 1; i < 256; ++i)
        colors[i] = QRGBA(uchar(i), uchar((i * 7) & 0xff), uchar((i * 13) & 0xff), 255);
    palette.setColors(colors);
}

/// A canvas of `size` in `format` with one blank layer, active.
struct CanvasKit
{
    QTableImagePalette palette;
    QImageCanvas canvas { &palette };
    QImageLayer* layer = nullptr;

    CanvasKit(QImageCanvasFormat format, const QSize& size)
    {
        fillTestPalette(palette);
        canvas.setFormat(format, false);
        canvas.setSize(size, QPoint(), false);
        layer = canvas.newRasterLayer();
        layer->setName(QStringLiteral("Base"), false);
        canvas.layers()->add(layer, false);
        canvas.setActiveLayer(layer);
    }

    /// The palette entry of a pixel of the active layer, whatever the format.
    int at(int x, int y) const
    {
        const QImage& image = canvas.activeLayer()->image();
        if (image.format() == QImage::Format_Indexed8)
            return image.pixelIndex(x, y);
        return palette.index(QColor::fromRgba(image.pixel(x, y)));
    }
    /// How many pixels of the active layer have entry `index`.
    int count(int index) const
    {
        int n = 0;
        const QSize size = canvas.activeLayer()->image().size();
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x)
                n += at(x, y) == index ? 1 : 0;
        return n;
    }
};
