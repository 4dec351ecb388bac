// The scripts the program ships: templates, the throw maker, snippets and tools.
#include "tst_script.h"

#include "clirunner.h"
#include "qrecordingprompt.h"
#include "model/qanimation.h"
#include "model/qanimationframe.h"
#include "model/qanimations.h"
#include "model/qcollisionboxes.h"
#include "model/qcommands.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "model/qsounds.h"
#include "model/qsprites.h"
#include "script/qluaheaders.h"
#include "script/qluaobject.h"
#include "script/qluawrappers.h"
#include "script/qscript.h"
#include "script/qscriptmanager.h"
#include "util/qmessages.h"

#include <QFile>
#include <QJsonArray>
#include <QRegularExpression>
#include <QtTest>

namespace {

// The checker's findings on a file at the newest engine, as the command line gives them.
QJsonObject check(const QString& fileName)
{
    const CliResult result = runCli({QStringLiteral("check"), fileName, QStringLiteral("--engine"), QStringLiteral("1.1"),
                                     QStringLiteral("--json")});
    return result.json();
}

QString findings(const QJsonObject& report)
{
    return QString::fromUtf8(QJsonDocument(report.value(QStringLiteral("messages")).toArray()).toJson());
}

// Runs a shipped script's entry point with the answers a dialog would give.
void runTool(QScript& script, const QString& name, const QString& answers)
{
    script.fromString(QStringLiteral("answers = {") + answers + QLatin1Char('}'));
    script.fromFile(name);
    luabind::call_function<void>(script.state(), "main");
}

} // namespace

#define KFM_OR_SKIP(project)                                                                       \
    QProject* project = openKfm();                                                                 \
    if (!project)                                                                                  \
        QSKIP("kfm of the real engine files not found: set PF_REALDATA or place ../shared/realdata")

void TestScript::managerFindsScripts()
{
    const QStringList tools = scriptMan->scriptList(QStringLiteral("tool"));
    QVERIFY(tools.contains(QStringLiteral("Sprites/Rename group")));
    QVERIFY(tools.size() >= 5);
    QVERIFY(scriptMan->scriptList(QStringLiteral("project")).contains(QStringLiteral("Character")));
    QVERIFY(scriptMan->scriptList(QStringLiteral("common")).contains(QStringLiteral("Throw")));
    // translate() of a script run from text has no context to give.
    QScript script;
    run(script, QStringLiteral("t = translate('Group') print('printed', 3)"));
    QCOMPARE(string(script, "t"), QStringLiteral("Group"));
    const QMessages& messages = QScriptManager::scriptMsgs();
    QVERIFY(messages.count() > 0 && messages.at(messages.count() - 1).text == QStringLiteral("printed\t3"));
}

void TestScript::characterTemplateLoadsAndChecksClean()
{
    QTemporaryDir dir;
    QRecordingPrompt prompt;
    {
        QProject project;
        QScript script;
        try {
            script.fromFile(QStringLiteral("project/Character"));
            QVERIFY(luabind::call_function<bool>(script.state(), "template", LProject(&project)));
        } catch (const std::exception& error) {
            QFAIL(qPrintable(script.describe(error)));
        }
        QCOMPARE(project.type(), ptCharacter);
        QVERIFY(project.sprites()->count() >= 20);
        QVERIFY(project.animations()->find(0, 200) >= 0);
        QVERIFY(project.animations()->find(0, 5000) >= 0);
        QLuaProjects::installed().current = [&project] { return &project; };
        QScript saver;
        run(saver, QStringLiteral("ok = project():toFile('%1') and 1 or 0").arg(dir.filePath(QStringLiteral("template.def"))));
        QLuaProjects::installed().current = [this] { return m_project.get(); };
        QCOMPARE(number(saver, "ok"), 1.0);
    }
    QVERIFY2(prompt.entries().isEmpty(), qPrintable(prompt.entries().value(0).title + QStringLiteral(": ") + prompt.entries().value(0).text));
    for (const char* name : {"template.def", "template.sff", "template.air", "template.cmd", "template.cns"})
        QVERIFY2(QFile::exists(dir.filePath(QLatin1String(name))), name);

    // The project's own readers load every file without an error.
    QProject loaded;
    QVERIFY(loaded.open(dir.filePath(QStringLiteral("template.def")), 0, false, false));
    QCOMPARE(loaded.messages()->errors(), 0);
    QVERIFY(loaded.sprites()->count() >= 20);
    QAnimation* punch = loaded.animations()->at(loaded.animations()->find(0, 200));
    QVERIFY(punch->frame(1)->collisionBoxes(cbtClsn1) != nullptr);
    QVERIFY(punch->frame(1)->collisionBoxes(cbtClsn2) != nullptr);
    QCOMPARE(loaded.commands()->find(0, QStringLiteral("holdfwd")) >= 0, true);

    // Its files check clean for the newest engine.
    const QJsonObject report = check(dir.filePath(QStringLiteral("template.def")));
    QVERIFY2(!report.isEmpty(), "the checker gave no report");
    QVERIFY2(report.value(QStringLiteral("errors")).toInt() == 0, qPrintable(findings(report)));
    QVERIFY2(report.value(QStringLiteral("warnings")).toInt() == 0, qPrintable(findings(report)));
}

