#include "qimagerender.h"

#include "image/qcanvasmovetool.h"
#include "image/qerasertool.h"
#include "image/qfloodfilltool.h"
#include "image/qimagecanvas.h"
#include "image/qimagepalette.h"
#include "image/qpenseltool.h"
#include "image/qpentool.h"
#include "image/qpickertool.h"
#include "image/qrectseltool.h"
#include "image/qreplacetool.h"
#include "image/qselmovetool.h"

#include <QPainter>

#include <cmath>

QImageRender::QImageRender(QImageCanvas* canvas, QObject* parent)
    : QObject(parent)
    , m_canvas(canvas)
{
    m_tools[itPen] = new QPenTool(canvas);
    m_tools[itEraser] = new QEraserTool(canvas);
    m_tools[itReplace] = new QReplaceTool(canvas);
    m_tools[itFloodFill] = new QFloodFillTool(canvas);
    m_tools[itPicker] = new QPickerTool(canvas);
    m_tools[itRectSel] = new QRectSelTool(canvas);
    m_tools[itPenSel] = new QPenSelTool(canvas);
    m_tools[itSelMove] = new QSelMoveTool(canvas);
    m_tools[itCanvasMove] = new QCanvasMoveTool(canvas);
    for (QImageTool* tool : m_tools) {
        tool->setParent(this);
        connect(tool, &QImageTool::layerChanged, this, &QImageRender::invalidate);
    }
    connect(canvas, &QImageCanvas::layerChanged, this, &QImageRender::invalidate);
    connect(canvas, &QImageCanvas::sizeChanged, this, &QImageRender::invalidate);
    connect(canvas, &QImageCanvas::formatChanged, this, &QImageRender::invalidate);
    connect(canvas, &QImageCanvas::selectionChanged, this, &QImageRender::updateRequested);
    connect(canvas, &QImageCanvas::zoomChanged, this, &QImageRender::updateRequested);
    connect(canvas, &QImageCanvas::positionChanged, this, &QImageRender::updateRequested);
    connect(canvas->palette(), &QImagePalette::paletteChanged, this, &QImageRender::invalidate);
    connect(canvas, &QImageCanvas::activeLayerChanged, this, [this]() {
        for (QImageTool* tool : m_tools)
            tool->activeLayerChanged();
    });
    setBackground(QColor(204, 204, 204), QColor(255, 255, 255));
}

QImageRender::~QImageRender() = default;

void QImageRender::setTool(QImageToolType type)
{
    if (type == m_current || type >= itCount)
        return;
    currentTool()->deactivated();
    m_current = type;
    currentTool()->activated();
    emit toolChanged(type);
    emit updateRequested();
}

void QImageRender::setTemporaryTool(QImageToolType type)
{
    m_temporary = type;
}

void QImageRender::clearTemporaryTool()
{
    m_temporary = itCount;
}

QImageTool* QImageRender::eventTool() const
{
    return m_temporary < itCount ? m_tools.at(m_temporary) : currentTool();
}

void QImageRender::setBackground(const QColor& first, const QColor& second)
{
    QImage tile(16, 16, QImage::Format_RGB32);
    tile.fill(first);
    QPainter painter(&tile);
    painter.fillRect(0, 0, 8, 8, second);
    painter.fillRect(8, 8, 8, 8, second);
    m_checker = QBrush(tile);
    emit updateRequested();
}

void QImageRender::setVisibility(bool actualSize, bool zoomed)
{
    m_actualVisible = actualSize;
    m_zoomedVisible = zoomed;
    emit updateRequested();
}

void QImageRender::setGrid(bool on)
{
    m_grid = on;
    emit updateRequested();
}

QRect QImageRender::actualRect() const
{
    return QRect(m_canvas->position() + QPoint(margin, margin), m_canvas->size());
}

QRect QImageRender::zoomedRect() const
{
    const int left = m_actualVisible ? 3 * margin + m_canvas->size().width() : margin;
    const double zoom = m_canvas->zoomLevel();
    return QRect(m_canvas->position() + QPoint(left, margin),
        QSize(int(std::ceil(m_canvas->size().width() * zoom)),
            int(std::ceil(m_canvas->size().height() * zoom))));
}

QSize QImageRender::extent() const
{
    QRect all;
    if (m_actualVisible)
        all |= actualRect();
    if (m_zoomedVisible)
        all |= zoomedRect();
    return QSize(all.right() + margin + 1, all.bottom() + margin + 1)
        - QSize(m_canvas->position().x(), m_canvas->position().y());
}

QImageRender::Pane QImageRender::paneAt(const QPoint& screen) const
{
    if (m_actualVisible
        && (!m_zoomedVisible || actualRect().adjusted(-margin, -margin, margin, margin).contains(screen)))
        return ActualPane;
    return ZoomedPane;
}

