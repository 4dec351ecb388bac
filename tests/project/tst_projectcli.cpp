#include "clirunner.h"
#include "projectkit.h"
#include "realdata.h"
#include "tst_project.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QJsonObject fileEntry(const QJsonObject& info, const QString& name)
{
    for (const QJsonValue& file : info.value(QStringLiteral("files")).toArray()) {
        if (file.toObject().value(QStringLiteral("name")).toString() == name)
            return file.toObject();
    }
    return QJsonObject();
}

} // namespace

void TestProject::infoCommandDescribesProject()
{
    PF_REQUIRE_REALDATA();
    const QString def = realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.def");
    const CliResult info = runCli({QStringLiteral("--json"), QStringLiteral("info"), def});
    QCOMPARE(info.exitCode, 0);
    QCOMPARE(info.json().value(QStringLiteral("type")).toString(), QStringLiteral("character"));
    QCOMPARE(info.json().value(QStringLiteral("name")).toString(), QStringLiteral("Kung Fu Man"));
    QCOMPARE(info.json().value(QStringLiteral("engine")).toString(), QStringLiteral("1.0"));
    QCOMPARE(info.json().value(QStringLiteral("localcoord")).toArray(), (QJsonArray{320, 240}));
    QCOMPARE(info.json().value(QStringLiteral("files")).toArray().size(), 6);
    QCOMPARE(info.json().value(QStringLiteral("spriteCount")).toInt(), 281);
    QCOMPARE(info.json().value(QStringLiteral("paletteCount")).toInt(), 7);
    QVERIFY(fileEntry(info.json(), QStringLiteral("kfm.sff")).value(QStringLiteral("exists")).toBool());
    QCOMPARE(fileEntry(info.json(), QStringLiteral("kfm.cns")).value(QStringLiteral("role")).toString(),
             QStringLiteral("states"));
    QVERIFY(!fileEntry(info.json(), QStringLiteral("common1.cns")).value(QStringLiteral("exists")).toBool());

    const CliResult text = runCli({QStringLiteral("info"), realDataDir() + QStringLiteral("/fanyer__mugen/stages/kfm.def")});
    QCOMPARE(text.exitCode, 0);
    QVERIFY(text.out.contains("type: Stage\n"));
    QVERIFY(text.out.contains("name: Mountainside Temple\n"));
    QVERIFY(text.out.contains("sprites: kfm.sff -> "));
    QVERIFY(text.out.contains("sprite count: "));

    QTemporaryDir dir;
    QCOMPARE(runCli({QStringLiteral("info"), dir.filePath(QStringLiteral("none.def"))}).exitCode, 1);
    QCOMPARE(runCli({QStringLiteral("info")}).exitCode, 2);

    // Anything that is no DEF is refused in one line, not shown as a nameless character.
    const QString binary = dir.filePath(QStringLiteral("kfm.sff"));
    QFile::copy(def.left(def.lastIndexOf(QLatin1Char('/'))) + QStringLiteral("/kfm.sff"), binary);
    for (const QString& name : { binary, dir.filePath(QStringLiteral("empty.def")) }) {
        QFile touched(name);
        QVERIFY(touched.open(QIODevice::Append));
        touched.close();
        const CliResult refused = runCli({QStringLiteral("info"), name});
        QCOMPARE(refused.exitCode, 1);
        QCOMPARE(refused.faultLines(), 1);
        QVERIFY(refused.err.contains("not a DEF file"));
    }
}

void TestProject::checkCommandChecksProjectAndNames()
{
    QTemporaryDir dir;
    kit::writeBytes(dir.filePath(QStringLiteral("Hero.def")),
                    "[Info]\r\nname = \"Hero\"\r\nmugenversion = 1.0\r\n\r\n[Files]\r\n"
                    "cmd = hero.cmd\r\nst = States\\Moves.CNS\r\ncns = hero.cns\r\n");
    kit::writeBytes(dir.filePath(QStringLiteral("hero.cns")), "[Statedef 0]\r\ntype = S\r\n");
    kit::writeBytes(dir.filePath(QStringLiteral("hero.cmd")), "[Command]\r\nname = \"x\"\r\ncommand = x\r\n");
    kit::writeBytes(dir.filePath(QStringLiteral("states/moves.cns")),
                    "[Statedef 200]\r\ntype = S\r\n\r\n[State 200, 1]\r\ntype = Null\r\ntrigger1 = BackEdge\r\n");

    const CliResult check = runCli({QStringLiteral("--json"), QStringLiteral("check"), dir.filePath(QStringLiteral("Hero.def"))});
    QCOMPARE(check.exitCode, 3); // BackEdge is a trigger of the engine's 1.1, the DEF says 1.0
    QCOMPARE(check.json().value(QStringLiteral("engine")).toString(), QStringLiteral("1.0"));
    QCOMPARE(check.json().value(QStringLiteral("files")).toArray().size(), 4);
    QStringList found;
    for (const QJsonValue& value : check.json().value(QStringLiteral("messages")).toArray()) {
        const QJsonObject msg = value.toObject();
        found << QStringLiteral("%1:%2:%3")
                     .arg(QFileInfo(msg.value(QStringLiteral("file")).toString()).fileName())
                     .arg(msg.value(QStringLiteral("line")).toInt())
                     .arg(msg.value(QStringLiteral("kind")).toString());
    }
    found.sort();
    // Line 7 names States\Moves.CNS: backslashes, and letter case; hero.cns is written as on disk.
    QCOMPARE(found, (QStringList{QStringLiteral("Hero.def:7:warning"), QStringLiteral("Hero.def:7:warning"),
                                 QStringLiteral("moves.cns:6:error")}));

    // At the version given, the trigger is right; the names are still only Windows names.
    const CliResult later = runCli({QStringLiteral("check"), dir.filePath(QStringLiteral("Hero.def")),
                                    QStringLiteral("--engine"), QStringLiteral("1.1")});
    QCOMPARE(later.exitCode, 0);
    QVERIFY(later.out.contains("letter case"));
    QVERIFY(later.out.contains("0 error(s), 2 warning(s)"));
}
