#include "qimagecanvas.h"

#include "image/qcolorquantizer.h"
#include "image/qimagelayercommands.h"
#include "image/qimagepalette.h"
#include "image/qindexpainter.h"
#include "image/qrasterlayer.h"
#include "image/qrasterlayeredit.h"
#include "image/qrgbapainter.h"

QImageCanvas::QImageCanvas(QImagePalette* palette, QObject* parent)
    : QObject(parent)
    , m_palette(palette)
    , m_layers(this)
{
    makePainter();
}

QImageCanvas::~QImageCanvas()
{
    // Commands hold layers that report back here: they go first.
    m_undoStack.clear();
    m_layers.removeAll();
}

void QImageCanvas::setActiveLayer(QImageLayer* layer)
{
    if (m_activeLayer == layer)
        return;
    finishEdit();
    m_activeLayer = layer;
    emit activeLayerChanged();
}

QImagePainter* QImageCanvas::painter()
{
    if (!m_activeLayer)
        return nullptr;
    m_painter->setImage(&m_activeLayer->image());
    return m_painter.get();
}

void QImageCanvas::makePainter()
{
    if (m_format == CanvasRGBA)
        m_painter = std::make_unique<QRGBAPainter>(m_palette, &m_selection);
    else
        m_painter = std::make_unique<QIndexPainter>(m_palette, &m_selection);
}

void QImageCanvas::setSize(const QSize& size, const QPoint& offset, bool undoable)
{
    if (undoable) {
        m_undoStack.beginMacro(QStringLiteral("setSize"));
        m_undoStack.push(new ImageCanvasSize(this, m_size, m_origin));
        m_origin += offset;
    }
    m_size = size;
    m_selection.setSize(size);
    if (undoable) {
        const unsigned int fill = fillValue();
        for (QImageLayer* layer : m_layers.bottomUp())
            layer->resize(size, offset, fill);
        finishEdit();
        m_undoStack.endMacro();
    }
    emit sizeChanged();
    emit selectionChanged();
    emit layerChanged();
}

void QImageCanvas::setFormat(QImageCanvasFormat format, bool undoable)
{
    if (undoable) {
        m_undoStack.beginMacro(QStringLiteral("setFormat"));
        m_undoStack.push(new ImageCanvasFormat(this, m_format));
    }
    if (format != m_format || !m_painter) {
        m_format = format;
        makePainter();
    }
    if (undoable) {
        for (QImageLayer* layer : m_layers.bottomUp())
            layer->reformat(format, m_palette);
        finishEdit();
        m_undoStack.endMacro();
    }
    emit formatChanged();
    emit layerChanged();
}

void QImageCanvas::toIndexed(bool newPalette)
{
    if (m_format == CanvasIndexed)
        return;
    m_undoStack.beginMacro(QStringLiteral("toIndexed"));
    if (newPalette) {
        // Only what shows counts: transparent pixels would bring black in.
        QVector<QRgb> opaque;
        for (QImageLayer* layer : m_layers.bottomUp()) {
            const QImage& image = layer->image();
            for (int y = 0; y < image.height(); ++y) {
                const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
                for (int x = 0; x < image.width(); ++x)
                    if (qAlpha(row[x]) > 0)
                        opaque << row[x];
            }
        }
        QColorQuantizer quantizer(255, 8);
        if (!opaque.isEmpty())
            quantizer.processImage(QImage(
                reinterpret_cast<const uchar*>(opaque.constData()), opaque.size(), 1, QImage::Format_ARGB32));
        QVector<QRgb> table;
        quantizer.getColorTable(table);
        QRGBA colors[256];
        m_palette->toRGBPal(colors);
        m_undoStack.push(new ImageCanvasPalette(this, colors));
        colors[0].a = 0;
        for (int i = 1; i < 256; ++i)
            colors[i] = QRGBA::fromQRgb(table.at(i - 1) | 0xff000000u);
        m_palette->setColors(colors);
    }
    setFormat(CanvasIndexed, true);
    m_undoStack.endMacro();
}

