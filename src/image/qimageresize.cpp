#include "qimageresize.h"

#include "qhqxfilter.h"
#include "qimageepx.h"
#include "formats/qpalettematcher.h"

#include <QByteArray>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

/// The colour table an indexed result carries: its source's, else the palette.
QVector<QRgb> tableFor(const QImage& source, const QVector<QRgb>& palette)
{
    return source.colorTable().isEmpty() ? palette : source.colorTable();
}

template<typename T>
void copyNearest(const QImage& source, QImage& target)
{
    const quint64 sourceWidth = quint64(source.width());
    const quint64 sourceHeight = quint64(source.height());
    const quint64 stepX = (sourceWidth << 16) / quint64(target.width()) + 1;
    const quint64 stepY = (sourceHeight << 16) / quint64(target.height()) + 1;
    quint64 fy = 0;
    for (int y = 0; y < target.height(); ++y, fy += stepY) {
        // The "+ 1" of the step only overshoots for absurd enlargements; stay inside.
        const T* src = reinterpret_cast<const T*>(source.constScanLine(int(std::min(fy >> 16, sourceHeight - 1))));
        T* dst = reinterpret_cast<T*>(target.scanLine(y));
        quint64 fx = 0;
        for (int x = 0; x < target.width(); ++x, fx += stepX)
            dst[x] = src[std::min(fx >> 16, sourceWidth - 1)];
    }
}

/// The second, plain half of a two-stage filter.
QImageResizeFilter plainHalf(QImageResizeFilter filter)
{
    return filter % 2 == 0 ? irfNearest : irfBilinear;
}

float enlargement(const QImage& source, const QSize& size)
{
    return std::max(float(size.height()) / float(source.height()), float(size.width()) / float(source.width()));
}

QImage fitTo(const QImage& staged, const QSize& size, const QVector<QRgb>& palette, QImageResizeFilter filter)
{
    return staged.size() == size ? staged : resizeImage(staged, size, palette, plainHalf(filter));
}

} // namespace

QImage toScalableFormat(const QImage& image)
{
    switch (image.format()) {
    case QImage::Format_Indexed8:
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
        return image;
    case QImage::Format_Mono:
    case QImage::Format_MonoLSB:
        return image.convertToFormat(QImage::Format_Indexed8);
    default:
        return image.convertToFormat(QImage::Format_ARGB32);
    }
}

QImage resizeImage(const QImage& image, const QSize& size, const QVector<QRgb>& palette, QImageResizeFilter filter)
{
    switch (filter) {
    case irfNearest:
        return resizeImageNearest(image, size);
    case irfBilinear:
        return resizeImageBilinear(image, size, palette);
    case irfEpxNearest:
    case irfEpxBilinear:
        return resizeImageEPX(image, size, palette, filter);
    case irfHqNearest:
    case irfHqBilinear:
        return resizeImageHQxX(image, size, palette, filter);
    }
    return QImage();
}

QImage resizeImageNearest(const QImage& image, const QSize& size)
{
    const QImage source = toScalableFormat(image);
    if (source.isNull() || size.isEmpty())
        return QImage();
    QImage target(size, source.format());
    target.setColorTable(source.colorTable());
    if (source.format() == QImage::Format_Indexed8)
        copyNearest<uchar>(source, target);
    else
        copyNearest<quint32>(source, target);
    return target;
}

