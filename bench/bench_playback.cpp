// Playback for 10 seconds of kfm's walk on the real clock, painting every
// tick into a 1280x800 view: the ticks a second the loop keeps, beside the
// 60 it aims at, and a baseline of the same number of bare sleeps of 1/60 s.
#include "kfmview.h"

#include "model/qanimation.h"
#include "model/qanimations.h"
#include "render/qanimationplayer.h"
#include "render/qimagerenderhost.h"
#include "render/qplaybackclock.h"

#include <QGuiApplication>
#include <QThread>

int main(int argc, char** argv)
{
    bench::useOffscreenPlatform();
    QGuiApplication application(argc, argv);
    bench::KfmView kfm;
    if (!kfm.open(20))
        return 0;
    QSprRender& view = kfm.view;
    QProject& project = kfm.project;
    QImageRenderHost& host = *kfm.host;
    QAnimation* walk = project.animations()->at(project.animations()->find(0, 20));
    view.setFrame(0);

    const int ticks = 600;
    QSystemPlaybackClock clock;
    QAnimationPlayer player(&view, &clock);
    int played = 0;
    QElapsedTimer wall;
    wall.start();
    player.begin(walk, 0);
    while (played < ticks) {
        player.tick();
        host.paint();
        QCoreApplication::processEvents();
        player.pace();
        ++played;
    }
    const double ms = double(wall.nsecsElapsed()) / 1e6;

    QElapsedTimer sleeps;
    sleeps.start();
    for (int i = 0; i < ticks; ++i)
        QThread::msleep(16);
    const double sleptMs = double(sleeps.nsecsElapsed()) / 1e6;

    const double rate = ticks * 1000.0 / ms;
    std::printf("%d ticks of kfm's walk, each painted: %.1f ms, %.3f ticks a second (%.2f%% off 60), "
                "last shown %s\n",
                ticks, ms, rate, (rate - 60.0) / 60.0 * 100.0, qPrintable(player.fpsText()));
    bench::report("600 bare sleeps of 16 ms (baseline)", sleptMs, sleptMs);
    bench::report("600 paced and painted ticks", ms, sleptMs, qAbs(rate - 60.0) <= 0.6 ? "(within 1% of 60/s)" : "(OFF by more than 1%)");
    return 0;
}
