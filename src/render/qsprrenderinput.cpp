// The mouse and keys on the sprite view: hit tests, cursors, zoom by wheel,
// and dragging the view, the axis, the guides and the extra crosshair.
#include "qsprrender.h"

#include "model/qanimationframe.h"
#include "model/qsprite.h"
#include "render/qrenderhost.h"
#include "render/qzoomtable.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace {

constexpr int rulerBand = 30;

} // namespace

bool QSprRender::hitGuide(const QPoint& point, QRenderElement& element) const
{
    const float z = zoom();
    const int t = thickness();
    const int x = qRound(m_guideX * z) + m_axis.x();
    if (point.x() >= x - 1 && point.x() <= x + t) {
        element = ElementGuideV;
        return true;
    }
    const int y = qRound(m_guideY * z) + m_axis.y();
    if (point.y() >= y - 1 && point.y() <= y + t) {
        element = ElementGuideH;
        return true;
    }
    return false;
}

QRenderElement QSprRender::hitTest(const QPoint& point, bool cycle) const
{
    // The ruler bands swallow the mouse whether they show or not.
    if (m_locked || point.x() < rulerBand || point.y() < rulerBand)
        return ElementNone;
    QRenderElement element = ElementNone;
    if (m_showGuides && !m_spriteOverGuides && hitGuide(point, element))
        return element;
    if (m_creating && m_mode == RenderAnimation)
        return ElementNone;
    if (m_clsnOverAxis && hitTestCLSN(point, element, cycle))
        return element;
    if (m_showExtraCross && m_extraCrossRect.contains(point))
        return ElementExtraCross;
    if (m_showAnimCross && m_mode == RenderAnimation && m_animCrossRect.contains(point))
        return ElementAnimCross;
    // The main crosshair is only for panning through.
    if (m_showMainCross && m_mainCrossRect.contains(point))
        return ElementNone;
    if (!m_clsnOverAxis && hitTestCLSN(point, element, cycle))
        return element;
    if (m_spriteRect.contains(point))
        return ElementSprite;
    if (m_showGuides && m_spriteOverGuides && hitGuide(point, element))
        return element;
    return ElementNone;
}

void QSprRender::setupCursor(QRenderElement element)
{
    if (!host())
        return;
    Qt::CursorShape shape = Qt::ArrowCursor;
    switch (element) {
    case ElementNone:
        shape = m_creating && m_mode == RenderAnimation ? Qt::CrossCursor
            : m_buttonDown                               ? Qt::ClosedHandCursor
                                                         : Qt::OpenHandCursor;
        break;
    case ElementSprite:
        shape = m_colorCapture ? Qt::CrossCursor : Qt::SizeAllCursor;
        break;
    case ElementAnimCross:
    case ElementExtraCross:
    case ElementClsn:
        shape = Qt::SizeAllCursor;
        break;
    case ElementGuideH:
    case ElementSizerT:
    case ElementSizerB:
        shape = Qt::SizeVerCursor;
        break;
    case ElementGuideV:
    case ElementSizerR:
    case ElementSizerL:
        shape = Qt::SizeHorCursor;
        break;
    case ElementSizerTL:
    case ElementSizerBR:
        shape = Qt::SizeFDiagCursor;
        break;
    case ElementSizerTR:
    case ElementSizerBL:
        shape = Qt::SizeBDiagCursor;
        break;
    }
    host()->setHostCursor(QCursor(shape));
}

void QSprRender::captureColor(const QPoint& point)
{
    if (m_image.format() != QImage::Format_Indexed8)
        return;
    // The pixel under the mouse: a zoomed pixel covers [left + i*z, left + (i+1)*z).
    const float z = zoom();
    const QPoint pixel(int((point.x() - m_spriteRect.left()) / z), int((point.y() - m_spriteRect.top()) / z));
    if (m_image.rect().contains(pixel))
        emit colorCaptured(uchar(m_image.pixelIndex(pixel)));
}

void QSprRender::mousePressed(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    if (event->button() != Qt::LeftButton) {
        if (!m_buttonDown)
            m_dragElement = hitTest(point);
        return;
    }
    if (host())
        host()->takeFocus();
    m_buttonDown = true;
    m_moved = false;
    m_lastMouse = point;
    if (m_creating && m_mode == RenderAnimation) {
        m_dragElement = ElementSizerBR;
        startCLSN(point);
        return;
    }
    m_dragElement = event->modifiers() & Qt::ControlModifier ? ElementNone : hitTest(point, true);
    if (m_dragElement >= ElementClsn) {
        pressCLSN(point, m_dragElement, event->modifiers());
        return;
    }
    unselectCLSN();
    if (m_dragElement == ElementSprite && m_colorCapture)
        captureColor(point);
    if (m_dragElement == ElementSprite || m_dragElement == ElementAnimCross)
        m_dragValue = m_hasFrame ? m_frame.offset : (m_sprite ? m_sprite->offset() : QPoint());
    setupCursor(m_dragElement);
}