void TestScript::everyTemplateFillsItsProjectType()
{
    const struct { const char* name; QProjectType type; } templates[] = {
        {"Character", ptCharacter}, {"Stage", ptStage}, {"Font", ptFont}, {"Storyboard", ptStoryboard},
        {"System screen", ptMotif}, {"Fight effects", ptFightFx}};
    QCOMPARE(scriptMan->scriptList(QStringLiteral("project")).size(), int(std::size(templates)));
    for (const auto& entry : templates) {
        QProject project;
        QScript script;
        try {
            script.fromFile(QStringLiteral("project/") + QLatin1String(entry.name));
            QVERIFY(luabind::call_function<bool>(script.state(), "template", LProject(&project)));
        } catch (const std::exception& error) {
            QFAIL(qPrintable(script.describe(error)));
        }
        project.definitions()->updateHierarchy();
        QVERIFY2(project.type() == entry.type, entry.name);
    }
}

void TestScript::makeThrowIsTheEngineThrowPattern()
{
    QScript script;
    script.fromFile(QStringLiteral("common/Throw"));
    luabind::object options = luabind::newtable(script.state());
    options["StateNo"] = 900;
    options["P1Anim"] = 910;
    options["P2Anim"] = 920;
    options["XVelocity"] = -3.5;
    options["YVelocity"] = -8;
    options["BindCount"] = 20;
    options["SprPriority"] = 3;
    const QString text = QString::fromStdString(luabind::call_function<std::string>(script.state(), "makeThrow", options));

    // The controllers of the pattern, in the thrower's and the thrown player's states.
    for (const char* expected : {"[Statedef 900]", "type = HitDef", "p1stateno = 910", "p2stateno = 920",
                                 "attr = S, NT", "hitflag = M-", "[Statedef 910]", "type = TargetBind",
                                 "trigger1 = Time < 20", "type = TargetLifeAdd", "type = TargetState", "value = 921",
                                 "[Statedef 920]", "movetype = H", "type = ChangeAnim2", "value = 920",
                                 "[Statedef 921]", "x = -3.5", "y = -8", "type = SelfState", "sprpriority = 3"})
        QVERIFY2(text.contains(QLatin1String(expected)), expected);
    QVERIFY(text.indexOf(QStringLiteral("type = TargetBind")) < text.indexOf(QStringLiteral("type = TargetState")));

    // The CMD's part: a command group only for new keys, and the entry into the attempt.
    luabind::object cmd = luabind::call_function<luabind::object>(script.state(), "makeThrowCommand", options);
    QVERIFY(!luabind::object_cast_nothrow<std::string>(cmd["command"]));
    const QString entry = lua::str(luabind::object_cast<std::string>(cmd["entry"]));
    for (const char* expected : {"[State -1, Throw throw]", "type = ChangeState", "value = 900",
                                 "triggerall = command = \"throw\"", "trigger1 = p2bodydist X < 5", "trigger1 = p2movetype != H"})
        QVERIFY2(entry.contains(QLatin1String(expected)), expected);
    options["Keys"] = "/F, y";
    options["Command"] = "grab";
    cmd = luabind::call_function<luabind::object>(script.state(), "makeThrowCommand", options);
    QCOMPARE(lua::str(luabind::object_cast<std::string>(cmd["command"])),
             QStringLiteral("[Command]\nname = \"grab\"\ncommand = /F, y\ntime = 15\n"));

    QTemporaryDir dir;
    const QString fileName = dir.filePath(QStringLiteral("throw.cns"));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text.toUtf8());
    file.close();
    const QJsonObject report = check(fileName);
    QVERIFY2(report.value(QStringLiteral("errors")).toInt() == 0 && report.value(QStringLiteral("warnings")).toInt() == 0,
             qPrintable(findings(report)));
}

void TestScript::snippetsReturnText()
{
    const QStringList snippets = scriptMan->scriptList(QStringLiteral("snippet"));
    QVERIFY(snippets.size() >= 4);
    for (const QString& name : snippets) {
        QScript script;
        try {
            script.fromFile(QStringLiteral("snippet/") + name);
            const QString text = QString::fromStdString(luabind::call_function<std::string>(script.state(), "codeSnippet"));
            QVERIFY2(text.contains(QLatin1Char('[')), qPrintable(name));
        } catch (const std::exception& error) {
            QFAIL(qPrintable(script.describe(error)));
        }
    }
}

