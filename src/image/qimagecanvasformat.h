#pragma once

#include <QImage>

/// How the layers of a canvas store their pixels: palette indices or colours.
enum QImageCanvasFormat {
    CanvasIndexed = 0, ///< every layer is Format_Indexed8 against the canvas palette
    CanvasRGBA = 1, ///< every layer is Format_ARGB32
};

/// The QImage format that layers and merge results of a canvas format have.
inline QImage::Format canvasImageFormat(QImageCanvasFormat format)
{
    return format == CanvasIndexed ? QImage::Format_Indexed8 : QImage::Format_ARGB32;
}