bool QSprRender::dragDelta(const QPoint& mouse, QPoint& delta)
{
    const float z = zoom();
    delta = mouse - m_lastMouse;
    const bool object = m_dragElement != ElementNone;
    if (z <= 1) {
        if (m_dragElement < ElementSizerTL)
            m_lastMouse = mouse;
        if (z < 1 && object)
            delta = QPoint(qRound(delta.x() / z), qRound(delta.y() / z));
    } else if (object) {
        // Objects snap to whole engine pixels; the rest of the way is kept for the next move.
        delta = QPoint(int(delta.x() / z), int(delta.y() / z));
        if (m_dragElement < ElementSizerTL)
            m_lastMouse += QPoint(int(delta.x() * z), int(delta.y() * z));
    } else {
        m_lastMouse = mouse;
    }
    switch (m_dragElement) {
    case ElementSizerT:
    case ElementSizerB:
    case ElementGuideH:
        delta.setX(0);
        break;
    case ElementSizerR:
    case ElementSizerL:
    case ElementGuideV:
        delta.setY(0);
        break;
    default:
        break;
    }
    return !delta.isNull();
}

void QSprRender::dragAxis(const QPoint& delta)
{
    const float z = zoom();
    const QPoint screen(qRound(delta.x() * z), qRound(delta.y() * z));
    m_effectiveAxis -= delta;
    m_spriteRect.translate(screen);
    m_animCrossRect.translate(screen);
    emit axisChanged(m_dragValue);
}

void QSprRender::mouseMoved(QMouseEvent* event)
{
    const QPoint mouse = event->position().toPoint();
    if (event->modifiers() & Qt::ControlModifier) {
        if (host())
            host()->setHostCursor(QCursor(Qt::OpenHandCursor));
    } else {
        setupCursor(m_buttonDown ? m_dragElement : hitTest(mouse));
    }
    emit cursorChanged(mouse - m_axis);
    if (!m_buttonDown)
        return;
    if (m_colorCapture && m_dragElement != ElementNone) {
        if (m_spriteRect.contains(mouse))
            captureColor(mouse);
        return;
    }
    QPoint delta;
    if (!dragDelta(mouse, delta))
        return;
    m_moved = true;
    const float z = zoom();
    switch (m_dragElement) {
    case ElementNone:
        m_axis += delta;
        updateBounds();
        break;
    case ElementSprite:
        // A sprite's axis runs against the mouse; a frame's offset with it.
        if (m_hasFrame)
            m_dragValue += delta;
        else
            m_dragValue -= delta;
        dragAxis(delta);
        break;
    case ElementAnimCross:
        m_dragValue += delta;
        dragAxis(delta);
        break;
    case ElementExtraCross:
        m_extraPos += delta;
        m_extraCrossRect.translate(qRound(delta.x() * z), qRound(delta.y() * z));
        emit extraAxisChanged();
        break;
    case ElementGuideH:
    case ElementGuideV:
        m_guideX += delta.x();
        m_guideY += delta.y();
        break;
    case ElementClsn:
        sizeMoveCLSN(false, m_dragElement, QPoint(qRound(delta.x() * z), qRound(delta.y() * z)));
        break;
    default:
        sizeMoveCLSN(true, m_dragElement, QPoint(qRound(delta.x() * z), qRound(delta.y() * z)));
        break;
    }
    if (host())
        host()->repaintNow();
}

void QSprRender::writeAxis()
{
    if (m_hasFrame) {
        m_frame.offset = m_dragValue;
        if (m_frameModel) {
            m_changingModel = true;
            m_frameModel->setOffset(m_dragValue);
            m_changingModel = false;
        }
        updateBounds();
    } else if (m_mode == RenderSprite && m_sprite) {
        m_sprite->setOffset(m_dragValue);
    }
}

void QSprRender::mouseReleased(QMouseEvent* event)
{
    if (m_dragElement == ElementNone && host())
        host()->setHostCursor(QCursor(Qt::OpenHandCursor));
    m_buttonDown = false;
    if (event->button() == Qt::RightButton) {
        if (m_creating) {
            m_creating = false;
            emit clsnModeExit();
        }
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    if (m_dragElement >= ElementClsn)
        releaseCLSN();
    else if (m_moved && (m_dragElement == ElementSprite || m_dragElement == ElementAnimCross))
        writeAxis();
}

void QSprRender::mouseWheel(QWheelEvent* event)
{
    const int step = event->angleDelta().y() / 120;
    if (step == 0)
        return;
    applyZoom(qBound(0, m_zoomIndex + step, QZoomTable::wheelLimit));
    validateZoom();
    updatePos();
}

void QSprRender::keyPressed(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Control && host())
        host()->setHostCursor(QCursor(Qt::OpenHandCursor));
    if (event->modifiers() != Qt::NoModifier)
        return;
    switch (event->key()) {
    case Qt::Key_Delete:
        removeCLSNs();
        break;
    case Qt::Key_Left:
        moveCLSNs(QPoint(-1, 0));
        break;
    case Qt::Key_Up:
        moveCLSNs(QPoint(0, -1));
        break;
    case Qt::Key_Right:
        moveCLSNs(QPoint(1, 0));
        break;
    case Qt::Key_Down:
        moveCLSNs(QPoint(0, 1));
        break;
    default:
        break;
    }
}

void QSprRender::keyReleased(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Control || !host())
        return;
    setupCursor(hitTest(host()->mousePosition()));
}
