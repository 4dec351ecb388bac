#pragma once

#include <QObject>

class QKeyEvent;
class QMouseEvent;
class QPainter;
class QPaintEvent;
class QRenderHost;
class QWheelEvent;

/**
 * The base of every view that paints through a host: a plain object that
 * receives the host's input, size and paint events. It holds no graphics
 * objects, so a view survives when its host is replaced (plain or OpenGL
 * painting) while the program runs.
 */
class QRenderer : public QObject
{
    Q_OBJECT
public:
    explicit QRenderer(QObject* parent = nullptr) : QObject(parent) {}

    QRenderHost* host() const { return m_host; }
    /// Set by the host's constructor; null detaches the renderer.
    void setHost(QRenderHost* host) { m_host = host; }

    virtual void keyPressed(QKeyEvent* event) = 0;
    virtual void keyReleased(QKeyEvent* event) = 0;
    virtual void mousePressed(QMouseEvent* event) = 0;
    virtual void mouseReleased(QMouseEvent* event) = 0;
    virtual void mouseMoved(QMouseEvent* event) = 0;
    virtual void mouseWheel(QWheelEvent* event) = 0;
    virtual void sizeChanged() = 0;
    /// Paints the view; `event` may be null for a paint of the whole host.
    virtual void render(QPainter* painter, QPaintEvent* event) = 0;
    /// Called once by each new host before the first paint.
    virtual void initialize() {}
    virtual void finalize() {}

private:
    QRenderHost* m_host = nullptr;
};
