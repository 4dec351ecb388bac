#include "qimagelayercommands.h"

#include "image/qimagecanvas.h"
#include "image/qimagelayer.h"
#include "image/qimagepalette.h"

#include <algorithm>

ImageLayerCommand::ImageLayerCommand(QImageLayer* layer)
    : m_layer(layer)
{
    m_layer->addRef();
}

ImageLayerCommand::~ImageLayerCommand()
{
    m_layer->release();
}

void RasterLayerAdd::undo()
{
    m_layer->canvas()->layers()->remove(m_layer, false);
}

void RasterLayerAdd::doRedo()
{
    m_layer->canvas()->layers()->add(m_layer, false);
}

RasterLayerInsert::RasterLayerInsert(QImageLayer* layer, int position)
    : ImageLayerCommand(layer)
    , m_position(position)
{
}

void RasterLayerInsert::undo()
{
    m_layer->canvas()->layers()->remove(m_layer, false);
}

void RasterLayerInsert::doRedo()
{
    m_layer->canvas()->layers()->insert(m_layer, m_position, false);
}

ImageLayerMove::ImageLayerMove(QImageCanvas* canvas, int from, int to)
    : m_canvas(canvas)
    , m_from(from)
    , m_to(to)
{
}

void ImageLayerMove::undo()
{
    m_canvas->layers()->move(m_to, m_from, false);
}

void ImageLayerMove::doRedo()
{
    m_canvas->layers()->move(m_from, m_to, false);
}

ImageLayerOpacity::ImageLayerOpacity(QImageLayer* layer, double old)
    : ImageLayerCommand(layer)
    , m_value(old)
{
}

bool ImageLayerOpacity::mergeWith(const QUndoCommand* other)
{
    // The older value stays: undo returns to where the drag began.
    return static_cast<const ImageLayerOpacity*>(other)->m_layer == m_layer;
}

void ImageLayerOpacity::doRedo()
{
    const double now = m_layer->opacity();
    m_layer->setOpacity(m_value, false);
    m_value = now;
}

ImageLayerBlend::ImageLayerBlend(QImageLayer* layer, QPainter::CompositionMode old)
    : ImageLayerCommand(layer)
    , m_value(old)
{
}

void ImageLayerBlend::doRedo()
{
    const QPainter::CompositionMode now = m_layer->blendMode();
    m_layer->setBlendMode(m_value, false);
    m_value = now;
}

ImageLayerName::ImageLayerName(QImageLayer* layer, const QString& old)
    : ImageLayerCommand(layer)
    , m_value(old)
{
}

void ImageLayerName::doRedo()
{
    const QString now = m_layer->name();
    m_layer->setName(m_value, false);
    m_value = now;
}

ImageCanvasSize::ImageCanvasSize(QImageCanvas* canvas, const QSize& old, const QPoint& oldOrigin)
    : m_canvas(canvas)
    , m_value(old)
    , m_origin(oldOrigin)
{
}

void ImageCanvasSize::doRedo()
{
    const QSize now = m_canvas->size();
    const QPoint origin = m_canvas->origin();
    m_canvas->setSize(m_value, QPoint(), false);
    m_canvas->setOrigin(m_origin);
    m_value = now;
    m_origin = origin;
}

ImageCanvasFormat::ImageCanvasFormat(QImageCanvas* canvas, QImageCanvasFormat old)
    : m_canvas(canvas)
    , m_value(old)
{
}

void ImageCanvasFormat::doRedo()
{
    const QImageCanvasFormat now = m_canvas->format();
    m_canvas->setFormat(m_value, false);
    m_value = now;
}

ImageCanvasPalette::ImageCanvasPalette(QImageCanvas* canvas, const QRGBA* old)
    : m_canvas(canvas)
{
    std::copy(old, old + 256, m_value);
}

void ImageCanvasPalette::doRedo()
{
    QRGBA now[256];
    m_canvas->palette()->toRGBPal(now);
    m_canvas->palette()->setColors(m_value);
    std::copy(now, now + 256, m_value);
    emit m_canvas->layerChanged();
}
