#pragma once

#include <QObject>
#include <QString>

class QAnimation;
class QAnimationFrame;
class QPlaybackClock;
class QSprRender;

/**
 * Plays an animation on the sprite view at the engine's 60 ticks a second,
 * with the engine's timing rules. There is no timer and no thread: play()
 * loops on the calling thread, keeping the window alive by processing events
 * between ticks, until stop() (the playing flag is the only guard).
 *
 * Each tick either counts on within the frame, moving the view's working copy
 * of blend, offset, scale and angle towards the next frame where that frame
 * asks for it, or changes frame. A frame's time is the number of ticks to its
 * change, counted from 1, except that the frame playback starts on also shows
 * at tick 0. After the last frame playback goes on at the frame that carried
 * the "LoopStart" line (once it was reached), else at the first. A time of -1
 * never runs out, and neither does a time of 0 on any frame but the first.
 * Without looping, playback ends on the last frame when its time runs out.
 *
 * Ticks are paced by sleeping to the next 1/60 second, the error carried into
 * the next tick, so that late ticks make the next ones short and the average
 * holds. The clock is injected, so tick() and pace() can be stepped in tests.
 */
class QAnimationPlayer : public QObject
{
    Q_OBJECT
public:
    static constexpr float tickMilliseconds = 16.666666f;

    QAnimationPlayer(QSprRender* view, QPlaybackClock* clock, QObject* parent = nullptr);

    /**
     * Plays `animation` from the frame the view shows until stop(); returns
     * then. With `resume`, a run of the same animation still on the frame the
     * view shows goes on where it stopped, its ticks in the frame kept.
     */
    void play(QAnimation* animation, bool resume = false);
    void stop() { m_playing = false; }
    bool isPlaying() const { return m_playing; }
    bool isLooping() const { return m_looping; }
    void setLooping(bool on) { m_looping = on; }
    /// Gives the player another clock (tests); the caller keeps it alive.
    void setClock(QPlaybackClock* clock) { m_clock = clock; }

    /// Sets up a run from the frame at `position`, for stepping or playing.
    void begin(QAnimation* animation, int position);
    /// Whether a run of `animation` is set up and stands on the frame at `position`.
    bool isAt(const QAnimation* animation, int position) const;
    /// One tick's change of frame or working copy.
    void tick();
    /// Changes to the frame that follows as the end of the present one does,
    /// whatever its time; without looping the last frame stays.
    void advance();
    /// Waits for the next tick and keeps the frame rate figure.
    void pace();

    int position() const { return m_position; }
    /// Ticks counted in the present frame.
    int ticks() const { return m_t; }
    int loopStart() const { return m_loopStart; }
    /// Ticks a second over the last full second (60 at first).
    float fps() const { return m_fps; }
    /// "60 FPS", as the status bar shows it.
    QString fpsText() const;

signals:
    /// The frame shown changed; the editor's frame selector follows.
    void positionChanged(int position);
    void fpsChanged(const QString& text);

private:
    QAnimationFrame* current() const;
    /// The frame after the present one; null after the last (a loop back is no "next").
    QAnimationFrame* nextFrame(int loopStart) const;
    void setPosition(int position);
    void interpolate(const QAnimationFrame& next);

    QSprRender* m_view;
    QPlaybackClock* m_clock;
    QAnimation* m_animation = nullptr;
    bool m_playing = false;
    bool m_looping = true;
    int m_position = 0;
    int m_loopStart = -1;
    int m_t = 0;
    float m_carry = 0.0f;
    float m_fps = 60.0f;
    int m_frameCount = 0;
    qint64 m_accumulated = 0;
};
