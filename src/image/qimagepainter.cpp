#include "qimagepainter.h"

#include "image/qimageselection.h"

#include <QVector>

#include <cstdlib>

QImagePainter::QImagePainter(QImagePalette* palette, const QImageSelection* selection)
    : m_palette(palette)
    , m_selection(selection)
{
    m_remap.fill(-1);
}

void QImagePainter::point(const QPoint& point)
{
    for (int y = point.y(); y < point.y() + m_width; ++y)
        for (int x = point.x(); x < point.x() + m_width; ++x)
            if (inImage(x, y) && m_selection->clipQuery(x, y) && canDraw(x, y))
                setPixel(x, y);
}

void QImagePainter::line(const QPoint& from, const QPoint& to)
{
    int x = from.x(), y = from.y();
    const int dx = std::abs(to.x() - x), dy = std::abs(to.y() - y);
    const int sx = to.x() > x ? 1 : -1, sy = to.y() > y ? 1 : -1;
    point(from);
    if (dx >= dy) {
        int error = dx / 2;
        for (int i = 0; i < dx; ++i) {
            x += sx;
            error += dy;
            if (error >= dx) {
                y += sy;
                error -= dx;
            }
            point(QPoint(x, y));
        }
    } else {
        int error = dy / 2;
        for (int i = 0; i < dy; ++i) {
            y += sy;
            error += dx;
            if (error >= dy) {
                x += sx;
                error -= dy;
            }
            point(QPoint(x, y));
        }
    }
}

bool QImagePainter::matches(unsigned int seed, unsigned int value, int tolerance) const
{
    if (seed == value)
        return true;
    if (tolerance <= 0)
        return false;
    const QRgb a = valueColor(seed), b = valueColor(value);
    return std::abs(qRed(a) - qRed(b)) <= tolerance && std::abs(qGreen(a) - qGreen(b)) <= tolerance
        && std::abs(qBlue(a) - qBlue(b)) <= tolerance && std::abs(qAlpha(a) - qAlpha(b)) <= tolerance;
}

void QImagePainter::floodFill(const QPoint& seed, int tolerance)
{
    if (!inImage(seed.x(), seed.y()) || !m_selection->clipQuery(seed.x(), seed.y()))
        return;
    const unsigned int target = pixel(seed.x(), seed.y());
    if (target == m_value && tolerance <= 0)
        return;
    const int width = m_image->width(), height = m_image->height();
    // Pixels are read straight from the buffer, which bits() detaches now so
    // that the pointer stays valid while setPixel writes.
    const uchar* bits = m_image->bits();
    const qsizetype stride = m_image->bytesPerLine();
    const bool wide = m_image->depth() == 32;
    // Filled pixels may still match within a tolerance, so visits are marked.
    QByteArray visitedBytes(width * height, 0);
    char* visited = visitedBytes.data();
    auto open = [&](int x, int y) {
        if (visited[y * width + x] || !m_selection->clipQuery(x, y))
            return false;
        const uchar* row = bits + y * stride;
        return matches(target, wide ? reinterpret_cast<const quint32*>(row)[x] : row[x], tolerance);
    };

    // Columns are the unit: each seed walks up to the top of its run, then
    // fills downwards, leaving one seed per run met in the columns beside it.
    QVector<QPoint> stack;
    stack.reserve(1024);
    stack << seed;
    while (!stack.isEmpty()) {
        const QPoint p = stack.takeLast();
        const int x = p.x();
        int y = p.y();
        if (!open(x, y))
            continue;
        while (y > 0 && open(x, y - 1))
            --y;
        bool left = false, right = false;
        for (; y < height && open(x, y); ++y) {
            setPixel(x, y);
            visited[y * width + x] = 1;
            if (x > 0) {
                const bool run = open(x - 1, y);
                if (run && !left)
                    stack << QPoint(x - 1, y);
                left = run;
            }
            if (x + 1 < width) {
                const bool run = open(x + 1, y);
                if (run && !right)
                    stack << QPoint(x + 1, y);
                right = run;
            }
        }
    }
}

void QImagePainter::setRemap(unsigned char from, unsigned char to)
{
    if (m_remap[from] < 0)
        ++m_remapCount;
    m_remap[from] = to;
}

void QImagePainter::clearRemap()
{
    m_remap.fill(-1);
    m_remapCount = 0;
}