QImage resizeImageBilinear(const QImage& image, const QSize& size, const QVector<QRgb>& palette)
{
    const QImage source = toScalableFormat(image);
    if (source.isNull() || size.isEmpty())
        return QImage();
    const bool indexed = source.format() == QImage::Format_Indexed8;
    QImage target(size, source.format());
    const QVector<QRgb> table = tableFor(source, palette);
    if (indexed)
        target.setColorTable(table);
    QPaletteMatcher matcher(palette);

    auto colourAt = [&](int x, int y) -> QRgb {
        if (!indexed)
            return reinterpret_cast<const QRgb*>(source.constScanLine(y))[x];
        const int index = source.constScanLine(y)[x];
        return index < palette.size() ? palette.at(index) : 0;
    };
    auto blend = [](int near, int far, double fraction) {
        return int(double(far) * fraction + double(near) * (1.0 - fraction)) & 0xff;
    };

    const double ratioX = double(source.width()) / double(size.width());
    const double ratioY = double(source.height()) / double(size.height());
    for (int y = 0; y < size.height(); ++y) {
        const double v = y * ratioY;
        const int top = int(std::floor(v));
        const int bottom = top + 1 < source.height() ? top + 1 : top;
        const double fy = v - top;
        uchar* line = target.scanLine(y);
        for (int x = 0; x < size.width(); ++x) {
            const double u = x * ratioX;
            const int left = int(std::floor(u));
            const int right = left + 1 < source.width() ? left + 1 : left;
            const double fx = u - left;
            const QRgb topLeft = colourAt(left, top), topRight = colourAt(right, top);
            const QRgb bottomLeft = colourAt(left, bottom), bottomRight = colourAt(right, bottom);
            int channels[4];
            for (int c = 0; c < 4; ++c) {
                const int shift = 8 * c;
                const int row1 = blend(int(topLeft >> shift & 0xff), int(topRight >> shift & 0xff), fx);
                const int row2 = blend(int(bottomLeft >> shift & 0xff), int(bottomRight >> shift & 0xff), fx);
                channels[c] = blend(row1, row2, fy);
            }
            const QRgb colour = qRgba(channels[2], channels[1], channels[0], channels[3]);
            if (indexed)
                line[x] = uchar(matcher.index(colour));
            else
                reinterpret_cast<QRgb*>(line)[x] = colour;
        }
    }
    return target;
}

QImage resizeImageEPX(const QImage& image, const QSize& size, const QVector<QRgb>& palette, QImageResizeFilter filter)
{
    const QImage source = toScalableFormat(image);
    if (source.isNull() || size.isEmpty())
        return QImage();
    const bool bytes = source.format() == QImage::Format_Indexed8;
    const auto twice = bytes ? resizeImageEPX2<uchar> : resizeImageEPX2<quint32>;
    const auto thrice = bytes ? resizeImageEPX3<uchar> : resizeImageEPX3<quint32>;

    const float factor = enlargement(source, size);
    QImage staged;
    if (factor > 3)
        staged = twice(twice(source));
    else if (factor > 2)
        staged = thrice(source);
    else
        staged = twice(source);
    return fitTo(staged, size, palette, filter);
}

QImage resizeImageHQxX(const QImage& image, const QSize& size, const QVector<QRgb>& palette, QImageResizeFilter filter)
{
    QImage source = toScalableFormat(image);
    if (source.isNull() || size.isEmpty())
        return QImage();
    const float factor = enlargement(source, size);
    const bool indexed = source.format() == QImage::Format_Indexed8;
    const QVector<QRgb> table = tableFor(source, palette);
    QImage colours = source;
    if (indexed) {
        QVector<QRgb> full = palette;
        full.resize(256);
        colours.setColorTable(full);
        colours = colours.convertToFormat(QImage::Format_ARGB32);
    }

    const unsigned width = unsigned(colours.width());
    const unsigned height = unsigned(colours.height());
    const unsigned scale = factor > 3 ? 4 : factor > 2 ? 3 : 2;
    const unsigned rowBytes = width * 4;
    QByteArray input(int(rowBytes * height), Qt::Uninitialized);
    for (unsigned y = 0; y < height; ++y)
        std::memcpy(input.data() + y * rowBytes, colours.constScanLine(int(y)), rowBytes);
    QByteArray output(int(rowBytes * height * scale * scale), Qt::Uninitialized);
    const unsigned pitch = rowBytes * scale;
    auto* in = reinterpret_cast<unsigned char*>(input.data());
    auto* out = reinterpret_cast<unsigned char*>(output.data());
    if (scale == 2)
        HQ2X_Filter(in, out, width, height, pitch);
    else if (scale == 3)
        HQ3X_Filter(in, out, width, height, pitch);
    else
        HQ4X_Filter(in, out, width, height, pitch);

    const int targetWidth = int(width * scale);
    const int targetHeight = int(height * scale);
    QImage staged(targetWidth, targetHeight, indexed ? QImage::Format_Indexed8 : source.format());
    if (indexed) {
        staged.setColorTable(table);
        QPaletteMatcher matcher(palette);
        for (int y = 0; y < targetHeight; ++y) {
            const QRgb* row = reinterpret_cast<const QRgb*>(output.constData() + y * pitch);
            uchar* line = staged.scanLine(y);
            for (int x = 0; x < targetWidth; ++x)
                line[x] = uchar(matcher.index(row[x]));
        }
    } else {
        for (int y = 0; y < targetHeight; ++y)
            std::memcpy(staged.scanLine(y), output.constData() + y * pitch, pitch);
    }
    return fitTo(staged, size, palette, filter);
}
