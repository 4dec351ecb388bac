#include "qimageselection.h"

#include "image/qopaquebounds.h"

#include <QPainter>

#include <cstring>

namespace {

QImage blankMask(const QSize& size)
{
    QImage mask(size, QImage::Format_Grayscale8);
    mask.fill(0);
    return mask;
}

} // namespace

void QImageSelection::cacheMask()
{
    m_width = m_mask.width();
    m_height = m_mask.height();
    m_bits = m_mask.constBits();
    m_stride = m_mask.bytesPerLine();
}

void QImageSelection::fromMask(const QImage& mask)
{
    m_mask = blankMask(m_mask.size());
    const int rows = qMin(mask.height(), m_mask.height());
    const int bytes = qMin(mask.width(), m_mask.width());
    for (int y = 0; y < rows; ++y)
        std::memcpy(m_mask.scanLine(y), mask.constScanLine(y), size_t(bytes));
    m_queries = true;
    cacheMask();
}

void QImageSelection::fromRect(const QRect& rect)
{
    m_mask = blankMask(m_mask.size());
    const QRect inside = rect.normalized() & m_mask.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        std::memset(m_mask.scanLine(y) + inside.left(), 1, size_t(inside.width()));
    m_queries = true;
    cacheMask();
}

void QImageSelection::clear()
{
    m_mask = blankMask(m_mask.size());
    m_queries = false;
    cacheMask();
}

QImage QImageSelection::filter(const QImage& image, bool inside, unsigned int fill) const
{
    QImage out = image.copy();
    const bool wide = out.depth() == 32;
    for (int y = 0; y < out.height(); ++y) {
        uchar* row = out.scanLine(y);
        for (int x = 0; x < out.width(); ++x) {
            if (isSelected(x, y) == inside)
                continue;
            if (wide)
                reinterpret_cast<quint32*>(row)[x] = fill;
            else
                row[x] = uchar(fill);
        }
    }
    return out;
}

void QImageSelection::setSize(const QSize& size)
{
    m_mask = blankMask(size);
    m_queries = false;
    cacheMask();
}

QRect QImageSelection::boundingRect() const
{
    return m_queries ? opaqueBounds(m_mask) : QRect();
}

void QImageSelection::translate(const QPoint& offset)
{
    QImage moved = blankMask(m_mask.size());
    for (int y = 0; y < m_mask.height(); ++y) {
        const int ty = y + offset.y();
        if (ty < 0 || ty >= m_mask.height())
            continue;
        const uchar* from = m_mask.constScanLine(y);
        uchar* to = moved.scanLine(ty);
        for (int x = 0; x < m_mask.width(); ++x) {
            const int tx = x + offset.x();
            if (from[x] && tx >= 0 && tx < m_mask.width())
                to[tx] = 1;
        }
    }
    m_mask = moved;
    cacheMask();
}

void QImageSelection::render(QPainter* painter) const
{
    if (!m_queries)
        return;
    QImage tint(m_mask.size(), QImage::Format_ARGB32_Premultiplied);
    tint.fill(Qt::transparent);
    const QRgb blue = qPremultiply(qRgba(40, 120, 255, 90));
    for (int y = 0; y < m_mask.height(); ++y) {
        const uchar* row = m_mask.constScanLine(y);
        auto* out = reinterpret_cast<QRgb*>(tint.scanLine(y));
        for (int x = 0; x < m_mask.width(); ++x)
            if (row[x])
                out[x] = blue;
    }
    painter->save();
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter->setOpacity(1.0);
    painter->drawImage(0, 0, tint);
    const QRect bounds = boundingRect();
    if (!bounds.isEmpty()) {
        QPen pen(QColor(20, 80, 220), 0, Qt::DashLine);
        painter->setPen(pen);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(QRectF(bounds).adjusted(0, 0, 0, 0));
    }
    painter->restore();
}