void TestScript::toolRenameGroup()
{
    KFM_OR_SKIP(project);
    QSprites* sprites = project->sprites();
    int inGroup = 0;
    for (int i = 0; i < sprites->count(); ++i)
        inGroup += sprites->at(i)->itemGroup() == 200;
    QVERIFY(inGroup > 0);
    QScript script;
    runTool(script, QStringLiteral("tool/Sprites/Rename group"), QStringLiteral("Group = '200', ['New group'] = '7200'"));
    int moved = 0;
    for (int i = 0; i < sprites->count(); ++i) {
        QVERIFY(sprites->at(i)->itemGroup() != 200);
        moved += sprites->at(i)->itemGroup() == 7200;
    }
    QCOMPARE(moved, inGroup);
}

void TestScript::toolAlignAxes()
{
    KFM_OR_SKIP(project);
    QSprites* sprites = project->sprites();
    QScript script;
    runTool(script, QStringLiteral("tool/Sprites/Align axes"),
            QStringLiteral("Group = '0', ['Axis X'] = '41', ['Axis Y'] = '99'"));
    int aligned = 0;
    for (int i = 0; i < sprites->count(); ++i) {
        const QSprite* sprite = sprites->at(i);
        if (sprite->itemGroup() == 0) {
            QCOMPARE(sprite->offset(), QPoint(41, 99));
            ++aligned;
        } else if (sprite->itemGroup() == 5000) {
            QVERIFY(sprite->offset() != QPoint(41, 99));
        }
    }
    QVERIFY(aligned > 1);
}

void TestScript::toolDefaultClsn2()
{
    KFM_OR_SKIP(project);
    QAnimations* animations = project->animations();
    // An action without Clsn2Default of its own: make one, frames on kfm's sprites.
    QAnimation* action = animations->add(7777);
    for (int i = 0; i < 3; ++i) {
        QAnimationFrame* frame = action->addFrame();
        frame->setProperties(QSubItem(0, i), QPoint(), 5, 0, afbNone, QBlendTarget());
    }
    QScript script;
    runTool(script, QStringLiteral("tool/Animations/Default Clsn2 from sprites"), QStringLiteral("Actions = '7777'"));
    action = animations->at(animations->find(0, 7777));
    QCOMPARE(action->frameCount(), 3);
    for (int i = 0; i < 3; ++i) {
        const QCollisionBoxes* boxes = action->frame(i)->collisionBoxes(cbtClsn2Default);
        QVERIFY(boxes != nullptr);
        QCOMPARE(boxes->count(), 1);
        const QRect box = boxes->at(0)->rect().normalized();
        // Around a standing fighter: above the feet, wider than a few pixels.
        QVERIFY(box.top() < -50);
        QVERIFY(box.width() > 10);
    }
    QVERIFY(animations->textEditor()->document()->toPlainText().contains(QStringLiteral("Clsn2Default: 1")));
}

void TestScript::toolExportMovelist()
{
    KFM_OR_SKIP(project);
    const QString fileName = m_dir->filePath(QStringLiteral("moves.txt"));
    QScript script;
    runTool(script, QStringLiteral("tool/Project/Export movelist"),
            QStringLiteral("['Export movelist'] = '%1'").arg(fileName));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    QVERIFY(text.contains(QStringLiteral("TripleKFPalm")));
    QVERIFY(!text.contains(QStringLiteral("holdfwd")));
    QVERIFY(text.count(QLatin1Char('\n')) > 10);
}

void TestScript::toolUnusedSpritesAndSounds()
{
    KFM_OR_SKIP(project);
    // A sprite no action shows and a sound no state plays.
    QSprite* extra = project->sprites()->add();
    extra->setItem(8123, 4);
    project->sounds()->add();
    const int last = project->sounds()->count() - 1;
    project->sounds()->setInfo(last, QSoundInfo(8124, 5));
    QScript script;
    runTool(script, QStringLiteral("tool/Project/Unused sprites and sounds"), QString());
    const QMessages& messages = QScriptManager::scriptMsgs();
    QString report;
    for (int i = 0; i < messages.count(); ++i)
        report += messages.at(i).text;
    QVERIFY2(report.contains(QStringLiteral("8123,4")), qPrintable(report));
    QVERIFY2(report.contains(QStringLiteral("8124,5")), qPrintable(report));
    // kfm's standing sprite and the sound of its punches are used.
    QVERIFY(!report.contains(QStringLiteral(" 0,0 ")));
    QVERIFY(!report.contains(QStringLiteral(" 0,0\n")));
}
