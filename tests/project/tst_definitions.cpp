#include "projectkit.h"
#include "realdata.h"
#include "tst_project.h"

#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "util/qengineversion.h"

#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QtTest>

namespace {

/// Replaces the text of one line, as the author would by selecting it and typing.
void replaceLine(QTextDocument* document, int line, const QString& text)
{
    QTextCursor cursor(document->findBlockByNumber(line));
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.insertText(text);
}

void removeLine(QTextDocument* document, int line)
{
    QTextCursor cursor(document->findBlockByNumber(line));
    cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

void appendText(QTextDocument* document, const QString& text)
{
    QTextCursor cursor(document);
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(text);
}

} // namespace

void TestProject::filesByKind_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("sprites");
    QTest::addColumn<QStringList>("others"); // animations, sounds, commands, pal1, pal12
    QTest::addColumn<QStringList>("states");

    QTest::newRow("character")
        << QByteArray("[Files]\nspr = a.sff\nsprite = b.sff\nanim = Chars\\k.air\nsound = k.snd\ncmd = k.cmd\n"
                      "cns = k.cns\nst = k.cns\nst0 = sub\\z.st\nstcommon = common1.cns\nst = again.cns\n"
                      "pal1 = p1.act ; first\npal12 = p12.act\n")
        << int(ptCharacter) << QStringLiteral("b.sff")
        << QStringList{QStringLiteral("Chars/k.air"), QStringLiteral("k.snd"), QStringLiteral("k.cmd"),
                       QStringLiteral("p1.act"), QStringLiteral("p12.act")}
        << QStringList{QStringLiteral("k.cns"), QStringLiteral("sub/z.st"), QStringLiteral("common1.cns")};
    QTest::newRow("state files in the order of the text")
        << QByteArray("[Files]\nst3 = c.st\ncns = a.cns\n\n; comment\nst = b.st\nsff = s.sff\n") << int(ptCharacter)
        << QStringLiteral("s.sff") << QStringList{QString(), QString(), QString(), QString(), QString()}
        << QStringList{QStringLiteral("c.st"), QStringLiteral("a.cns"), QStringLiteral("b.st")};
    QTest::newRow("keys of another group don't count")
        << QByteArray("[Files]\ncmd = a.cmd\n[Arcade]\ncmd = b.cmd\n[Files]\ncns = c.cns\n") << int(ptCharacter)
        << QString() << QStringList{QString(), QString(), QStringLiteral("a.cmd"), QString(), QString()}
        << QStringList{};
    QTest::newRow("stage") << QByteArray("[Info]\nname = \"S\"\n[BGdef]\nspr = stages/x.sff\n[BG 0]\nspr = no.sff\n")
                           << int(ptStage) << QStringLiteral("x.sff") << QStringList(5) << QStringList{};
    QTest::newRow("stage, rooted, backslashes")
        << QByteArray("[BGdef]\nspr = \\Stages\\sub\\x.sff\n") << int(ptStage) << QStringLiteral("sub/x.sff")
        << QStringList(5) << QStringList{};
    QTest::newRow("stage, other folder") << QByteArray("[BGdef]\nspr = mine/stages/x.sff\n") << int(ptStage)
                                         << QStringLiteral("mine/stages/x.sff") << QStringList(5) << QStringList{};
    QTest::newRow("stage wins over storyboard")
        << QByteArray("[SceneDef]\nspr = s.sff\n[BGdef]\nspr = b.sff\n") << int(ptStage) << QStringLiteral("b.sff")
        << QStringList(5) << QStringList{};
    QTest::newRow("storyboard") << QByteArray("[Info]\nlocalcoord = 320,240\n[SceneDef]\nspr = intro.sff\n")
                                << int(ptStoryboard) << QStringLiteral("intro.sff") << QStringList(5) << QStringList{};
    QTest::newRow("font") << QByteArray("\xEF\xBB\xBF[FNT v2]\nfntversion = 2,00\n[Def]\nType = bitmap\nFile = f.sff\n")
                          << int(ptFont) << QStringLiteral("f.sff") << QStringList(5) << QStringList{};
    QTest::newRow("motif") << QByteArray("[Files]\nspr = system.sff\nsnd = system.snd\n[TitleBGdef]\n") << int(ptMotif)
                           << QStringLiteral("system.sff") << QStringList(5) << QStringList{};
    QTest::newRow("fight") << QByteArray("[Files]\nsff = fight.sff\n[FightFx]\n[Lifebar]\n") << int(ptFightFx)
                           << QStringLiteral("fight.sff") << QStringList(5) << QStringList{};
    QTest::newRow("nothing") << QByteArray("; only a comment\n") << int(ptCharacter) << QString() << QStringList(5)
                             << QStringList{};
}

