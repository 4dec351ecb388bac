#pragma once

#include "image/qimagecanvasformat.h"
#include "image/qimagelayers.h"
#include "image/qimageresizefilter.h"
#include "image/qimageselection.h"

#include <QObject>
#include <QPoint>
#include <QSize>
#include <QUndoStack>

#include <memory>

class QImageLayer;
class QImagePainter;
class QImagePalette;
class QRasterLayer;
class RasterLayerEdit;

/**
 * The picture the image editor works on: a stack of layers of one size and
 * one format, a selection, the painter of that format, and the undo stack
 * of every change. On an indexed canvas each layer stores palette indices
 * against the one palette, so drawing on it never makes a colour the
 * palette lacks.
 *
 * Every destructive edit of a layer calls changing() first, which pushes
 * one undo step for it; tools call it once per stroke, at the press, and
 * finishEdit() when the stroke ends so that the step keeps only the pixels
 * that changed.
 */
class QImageCanvas : public QObject
{
    Q_OBJECT
public:
    /// The palette is not owned and must outlive the canvas.
    explicit QImageCanvas(QImagePalette* palette, QObject* parent = nullptr);
    ~QImageCanvas() override;

    QImagePalette* palette() const { return m_palette; }
    QImageSelection* selection() { return &m_selection; }
    const QImageSelection* selection() const { return &m_selection; }
    QImageLayers* layers() { return &m_layers; }
    const QImageLayers* layers() const { return &m_layers; }
    QUndoStack* undoStack() { return &m_undoStack; }
    QSize size() const { return m_size; }
    QImageCanvasFormat format() const { return m_format; }
    double zoomLevel() const { return m_zoom; }
    QPoint position() const { return m_position; }
    /**
     * Where the top-left corner of the picture the canvas began with lies
     * now: an undoable change of size that moves the pixels moves it too,
     * so that whoever opened the picture can keep its axis in place.
     */
    QPoint origin() const { return m_origin; }
    void setOrigin(const QPoint& origin) { m_origin = origin; }
    QImageLayer* activeLayer() const { return m_activeLayer; }
    void setActiveLayer(QImageLayer* layer);

    /// The painter aimed at the active layer; null without one.
    QImagePainter* painter();

    // Edits of the whole canvas

    /// Changes the size; undoable, it also moves every layer's pixels by
    /// `offset` and fills new room with the background.
    void setSize(const QSize& size, const QPoint& offset, bool undoable);
    /// Changes the format; undoable, it also converts every layer through the palette.
    void setFormat(QImageCanvasFormat format, bool undoable);
    /**
     * Makes a true-colour canvas indexed. With `newPalette` the palette is
     * first rebuilt from the picture's colours by the colour quantizer
     * (entry 0 stays the transparent one); otherwise every colour becomes
     * the nearest entry of the present palette. One undo step.
     */
    void toIndexed(bool newPalette);
    /// Scales every layer; one undo step.
    void resize(const QSize& size, QImageResizeFilter filter);
    /// Cuts the canvas to the smallest rectangle holding every layer's pixels.
    void crop();
    void rotate(float radians);
    void flip(bool horizontal, bool vertical);

    // Layers

    /**
     * A layer of the canvas's size and format, not yet in the stack: blank
     * with a null image, else the image brought to the canvas's format (an
     * indexed image on an indexed canvas keeps its indices; colours map to
     * the nearest palette entries).
     */
    QRasterLayer* newRasterLayer(const QImage* image = nullptr);
    /// Puts a new layer of `image` (blank when null) on top, active; undoable.
    QImageLayer* addLayer(const QImage& image, const QString& name);
    void removeLayer(QImageLayer* layer);
    QImageLayer* duplicateLayer(QImageLayer* layer);
    /// The visible layers composed into one image of the canvas's size and
    /// format; `nameOut` receives the bottom-most visible layer's name.
    QImage mergeLayers(QString* nameOut = nullptr) const;
    /// The layers (bottom first) composed as mergeLayers composes the stack.
    QImage compose(const QList<QImageLayer*>& bottomUp) const;
    /// Joins a layer into the one below it; one undo step. False at the bottom.
    bool mergeDown(QImageLayer* layer);
    /// Replaces the stack by one layer of its composition; one undo step.
    void flatten();

    // Selection and clipboard

    /// The selected pixels of the active layer, cut to the selection's
    /// bounds (the whole layer without a selection); unselected pixels are
    /// transparent. An indexed result carries the palette as colour table.
    QImage copySelection() const;
    /// Makes the selected pixels of the active layer transparent; undoable.
    void deleteSelection();
    /// Puts `image` on a new top layer at `at` and selects its pixels; undoable.
    QImageLayer* pasteImage(const QImage& image, const QPoint& at = QPoint());
    void selectAll();
    void selectNone();

    // Undo bookkeeping

    /// Records the present pixels of a layer as one undo step, before an edit.
    void changing(QImageLayer* layer);
    /// Ends the open pixel edit: its step keeps only the changed rectangle.
    void finishEdit();
    /// The fill value for new room: the background as index or colour.
    unsigned int fillValue() const;

    // View state, not undoable

    /// Sets the zoom; a small canvas is zoomed until its smaller side shows 50 pixels, at most 10.
    void setZoomLevel(double zoom);
    void setPosition(const QPoint& position);

    // Called by layers and commands.
    void layerPropertiesChanged(QImageLayer* layer);
    void layerPixelsChanged(QImageLayer* layer);
    void layerRemoved(QImageLayer* layer);
    void editGone(RasterLayerEdit* edit);

signals:
    void positionChanged();
    void sizeChanged();
    void formatChanged();
    void zoomChanged();
    /// Pixels, the stack or a layer's look changed.
    void layerChanged();
    void activeLayerChanged();
    void selectionChanged();

private:
    void makePainter();
    /// `image` in the canvas's format on a transparent picture of its size, at `at`.
    QImage toLayerImage(const QImage& image, const QPoint& at) const;
    QImage composeIndexed(const QList<QImageLayer*>& bottomUp) const;

    QImagePalette* m_palette;
    QImageSelection m_selection;
    std::unique_ptr<QImagePainter> m_painter;
    QImageLayers m_layers;
    QSize m_size;
    double m_zoom = 1.0;
    QImageCanvasFormat m_format = CanvasRGBA;
    QUndoStack m_undoStack;
    QPoint m_position;
    QPoint m_origin;
    QImageLayer* m_activeLayer = nullptr;
    RasterLayerEdit* m_openEdit = nullptr;
};