QPoint QImageRender::mapToCanvas(const QPoint& screen, bool round) const
{
    return mapToCanvas(screen, paneAt(screen), round);
}

QPoint QImageRender::mapToCanvas(const QPoint& screen, Pane pane, bool round) const
{
    const QRect rect = pane == ActualPane ? actualRect() : zoomedRect();
    const double zoom = pane == ActualPane ? 1.0 : m_canvas->zoomLevel();
    const double x = (screen.x() - rect.left()) / zoom, y = (screen.y() - rect.top()) / zoom;
    return round ? QPoint(qRound(x), qRound(y)) : QPoint(int(std::floor(x)), int(std::floor(y)));
}

QImageToolMouseEvent QImageRender::toolEvent(
    const QPoint& screen, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) const
{
    QImageToolMouseEvent event;
    event.modifiers = modifiers;
    event.button = button;
    event.screen = screen;
    event.canvas = mapToCanvas(screen, m_dragging ? m_dragPane : paneAt(screen), false);
    return event;
}

void QImageRender::mousePress(const QPoint& screen, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    m_dragPane = paneAt(screen);
    m_dragging = true;
    m_mouse = screen;
    m_mouseInside = true;
    QCursor cursor = m_cursor;
    eventTool()->mousePressed(toolEvent(screen, button, modifiers), cursor);
    settle(cursor);
}

void QImageRender::mouseMove(const QPoint& screen, Qt::KeyboardModifiers modifiers)
{
    m_mouse = screen;
    m_mouseInside = true;
    QCursor cursor = m_cursor;
    eventTool()->mouseMoved(toolEvent(screen, Qt::NoButton, modifiers), cursor);
    settle(cursor);
}

void QImageRender::mouseRelease(const QPoint& screen, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    m_mouse = screen;
    QCursor cursor = m_cursor;
    eventTool()->mouseReleased(toolEvent(screen, button, modifiers), cursor);
    m_dragging = false;
    settle(cursor);
}

void QImageRender::wheel(int steps)
{
    double zoom = m_canvas->zoomLevel();
    for (int i = 0; i < std::abs(steps); ++i)
        zoom = steps > 0 ? zoom * 1.25 : zoom / 1.25;
    m_canvas->setZoomLevel(zoom);
}

bool QImageRender::keyPress(Qt::KeyboardModifiers modifiers, int key)
{
    const bool handled = eventTool()->keyPressed(modifiers, key);
    if (handled)
        emit updateRequested();
    return handled;
}

void QImageRender::leave()
{
    m_mouseInside = false;
    emit updateRequested();
}

void QImageRender::settle(const QCursor& cursor)
{
    if (cursor.shape() != m_cursor.shape()) {
        m_cursor = cursor;
        emit cursorChanged(cursor);
    }
    emit updateRequested();
}

void QImageRender::invalidate()
{
    m_dirty = true;
    emit updateRequested();
}

void QImageRender::render(QPainter* painter, const QRect& rect)
{
    painter->fillRect(rect, QColor(96, 96, 104));
    if (m_canvas->layers()->count() == 0)
        return;
    if (m_dirty) {
        m_merged = m_canvas->mergeLayers();
        m_dirty = false;
    }
    if (m_actualVisible)
        renderPane(painter, actualRect(), 1.0);
    if (m_zoomedVisible)
        renderPane(painter, zoomedRect(), m_canvas->zoomLevel());
}

void QImageRender::renderPane(QPainter* painter, const QRect& pane, double zoom)
{
    painter->save();
    painter->setClipRect(pane);
    painter->fillRect(pane, m_checker);
    painter->translate(pane.topLeft());
    painter->scale(zoom, zoom);
    painter->drawImage(0, 0, m_merged);
    m_canvas->selection()->render(painter);
    const QPoint at = mapToCanvas(m_mouse, pane == actualRect() ? ActualPane : ZoomedPane, false);
    if (m_mouseInside && pane.contains(m_mouse))
        eventTool()->renderCursor(painter, at, zoom);
    painter->restore();

    if (m_grid && zoom >= 4.0) {
        painter->save();
        painter->setClipRect(pane);
        painter->setPen(QColor(0, 0, 0, 48));
        const QSize size = m_canvas->size();
        for (int x = 1; x < size.width(); ++x) {
            const int sx = pane.left() + int(x * zoom);
            painter->drawLine(sx, pane.top(), sx, pane.bottom());
        }
        for (int y = 1; y < size.height(); ++y) {
            const int sy = pane.top() + int(y * zoom);
            painter->drawLine(pane.left(), sy, pane.right(), sy);
        }
        painter->restore();
    }
    painter->setPen(Qt::black);
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(pane.adjusted(-1, -1, 0, 0));
}
