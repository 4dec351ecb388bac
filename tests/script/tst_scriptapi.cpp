// The scripting API on kfm, one model at a time: what a script reads equals
// the model, and what it edits changes the model and its text and undoes.
#include "tst_script.h"

#include "model/qanimation.h"
#include "model/qanimationframe.h"
#include "model/qanimations.h"
#include "model/qcommand.h"
#include "model/qcommands.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "model/qsounds.h"
#include "model/qsprites.h"
#include "realdata.h"
#include "script/qluaheaders.h"
#include "script/qluaobject.h"
#include "script/qscript.h"

#include <QTextDocument>
#include <QtTest>

#define KFM_OR_SKIP(project)                                                                       \
    QProject* project = openKfm();                                                                 \
    if (!project)                                                                                  \
        QSKIP("kfm of the real engine files not found: set PF_REALDATA or place ../shared/realdata")

void TestScript::projectApi()
{
    KFM_OR_SKIP(project);
    QScript script;
    run(script, QStringLiteral("p = project() t = p.type n = projectCount() s = p.statesCount "
                               "same = project(0).sprites.count == p.sprites.count"));
    QCOMPARE(number(script, "t"), double(ptCharacter));
    QCOMPARE(number(script, "n"), 1.0);
    QCOMPARE(int(number(script, "s")), project->statesCount());
    run(script, QStringLiteral("ok = (same and Project.Character == t) and 1 or 0"));
    QCOMPARE(number(script, "ok"), 1.0);
}

void TestScript::definitionsApi()
{
    KFM_OR_SKIP(project);
    QScript script;
    run(script, QStringLiteral("d = project().definitions name = d.name w = d.localWidth"));
    QCOMPARE(string(script, "name"), project->definitions()->name());
    QCOMPARE(int(number(script, "w")), project->definitions()->localCoord().width());
    run(script, QStringLiteral("d.name = 'Renamed'"));
    QCOMPARE(project->definitions()->name(), QStringLiteral("Renamed"));
    QVERIFY(project->definitions()->document()->toPlainText().contains(QStringLiteral("Renamed")));
    project->definitions()->document()->undo();
    QCOMPARE(project->definitions()->name(), string(script, "name"));
}

void TestScript::spritesApi()
{
    KFM_OR_SKIP(project);
    QSprites* sprites = project->sprites();
    QScript script;
    run(script, QStringLiteral("s = project().sprites n = s.count g = s:at(3).itemGroup i = s:at(3).itemIndex "
                               "x = s:at(3).x f = s:find(0, 0)"));
    QCOMPARE(int(number(script, "n")), sprites->count());
    QCOMPARE(int(number(script, "g")), sprites->at(3)->itemGroup());
    QCOMPARE(int(number(script, "i")), sprites->at(3)->itemIndex());
    QCOMPARE(int(number(script, "x")), sprites->at(3)->offsetX());
    QCOMPARE(int(number(script, "f")), sprites->find(0, 0, 0));

    const int oldX = sprites->at(3)->offsetX();
    run(script, QStringLiteral("s:at(3).x = 77 s:at(3).itemIndex = 4321"));
    QCOMPARE(sprites->at(3)->offsetX(), 77);
    QCOMPARE(sprites->at(3)->itemIndex(), 4321);
    QVERIFY(sprites->isModified());
    sprites->undo();
    sprites->undo();
    QCOMPARE(sprites->at(3)->offsetX(), oldX);
    QCOMPARE(int(sprites->at(3)->itemIndex()), int(number(script, "i")));

    // A drawn image becomes the sprite's pixels.
    run(script, QStringLiteral("img = Image(10, 6) img:setColor(1, rgb(255, 0, 0)) img:fillRect(2, 1, 3, 2, 1) "
                               "sp = s:add() sp:setImage(img) b = sp:bounds() w = sp.width bx = b.x1 bw = b.x2 - b.x1"));
    QCOMPARE(number(script, "w"), 10.0);
    QCOMPARE(number(script, "bx"), 2.0);
    QCOMPARE(number(script, "bw"), 3.0);
    QCOMPARE(sprites->count(), int(number(script, "n")) + 1);
}

