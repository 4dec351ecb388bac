// Painting of the sprite view: background, onion skin, guides, the sprite
// under the engine's transparency, crosshairs and rulers.
#include "qsprrender.h"

#include "render/qrenderhost.h"

#include <QPaintEvent>
#include <QPainter>

namespace {

constexpr int rulerBand = 30;

} // namespace

void QSprRender::render(QPainter* painter, QPaintEvent* event)
{
    const QRect area = event ? event->rect() : QRect(QPoint(0, 0), hostSize());
    painter->fillRect(area, m_gradient);
    if (!m_paused) {
        if (!m_backImage.isNull())
            painter->drawImage(m_backgroundRect, m_backImage);
        if (m_showOnion && !m_onionImage.isNull()) {
            painter->setOpacity(m_onionOpacity);
            painter->drawImage(m_onionRect, m_onionImage);
            painter->setOpacity(1.0);
        }
        if (m_spriteOverGuides)
            renderGuides(painter);
        renderSprite(painter);
        if (m_clsnOverAxis)
            renderCrosshairs(painter);
        renderCLSNs(painter);
        if (!m_clsnOverAxis)
            renderCrosshairs(painter);
        if (!m_spriteOverGuides)
            renderGuides(painter);
    }
    if (m_showRulers)
        renderRulers(painter);
}

void QSprRender::renderSprite(QPainter* painter)
{
    if (!m_sprites || m_image.isNull())
        return;
    if (!m_hasFrame) {
        QSpritePasses::draw(painter, m_image, m_colorTable, QSpritePasses::Weights(), m_viewTransparent,
                            m_spriteRect);
        return;
    }
    painter->save();
    painter->setTransform(frameTransform(), true);
    QSpritePasses::draw(painter, m_image, m_colorTable, m_frame.weights, m_viewTransparent,
                        QRect(QPoint(0, 0), m_image.size()));
    painter->restore();
}

QTransform QSprRender::frameTransform() const
{
    // The engine scales and turns about the frame's axis; a scale of 0 counts as 1.
    const float z = zoom();
    const double sx = m_frame.scaleX == 0.0 ? 1.0 : m_frame.scaleX;
    const double sy = m_frame.scaleY == 0.0 ? 1.0 : m_frame.scaleY;
    QTransform transform;
    transform.translate(m_axis.x(), m_axis.y());
    transform.rotate(-m_frame.angle);
    transform.scale(z * sx, z * sy);
    transform.translate(-m_effectiveAxis.x(), -m_effectiveAxis.y());
    return transform;
}

QRect QSprRender::paintedBounds() const
{
    if (!m_sprite || m_image.isNull())
        return QRect();
    if (!m_hasFrame)
        return m_spriteRect;
    return frameTransform().mapRect(QRect(QPoint(0, 0), m_image.size()));
}

void QSprRender::renderCrosshairs(QPainter* painter)
{
    if (m_showMainCross)
        painter->drawImage(m_mainCrossRect, m_mainCross);
    if (m_showAnimCross && m_mode == RenderAnimation && m_hasFrame)
        painter->drawImage(m_animCrossRect, m_animCross);
    if (m_showExtraCross)
        painter->drawImage(m_extraCrossRect, m_extraCross);
}

void QSprRender::renderGuides(QPainter* painter)
{
    if (!m_showGuides)
        return;
    const float z = zoom();
    const int t = thickness();
    const QSize size = hostSize();
    painter->setPen(QPen(QColor(0, 255, 255), qRound(z), Qt::SolidLine));
    const int y = int(m_guideY * z + m_axis.y() + t / 2);
    painter->drawLine(-t, y, size.width() + t, y);
    const int x = int(m_guideX * z + m_axis.x() + t / 2);
    painter->drawLine(x, -t, x, size.height() + t);
}

void QSprRender::renderRulers(QPainter* painter)
{
    const QSize size = hostSize();
    painter->setPen(Qt::NoPen);
    painter->setBrush(m_backStart);
    painter->drawRect(0, 0, rulerBand, size.height());
    painter->drawRect(rulerBand, 0, size.width() - rulerBand, rulerBand);
    painter->setBrush(Qt::white);
    painter->drawRect(10, 10, 10, size.height() - 10);
    painter->drawRect(20, 10, size.width() - 20, 10);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(Qt::black);
    QFont font = painter->font();
    font.setPixelSize(9);
    painter->setFont(font);
    renderRuler(painter, Qt::Horizontal);
    renderRuler(painter, Qt::Vertical);
}

void QSprRender::renderRuler(QPainter* painter, Qt::Orientation orientation)
{
    const bool horizontal = orientation == Qt::Horizontal;
    const float z = zoom();
    const int size = horizontal ? hostSize().width() : hostSize().height();
    const int axis = horizontal ? m_axis.x() : m_axis.y();
    const int units = int(10.0 / z);
    const int step = qMax(1, int(units * z));
    const int count = (size - rulerBand) / step;
    const int first = (axis - rulerBand) % step + rulerBand;
    const int axisIndex = (axis - first) / step;
    for (int i = 0; i <= count; ++i) {
        const int position = first + i * step;
        const bool long_ = (axisIndex - i) % 5 == 0;
        const int from = long_ ? 20 : 24;
        if (horizontal)
            painter->drawLine(position, from, position, rulerBand - 1);
        else
            painter->drawLine(from, position, rulerBand - 1, position);
        if (!long_ || i == 0)
            continue;
        const QString number = QStringLiteral("%1").arg((i - axisIndex) * units);
        const QRect box = horizontal ? QRect(position - 5 * step, 0, 10 * step, rulerBand)
                                     : QRect(0, position - 5 * step, rulerBand, 10 * step);
        painter->drawText(box, Qt::AlignCenter, number);
    }
}
