#include "qopaquebounds.h"

QRect opaqueBounds(const QImage& image)
{
    if (image.format() == QImage::Format_RGB32)
        return image.rect();
    int left = image.width(), top = image.height(), right = -1, bottom = -1;
    const bool bytes = image.depth() == 8;
    for (int y = 0; y < image.height(); ++y) {
        const uchar* line = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            const bool opaque = bytes ? line[x] != 0 : qAlpha(reinterpret_cast<const QRgb*>(line)[x]) != 0;
            if (!opaque)
                continue;
            left = qMin(left, x);
            right = qMax(right, x);
            top = qMin(top, y);
            bottom = qMax(bottom, y);
        }
    }
    return right < 0 ? QRect() : QRect(QPoint(left, top), QPoint(right, bottom));
}
