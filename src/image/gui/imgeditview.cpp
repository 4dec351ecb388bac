#include "imgeditview.h"

#include "image/qimagerender.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

ImgEditView::ImgEditView(QImageRender* render, QWidget* parent)
    : QWidget(parent)
    , m_render(render)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(render, &QImageRender::updateRequested, this, qOverload<>(&QWidget::update));
    connect(render, &QImageRender::cursorChanged, this, &QWidget::setCursor);
}

QSize ImgEditView::sizeHint() const
{
    return m_render->extent().expandedTo(QSize(320, 240));
}

void ImgEditView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    m_render->render(&painter, event->rect());
}

void ImgEditView::mousePressEvent(QMouseEvent* event)
{
    m_render->mousePress(event->position().toPoint(), event->button(), event->modifiers());
}

void ImgEditView::mouseMoveEvent(QMouseEvent* event)
{
    m_render->mouseMove(event->position().toPoint(), event->modifiers());
}

void ImgEditView::mouseReleaseEvent(QMouseEvent* event)
{
    m_render->mouseRelease(event->position().toPoint(), event->button(), event->modifiers());
}

void ImgEditView::wheelEvent(QWheelEvent* event)
{
    const int steps = event->angleDelta().y() / 120;
    if (steps != 0)
        m_render->wheel(steps);
}

void ImgEditView::keyPressEvent(QKeyEvent* event)
{
    // Space held pans the view whatever the tool.
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) {
        m_render->setTemporaryTool(itCanvasMove);
        return;
    }
    if (!m_render->keyPress(event->modifiers(), event->key()))
        QWidget::keyPressEvent(event);
}

void ImgEditView::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat())
        m_render->clearTemporaryTool();
    QWidget::keyReleaseEvent(event);
}

void ImgEditView::leaveEvent(QEvent* event)
{
    m_render->leave();
    QWidget::leaveEvent(event);
}
