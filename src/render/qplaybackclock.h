#pragma once

#include <QElapsedTimer>

/**
 * The time playback runs on: whole milliseconds since the last restart, and
 * a way to wait. The program uses the steady system clock; tests give a
 * clock of their own and step it by hand.
 */
class QPlaybackClock
{
public:
    virtual ~QPlaybackClock() = default;

    virtual void start() = 0;
    /// Milliseconds since start() or the last restart().
    virtual qint64 elapsed() const = 0;
    /// The milliseconds since the last start, then starts again.
    virtual qint64 restart() = 0;
    virtual void sleep(int milliseconds) = 0;
};

/**
 * The steady clock of the system, sleeping the thread. It answers in whole
 * milliseconds, but a restart keeps the part of a millisecond it did not
 * count for the next interval: dropping it, as a plain restart does, would
 * lose half a millisecond a tick on average, and 3% of the frame rate.
 */
class QSystemPlaybackClock : public QPlaybackClock
{
public:
    void start() override;
    qint64 elapsed() const override;
    qint64 restart() override;
    void sleep(int milliseconds) override;

private:
    QElapsedTimer m_timer;
    qint64 m_mark = 0; ///< nanoseconds of the timer where the present interval began
};
