#pragma once

#include "render/qrenderer.h"
#include "render/qrenderhost.h"

#include <QCursor>
#include <QPainter>

/**
 * The part both host widgets share: it hands the widget to the renderer as
 * its host and forwards every input event with no logic of its own. `Base` is
 * QWidget or QOpenGLWidget; each host adds only its way of painting.
 */
template<typename Base>
class QRenderForwarder : public Base, public QRenderHost
{
public:
    QRenderForwarder(QRenderer* renderer, QWidget* parent) : Base(parent), m_renderer(renderer)
    {
        m_renderer->setHost(this);
        m_renderer->initialize();
        Base::setAutoFillBackground(false);
        Base::setMouseTracking(true);
        Base::setFocusPolicy(Qt::StrongFocus);
    }
    ~QRenderForwarder() override
    {
        if (m_renderer->host() == this)
            m_renderer->setHost(nullptr);
    }

    QRenderer* renderer() const { return m_renderer; }

    QSize hostSize() const override { return Base::size(); }
    void scheduleRepaint() override { Base::update(); }
    void repaintNow() override { Base::repaint(); }
    void setHostCursor(const QCursor& cursor) override { Base::setCursor(cursor); }
    void takeFocus() override { Base::setFocus(Qt::MouseFocusReason); }
    QPoint mousePosition() const override { return Base::mapFromGlobal(QCursor::pos()); }

protected:
    void keyPressEvent(QKeyEvent* event) override { m_renderer->keyPressed(event); }
    void keyReleaseEvent(QKeyEvent* event) override { m_renderer->keyReleased(event); }
    void mousePressEvent(QMouseEvent* event) override { m_renderer->mousePressed(event); }
    void mouseReleaseEvent(QMouseEvent* event) override { m_renderer->mouseReleased(event); }
    void mouseMoveEvent(QMouseEvent* event) override { m_renderer->mouseMoved(event); }
    void wheelEvent(QWheelEvent* event) override { m_renderer->mouseWheel(event); }

    QRenderer* m_renderer;
};
