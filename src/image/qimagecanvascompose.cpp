// Composition of the layer stack and the edits built on it: merging,
// flattening, and the clipboard's copies and pastes.

#include "image/qimagecanvas.h"
#include "image/qimagepalette.h"
#include "image/qrasterlayer.h"

#include <QPainter>

#include <cstring>
#include <vector>

namespace {

/// `image` on a transparent picture of `size`, its top-left corner at `at`.
QImage placed(const QImage& image, const QSize& size, const QPoint& at, const QVector<QRgb>& table)
{
    QImage out(size, image.format());
    out.fill(0);
    if (image.format() == QImage::Format_Indexed8)
        out.setColorTable(table);
    const QRect area = QRect(at, image.size()) & out.rect();
    const int bytes = image.depth() / 8;
    for (int y = area.top(); y <= area.bottom(); ++y)
        std::memcpy(out.scanLine(y) + area.left() * bytes,
            image.constScanLine(y - at.y()) + (area.left() - at.x()) * bytes, size_t(area.width() * bytes));
    return out;
}

} // namespace

QImage QImageCanvas::toLayerImage(const QImage& image, const QPoint& at) const
{
    QImage source;
    if (m_format == CanvasIndexed && image.format() == QImage::Format_Indexed8)
        source = image; // indices of a frame with the same palette stay as they are
    else if (m_format == CanvasIndexed)
        source = QRasterLayer::converted(image, m_format, m_palette);
    else
        source = image.convertToFormat(QImage::Format_ARGB32); // by the image's own colours
    return placed(source, m_size, at, m_palette->toRgbPal());
}

QRasterLayer* QImageCanvas::newRasterLayer(const QImage* image)
{
    if (image)
        return new QRasterLayer(this, toLayerImage(*image, QPoint()));
    QImage blank(m_size, canvasImageFormat(m_format));
    blank.fill(0);
    if (m_format == CanvasIndexed)
        blank.setColorTable(m_palette->toRgbPal());
    return new QRasterLayer(this, blank);
}

QImage QImageCanvas::mergeLayers(QString* nameOut) const
{
    const QList<QImageLayer*> order = m_layers.bottomUp();
    if (nameOut) {
        nameOut->clear();
        for (const QImageLayer* layer : order)
            if (layer->isVisible()) {
                *nameOut = layer->name();
                break;
            }
    }
    return compose(order);
}

QImage QImageCanvas::compose(const QList<QImageLayer*>& bottomUp) const
{
    if (m_format == CanvasIndexed)
        return composeIndexed(bottomUp);
    QImage result(m_size, QImage::Format_ARGB32);
    result.fill(0);
    QPainter painter(&result);
    for (const QImageLayer* layer : bottomUp)
        if (layer->isVisible())
            layer->render(&painter);
    return result;
}

