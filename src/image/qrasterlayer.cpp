#include "qrasterlayer.h"

#include "image/qimagecanvas.h"
#include "image/qimagepalette.h"
#include "image/qimageresize.h"
#include "image/qimagerotate.h"
#include "image/qopaquebounds.h"

#include <cstring>

QRasterLayer::QRasterLayer(QImageCanvas* canvas, const QImage& image)
    : QImageLayer(canvas)
    , m_image(image)
{
}

void QRasterLayer::render(QPainter* painter) const
{
    painter->save();
    painter->setCompositionMode(blendMode());
    painter->setOpacity(opacity());
    if (m_image.format() == QImage::Format_Indexed8) {
        // A view on the same bytes takes the palette, so that the undo copy
        // that shares the layer's pixels is not detached by a new colour table.
        QImage view(m_image.constBits(), m_image.width(), m_image.height(), m_image.bytesPerLine(),
            QImage::Format_Indexed8);
        view.setColorTable(canvas()->palette()->toRgbPal());
        painter->drawImage(0, 0, view);
    } else {
        painter->drawImage(0, 0, m_image);
    }
    painter->restore();
}

QRect QRasterLayer::cropRect() const
{
    return opaqueBounds(m_image);
}

QImageLayer* QRasterLayer::duplicate() const
{
    auto* copy = new QRasterLayer(canvas(), m_image);
    copy->setName(name(), false);
    copy->setBlendMode(blendMode(), false);
    copy->setOpacity(opacity(), false);
    copy->setVisible(isVisible());
    return copy;
}

QImage QRasterLayer::converted(const QImage& image, QImageCanvasFormat format, const QImagePalette* palette)
{
    const QImage::Format wanted = canvasImageFormat(format);
    if (image.format() == wanted)
        return image;
    QImage out(image.size(), wanted);
    if (wanted == QImage::Format_Indexed8) {
        const QImage source = image.convertToFormat(QImage::Format_ARGB32);
        for (int y = 0; y < source.height(); ++y) {
            const auto* in = reinterpret_cast<const QRgb*>(source.constScanLine(y));
            uchar* to = out.scanLine(y);
            for (int x = 0; x < source.width(); ++x)
                to[x] = palette->index(QColor::fromRgba(in[x]));
        }
        out.setColorTable(palette->toRgbPal());
    } else if (image.format() == QImage::Format_Indexed8) {
        // Indices of a layer mean the canvas palette, not the image's own table.
        const QVector<QRgb> table = palette->toRgbPal();
        for (int y = 0; y < image.height(); ++y) {
            const uchar* in = image.constScanLine(y);
            auto* to = reinterpret_cast<QRgb*>(out.scanLine(y));
            for (int x = 0; x < image.width(); ++x)
                to[x] = table.at(in[x]);
        }
    } else {
        out = image.convertToFormat(wanted);
    }
    return out;
}

void QRasterLayer::reformat(QImageCanvasFormat format, QImagePalette* palette)
{
    if (m_image.format() == canvasImageFormat(format))
        return;
    canvas()->changing(this);
    m_image = converted(m_image, format, palette);
}

void QRasterLayer::resize(const QSize& size, QImageResizeFilter filter)
{
    if (m_image.size() == size)
        return;
    canvas()->changing(this);
    m_image = resizeImage(m_image, size, canvas()->palette()->toRgbPal(), filter);
}

void QRasterLayer::resize(const QSize& size, QPoint offset, unsigned int fill)
{
    if (m_image.size() == size && offset.isNull())
        return;
    canvas()->changing(this);
    QImage out(size, m_image.format());
    if (m_image.format() == QImage::Format_Indexed8)
        out.fill(uint(fill & 0xff));
    else
        out.fill(QColor::fromRgba(fill));
    const QRect source = QRect(QPoint(0, 0), m_image.size()) & QRect(-offset, size);
    const int bytes = m_image.depth() / 8;
    for (int y = source.top(); y <= source.bottom(); ++y)
        std::memcpy(out.scanLine(y + offset.y()) + (source.left() + offset.x()) * bytes,
            m_image.constScanLine(y) + source.left() * bytes, size_t(source.width() * bytes));
    m_image = out;
}

void QRasterLayer::rotate(float radians, unsigned int fill)
{
    canvas()->changing(this);
    m_image = rotateImage(m_image, radians, fill);
}

void QRasterLayer::flip(bool horizontal, bool vertical)
{
    if (!horizontal && !vertical)
        return;
    canvas()->changing(this);
    m_image = m_image.mirrored(horizontal, vertical);
}
