// Playback with a clock of the test's own: the frames shown tick by tick,
// the working copy between frames, and the pacing of the ticks.
#include "tst_render.h"

#include "realdata.h"
#include "renderkit.h"

#include "model/qanimation.h"
#include "model/qanimationframe.h"
#include "model/qanimations.h"
#include "model/qproject.h"
#include "render/qanimationplayer.h"
#include "render/qplaybackclock.h"
#include "render/qsprrender.h"
#include "syntax/qsyntaxtexteditor.h"

#include "qfakeplaybackclock.h"

#include <QTextDocument>
#include <QtTest>

namespace {

using FakeClock = QFakePlaybackClock;

/**
 * The frames shown pass by pass, from the rules as an author reads them: a
 * frame shows for its time in ticks; the first frame of a run with time 0
 * shows not at all, any other frame with time 0 or -1 for ever; after the
 * last frame comes the frame marked LoopStart once it has been reached by
 * playing, else the first.
 */
QList<int> ruleSequence(const QList<int>& times, const QList<bool>& loopMarks, int passes)
{
    QList<int> shown;
    int position = 0, loop = -1, left = times.value(0);
    bool entered = false;
    while (shown.size() < passes) {
        const int time = times.at(position);
        const bool endless = time < 0 || (time == 0 && entered);
        if (!endless && left == 0) {
            position = position + 1 < times.size() ? position + 1 : qMax(loop, 0);
            entered = true;
            if (loopMarks.at(position))
                loop = position;
            left = times.at(position);
            continue;
        }
        shown << position;
        if (left > 0)
            --left;
    }
    return shown;
}

QList<int> playedSequence(QSprRender& view, QAnimationPlayer& player, QAnimation* animation, int passes)
{
    view.setFrame(0);
    player.begin(animation, 0);
    QList<int> shown;
    for (int pass = 0; pass < passes; ++pass) {
        player.tick();
        shown << player.position();
        if (view.frameIndex() != unsigned(player.position()))
            return {};
    }
    return shown;
}

void compareWithRules(QProject& project, int passes)
{
    QSprRender view;
    plainView(view, project.sprites());
    view.setAnimations(project.animations());
    view.setRenderMode(RenderAnimation);
    FakeClock clock;
    QAnimationPlayer player(&view, &clock);
    for (int i = 0; i < project.animations()->count(); ++i) {
        QAnimation* animation = project.animations()->at(i);
        if (animation->frameCount() == 0)
            continue;
        QList<int> times;
        QList<bool> marks;
        for (const QAnimationFrame* frame : animation->frames()) {
            times << frame->time();
            marks << frame->checkInterElem(ifeLoopStart);
        }
        view.setIndex(unsigned(i));
        const QList<int> played = playedSequence(view, player, animation, passes);
        QVERIFY2(played == ruleSequence(times, marks, passes),
                 qPrintable(QStringLiteral("action %1").arg(animation->number())));
    }
}

const char* const timingAir = "[Begin Action 10]\n"
                              "0,0, 0,0, 3\n"
                              "0,1, 0,0, 2\n"
                              "LoopStart\n"
                              "0,2, 0,0, 4\n"
                              "0,3, 0,0, 1\n"
                              "\n"
                              "[Begin Action 11]\n"
                              "0,0, 0,0, 2\n"
                              "0,1, 0,0, -1\n"
                              "\n"
                              "[Begin Action 12]\n"
                              "0,0, 0,0, 0\n"
                              "0,1, 0,0, 2\n"
                              "0,2, 0,0, 0\n"
                              "\n"
                              "[Begin Action 13]\n"
                              "0,0, 0,0, -1\n"
                              "\n"
                              "[Begin Action 14]\n"
                              "LoopStart\n"
                              "0,0, 0,0, 1\n"
                              "0,1, 0,0, 1\n";

const char* const interpolationAir = "[Begin Action 20]\n"
                                     "0,0, 0,0, 4, , AS256D0, 1, 1, 0\n"
                                     "Interpolate Offset\n"
                                     "Interpolate Blend\n"
                                     "Interpolate Scale\n"
                                     "Interpolate Angle\n"
                                     "0,0, 8,-4, 4, , AS0D256, 2, 3, 40\n"
                                     "LoopStart\n"
                                     "0,0, 0,0, 2\n";

} // namespace

