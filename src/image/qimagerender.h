#pragma once

#include "image/qimagetoolmouseevent.h"
#include "image/qimagetooltype.h"

#include <QBrush>
#include <QCursor>
#include <QImage>
#include <QObject>
#include <QRect>

#include <array>

class QImageCanvas;
class QImageTool;
class QPainter;

/**
 * Shows an image canvas and hands the input of its view to the tools. It
 * paints with a QPainter on any device, so the window's view widget is a
 * thin host, and tests drive the tools through it with plain events and no
 * window at all.
 *
 * The view has two panes side by side: the picture at its actual size and
 * the picture at the canvas's zoom, with an optional pixel grid. Screen
 * positions map to canvas pixels through the pane that was pressed (or,
 * without a button held, the one under the mouse). Each event goes to the
 * temporary tool when one is set, else to the current tool.
 */
class QImageRender : public QObject
{
    Q_OBJECT
public:
    static constexpr int margin = 8;

    explicit QImageRender(QImageCanvas* canvas, QObject* parent = nullptr);
    ~QImageRender() override;

    QImageCanvas* canvas() const { return m_canvas; }
    QImageTool* tool(QImageToolType type) const { return m_tools.at(type); }
    QImageToolType currentToolType() const { return m_current; }
    QImageTool* currentTool() const { return m_tools.at(m_current); }
    void setTool(QImageToolType type);
    /// A tool that takes the events until cleared, as the hand while Space is held.
    void setTemporaryTool(QImageToolType type);
    void clearTemporaryTool();

    /// The two colours of the checkerboard behind transparent pixels.
    void setBackground(const QColor& first, const QColor& second);
    void setVisibility(bool actualSize, bool zoomed);
    bool actualSizeVisible() const { return m_actualVisible; }
    bool zoomedVisible() const { return m_zoomedVisible; }
    void setGrid(bool on);
    bool grid() const { return m_grid; }

    /// The panes on screen.
    QRect actualRect() const;
    QRect zoomedRect() const;
    /// The room the panes take, from the view's top-left corner.
    QSize extent() const;
    /// The canvas pixel under a screen point of the pane the point is in.
    QPoint mapToCanvas(const QPoint& screen, bool round = false) const;

    void render(QPainter* painter, const QRect& rect);

    void mousePress(const QPoint& screen, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void mouseMove(const QPoint& screen, Qt::KeyboardModifiers modifiers);
    void mouseRelease(const QPoint& screen, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    /// Steps of the wheel zoom in (positive) or out.
    void wheel(int steps);
    bool keyPress(Qt::KeyboardModifiers modifiers, int key);
    /// The mouse left the view: no tool mark is drawn.
    void leave();
    QCursor cursor() const { return m_cursor; }

signals:
    void cursorChanged(const QCursor& cursor);
    void updateRequested();
    void toolChanged(QImageToolType type);

private:
    enum Pane { ActualPane, ZoomedPane };

    QImageTool* eventTool() const;
    Pane paneAt(const QPoint& screen) const;
    QPoint mapToCanvas(const QPoint& screen, Pane pane, bool round) const;
    QImageToolMouseEvent toolEvent(
        const QPoint& screen, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) const;
    void renderPane(QPainter* painter, const QRect& pane, double zoom);
    void settle(const QCursor& cursor);
    void invalidate();

    QImageCanvas* m_canvas;
    std::array<QImageTool*, itCount> m_tools;
    QImageToolType m_current = itPen;
    QImageToolType m_temporary = itCount;
    QBrush m_checker;
    QImage m_merged;
    bool m_dirty = true;
    bool m_actualVisible = true;
    bool m_zoomedVisible = true;
    bool m_grid = true;
    Pane m_dragPane = ZoomedPane;
    bool m_dragging = false;
    QPoint m_mouse;
    bool m_mouseInside = false;
    QCursor m_cursor;
};
