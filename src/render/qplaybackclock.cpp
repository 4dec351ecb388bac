#include "qplaybackclock.h"

#include <QThread>

void QSystemPlaybackClock::sleep(int milliseconds)
{
    QThread::msleep(ulong(milliseconds));
}
