#include "qoglrenderwidget.h"

#include <QPainter>
#include <QSurfaceFormat>

QOGLRenderWidget::QOGLRenderWidget(QRenderer* renderer, QWidget* parent)
    : QRenderForwarder<QOpenGLWidget>(renderer, parent)
{
    QSurfaceFormat surface = format();
    surface.setSamples(0);
    setFormat(surface);
}

void QOGLRenderWidget::resizeGL(int, int)
{
    m_renderer->sizeChanged();
}

void QOGLRenderWidget::paintGL()
{
    QPainter painter(this);
    m_renderer->render(&painter, nullptr);
}
