#pragma once

#include <QImage>

/// What a payload's header tells without decoding it: size and pixel format.
/// A null info (format invalid) means the header could not be read.
struct QImageInfo
{
    int width = 0;
    int height = 0;
    QImage::Format format = QImage::Format_Invalid;

    bool isNull() const { return format == QImage::Format_Invalid; }
};
