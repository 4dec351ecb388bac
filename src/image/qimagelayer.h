#pragma once

#include "image/qimagecanvasformat.h"
#include "image/qimageresizefilter.h"

#include <QPainter>
#include <QRect>
#include <QString>

class QImageCanvas;
class QImagePalette;

/**
 * One layer of an image canvas: its look in the stack (visibility, name,
 * blend mode, opacity) and its pixels. Layers are counted references:
 * the layer list holds one, and so does every undo command that keeps a
 * layer which is out of the list; the last release() deletes it.
 *
 * Property setters with `undo` push a command on the canvas's stack.
 */
class QImageLayer
{
public:
    explicit QImageLayer(QImageCanvas* canvas);
    virtual ~QImageLayer() = default;
    QImageLayer(const QImageLayer&) = delete;
    QImageLayer& operator=(const QImageLayer&) = delete;

    void addRef() { ++m_references; }
    void release();

    QImageCanvas* canvas() const { return m_canvas; }
    bool isVisible() const { return m_visible; }
    void setVisible(bool visible);
    QString name() const { return m_name; }
    void setName(const QString& name, bool undo);
    QPainter::CompositionMode blendMode() const { return m_blendMode; }
    void setBlendMode(QPainter::CompositionMode mode, bool undo);
    double opacity() const { return m_opacity; }
    void setOpacity(double opacity, bool undo);
    /// Position in the canvas's layer list (0 is the top); -1 when out of it.
    int index() const;

    /// The pixels; an indexed layer's colour table is not kept up to date.
    virtual QImage& image() = 0;
    virtual const QImage& image() const = 0;
    /// Replaces the pixels (no undo: call QImageCanvas::changing first).
    virtual void setImage(const QImage& image) = 0;

    /// Draws the layer at (0, 0) with its own blend mode and opacity.
    virtual void render(QPainter* painter) const = 0;
    /// The rectangle of pixels that are not transparent.
    virtual QRect cropRect() const = 0;
    /// A copy with the same pixels and look, not in any list.
    virtual QImageLayer* duplicate() const = 0;
    /// Converts the pixels to a canvas format through the palette, undoably.
    virtual void reformat(QImageCanvasFormat format, QImagePalette* palette) = 0;
    /// Scales the pixels, undoably.
    virtual void resize(const QSize& size, QImageResizeFilter filter) = 0;
    /// Changes the size, moving the pixels by `offset` and filling the rest with `fill`, undoably.
    virtual void resize(const QSize& size, QPoint offset, unsigned int fill) = 0;
    /// Turns the pixels by `radians`, growing the image; undoably.
    virtual void rotate(float radians, unsigned int fill) = 0;
    virtual void flip(bool horizontal, bool vertical) = 0;

private:
    void changed();

    QImageCanvas* m_canvas;
    int m_references = 0;
    bool m_visible = true;
    QString m_name;
    QPainter::CompositionMode m_blendMode = QPainter::CompositionMode_SourceOver;
    double m_opacity = 1.0;
};
