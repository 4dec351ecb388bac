#include "testimages.h"

#include <QRandomGenerator>
#include <cstring>

namespace {

/// QImage::fill leaves row padding as it was; decoders zero it, so do that here.
QImage blankImage(int width, int height)
{
    QImage image(width, height, QImage::Format_Indexed8);
    std::memset(image.bits(), 0, size_t(image.sizeInBytes()));
    return image;
}

} // namespace

QImage patternImage(Pattern pattern, int width, int height, int colours, quint32 seed)
{
    QRandomGenerator random(seed);
    QImage image = blankImage(width, height);
    for (int y = 0; y < height; ++y) {
        uchar* row = image.scanLine(y);
        for (int x = 0; x < width; ++x) {
            int value = 0;
            switch (pattern) {
            case Pattern::Noise:
                value = int(random.bounded(colours));
                break;
            case Pattern::Stripes:
                value = ((x / 3) + (y / 5)) % colours;
                break;
            case Pattern::Sprite: {
                // A figure on a transparent ground: long zero runs around a
                // body of short runs and repeated rows.
                const int dx = x - width / 2, dy = y - height / 2;
                if (dx * dx * 4 + dy * dy < width * height / 2)
                    value = 1 + ((x / 2 + (y % 7)) % (colours - 1));
                break;
            }
            case Pattern::Gradient:
                value = (x * colours / qMax(1, width)) % colours;
                break;
            case Pattern::Dither:
                value = ((x + y) % 2 ? 3 : 17 + (x / 11) % 4) % colours;
                break;
            case Pattern::Flat:
                value = colours - 1;
                break;
            }
            row[x] = uchar(value);
        }
        // Rare single disturbances, so that runs and copies get broken.
        if (pattern != Pattern::Flat && width > 0 && random.bounded(4) == 0)
            row[random.bounded(width)] = uchar(random.bounded(colours));
    }
    return image;
}

QList<QPair<const char*, Pattern>> allPatterns()
{
    return { { "noise", Pattern::Noise }, { "stripes", Pattern::Stripes }, { "sprite", Pattern::Sprite },
             { "gradient", Pattern::Gradient }, { "dither", Pattern::Dither }, { "flat", Pattern::Flat } };
}

QByteArray pixelsOf(const QImage& image)
{
    return QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
}

QImage imageFromPixels(int width, int height, const QByteArray& pixels)
{
    QImage image = blankImage(width, height);
    for (int y = 0; y < height; ++y)
        std::memcpy(image.scanLine(y), pixels.constData() + qsizetype(y) * width, size_t(width));
    return image;
}

QByteArray tightPixels(const QImage& image)
{
    QByteArray out;
    for (int y = 0; y < image.height(); ++y)
        out.append(reinterpret_cast<const char*>(image.constScanLine(y)), image.width());
    return out;
}
