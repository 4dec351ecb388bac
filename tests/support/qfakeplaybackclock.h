#pragma once

#include "render/qplaybackclock.h"

/// Time that passes only when asked: each sleep of the player, and whatever a test adds to `now`.
class QFakePlaybackClock : public QPlaybackClock
{
public:
    qint64 now = 0;
    qint64 mark = 0;
    qint64 sleptTotal = 0;

    void start() override { mark = now; }
    qint64 elapsed() const override { return now - mark; }
    qint64 restart() override
    {
        const qint64 e = now - mark;
        mark = now;
        return e;
    }
    void sleep(int milliseconds) override
    {
        now += milliseconds;
        sleptTotal += milliseconds;
    }
};
