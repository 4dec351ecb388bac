#pragma once

#include "render/qrenderhost.h"

#include <QImage>

class QRenderer;

/**
 * A host that paints a renderer into an image of a fixed size: the view
 * without a window, for the command-line tool, tests and benchmarks. Every
 * paint request paints at once.
 */
class QImageRenderHost : public QRenderHost
{
public:
    QImageRenderHost(QRenderer* renderer, const QSize& size);
    ~QImageRenderHost() override;

    /// Paints the whole view into the image and returns it.
    const QImage& paint();
    const QImage& image() const { return m_image; }
    int paintCount() const { return m_paints; }
    const QCursor& cursor() const { return m_cursor; }
    void setMousePosition(const QPoint& position) { m_mouse = position; }

    QSize hostSize() const override { return m_image.size(); }
    void scheduleRepaint() override { paint(); }
    void repaintNow() override { paint(); }
    void setHostCursor(const QCursor& cursor) override { m_cursor = cursor; }
    void takeFocus() override {}
    QPoint mousePosition() const override { return m_mouse; }

private:
    QRenderer* m_renderer;
    QImage m_image;
    QCursor m_cursor;
    QPoint m_mouse;
    int m_paints = 0;
};