void TestRender::playbackFollowsTheTimingRules()
{
    QProject::init();
    QProject project;
    project.animationText()->document()->setPlainText(QString::fromLatin1(timingAir));
    QCOMPARE(project.animations()->count(), 5);
    compareWithRules(project, 40);

    // Spelled out for the looped action: 3 ticks of 0, 2 of 1, 4 of 2, 1 of 3,
    // then back to the LoopStart frame 2, never to 0 again.
    const QList<int> action10 = ruleSequence({ 3, 2, 4, 1 }, { false, false, true, false }, 16);
    QCOMPARE(action10, QList<int>({ 0, 0, 0, 1, 1, 2, 2, 2, 2, 3, 2, 2, 2, 2, 3, 2 }));
    QCOMPARE(ruleSequence({ 0, 2, 0 }, { false, false, false }, 5), QList<int>({ 1, 1, 2, 2, 2 }));
}

void TestRender::playbackOfKfmFollowsTheTimingRules()
{
    PF_REQUIRE_REALDATA();
    const QStringList projects = kfmProjects();
    if (projects.isEmpty())
        QSKIP("kfm not among the real files");
    QProject::init();
    for (const QString& kfm : projects) {
        QProject project;
        QVERIFY(project.open(kfm, 0, false, false));
        QVERIFY2(project.animations()->count() > 50, qPrintable(kfm));
        compareWithRules(project, 300);
    }
}

void TestRender::playbackInterpolatesTheWorkingCopy()
{
    QProject::init();
    QProject project;
    project.animationText()->document()->setPlainText(QString::fromLatin1(interpolationAir));
    QSprRender view;
    plainView(view, project.sprites());
    view.setAnimations(project.animations());
    view.setRenderMode(RenderAnimation);
    view.setCrossPos(100, 100);
    view.setIndex(0);
    view.setFrame(0);
    FakeClock clock;
    QAnimationPlayer player(&view, &clock);
    player.begin(project.animations()->at(0), 0);

    // Ticks 0 to 3 of frame 0 (time 4): the offset runs on a line from the
    // frame's own value, the rest add up their steps (0, 1, 3, 6 steps in all).
    const int steps[4] = { 0, 1, 3, 6 };
    for (int t = 0; t < 4; ++t) {
        player.tick();
        QCOMPARE(player.position(), 0);
        const QFrameView& working = view.frameView();
        QCOMPARE(view.effectiveAxis(), -QPoint(2 * t, -1 * t));
        QCOMPARE(int(working.weights.target.destination), 0 + 64 * steps[t]);
        QCOMPARE(int(working.weights.target.source), 256 - 64 * steps[t]);
        QCOMPARE(working.scaleX, 1.0 + 0.25 * steps[t]);
        QCOMPARE(working.scaleY, 1.0 + 0.5 * steps[t]);
    }
    // Angle: int(t * 10 + working), so 0, 10, 30, 60.
    QCOMPARE(view.frameView().angle, 60);
    // The change of frame reloads the frame's own values, ending the drift.
    player.tick();
    QCOMPARE(player.position(), 1);
    QCOMPARE(view.frameView().scaleX, 2.0);
    QCOMPARE(view.frameView().angle, 40);
    // From the last frame back to the loop frame nothing is interpolated.
    player.tick();
    player.tick();
    player.tick();
    player.tick();
    QCOMPARE(player.position(), 2);
    player.tick();
    QCOMPARE(player.position(), 2);
    player.tick();
    QCOMPARE(player.position(), 2);
    QCOMPARE(view.frameView().scaleX, 1.0);
    QCOMPARE(player.loopStart(), 2);
}

void TestRender::playbackPacesSixtyTicksASecond()
{
    QProject::init();
    QProject project;
    project.animationText()->document()->setPlainText(QString::fromLatin1(timingAir));
    QSprRender view;
    view.setAnimations(project.animations());
    view.setRenderMode(RenderAnimation);
    view.setIndex(0);
    view.setFrame(0);
    FakeClock clock;
    QAnimationPlayer player(&view, &clock);
    player.begin(project.animations()->at(0), 0);
    // Each tick's work takes 3 ms, and every tenth a late 25 ms: the carried
    // error makes the ticks after a late one short, so 600 ticks take 10 s.
    for (int tick = 1; tick <= 600; ++tick) {
        clock.now += tick % 10 == 0 ? 25 : 3;
        player.tick();
        player.pace();
    }
    QVERIFY2(qAbs(clock.now - 10000) <= 17, qPrintable(QString::number(clock.now)));
    QVERIFY2(qAbs(player.fps() - 60.0f) < 0.6f, qPrintable(player.fpsText()));
    QCOMPARE(QAnimationPlayer(&view, &clock).fpsText(), QStringLiteral("60 FPS"));
}
