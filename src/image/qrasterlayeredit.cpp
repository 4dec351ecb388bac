#include "qrasterlayeredit.h"

#include "image/qimagecanvas.h"
#include "image/qimagelayer.h"

#include <cstring>

RasterLayerEdit::RasterLayerEdit(QImageLayer* layer)
    : m_layer(layer)
    , m_saved(layer->image())
{
    m_layer->addRef();
}

RasterLayerEdit::~RasterLayerEdit()
{
    m_layer->canvas()->editGone(this);
    m_layer->release();
}

QRect RasterLayerEdit::changedRect(const QImage& before, const QImage& after)
{
    const int bytes = before.depth() / 8;
    const size_t rowBytes = size_t(before.width() * bytes);
    int top = -1, bottom = -1, left = before.width(), right = -1;
    for (int y = 0; y < before.height(); ++y) {
        const uchar* a = before.constScanLine(y);
        const uchar* b = after.constScanLine(y);
        if (std::memcmp(a, b, rowBytes) == 0)
            continue;
        if (top < 0)
            top = y;
        bottom = y;
        int x = 0;
        while (x < left && std::memcmp(a + x * bytes, b + x * bytes, size_t(bytes)) == 0)
            ++x;
        left = qMin(left, x);
        x = before.width() - 1;
        while (x > right && std::memcmp(a + x * bytes, b + x * bytes, size_t(bytes)) == 0)
            --x;
        right = qMax(right, x);
    }
    return top < 0 ? QRect() : QRect(QPoint(left, top), QPoint(right, bottom));
}

void RasterLayerEdit::compact()
{
    if (m_compact)
        return;
    m_compact = true;
    const QImage& now = m_layer->image();
    if (now.size() != m_saved.size() || now.format() != m_saved.format())
        return; // a resize or a change of format keeps the whole picture
    const QRect changed = changedRect(m_saved, now);
    m_whole = false;
    m_at = changed.topLeft();
    m_saved = changed.isEmpty() ? QImage() : m_saved.copy(changed);
}

void RasterLayerEdit::swap()
{
    compact();
    if (m_whole) {
        const QImage current = m_layer->image();
        m_layer->setImage(m_saved);
        m_saved = current;
    } else if (!m_saved.isNull()) {
        QImage& image = m_layer->image();
        const QRect area(m_at, m_saved.size());
        const QImage current = image.copy(area);
        const int bytes = image.depth() / 8;
        for (int y = 0; y < area.height(); ++y)
            std::memcpy(image.scanLine(area.top() + y) + area.left() * bytes, m_saved.constScanLine(y),
                size_t(area.width() * bytes));
        m_saved = current;
    }
    m_layer->canvas()->layerPixelsChanged(m_layer);
}
