// Playback for 10 seconds of kfm's walk on the real clock, painting every
// tick into a 1280x800 view: the ticks a second the loop keeps, beside the
// 60 it aims at, and a baseline of the same number of bare sleeps of 1/60 s.
#include "benchutil.h"

#include "model/qanimation.h"
#include "model/qanimations.h"
#include "model/qproject.h"
#include "render/qanimationplayer.h"
#include "render/qimagerenderhost.h"
#include "render/qplaybackclock.h"
#include "render/qsprrender.h"
#include "text/qcodecs.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QThread>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const QString kfm = bench::realData() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.def");
    if (!QFileInfo::exists(kfm)) {
        std::printf("kfm not found under %s: nothing measured\n", qPrintable(bench::realData()));
        return 0;
    }
    initCodecs();
    QProject::init();
    QProject project;
    project.open(kfm, 0, false, false);
    QSprRender view;
    view.setBackground(QColor(40, 60, 90), QColor(200, 120, 60), 1, -213, -208, QString());
    view.setSprites(project.sprites());
    view.setAnimations(project.animations());
    view.setRenderMode(RenderAnimation);
    view.setCrossPos(640, 600);
    view.setZoom(3);
    QImageRenderHost host(&view, QSize(1280, 800));
    QAnimation* walk = project.animations()->at(project.animations()->find(0, 20));
    view.setIndex(unsigned(project.animations()->find(0, 20)));
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
