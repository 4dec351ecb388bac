#include "qimagerenderhost.h"

#include "render/qrenderer.h"

#include <QPainter>

QImageRenderHost::QImageRenderHost(QRenderer* renderer, const QSize& size)
    : m_renderer(renderer), m_image(size, QImage::Format_ARGB32_Premultiplied)
{
    m_image.fill(Qt::transparent);
    m_renderer->setHost(this);
    m_renderer->initialize();
    m_renderer->sizeChanged();
}

QImageRenderHost::~QImageRenderHost()
{
    if (m_renderer->host() == this)
        m_renderer->setHost(nullptr);
}

const QImage& QImageRenderHost::paint()
{
    QPainter painter(&m_image);
    m_renderer->render(&painter, nullptr);
    ++m_paints;
    return m_image;
}
