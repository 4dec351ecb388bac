#pragma once

#include "formats/qrgba.h"
#include "image/qimagecanvasformat.h"
#include "image/qimageundocommand.h"

#include <QPainter>
#include <QSize>
#include <QString>

class QImageCanvas;
class QImageLayer;

/// Base of the commands that keep a layer alive while they hold it.
class ImageLayerCommand : public ImageUndoCommand
{
public:
    explicit ImageLayerCommand(QImageLayer* layer);
    ~ImageLayerCommand() override;

protected:
    QImageLayer* m_layer;
};

/// A layer put on top of the stack.
class RasterLayerAdd : public ImageLayerCommand
{
public:
    using ImageLayerCommand::ImageLayerCommand;
    void undo() override;

protected:
    void doRedo() override;
};

/// A layer inserted at a position.
class RasterLayerInsert : public ImageLayerCommand
{
public:
    RasterLayerInsert(QImageLayer* layer, int position);
    void undo() override;

protected:
    void doRedo() override;
    int m_position;
};

/// A layer removed from a position.
class RasterLayerDel : public RasterLayerInsert
{
public:
    using RasterLayerInsert::RasterLayerInsert;
    void undo() override { RasterLayerInsert::doRedo(); }

protected:
    void doRedo() override { RasterLayerInsert::undo(); }
};

/// A layer moved in the stack.
class ImageLayerMove : public ImageUndoCommand
{
public:
    ImageLayerMove(QImageCanvas* canvas, int from, int to);
    void undo() override;

protected:
    void doRedo() override;

private:
    QImageCanvas* m_canvas;
    int m_from;
    int m_to;
};

/// A change of a layer's opacity; the moves of one slider drag fold into one step.
class ImageLayerOpacity : public ImageLayerCommand
{
public:
    ImageLayerOpacity(QImageLayer* layer, double old);
    void undo() override { doRedo(); }
    int id() const override { return idImageLayerOpacity; }
    bool mergeWith(const QUndoCommand* other) override;

protected:
    void doRedo() override;

private:
    double m_value;
};

class ImageLayerBlend : public ImageLayerCommand
{
public:
    ImageLayerBlend(QImageLayer* layer, QPainter::CompositionMode old);
    void undo() override { doRedo(); }

protected:
    void doRedo() override;

private:
    QPainter::CompositionMode m_value;
};

class ImageLayerName : public ImageLayerCommand
{
public:
    ImageLayerName(QImageLayer* layer, const QString& old);
    void undo() override { doRedo(); }

protected:
    void doRedo() override;

private:
    QString m_value;
};

/// The canvas's size and origin alone; the layers' own changes are commands of their own in the same macro.
class ImageCanvasSize : public ImageUndoCommand
{
public:
    ImageCanvasSize(QImageCanvas* canvas, const QSize& old, const QPoint& oldOrigin);
    void undo() override { doRedo(); }

protected:
    void doRedo() override;

private:
    QImageCanvas* m_canvas;
    QSize m_value;
    QPoint m_origin;
};

/// The canvas's format alone; the layers convert in commands of their own.
class ImageCanvasFormat : public ImageUndoCommand
{
public:
    ImageCanvasFormat(QImageCanvas* canvas, QImageCanvasFormat old);
    void undo() override { doRedo(); }

protected:
    void doRedo() override;

private:
    QImageCanvas* m_canvas;
    QImageCanvasFormat m_value;
};

/// The 256 colours of the canvas palette before a change.
class ImageCanvasPalette : public ImageUndoCommand
{
public:
    ImageCanvasPalette(QImageCanvas* canvas, const QRGBA* old);
    void undo() override { doRedo(); }

protected:
    void doRedo() override;

private:
    QImageCanvas* m_canvas;
    QRGBA m_value[256];
};
