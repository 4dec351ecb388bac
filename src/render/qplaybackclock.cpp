#include "qplaybackclock.h"

#include <QThread>

void QSystemPlaybackClock::start()
{
    m_timer.start();
    m_mark = 0;
}

qint64 QSystemPlaybackClock::elapsed() const
{
    return (m_timer.nsecsElapsed() - m_mark) / 1000000;
}

qint64 QSystemPlaybackClock::restart()
{
    const qint64 milliseconds = elapsed();
    m_mark += milliseconds * 1000000;
    return milliseconds;
}

void QSystemPlaybackClock::sleep(int milliseconds)
{
    QThread::msleep(ulong(milliseconds));
}
