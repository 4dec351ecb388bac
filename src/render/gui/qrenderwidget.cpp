#include "qrenderwidget.h"

#include <QPainter>

QRenderWidget::QRenderWidget(QRenderer* renderer, QWidget* parent) : QRenderForwarder<QWidget>(renderer, parent) {}

void QRenderWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_renderer->sizeChanged();
}

void QRenderWidget::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    m_renderer->render(&painter, event);
}
