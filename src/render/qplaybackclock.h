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

/// The steady clock of the system, sleeping the thread.
class QSystemPlaybackClock : public QPlaybackClock
{
public:
    void start() override { m_timer.start(); }
    qint64 elapsed() const override { return m_timer.elapsed(); }
    qint64 restart() override { return m_timer.restart(); }
    void sleep(int milliseconds) override;

private:
    QElapsedTimer m_timer;
};