void QImageCanvas::resize(const QSize& size, QImageResizeFilter filter)
{
    m_undoStack.beginMacro(QStringLiteral("resize"));
    m_undoStack.push(new ImageCanvasSize(this, m_size, m_origin));
    for (QImageLayer* layer : m_layers.bottomUp())
        layer->resize(size, filter);
    finishEdit();
    m_size = size;
    m_selection.setSize(size);
    m_undoStack.endMacro();
    emit sizeChanged();
    emit layerChanged();
}

void QImageCanvas::crop()
{
    QRect content;
    for (QImageLayer* layer : m_layers.bottomUp())
        content |= layer->cropRect();
    if (content.isEmpty() || content.size() == m_size)
        return;
    setSize(content.size(), -content.topLeft(), true);
}

void QImageCanvas::rotate(float radians)
{
    m_undoStack.beginMacro(QStringLiteral("rotate"));
    const unsigned int fill = fillValue();
    QSize largest(0, 0);
    for (QImageLayer* layer : m_layers.bottomUp()) {
        layer->rotate(radians, fill);
        largest = largest.expandedTo(layer->image().size());
    }
    finishEdit();
    if (m_layers.count() > 0 && largest != m_size)
        setSize(largest, QPoint(), true);
    m_undoStack.endMacro();
    emit layerChanged();
}

void QImageCanvas::flip(bool horizontal, bool vertical)
{
    m_undoStack.beginMacro(QStringLiteral("flip"));
    for (QImageLayer* layer : m_layers.bottomUp())
        layer->flip(horizontal, vertical);
    finishEdit();
    m_undoStack.endMacro();
    emit layerChanged();
}

QImageLayer* QImageCanvas::addLayer(const QImage& image, const QString& name)
{
    QRasterLayer* layer = newRasterLayer(image.isNull() ? nullptr : &image);
    layer->setName(name, false);
    m_layers.add(layer, true);
    setActiveLayer(layer);
    emit layerChanged();
    return layer;
}

void QImageCanvas::removeLayer(QImageLayer* layer)
{
    m_layers.remove(layer, true);
    emit layerChanged();
}

QImageLayer* QImageCanvas::duplicateLayer(QImageLayer* layer)
{
    QImageLayer* copy = layer->duplicate();
    copy->setName(tr("%1 copy").arg(layer->name()), false);
    m_layers.insert(copy, layer->index(), true);
    setActiveLayer(copy);
    emit layerChanged();
    return copy;
}

void QImageCanvas::changing(QImageLayer* layer)
{
    finishEdit();
    auto* edit = new RasterLayerEdit(layer);
    m_undoStack.push(edit);
    m_openEdit = edit;
}

void QImageCanvas::finishEdit()
{
    if (!m_openEdit)
        return;
    m_openEdit->compact();
    m_openEdit = nullptr;
}

unsigned int QImageCanvas::fillValue() const
{
    return m_format == CanvasIndexed ? m_palette->background()
                                     : m_palette->color(m_palette->background()).rgba();
}

void QImageCanvas::setZoomLevel(double zoom)
{
    const int side = qMin(m_size.width(), m_size.height());
    if (side > 0 && side * zoom < 50)
        zoom = 50.0 / side;
    else
        zoom = qMin(zoom, 10.0);
    m_zoom = zoom;
    emit zoomChanged();
}

void QImageCanvas::setPosition(const QPoint& position)
{
    if (m_position == position)
        return;
    m_position = position;
    emit positionChanged();
}

void QImageCanvas::layerPropertiesChanged(QImageLayer* layer)
{
    m_layers.layerChanged(layer);
    emit layerChanged();
}

void QImageCanvas::layerPixelsChanged(QImageLayer* layer)
{
    m_layers.layerChanged(layer);
    emit layerChanged();
}

void QImageCanvas::layerRemoved(QImageLayer* layer)
{
    if (layer == m_activeLayer)
        setActiveLayer(m_layers.at(0));
}

void QImageCanvas::editGone(RasterLayerEdit* edit)
{
    if (m_openEdit == edit)
        m_openEdit = nullptr;
}
