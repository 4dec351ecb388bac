#include "qimagelayer.h"

#include "image/qimagecanvas.h"
#include "image/qimagelayercommands.h"

QImageLayer::QImageLayer(QImageCanvas* canvas)
    : m_canvas(canvas)
{
}

void QImageLayer::release()
{
    if (--m_references <= 0)
        delete this;
}

void QImageLayer::setVisible(bool visible)
{
    if (m_visible == visible)
        return;
    m_visible = visible;
    changed();
}

void QImageLayer::setName(const QString& name, bool undo)
{
    if (m_name == name)
        return;
    if (undo)
        m_canvas->undoStack()->push(new ImageLayerName(this, m_name));
    m_name = name;
    changed();
}

void QImageLayer::setBlendMode(QPainter::CompositionMode mode, bool undo)
{
    if (m_blendMode == mode)
        return;
    if (undo)
        m_canvas->undoStack()->push(new ImageLayerBlend(this, m_blendMode));
    m_blendMode = mode;
    changed();
}

void QImageLayer::setOpacity(double opacity, bool undo)
{
    opacity = qBound(0.0, opacity, 1.0);
    if (qFuzzyCompare(m_opacity, opacity))
        return;
    if (undo)
        m_canvas->undoStack()->push(new ImageLayerOpacity(this, m_opacity));
    m_opacity = opacity;
    changed();
}

int QImageLayer::index() const
{
    return m_canvas->layers()->indexOf(this);
}

void QImageLayer::changed()
{
    m_canvas->layerPropertiesChanged(this);
}
