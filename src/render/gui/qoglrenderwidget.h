#pragma once

#include "render/gui/qrenderforwarder.h"

#include <QOpenGLWidget>

/// The OpenGL host of a renderer ("OpenGL mode"): the same painter calls on
/// an OpenGL paint device, without multisampling so sprites stay pixel for pixel.
class QOGLRenderWidget : public QRenderForwarder<QOpenGLWidget>
{
    Q_OBJECT
public:
    explicit QOGLRenderWidget(QRenderer* renderer, QWidget* parent = nullptr);

protected:
    void resizeGL(int width, int height) override;
    void paintGL() override;
};
