#pragma once

#include <QImage>

/// An image as scripts draw it: 8-bit indexed with a 256-colour table, the
/// form sprites take, or whatever a sprite gave.
struct LImage
{
    LImage() = default;
    LImage(int width, int height);
    explicit LImage(const QImage& image) : image(image) {}

    QImage image;
};
