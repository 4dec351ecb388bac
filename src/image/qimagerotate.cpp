#include "qimagerotate.h"

#include "qimageresize.h"

#include <algorithm>
#include <cmath>

namespace {

/// sincosf leaves noise of about 1e-7 at right angles; a corner that is an
/// integer but for that noise must not lose a row to truncation.
float settle(float value)
{
    const float whole = std::round(value);
    return std::fabs(value - whole) < 1e-3f ? whole : value;
}

template<typename T>
void copyRotated(const QImage& source, QImage& target, int minX, int minY, float cosine, float sine)
{
    const int width = source.width();
    const int height = source.height();
    for (int ty = 0; ty < target.height(); ++ty) {
        T* line = reinterpret_cast<T*>(target.scanLine(ty));
        const float y = float(ty + minY) + 0.5f;
        for (int tx = 0; tx < target.width(); ++tx) {
            const float x = float(tx + minX) + 0.5f;
            const int sx = int(std::floor(x * cosine + y * sine));
            const int sy = int(std::floor(y * cosine - x * sine));
            if (sx >= 0 && sx < width && sy >= 0 && sy < height)
                line[tx] = reinterpret_cast<const T*>(source.constScanLine(sy))[sx];
        }
    }
}

} // namespace

QImage rotateImage(const QImage& image, float radians, unsigned int fill)
{
    const QImage source = toScalableFormat(image);
    if (source.isNull())
        return QImage();
    float sine = 0;
    float cosine = 1;
    sincosf(radians, &sine, &cosine);
    sine = settle(sine);
    cosine = settle(cosine);

    const float corners[4][2] = {{0, 0},
                                 {float(source.width()), 0},
                                 {0, float(source.height())},
                                 {float(source.width()), float(source.height())}};
    int minX = 0, maxX = 0, minY = 0, maxY = 0;
    for (int i = 0; i < 4; ++i) {
        const int x = int(settle(corners[i][0] * cosine - corners[i][1] * sine));
        const int y = int(settle(corners[i][0] * sine + corners[i][1] * cosine));
        minX = i ? std::min(minX, x) : x;
        maxX = i ? std::max(maxX, x) : x;
        minY = i ? std::min(minY, y) : y;
        maxY = i ? std::max(maxY, y) : y;
    }

    QImage target(std::max(maxX - minX, 1), std::max(maxY - minY, 1), source.format());
    target.setColorTable(source.colorTable());
    target.fill(fill);
    if (source.format() == QImage::Format_Indexed8)
        copyRotated<uchar>(source, target, minX, minY, cosine, sine);
    else
        copyRotated<quint32>(source, target, minX, minY, cosine, sine);
    return target;
}
