#pragma once

#include "image/qimagetoolmouseevent.h"

#include <QCursor>
#include <QObject>

class QImageCanvas;
class QImageLayer;
class QPainter;
class QRect;
class QSize;

/**
 * A tool of the image editor: it receives the mouse and key events of the
 * view, already mapped to canvas pixels, and works on the canvas's active
 * layer through the canvas's painter. Tools are no widgets: the view, or a
 * test, feeds them events, and they may change the cursor they are handed.
 */
class QImageTool : public QObject
{
    Q_OBJECT
public:
    explicit QImageTool(QImageCanvas* canvas);

    virtual void activated() { }
    virtual void deactivated() { }
    virtual void activeLayerChanged() { }
    /// True when the key was the tool's.
    virtual bool keyPressed(Qt::KeyboardModifiers modifiers, int key);
    virtual void mousePressed(const QImageToolMouseEvent& event, QCursor& cursor);
    virtual void mouseReleased(const QImageToolMouseEvent& event, QCursor& cursor);
    virtual void mouseMoved(const QImageToolMouseEvent& event, QCursor& cursor);
    /// Draws the tool's mark at canvas position `at`; the painter is in canvas pixels.
    virtual void renderCursor(QPainter* painter, const QPoint& at, double zoom);
    /// A palette entry clicked with the left (true) or another button.
    virtual void colorClicked(bool left, unsigned char index);

    bool isPressed() const { return m_pressed; }
    QImageCanvas* canvas() const { return m_canvas; }

signals:
    /// The tool changed pixels or the selection.
    void layerChanged();

protected:
    static void setColor(QPainter* painter, const QColor& colour);
    static void drawPlainLine(QPainter* painter, const QPoint& at, const QSize& size);
    /// The outline as four one-pixel rectangles, crisp under a scaled painter.
    static void drawPlainRect(QPainter* painter, const QRect& rect);
    /// The active layer when there is one and it is shown; drawing needs both.
    QImageLayer* visibleLayer() const;

    QImageCanvas* m_canvas;
    bool m_pressed = false;
    QPoint m_pressScreen;
    QPoint m_pressCanvas;
};
