#pragma once

#include <QImage>

#include <algorithm>

/*
 * EPX (Scale2x) and Scale3x enlargement. Both compare whole pixels for
 * equality only, so they run on the image's own pixel type: palette indices
 * (T = unsigned char, Format_Indexed8) or 32-bit colours (T = unsigned int).
 * Pixels beyond the border repeat the border.
 */

template<typename T>
QImage resizeImageEPX2(const QImage& image)
{
    const int width = image.width();
    const int height = image.height();
    QImage target(width * 2, height * 2, image.format());
    target.setColorTable(image.colorTable());
    for (int y = 0; y < height; ++y) {
        const T* up = reinterpret_cast<const T*>(image.constScanLine(std::max(y - 1, 0)));
        const T* mid = reinterpret_cast<const T*>(image.constScanLine(y));
        const T* down = reinterpret_cast<const T*>(image.constScanLine(std::min(y + 1, height - 1)));
        T* out0 = reinterpret_cast<T*>(target.scanLine(2 * y));
        T* out1 = reinterpret_cast<T*>(target.scanLine(2 * y + 1));
        for (int x = 0; x < width; ++x) {
            const T b = up[x];
            const T d = mid[std::max(x - 1, 0)];
            const T e = mid[x];
            const T f = mid[std::min(x + 1, width - 1)];
            const T h = down[x];
            T* o0 = out0 + 2 * x;
            T* o1 = out1 + 2 * x;
            if (b != h && d != f) {
                o0[0] = d == b ? d : e;
                o0[1] = b == f ? f : e;
                o1[0] = d == h ? d : e;
                o1[1] = h == f ? f : e;
            } else {
                o0[0] = o0[1] = o1[0] = o1[1] = e;
            }
        }
    }
    return target;
}

template<typename T>
QImage resizeImageEPX3(const QImage& image)
{
    const int width = image.width();
    const int height = image.height();
    QImage target(width * 3, height * 3, image.format());
    target.setColorTable(image.colorTable());
    for (int y = 0; y < height; ++y) {
        const T* up = reinterpret_cast<const T*>(image.constScanLine(std::max(y - 1, 0)));
        const T* mid = reinterpret_cast<const T*>(image.constScanLine(y));
        const T* down = reinterpret_cast<const T*>(image.constScanLine(std::min(y + 1, height - 1)));
        T* out0 = reinterpret_cast<T*>(target.scanLine(3 * y));
        T* out1 = reinterpret_cast<T*>(target.scanLine(3 * y + 1));
        T* out2 = reinterpret_cast<T*>(target.scanLine(3 * y + 2));
        for (int x = 0; x < width; ++x) {
            const int left = std::max(x - 1, 0);
            const int right = std::min(x + 1, width - 1);
            const T a = up[left], b = up[x], c = up[right];
            const T d = mid[left], e = mid[x], f = mid[right];
            const T g = down[left], h = down[x], i = down[right];
            T* o0 = out0 + 3 * x;
            T* o1 = out1 + 3 * x;
            T* o2 = out2 + 3 * x;
            if (b != h && d != f) {
                o0[0] = d == b ? d : e;
                o0[1] = (d == b && e != c) || (b == f && e != a) ? b : e;
                o0[2] = b == f ? f : e;
                o1[0] = (d == b && e != g) || (d == h && e != a) ? d : e;
                o1[1] = e;
                o1[2] = (b == f && e != i) || (h == f && e != c) ? f : e;
                o2[0] = d == h ? d : e;
                o2[1] = (d == h && e != i) || (h == f && e != g) ? h : e;
                o2[2] = h == f ? f : e;
            } else {
                o0[0] = o0[1] = o0[2] = o1[0] = o1[1] = o1[2] = o2[0] = o2[1] = o2[2] = e;
            }
        }
    }
    return target;
}