void TestProject::filesByKind()
{
    QFETCH(QByteArray, text);
    QFETCH(int, type);
    QFETCH(QString, sprites);
    QFETCH(QStringList, others);
    QFETCH(QStringList, states);

    QTemporaryDir dir;
    const QString fileName = dir.filePath(QStringLiteral("x.def"));
    kit::writeBytes(fileName, text);
    QDefinitions def(nullptr);
    QVERIFY(def.fromFile(fileName, 0, false));
    QCOMPARE(int(def.type()), type);
    QCOMPARE(def.baseDirectory(), QFileInfo(fileName).absolutePath());
    const QProjectFiles files = def.files();
    QCOMPARE(files.baseDir, def.baseDirectory());
    QCOMPARE(files.sprites, sprites);
    QCOMPARE((QStringList{files.animations, files.sounds, files.commands, files.palettes[0], files.palettes[11]}),
             others);
    QCOMPARE(files.states, states);

    def.clear();
    QVERIFY(def.baseDirectory().isEmpty());
    QVERIFY(def.files().sprites.isEmpty());
}

void TestProject::infoFollowsTyping()
{
    QTemporaryDir dir;
    const QString fileName = dir.filePath(QStringLiteral("x.def"));
    kit::writeBytes(fileName, "[Info]\r\nname = \"A\"\r\nmugenversion = 1.0\r\nlocalcoord = 640,480\r\n\r\n"
                              "[Files]\r\nname = \"files\"\r\n");
    QProject project;
    QDefinitions* def = project.definitions();
    QSignalSpy names(def, &QDefinitions::nameChanged);
    QSignalSpy versions(def, &QDefinitions::versionChanged);
    QVERIFY(def->fromFile(fileName, 0, false));
    QCOMPARE(def->name(), QStringLiteral("A"));
    QCOMPARE(def->version(), engineVersion::v1_0);
    QCOMPARE(def->localCoord(), QSize(640, 480));
    QCOMPARE(names.count(), 1);
    QCOMPARE(versions.count(), 1);
    QCOMPARE(versions.at(0).at(0).value<QProject*>(), &project);
    names.clear();
    versions.clear();

    QTextDocument* text = def->document();
    replaceLine(text, 1, QStringLiteral("name = \"B\""));
    QCOMPARE(names.count(), 1);
    QCOMPARE(names.at(0).at(1).toString(), QStringLiteral("B"));
    // Key by key: each keystroke that changes the name tells once.
    for (const QString& typed : {QStringLiteral("C"), QStringLiteral("D")}) {
        QTextCursor cursor(text->findBlockByNumber(1));
        cursor.movePosition(QTextCursor::EndOfBlock);
        cursor.movePosition(QTextCursor::Left);
        cursor.insertText(typed);
    }
    QCOMPARE(def->name(), QStringLiteral("BCD"));
    QCOMPARE(names.count(), 3);
    QCOMPARE(versions.count(), 0);

    // Typing the version through a value that isn't one.
    replaceLine(text, 2, QStringLiteral("mugenversion = 1."));
    QCOMPARE(def->version(), engineVersion::beta);
    replaceLine(text, 2, QStringLiteral("mugenversion = 1.1"));
    QCOMPARE(def->version(), engineVersion::v1_1);
    QCOMPARE(versions.count(), 2);
    replaceLine(text, 2, QStringLiteral("mugenversion = 1.1 ; same"));
    QCOMPARE(versions.count(), 2);

    replaceLine(text, 3, QStringLiteral("localcoord = 320"));
    QCOMPARE(def->localCoord(), QSize(320, 240));
    replaceLine(text, 3, QStringLiteral("localcoord = 1280, 720"));
    QCOMPARE(def->localCoord(), QSize(1280, 720));
    removeLine(text, 3);
    QCOMPARE(def->localCoord(), QSize(320, 240));
    removeLine(text, 2);
    QCOMPARE(def->version(), engineVersion::beta);
    QCOMPARE(versions.count(), 3);

    // A second name in [Info] waits behind the first and takes over when it goes.
    names.clear();
    QTextCursor(text->findBlockByNumber(2)).insertText(QStringLiteral("name = \"E\"\n"));
    QCOMPARE(names.count(), 0);
    removeLine(text, 1);
    QCOMPARE(def->name(), QStringLiteral("E"));
    QCOMPARE(names.count(), 1);
    QCOMPARE(names.count(), 1);

    def->setName(QStringLiteral("Written"));
    QCOMPARE(def->name(), QStringLiteral("Written"));
    QCOMPARE(text->findBlockByNumber(1).text(), QStringLiteral("name = \"Written\""));
    QCOMPARE(names.count(), 2);

    // A DEF without [Info] gets one.
    QDefinitions bare(nullptr);
    bare.setName(QStringLiteral("New"));
    QCOMPARE(bare.name(), QStringLiteral("New"));
    QVERIFY(bare.document()->toPlainText().startsWith(QStringLiteral("[Info]\nname = \"New\"\n")));
}

