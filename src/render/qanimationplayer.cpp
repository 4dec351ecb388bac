#include "qanimationplayer.h"

#include "model/qanimation.h"
#include "model/qanimationframe.h"
#include "render/qplaybackclock.h"
#include "render/qsprrender.h"

#include <QCoreApplication>

QAnimationPlayer::QAnimationPlayer(QSprRender* view, QPlaybackClock* clock, QObject* parent)
    : QObject(parent), m_view(view), m_clock(clock)
{
}

QString QAnimationPlayer::fpsText() const
{
    return QStringLiteral("%1 FPS").arg(double(m_fps), 0, 'g');
}

QAnimationFrame* QAnimationPlayer::current() const
{
    return m_animation ? m_animation->frame(m_position) : nullptr;
}

QAnimationFrame* QAnimationPlayer::nextFrame(int loopStart) const
{
    if (!m_animation)
        return nullptr;
    if (m_position < m_animation->frameCount())
        return m_animation->frame(m_position + 1);
    return loopStart >= 0 ? m_animation->frame(loopStart) : nullptr;
}

void QAnimationPlayer::setPosition(int position)
{
    // Position -1 (no loop start seen yet) lands on the first frame.
    m_position = qMax(0, position);
    if (m_animation)
        m_animation->setFrameIndex(unsigned(m_position));
    if (m_view)
        m_view->setFrame(unsigned(m_position));
    emit positionChanged(m_position);
}

void QAnimationPlayer::begin(QAnimation* animation, int position)
{
    m_animation = animation;
    m_position = qMax(0, position);
    m_loopStart = -1;
    m_t = 0;
    m_carry = 0.0f;
    m_fps = 60.0f;
    m_frameCount = 0;
    m_accumulated = 0;
    m_clock->start();
}

bool QAnimationPlayer::isAt(const QAnimation* animation, int position) const
{
    return animation && m_animation == animation && m_position == position;
}

void QAnimationPlayer::tick()
{
    const QAnimationFrame* frame = current();
    if (!frame || m_t != frame->time()) {
        // Looked up each tick rather than kept: the author may edit the
        // animation while it plays, since events run between ticks.
        if (const QAnimationFrame* next = nextFrame(m_loopStart); frame && next)
            interpolate(*next);
        ++m_t;
        return;
    }
    advance();
}

void QAnimationPlayer::advance()
{
    if (!current())
        return;
    const bool last = m_position + 1 >= m_animation->frameCount();
    if (last && !m_looping) {
        m_playing = false;
        return;
    }
    setPosition(last ? m_loopStart : m_position + 1);
    if (const QAnimationFrame* now = current(); now && now->checkInterElem(ifeLoopStart))
        m_loopStart = m_position;
    m_t = 1;
}

void QAnimationPlayer::interpolate(const QAnimationFrame& next)
{
    const QAnimationFrame& frame = *current();
    const int d = frame.time();
    // A frame that never runs out has no end to move towards.
    if (d <= 0 || !m_view)
        return;
    QFrameView& working = m_view->workingFrame();
    bool changed = false;
    // Blend, angle and scale add each tick's step to the working value, so
    // they run as the sum of the ticks; the offset alone is a straight line.
    if (next.checkInterElem(ifeBlend)) {
        const QBlendTarget a = frame.blendTarget(), b = next.blendTarget();
        working.weights.target.destination += qint16((b.destination - a.destination) / d * m_t);
        working.weights.target.source += qint16((b.source - a.source) / d * m_t);
        changed = true;
    }
    if (next.checkInterElem(ifeAngle)) {
        working.angle = int(m_t * ((next.angle() - frame.angle()) / d) + working.angle);
        changed = true;
    }
    if (next.checkInterElem(ifeOffset)) {
        const QPoint from = frame.offset(), to = next.offset();
        m_view->setAxis(QPoint(qRound(double(to.x() - from.x()) / d) * m_t + from.x(),
                               qRound(double(to.y() - from.y()) / d) * m_t + from.y()));
        changed = true;
    }
    if (next.checkInterElem(ifeScale)) {
        working.scaleX += (next.scaleX() - frame.scaleX()) / d * m_t;
        working.scaleY += (next.scaleY() - frame.scaleY()) / d * m_t;
        changed = true;
    }
    if (changed)
        m_view->update();
}

void QAnimationPlayer::pace()
{
    const float target = m_carry + tickMilliseconds;
    const qint64 elapsed = m_clock->elapsed();
    if (elapsed < target)
        m_clock->sleep(int(target - elapsed));
    const qint64 taken = m_clock->restart();
    ++m_frameCount;
    m_accumulated += taken;
    m_carry = target - taken;
    if (m_accumulated >= 1000) {
        m_fps = m_frameCount * 1000.0f / m_accumulated;
        m_frameCount = 0;
        m_accumulated = 0;
    }
}

void QAnimationPlayer::play(QAnimation* animation, bool resume)
{
    if (m_playing || !animation || !m_view || !m_view->frame())
        return;
    if (resume && isAt(animation, int(m_view->frameIndex())))
        m_clock->start();
    else
        begin(animation, int(m_view->frameIndex()));
    m_playing = true;
    while (m_playing) {
        tick();
        emit fpsChanged(fpsText());
        QCoreApplication::processEvents();
        pace();
    }
}