QImage QImageCanvas::composeIndexed(const QList<QImageLayer*>& bottomUp) const
{
    // Blend modes and opacity have no meaning among indices. The top opaque
    // colour wins; translucent entries above it are averaged in halfway
    // steps from the bottom up and looked up in the palette again.
    QImage result(m_size, QImage::Format_Indexed8);
    result.fill(0);
    result.setColorTable(m_palette->toRgbPal());
    QList<const QImage*> topDown;
    for (const QImageLayer* layer : bottomUp)
        if (layer->isVisible())
            topDown.prepend(&layer->image());
    const QRGBA* table = m_palette->palette();
    enum Kind : uchar { Clear, Opaque, Translucent };
    Kind kinds[256];
    for (int i = 0; i < 256; ++i)
        kinds[i] = table[i].a == 0 ? Clear : (table[i].a == 255 ? Opaque : Translucent);

    const int layers = topDown.size();
    std::vector<const uchar*> rows(static_cast<size_t>(layers));
    std::vector<int> widths(static_cast<size_t>(layers));
    std::vector<uchar> gathered(static_cast<size_t>(layers));
    for (int y = 0; y < m_size.height(); ++y) {
        for (int i = 0; i < layers; ++i) {
            const QImage* image = topDown.at(i);
            rows[size_t(i)] = y < image->height() ? image->constScanLine(y) : nullptr;
            widths[size_t(i)] = image->width();
        }
        uchar* out = result.scanLine(y);
        for (int x = 0; x < m_size.width(); ++x) {
            int count = 0;
            for (int i = 0; i < layers; ++i) {
                if (!rows[size_t(i)] || x >= widths[size_t(i)])
                    continue;
                const uchar index = rows[size_t(i)][x];
                const Kind kind = kinds[index];
                if (kind == Clear)
                    continue;
                gathered[size_t(count++)] = index;
                if (kind == Opaque)
                    break;
            }
            if (count == 1 && kinds[gathered[0]] == Opaque) {
                out[x] = gathered[0];
                continue;
            }
            if (count == 0)
                continue;
            const QRGBA& bottom = table[gathered[size_t(count - 1)]];
            int c[4] = { bottom.r, bottom.g, bottom.b, bottom.a };
            for (int i = count - 2; i >= 0; --i) {
                const QRGBA& next = table[gathered[size_t(i)]];
                c[0] += (next.r - c[0]) >> 1;
                c[1] += (next.g - c[1]) >> 1;
                c[2] += (next.b - c[2]) >> 1;
                c[3] += (next.a - c[3]) >> 1;
            }
            out[x] = m_palette->index(QColor(c[0], c[1], c[2], c[3]));
        }
    }
    return result;
}

bool QImageCanvas::mergeDown(QImageLayer* layer)
{
    const int position = layer->index();
    QImageLayer* below = position >= 0 ? m_layers.at(unsigned(position + 1)) : nullptr;
    if (!below)
        return false;
    const QImage merged = compose({ below, layer });
    m_undoStack.beginMacro(QStringLiteral("mergeDown"));
    changing(below);
    below->setImage(merged);
    below->setBlendMode(QPainter::CompositionMode_SourceOver, true);
    below->setOpacity(1.0, true);
    below->setVisible(true);
    m_layers.remove(layer, true);
    finishEdit();
    m_undoStack.endMacro();
    setActiveLayer(below);
    emit layerChanged();
    return true;
}

void QImageCanvas::flatten()
{
    QString name;
    const QImage merged = mergeLayers(&name);
    m_undoStack.beginMacro(QStringLiteral("flatten"));
    while (m_layers.count() > 0)
        m_layers.remove(0u, true);
    QRasterLayer* layer = newRasterLayer(&merged);
    layer->setName(name, false);
    m_layers.add(layer, true);
    m_undoStack.endMacro();
    setActiveLayer(layer);
    emit layerChanged();
}

QImage QImageCanvas::copySelection() const
{
    if (!m_activeLayer)
        return QImage();
    const QImage& pixels = m_activeLayer->image();
    QImage out;
    if (m_selection.isActive())
        out = m_selection.filter(pixels, true, 0).copy(m_selection.boundingRect());
    else
        out = pixels.copy();
    if (out.format() == QImage::Format_Indexed8)
        out.setColorTable(m_palette->toRgbPal());
    return out;
}

void QImageCanvas::deleteSelection()
{
    if (!m_activeLayer)
        return;
    changing(m_activeLayer);
    m_activeLayer->setImage(m_selection.filter(m_activeLayer->image(), false, 0));
    finishEdit();
    layerPixelsChanged(m_activeLayer);
}

QImageLayer* QImageCanvas::pasteImage(const QImage& image, const QPoint& at)
{
    if (image.isNull())
        return nullptr;
    const QImage layerImage = toLayerImage(image, at);
    QImageLayer* layer = addLayer(layerImage, tr("Pasted"));
    m_selection.fromRect(QRect(at, image.size()));
    emit selectionChanged();
    return layer;
}

void QImageCanvas::selectAll()
{
    m_selection.fromRect(QRect(QPoint(0, 0), m_size));
    emit selectionChanged();
}

void QImageCanvas::selectNone()
{
    m_selection.clear();
    emit selectionChanged();
}