void TestProject::typeFollowsOutline()
{
    QTemporaryDir dir;
    const QString fileName = dir.filePath(QStringLiteral("x.def"));
    kit::writeBytes(fileName, "[Info]\nname = \"A\"\n");
    QProject project;
    QDefinitions* def = project.definitions();
    QSignalSpy types(def, &QDefinitions::typeChanged);
    QVERIFY(project.open(fileName, 0, false, false));
    QCOMPARE(project.type(), ptCharacter);
    QCOMPARE(types.count(), 0);

    appendText(def->document(), QStringLiteral("[BGdef]\nspr = stages/x.sff\n"));
    QCOMPARE(types.count(), 0); // not before the outline is rebuilt
    QTRY_COMPARE(types.count(), 1);
    QCOMPARE(types.at(0).at(0).value<QProject*>(), &project);
    QCOMPARE(project.type(), ptStage);
    QCOMPARE(def->files().sprites, QStringLiteral("x.sff"));

    appendText(def->document(), QStringLiteral("[SceneDef]\nspr = s.sff\n"));
    def->updateHierarchy();
    QCOMPARE(project.type(), ptStage);
    QCOMPARE(types.count(), 1);

    removeLine(def->document(), 2);
    def->updateHierarchy();
    QCOMPARE(project.type(), ptStoryboard);
    QCOMPARE(types.count(), 2);
    QCOMPARE(def->files().sprites, QStringLiteral("s.sff"));
    def->updateHierarchy();
    QCOMPARE(types.count(), 2);
}

void TestProject::versionReachesStatesAfterDelay()
{
    QTemporaryDir dir;
    kit::writeBytes(dir.filePath(QStringLiteral("x.def")), "[Info]\nmugenversion = 1.0\n[Files]\nst = x.cns\n");
    kit::writeBytes(dir.filePath(QStringLiteral("x.cns")), "[Statedef 0]\n");
    QProject project;
    QVERIFY(project.open(dir.filePath(QStringLiteral("x.def")), 0, false, false));
    QCOMPARE(project.statesCount(), 1);
    QCOMPARE(project.states(0)->syntaxVersion(), engineVersion::v1_0);

    replaceLine(project.definitions()->document(), 1, QStringLiteral("mugenversion = 1.1"));
    QCOMPARE(project.definitions()->version(), engineVersion::v1_1);
    QCOMPARE(project.states(0)->syntaxVersion(), engineVersion::v1_0);
    QTRY_COMPARE(project.states(0)->syntaxVersion(), engineVersion::v1_1);
    QCOMPARE(project.definitions()->syntaxVersion(), engineVersion::v1_1);
}

