#pragma once

#include <QCursor>
#include <QPoint>
#include <QSize>

/**
 * What a renderer needs of the surface it paints on: its size, a way to ask
 * for a paint now or later, the cursor and the keyboard focus. The widgets of
 * the window implement it, and so does QImageRenderHost, which paints into
 * an image, so that tests and the command-line tool drive a renderer without
 * a window.
 */
class QRenderHost
{
public:
    virtual ~QRenderHost() = default;

    virtual QSize hostSize() const = 0;
    /// Schedules a paint (the widget's update()).
    virtual void scheduleRepaint() = 0;
    /// Paints at once, for direct feedback while dragging (the widget's repaint()).
    virtual void repaintNow() = 0;
    virtual void setHostCursor(const QCursor& cursor) = 0;
    virtual void takeFocus() = 0;
    /// The mouse position in the host's coordinates.
    virtual QPoint mousePosition() const = 0;
};