void TestScript::palettesApi()
{
    KFM_OR_SKIP(project);
    QSprites* sprites = project->sprites();
    QScript script;
    run(script, QStringLiteral("s = project().sprites n = s.paletteCount c = s:paletteAt(0):color(5) "
                               "g = s:paletteAt(0).itemGroup"));
    QCOMPARE(int(number(script, "n")), sprites->paletteCount());
    QCOMPARE(uint(number(script, "c")), uint(sprites->paletteAt(0)->colorTable().at(5)));
    QCOMPARE(int(number(script, "g")), sprites->paletteAt(0)->itemGroup());
    run(script, QStringLiteral("local t = {} for i = 1, 256 do t[i] = rgb(i - 1, 0, 0) end "
                               "p = s:addPalette(t, 7, 3) k = s.paletteCount red = red(p:color(9))"));
    QCOMPARE(int(number(script, "k")), sprites->paletteCount());
    QCOMPARE(sprites->paletteCount(), int(number(script, "n")) + 1);
    QCOMPARE(number(script, "red"), 9.0); // t[10], colour 9
    sprites->undo();
    QCOMPARE(sprites->paletteCount(), int(number(script, "n")));
}

void TestScript::animationsApi()
{
    KFM_OR_SKIP(project);
    QAnimations* animations = project->animations();
    QScript script;
    run(script, QStringLiteral("a = project().animations n = a.count p = a:findByNumber(200) act = a:at(p) "
                               "fc = act.frameCount fr = act:frameAt(0) t = fr.time g = fr.spriteGroup "
                               "c2 = fr:hitBoxes(HitBoxes.Collision).count + fr:hitBoxes(HitBoxes.CollisionDefault).count"));
    QCOMPARE(int(number(script, "n")), animations->count());
    const int position = animations->find(0, 200);
    QCOMPARE(int(number(script, "p")), position);
    QAnimation* action = animations->at(position);
    QCOMPARE(int(number(script, "fc")), action->frameCount());
    QCOMPARE(int(number(script, "t")), action->frame(0)->time());
    QCOMPARE(int(number(script, "g")), action->frame(0)->spriteGroup());
    QVERIFY(number(script, "c2") > 0);

    const QString before = animations->textEditor()->document()->toPlainText();
    run(script, QStringLiteral("fr.time = 55 fr:insertBox(HitBoxes.Attack, 1, -2, 30, -40)"));
    QCOMPARE(action->frame(0)->time(), 55);
    QVERIFY(action->frame(0)->collisionBoxes(cbtClsn1) != nullptr);
    const QString after = animations->textEditor()->document()->toPlainText();
    QVERIFY(after != before);
    QVERIFY2(after.contains(QStringLiteral("Clsn1:")), qPrintable(after.left(400)));
    while (animations->textEditor()->document()->isUndoAvailable())
        animations->textEditor()->document()->undo();
    QCOMPARE(animations->textEditor()->document()->toPlainText(), before);
}

void TestScript::commandsApi()
{
    KFM_OR_SKIP(project);
    QCommands* commands = project->commands();
    QScript script;
    run(script, QStringLiteral("c = project().commands n = c.count first = c:at(0).name keys = c:at(0).command "
                               "f = c:find(first)"));
    QCOMPARE(int(number(script, "n")), commands->count());
    QCOMPARE(string(script, "first"), commands->at(0)->name(false));
    QVERIFY(!string(script, "keys").isEmpty());
    QCOMPARE(int(number(script, "f")), 0);
    run(script, QStringLiteral("c:at(0).name = 'Renamed move' c:at(0).time = 33"));
    QCOMPARE(commands->at(0)->name(false), QStringLiteral("Renamed move"));
    QVERIFY(commands->document()->toPlainText().contains(QStringLiteral("\"Renamed move\"")));
    while (commands->document()->isUndoAvailable())
        commands->document()->undo();
    QCOMPARE(commands->at(0)->name(false), string(script, "first"));
}