void TestProject::realDefinitions_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned int>("version");
    QTest::addColumn<QSize>("local");
    QTest::addColumn<QStringList>("files"); // sprites, animations, sounds, commands, then the state files

    const QSize small(320, 240);
    const QSize large(1280, 720);
    const QStringList kfm{QStringLiteral("kfm.sff"), QStringLiteral("kfm.air"), QStringLiteral("kfm.snd"),
                          QStringLiteral("kfm.cmd"), QStringLiteral("kfm.cns"), QStringLiteral("common1.cns")};
    auto sprite = [](const char* name) { return QStringList{QLatin1String(name), QString(), QString(), QString()}; };
    const QString fanyer = QStringLiteral("fanyer__mugen/");
    const QString ikemen = QStringLiteral("ikemen-engine__Ikemen_GO-Elecbyte-Screenpack/");
    const QString tunlan = QStringLiteral("Tunlan__mugen-1.1b1/");

    QTest::newRow("character 1.0") << fanyer + QStringLiteral("chars/kfm/kfm.def") << int(ptCharacter)
                                   << QStringLiteral("Kung Fu Man") << engineVersion::v1_0 << small << kfm;
    QTest::newRow("character 1.1, LF") << tunlan + QStringLiteral("chars/kfm/kfm.def") << int(ptCharacter)
                                       << QStringLiteral("Kung Fu Man") << engineVersion::v1_0 << small << kfm;
    QTest::newRow("character 720")
        << fanyer + QStringLiteral("chars/kfm720/kfm720.def") << int(ptCharacter) << QStringLiteral("Kung Fu Man 720")
        << engineVersion::v1_0 << large
        << QStringList{QStringLiteral("kfm720.sff"), QStringLiteral("kfm720.air"), QStringLiteral("kfm.snd"),
                       QStringLiteral("kfm720.cmd"), QStringLiteral("kfm720.cns"), QStringLiteral("common1.cns")};
    QTest::newRow("stage") << fanyer + QStringLiteral("stages/kfm.def") << int(ptStage)
                           << QStringLiteral("Mountainside Temple") << engineVersion::v1_0 << small << sprite("kfm.sff");
    QTest::newRow("stage 1.1, key in another case")
        << ikemen + QStringLiteral("stages/stage1.def") << int(ptStage) << QStringLiteral("Training Stage")
        << engineVersion::v1_1 << small << sprite("stage1.sff");
    QTest::newRow("storyboard") << fanyer + QStringLiteral("chars/kfm/intro.def") << int(ptStoryboard) << QString()
                                << engineVersion::beta << small << sprite("intro.sff");
    QTest::newRow("motif storyboard") << fanyer + QStringLiteral("data/kfm/intro.def") << int(ptStoryboard)
                                      << QString() << engineVersion::beta << small << sprite("intro.sff");
    QTest::newRow("bitmap font") << fanyer + QStringLiteral("font/f-4x6.def") << int(ptFont) << QString()
                                 << engineVersion::beta << small << sprite("f-4x6.sff");
    QTest::newRow("truetype font") << fanyer + QStringLiteral("font/options.def") << int(ptFont) << QString()
                                   << engineVersion::beta << small << sprite("arial.ttf");
    QTest::newRow("motif") << fanyer + QStringLiteral("data/system.def") << int(ptMotif) << QStringLiteral("Default")
                           << engineVersion::v1_0 << small << sprite("system.sff");
    QTest::newRow("fight") << fanyer + QStringLiteral("data/fight.def") << int(ptFightFx) << QString()
                           << engineVersion::beta << small << sprite("fight.sff");
    // Its name is not in quotes, so it isn't a name the engine's DEF reader knows.
    QTest::newRow("fight, large") << ikemen + QStringLiteral("data/fight.def") << int(ptFightFx) << QString()
                                  << engineVersion::beta << large << sprite("fight.sff");
    QTest::newRow("select") << fanyer + QStringLiteral("data/select.def") << int(ptCharacter) << QString()
                            << engineVersion::beta << small << QStringList(4);
}

void TestProject::realDefinitions()
{
    PF_REQUIRE_REALDATA();
    QFETCH(QString, path);
    QFETCH(int, type);
    QFETCH(QString, name);
    QFETCH(unsigned int, version);
    QFETCH(QSize, local);
    QFETCH(QStringList, files);

    QProject project;
    QVERIFY(project.open(realDataDir() + QLatin1Char('/') + path, 0, false, false));
    const QDefinitions* def = project.definitions();
    QCOMPARE(int(def->type()), type);
    QCOMPARE(def->name(), name);
    QCOMPARE(def->version(), version);
    QCOMPARE(def->localCoord(), local);
    const QProjectFiles named = def->files();
    QCOMPARE((QStringList{named.sprites, named.animations, named.sounds, named.commands} + named.states), files);
    QVERIFY(!def->isModified());
}

void TestProject::everyRealDefGetsItsKind()
{
    PF_REQUIRE_REALDATA();
    // The kind read straight from the group lines, first of these in this order.
    const QList<QPair<QString, QProjectType>> kinds{{QStringLiteral("bgdef"), ptStage},
                                                    {QStringLiteral("scenedef"), ptStoryboard},
                                                    {QStringLiteral("def"), ptFont},
                                                    {QStringLiteral("titlebgdef"), ptMotif},
                                                    {QStringLiteral("lifebar"), ptFightFx}};
    const QStringList defs = realDataFiles({QStringLiteral("def")});
    QVERIFY(defs.size() > 100);
    for (const QString& fileName : defs) {
        QStringList groups;
        for (const QByteArray& line : kit::readBytes(fileName).split('\n')) {
            const QString text = QString::fromUtf8(line).remove(QChar(QChar::ByteOrderMark)).trimmed();
            if (text.startsWith(QLatin1Char('[')) && text.contains(QLatin1Char(']')))
                groups << text.mid(1, text.indexOf(QLatin1Char(']')) - 1).trimmed().toLower();
        }
        QProjectType expected = ptCharacter;
        for (const auto& kind : kinds) {
            if (groups.contains(kind.first)) {
                expected = kind.second;
                break;
            }
        }
        QProject project;
        QVERIFY2(project.open(fileName, 0, false, false), qPrintable(fileName));
        QVERIFY2(project.type() == expected, qPrintable(fileName));
        // Every stage, font and storyboard names its sprites.
        const QProjectFiles files = project.definitions()->files();
        if (expected == ptStage || expected == ptStoryboard || expected == ptFont)
            QVERIFY2(!files.sprites.isEmpty(), qPrintable(fileName));
        QStringList states = files.states;
        QCOMPARE(int(states.removeDuplicates()), 0);
    }
}
