#include "benchutil.h"
#include "image/qcolorquantizer.h"
#include "image/qhqxfilter.h"

#include <QByteArray>
#include <QImage>
#include <QRandomGenerator>

#include <cstring>

namespace {

/// A photograph-like picture: smooth gradients with noise, many thousand colours.
QImage photo(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    QRandomGenerator random(7);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const int noise = int(random.bounded(24));
            image.setPixel(x, y, qRgb((x * 255 / width + noise) & 255, (y * 255 / height + noise) & 255,
                                      ((x + y) * 127 / (width + height) + noise * 2) & 255));
        }
    return image;
}

/// Sprite-like pixel art: flat blocks, outlines and diagonals in a dozen colours.
QImage pixelArt(int width, int height)
{
    static const QRgb colours[] = {0xff000000, 0xffffffff, 0xffd04040, 0xff40d040, 0xff4040d0, 0xffe0c080,
                                   0xff806040, 0xff202060, 0xffc0c0c0, 0xff606060, 0xfff0a000, 0xff00a0f0};
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const int block = (x / 7 + y / 5) % 12;
            const bool diagonal = (x + y) % 13 == 0 || (x - y + 1000) % 17 == 0;
            image.setPixel(x, y, colours[diagonal ? (block + 5) % 12 : block]);
        }
    return image;
}

} // namespace

int main()
{
    {
        const QImage image = photo(640, 480);
        QByteArray copy(int(image.sizeInBytes()), Qt::Uninitialized);
        const double copyMs = bench::bestMs(20, [&] {
            std::memcpy(copy.data(), image.constBits(), size_t(image.sizeInBytes()));
            bench::keep(copy);
        });
        const double quantizeMs = bench::bestMs(5, [&] {
            QColorQuantizer quantizer(256, 8);
            quantizer.processImage(image);
            QVector<QRgb> table;
            quantizer.getColorTable(table);
            bench::keep(table);
        });
        bench::report("copy 640x480 true-colour pixels", copyMs, copyMs);
        bench::report("quantize 640x480 to 256 colours", quantizeMs, copyMs);
    }
    {
        const QImage image = pixelArt(320, 240);
        const unsigned width = unsigned(image.width());
        const unsigned height = unsigned(image.height());
        QByteArray input(int(width * height * 4), Qt::Uninitialized);
        std::memcpy(input.data(), image.constBits(), size_t(input.size()));
        QByteArray copy(input.size(), Qt::Uninitialized);
        QByteArray output(int(width * height * 16 * 4), Qt::Uninitialized);
        const double copyMs = bench::bestMs(20, [&] {
            std::memcpy(copy.data(), input.constData(), size_t(input.size()));
            bench::keep(copy);
        });
        const double hqMs = bench::bestMs(5, [&] {
            HQ4X_Filter(reinterpret_cast<unsigned char*>(input.data()), reinterpret_cast<unsigned char*>(output.data()),
                        width, height, width * 4 * 4);
            bench::keep(output);
        });
        bench::report("copy 320x240 pixels", copyMs, copyMs);
        bench::report("hq4x 320x240 to 1280x960", hqMs, copyMs);
    }
    return 0;
}