void TestScript::statesApi()
{
    KFM_OR_SKIP(project);
    QScript script;
    run(script, QStringLiteral("st = project():states(0) lines = st.lineCount first = st:line(0) "
                               "has = st:sectionExists('Statedef 200')"));
    QSyntaxTextEditor* states = project->states(0);
    QCOMPARE(int(number(script, "lines")), states->document()->blockCount());
    QCOMPARE(string(script, "first"), states->document()->firstBlock().text());
    const QString before = states->document()->toPlainText();
    run(script, QStringLiteral("st:movePosition(TextDocument.End, TextDocument.MoveAnchor) "
                               "st:insertText('\\n; added by a script\\n')"));
    QVERIFY(states->document()->toPlainText().endsWith(QStringLiteral("; added by a script\n")));
    QVERIFY(states->isModified());
    states->document()->undo();
    QCOMPARE(states->document()->toPlainText(), before);
}

void TestScript::soundsApi()
{
    KFM_OR_SKIP(project);
    QSounds* sounds = project->sounds();
    QScript script;
    run(script, QStringLiteral("s = project().sounds n = s.count g = s:group(2) i = s:sample(2)"));
    QCOMPARE(int(number(script, "n")), sounds->count());
    QCOMPARE(int(number(script, "g")), sounds->at(2)->group);
    QCOMPARE(int(number(script, "i")), sounds->at(2)->sample);
    run(script, QStringLiteral("s:setNumber(2, 4444, 5)"));
    QCOMPARE(sounds->at(2)->group, 4444);
    QVERIFY(sounds->isModified());
    sounds->undoStack()->undo();
    QCOMPARE(sounds->at(2)->group, int(number(script, "g")));
}

void TestScript::signalsReachLua()
{
    KFM_OR_SKIP(project);
    QScript script;
    run(script, QStringLiteral("calls = 0 connect(project().sprites, 'changed', function() calls = calls + 1 end)"));
    project->sprites()->at(0)->setOffsetX(12);
    QVERIFY(number(script, "calls") >= 1);
    // A one-shot timer calls its function once, from the event loop.
    run(script, QStringLiteral("ticks = 0 Timer.singleShot(1, function() ticks = ticks + 1 end)"));
    QTRY_COMPARE(number(script, "ticks"), 1.0);
    QTest::qWait(20);
    QCOMPARE(number(script, "ticks"), 1.0);

    // Signals a script fires itself: to a Lua function, and through a Qt
    // connection from one object's signal to another's.
    run(script, QStringLiteral("got = {} a = Signal() b = Signal() "
                               "connect(a, 'general_signal(int)', b, 'general_signal(int)') "
                               "connect(b, 'general_signal(int)', function(n) got[#got + 1] = n end) "
                               "connect(a, 'general_signal(QString)', function(t) got[#got + 1] = t end) "
                               "connect(a, 'general_signal(double)', function(x) got[#got + 1] = x end) "
                               "emit_signal(a, 7) emit_signal(a, 'seven') emit_signal(a, 0.5) "
                               "count = #got first = got[1] second = got[2] third = got[3]"));
    QCOMPARE(number(script, "count"), 3.0);
    QCOMPARE(number(script, "first"), 7.0);
    QCOMPARE(string(script, "second"), QStringLiteral("seven"));
    QCOMPARE(number(script, "third"), 0.5);

    // A function connected with a receiver is called with it first, until the receiver goes.
    QObject watched;
    auto* receiver = new QObject;
    receiver->setObjectName(QStringLiteral("receiver"));
    luabind::globals(script.state())["watched"] = LObject(&watched);
    luabind::globals(script.state())["receiver"] = LObject(receiver);
    run(script, QStringLiteral("names = {} connect(watched, 'objectNameChanged', receiver, "
                               "function(self, name) names[#names + 1] = self.objectName .. ':' .. name end)"));
    watched.setObjectName(QStringLiteral("renamed"));
    delete receiver;
    watched.setObjectName(QStringLiteral("again"));
    run(script, QStringLiteral("heard = #names first = names[1]"));
    QCOMPARE(number(script, "heard"), 1.0);
    QCOMPARE(string(script, "first"), QStringLiteral("receiver:renamed"));

    // A signal that carries an object gives Lua an Object; this one is already going.
    auto* going = new QObject;
    luabind::globals(script.state())["going"] = LObject(going);
    run(script, QStringLiteral("state = 'not called' connect(going, 'destroyed(QObject*)', "
                               "function(o) state = o.alive and 'alive' or 'gone' end)"));
    delete going;
    QCOMPARE(string(script, "state"), QStringLiteral("gone"));
}
