#include "syntaxfixture.h"

#include "realdata.h"
#include "syntax/qenginetext.h"
#include "syntax/qmugensyntaxprocessor.h"
#include "syntax/qsynmessagekind.h"
#include "util/qengineversion.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTextCodec>
#include <QTextCursor>
#include <QTextDocument>
#include <QtTest>

namespace {

/// "line:kind:text" for each message, kind E (error), W (warning), D (deprecation);
/// lines count from `firstLine`.
QStringList describe(const QVector<QSynMsgList>& lines, int firstLine = 0)
{
    QStringList found;
    for (int line = 0; line < lines.size(); ++line) {
        for (const QSynMsg& msg : lines.at(line))
            found.append(QStringLiteral("%1:%2:%3").arg(line + firstLine).arg(QString(QLatin1Char("EWD"[qBound(0, msg.type, 2)])), msg.text));
    }
    return found;
}

QString sourcePath(const QString& relative)
{
    return qEnvironmentVariable("PF_SOURCE_DIR") + QLatin1Char('/') + relative;
}

QString stateBlock(const QString& lines)
{
    return QStringLiteral("[Statedef 200]\ntype = S\n\n[State 200, test]\ntype = VelSet\n") + lines
           + QStringLiteral("\ntrigger1 = 1\n");
}

} // namespace

class TestSyntax : public QObject
{
    Q_OBJECT

    QMugenSyntaxProperties m_properties;

    QStringList check(const QString& text, unsigned int version = engineVersion::v1_1)
    {
        QTextDocument document;
        QMugenSyntaxProcessor processor(&document, &m_properties);
        processor.setVersion(version);
        return describe(processor.checkText(text));
    }

private slots:
    void initTestCase()
    {
        QByteArray xml(syntaxFixture());
        QBuffer buffer(&xml);
        buffer.open(QIODevice::ReadOnly);
        QString error;
        QVERIFY2(m_properties.fromDevice(&buffer, &error), qPrintable(error));
    }

    void readsVocabulary()
    {
        const QSynTable& triggers = m_properties.section(QStringLiteral("trigger"));
        const QSynInfo* cond = triggers.find(QStringLiteral("cond"));
        QVERIFY(cond);
        QCOMPARE(cond->type, stExp3);
        QCOMPARE(cond->minVersion, engineVersion::v1_0);
        const QSynInfo* timeMod = triggers.find(QStringLiteral("timemod"));
        QVERIFY(timeMod && timeMod->isDeprecated());
        QCOMPARE(timeMod->deprecatedVersion, engineVersion::v1_0);
        QCOMPARE(timeMod->deprecated, QStringLiteral("1.0 (use Time % n)"));
        QVERIFY(triggers.walked.contains(QStringLiteral("projhit")));
        QVERIFY(triggers.find(QStringLiteral("pos"))->valueMatches(QStringLiteral("X")));
        QVERIFY(!triggers.find(QStringLiteral("pos"))->valueMatches(QStringLiteral("xy")));

        const int velSet = m_properties.findController(QMugenSyntaxProperties::StateController, QStringLiteral("velset"));
        QVERIFY(velSet >= 0);
        const QSynTable& params = m_properties.controller(QMugenSyntaxProperties::StateController, velSet).params;
        QCOMPARE(params.find(QStringLiteral("count"))->max, 3);
        QCOMPARE(params.find(QStringLiteral("space"))->minVersion, engineVersion::v1_1);
        QCOMPARE(m_properties.findController(QMugenSyntaxProperties::StateController, QStringLiteral("*")), -1);
        QVERIFY(m_properties.commonParams(QMugenSyntaxProperties::StateController).find(QStringLiteral("triggerall")));
        QVERIFY(m_properties.section(QStringLiteral("consts")).find(QStringLiteral("data.life")));

        QXmlStreamAttributes none;
        QCOMPARE(int(QSyntaxProperties::getInfo(none).type), 33);
        QXmlStreamAttributes unknownType;
        unknownType.append(QStringLiteral("type"), QStringLiteral("bogus"));
        QCOMPARE(int(QSyntaxProperties::getInfo(unknownType).type), 33);
    }

    void expressions_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("message");
        const QString none;
        QTest::newRow("logic") << "x = time && alive || ctrl ^^ !time" << none;
        QTest::newRow("bit") << "x = time & 1 | 2 ^ 3" << none;
        QTest::newRow("assign") << "x = var(1) := 5" << none;
        QTest::newRow("assign in parenthesis") << "x = (var(2) := var(1) + 1) > 3" << none;
        QTest::newRow("equal") << "x = time = 3 && stateno != 200" << none;
        QTest::newRow("less more") << "x = time < 1 || time <= 2 || time > 3 || time >= 4" << none;
        QTest::newRow("plus minus") << "x = time - 1 + -2 - -3" << none;
        QTest::newRow("a - 1 inside") << "x = time -1" << none;
        QTest::newRow("times over mod") << "x = time * 2 / 3 % 4" << none;
        QTest::newRow("power") << "x = 2 ** time ** 0.5" << none;
        QTest::newRow("leading dot") << "x = .5 * time" << none;
        QTest::newRow("bit not") << "x = ~time" << none;
        QTest::newRow("range []") << "x = time = [1, 2]" << none;
        QTest::newRow("range [)") << "x = time = [1, 2)" << none;
        QTest::newRow("range ()") << "x = time != (1, 2)" << none;
        QTest::newRow("range (]") << "x = time = (1, 2]" << none;
        QTest::newRow("functions") << "x = ifelse(time > 2, var(1), cond(1, 2, 3))" << none;
        QTest::newRow("component") << "x = vel x + pos y" << none;
        QTest::newRow("const") << "x = const(velocity.walk.fwd.x) * const(Data.Life)" << none;
        QTest::newRow("gethitvar") << "x = gethitvar(fall.yvel)" << none;
        QTest::newRow("string compare") << "x = command = \"fwd\" || command != \"back\"" << none;
        QTest::newRow("comparison form") << "x = animelem = 3, >= 2 && projhit1200 = 1, < 5" << none;
        QTest::newRow("word list") << "x = statetype = A && hitdefattr = SC, NA, SA" << none;
        QTest::newRow("word list in arguments") << "x = ifelse(statetype = S, 1, 2)" << none;
        QTest::newRow("optional argument") << "x = numhelper + numhelper(1200)" << none;
        QTest::newRow("root") << "x = root, time" << none;
        QTest::newRow("parent") << "x = parent, var(1) = 2" << none;
        QTest::newRow("helper") << "x = helper(1000), stateno = 200" << none;
        QTest::newRow("helper without id") << "x = helper, alive" << none;
        QTest::newRow("enemynear") << "x = enemynear, pos x > 0" << none;
        QTest::newRow("playerid") << "x = playerid(var(3)), ctrl" << none;
        QTest::newRow("target") << "x = target(2), time" << none;
        QTest::newRow("unknown trigger") << "x = tiem > 2" << "Unknown trigger 'tiem'";
        QTest::newRow("unknown constant") << "x = const(velocity.run)" << "Unknown constant 'velocity.run'";
        QTest::newRow("unknown component") << "x = vel z" << "Unknown value";
        QTest::newRow("unknown word") << "x = statetype = Q" << "Unknown value";
        QTest::newRow("unknown gethitvar") << "x = gethitvar(speed)" << "Unknown value";
        QTest::newRow("stray bracket") << "x = time )" << "Unexpected token ')'";
        QTest::newRow("redirection without comma") << "x = root time" << "Unexpected token 'time'";
        QTest::newRow("unclosed function") << "x = var(1" << "Unexpected token ''";
    }

    void expressions()
    {
        QFETCH(QString, line);
        QFETCH(QString, message);
        const QStringList found = check(stateBlock(line));
        if (message.isEmpty())
            QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
        else
            QCOMPARE(found, QStringList{QStringLiteral("5:E:") + message});
    }

    void lexerNumbers()
    {
        // Outside an expression "-1" is one number; numbers need their comma.
        QCOMPARE(check(stateBlock(QStringLiteral("pair = -1, -2"))), QStringList());
        QCOMPARE(check(stateBlock(QStringLiteral("pair = 1 2"))), QStringList{QStringLiteral("5:W:This parameter requires 2 value(s)")});
    }

    void valueCounts_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("messages");
        QTest::newRow("int2 complete") << "pair = 1, 2" << QStringList();
        QTest::newRow("int2 short") << "pair = 1" << QStringList{QStringLiteral("5:W:This parameter requires 2 value(s)")};
        QTest::newRow("int2 trailing comma") << "pair = 1," << QStringList{QStringLiteral("5:W:This parameter requires 2 value(s)")};
        QTest::newRow("int2 empty") << "pair =" << QStringList{QStringLiteral("5:W:This parameter requires 2 value(s)")};
        // The faults of the first value are replaced by the one count warning.
        QTest::newRow("exp2 short with bad value") << "both = tiem + )" << QStringList{QStringLiteral("5:W:This parameter requires 2 value(s)")};
        QTest::newRow("int2 too long") << "pair = 1, 2, 3" << QStringList{QStringLiteral("5:E:Unexpected token ','")};
        QTest::newRow("intn up to max") << "count = 1, 2, 3" << QStringList();
        QTest::newRow("intn past max") << "count = 1, 2, 3, 4" << QStringList{QStringLiteral("5:E:Unexpected token ','")};
        QTest::newRow("float2opt one") << "scale = 1.5" << QStringList();
        QTest::newRow("string pattern") << "flag = SCA, NA" << QStringList();
        QTest::newRow("string pattern wrong") << "flag = Q" << QStringList{QStringLiteral("5:E:Unknown parameter value 'Q'")};
        QTest::newRow("value wrong") << "space = moon" << QStringList{QStringLiteral("5:E:Unknown parameter value 'moon'")};
        QTest::newRow("unknown parameter") << "z = 1" << QStringList{QStringLiteral("5:W:Unknown parameter 'z' for the 'VelSet' controller, ignored by the engine")};
        QTest::newRow("common parameter") << "persistent = 0" << QStringList();
    }

    void valueCounts()
    {
        QFETCH(QString, line);
        QFETCH(QStringList, messages);
        QCOMPARE(check(stateBlock(line)), messages);
    }

    void controllers()
    {
        const QString prefix = QStringLiteral("[Statedef 1]\n[State 1, a]\n");
        QCOMPARE(check(prefix + QStringLiteral("type = ChangeState\nvalue = 2\nanim = F5\ntrigger1 = 1\n")), QStringList());
        QCOMPARE(check(prefix + QStringLiteral("type = ChangeState\nanim = var(1)\ntrigger1 = 1\n")), QStringList());
        QCOMPARE(check(prefix + QStringLiteral("type = VarSet\nvar(3) = 2\ntrigger1 = 1\n")), QStringList());
        // A controller that takes any key still has its triggers checked.
        QCOMPARE(check(prefix + QStringLiteral("type = Null\nfoo = 1\ntrigger1 = tiem\n")),
                 QStringList{QStringLiteral("4:E:Unknown trigger 'tiem'")});
        QCOMPARE(check(prefix + QStringLiteral("type = Teleport\nvalue = 2\ntrigger1 = 1\n")),
                 QStringList{QStringLiteral("2:E:Unknown 'State' type")});
        QCOMPARE(check(prefix + QStringLiteral("type = Null\ntriggerall = 1\n")),
                 QStringList{QStringLiteral("3:E:Syntax error - code ends before line")});
        QCOMPARE(check(prefix + QStringLiteral("trigger1 = 1\n\n; comment\n[State 1, b]\ntype = Null\ntrigger1 = 1")),
                 QStringList{QStringLiteral("2:E:Syntax error - code ends before line")});
    }

    void versions_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("atBeta");
        QTest::addColumn<QStringList>("at10");
        QTest::addColumn<QStringList>("at11");
        const QString trigger = QStringLiteral("Trigger invalid for the M.U.G.E.N. version of the current project");
        const QString param = QStringLiteral("Parameter invalid for the M.U.G.E.N. version of the current project, ignored by the engine");
        QTest::newRow("1.1 trigger") << "x = screenwidth" << QStringList{QStringLiteral("5:E:") + trigger} << QStringList{QStringLiteral("5:E:") + trigger} << QStringList();
        QTest::newRow("1.0 trigger") << "x = cond(1, 2, 3)" << QStringList{QStringLiteral("5:E:") + trigger} << QStringList() << QStringList();
        QTest::newRow("1.1 parameter") << "space = screen" << QStringList{QStringLiteral("5:W:") + param} << QStringList{QStringLiteral("5:W:") + param} << QStringList();
        QTest::newRow("deprecated parameter") << "postype = p1" << QStringList() << QStringList()
                                              << QStringList{QStringLiteral("5:D:Parameter deprecated in the M.U.G.E.N 1.1 (use space instead)")};
        QTest::newRow("deprecated trigger") << "x = timemod = 4, 0" << QStringList()
                                            << QStringList{QStringLiteral("5:D:Trigger deprecated in the M.U.G.E.N 1.0 (use Time % n)")}
                                            << QStringList{QStringLiteral("5:D:Trigger deprecated in the M.U.G.E.N 1.0 (use Time % n)")};
    }

    void versions()
    {
        QFETCH(QString, line);
        QFETCH(QStringList, atBeta);
        QFETCH(QStringList, at10);
        QFETCH(QStringList, at11);
        QCOMPARE(check(stateBlock(line), engineVersion::beta), atBeta);
        QCOMPARE(check(stateBlock(line), engineVersion::v1_0), at10);
        QCOMPARE(check(stateBlock(line), engineVersion::v1_1), at11);
    }

    void controllerVersions()
    {
        const QString block = QStringLiteral("[Statedef 1]\n[State 1, a]\ntype = %1\ntrigger1 = 1\n");
        QCOMPARE(check(block.arg(QStringLiteral("ScreenBound")), engineVersion::beta),
                 QStringList{QStringLiteral("2:E:Controller invalid for the M.U.G.E.N. version of the current project")});
        QCOMPARE(check(block.arg(QStringLiteral("ScreenBound")), engineVersion::v1_0), QStringList());
        QCOMPARE(check(block.arg(QStringLiteral("MakeDust")), engineVersion::v1_0),
                 QStringList{QStringLiteral("2:D:State controller deprecated in the M.U.G.E.N 1.0 (use Explod instead)")});
    }

    // The document path: the version alone makes the finding come and go.
    void versionChangeRechecksDocument()
    {
        QTextDocument document(stateBlock(QStringLiteral("x = screenwidth")));
        QMugenSyntaxProcessor processor(&document, &m_properties);
        processor.setVersion(engineVersion::v1_0);
        QCOMPARE(processor.errorCount(), 1);
        const QTextEditorBlockData* data = QSyntaxProcessor::blockData(document.findBlockByNumber(5).userData());
        QVERIFY(data);
        QCOMPARE(data->messages.size(), 1);
        QCOMPARE(data->messages.first().column, 4);
        QCOMPARE(data->messages.first().length, 11);
        processor.setVersion(engineVersion::v1_1);
        QCOMPARE(processor.errorCount(), 0);
        // The underline is part of the line's formats.
        processor.setVersion(engineVersion::v1_0);
        const QList<QTextLayout::FormatRange> formats = document.findBlockByNumber(5).layout()->formats();
        bool underlined = false;
        for (const QTextLayout::FormatRange& range : formats)
            underlined |= range.start == 4 && range.format.underlineStyle() == QTextCharFormat::SpellCheckUnderline;
        QVERIFY(underlined);
    }

    void headers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("messages");
        const QStringList none;
        QTest::newRow("statedef") << "[Statedef 200]\nanim = 200\nvelset = 0, 0\nmovetype = A\nphysics = N" << none;
        QTest::newRow("statedef negative") << "[Statedef -1]" << none;
        QTest::newRow("statedef comma") << "[Statedef 200, walk]" << none;
        QTest::newRow("wrong statedef") << "[Statedef walk]" << QStringList{QStringLiteral("0:E:Wrong StateDef")};
        QTest::newRow("statedef bad key") << "[Statedef 1]\nfoo = 1" << QStringList{QStringLiteral("1:W:Unknown 'StateDef' parameter 'foo', ignored by the engine")};
        QTest::newRow("statedef bad type") << "[Statedef 1]\ntype = Q" << QStringList{QStringLiteral("1:E:Unknown 'StateDef type' value 'Q'")};
        QTest::newRow("statedef bad movetype") << "[Statedef 1]\nmovetype = Q" << QStringList{QStringLiteral("1:E:Unknown 'StateDef movetype' value 'Q'")};
        QTest::newRow("statedef bad physics") << "[Statedef 1]\nphysics = Q" << QStringList{QStringLiteral("1:E:Unknown 'StateDef physics' value 'Q'")};
        QTest::newRow("state") << "[State -1, Run]\ntype = Null\ntrigger1 = 1" << none;
        QTest::newRow("wrong state") << "[State 200, oops" << QStringList{QStringLiteral("0:E:Wrong State")};
        QTest::newRow("space after state") << "[State200]" << QStringList{QStringLiteral("0:E:Space required after State")};
        QTest::newRow("action") << "[Begin Action 000]\nClsn2Default: 1\n Clsn2[0] = -10, 0, 10, -80\n0,0, 0,0, 5\nLoopstart\n0,1, -5,0, -1, H, AS256D128"
                                << none;
        QTest::newRow("action box short") << "[Begin Action 1]\nClsn1[0] = 1, 2, 3" << QStringList{QStringLiteral("1:W:This parameter requires 4 value(s)")};
        QTest::newRow("action frame short") << "[Begin Action 1]\n0, 0, 0" << QStringList{QStringLiteral("1:W:This parameter requires 5 value(s)")};
        QTest::newRow("action flip") << "[Begin Action 1]\n0,0, 0,0, 5, X" << QStringList{QStringLiteral("1:E:Unknown flip type")};
        QTest::newRow("action blend") << "[Begin Action 1]\n0,0, 0,0, 5, , B" << QStringList{QStringLiteral("1:E:Unknown transparency")};
        QTest::newRow("action interpolation") << "[Begin Action 1]\nInterpolate Size" << QStringList{QStringLiteral("1:E:Unknown interpolation")};
        QTest::newRow("command") << "[Command]\nname = \"QCF_x\"\ncommand = ~D, DF, F, x\ntime = 15\nbuffer.time = 1" << none;
        QTest::newRow("command symbols") << "[Command]\ncommand = ~30$D, /F, a+b, >~a" << none;
        QTest::newRow("command bad key") << "[Command]\ncommand = D, q" << QStringList{QStringLiteral("1:E:Unknown command key")};
        QTest::newRow("command bad key name") << "[Command]\nlabel = 1" << QStringList{QStringLiteral("1:E:Unknown 'Command' parameter")};
        QTest::newRow("defaults") << "[Defaults]\ncommand.time = 15\ncommand.buffer.time = 1\nfoo = 1"
                                  << QStringList{QStringLiteral("3:W:Unknown 'Defaults' parameter")};
        QTest::newRow("remap") << "[Remap]\nx = y\ns =\nq = a\na = q"
                               << QStringList{QStringLiteral("3:W:Unknown 'Remap' parameter"), QStringLiteral("4:E:Unknown 'Remap' value")};
        QTest::newRow("palette keymap") << "[Palette Keymap]\nx = 1\nc2 = 12\nd = 1"
                                        << QStringList{QStringLiteral("3:W:Unknown 'Palette Keymap' parameter")};
        QTest::newRow("quotes") << "[Quotes]\nvictory1 = \"Yes\"\n[ja.Quotes]\nvictory12 = \"Hai\"\nloss1 = \"No\""
                                << QStringList{QStringLiteral("4:W:Unknown 'Quotes' parameter")};
        QTest::newRow("info") << "[Info]\nname = \"Kung Fu Man\"\nja.displayname = \"x\"\npal.defaults = 1,2\nweight = 3"
                              << QStringList{QStringLiteral("4:W:Unknown 'Info'' parameter")};
        QTest::newRow("files") << "[Files]\ncmd = kfm.cmd\nst3 = a.cns\nsnd = x"
                               << QStringList{QStringLiteral("3:W:Unknown parameter 'snd' for the 'Files' controller, ignored by the engine")};
        QTest::newRow("plain sections") << "[Arcade]\nintro.storyboard = intro.def\n[Data]\nlife = 1000\n[Size]\nxscale = 1\n"
                                           "[Velocity]\nwalk.fwd = 2.4\n[Movement]\nyaccel = .44\n[Camera]\nstartx = 0\n"
                                           "[PlayerInfo]\np1startx = -70\n[Bound]\nscreenleft = 15\n[Scaling]\ntopz = 0\n"
                                           "[StageInfo]\nzoffset = 200\n[Shadow]\nintensity = 128\n[Reflection]\nintensity = 1\n"
                                           "[Music]\nbgmusic = sound/a.mp3\n[BGdef]\nspr = a.sff\n[BGCtrlDef a]\nlooptime = 10\n"
                                           "[SceneDef]\nspr = a.sff\n[Scene 1]\nlayer10.anim = 3\n[FNT v2]\nname = \"f\"\n[Def]\ntype = bitmap\nsize = 8, 8"
                                        << none;
        QTest::newRow("bg") << "[BG 1]\nspriteno = 0, 0\n[BG sky]\ntype = parallax\nxscale = 1, 2\nstart = 0\n[BG x]\ntype = cloud"
                            << QStringList{QStringLiteral("7:E:Unknown 'BG' type")};
        QTest::newRow("bgctrl") << "[BGCtrl a]\ntype = VelSet\ntime = 0, 10\nx = 1\n[BGCtrl b]\ntype = Spin"
                                << QStringList{QStringLiteral("5:E:Unknown 'BG Ctrl' type")};
        QTest::newRow("font def type") << "[Def]\ntype = vector" << QStringList{QStringLiteral("1:E:Unknown parameter value 'vector'")};
        QTest::newRow("storyboard backgrounds") << "[BG0Def]\nspr = a.sff\n[BG0 Credits]\nspriteno = 0, 0\n[BG0CtrlDef a]\nlooptime = 5\n"
                                                   "[BG0Ctrl Start]\ntype = VelSet\nx = 1"
                                                << none;
        QTest::newRow("motif groups") << "[Title Info]\nfadein.time = 10\n[TitleBGdef]\nspr = a.sff\n[TitleBG Logo]\nstart = 0, 1\n"
                                         "[ja.Infobox Text]\ntext = x\n[Simul  Lifebar]"
                                      << none;
        QTest::newRow("invalid") << "[Nonsense]\nkey = 1" << QStringList{QStringLiteral("0:E:Invalid group")};
        QTest::newRow("empty lines keep the section") << "[Size]\n\n   \n; note\nxscale = 1" << none;
    }

    void headers()
    {
        QFETCH(QString, text);
        QFETCH(QStringList, messages);
        QCOMPARE(check(text, engineVersion::v1_1), messages);
    }

    void interpolationIsNewIn11()
    {
        const QString text = QStringLiteral("[Begin Action 1]\nInterpolate Offset\n0,0, 0,0, 5, , A, 1.5, 2, 45");
        const QString invalid = QStringLiteral("Parameter invalid for the M.U.G.E.N. version of the current project, ignored by the engine");
        QCOMPARE(check(text, engineVersion::v1_0), (QStringList{QStringLiteral("1:W:") + invalid, QStringLiteral("2:W:") + invalid}));
        QCOMPARE(check(text, engineVersion::v1_1), QStringList());
    }

    // Every cut of every line, and some bytes no file should hold: the checker
    // never stops, and its spans stay inside the line.
    void cutLinesStayInside()
    {
        const QStringList lines = {
            QStringLiteral("[Statedef 200, x]"), QStringLiteral("[State 200, \"a\"]"), QStringLiteral("type = VelSet"),
            QStringLiteral("trigger1 = ifelse(helper(2), var(1) := (time = [1, 2)), -.5 ** !vel x) ; note"),
            QStringLiteral("flag = SCA, NA"), QStringLiteral("pair = -1, 2,"), QStringLiteral("x = const(data.life) || statetype = A, \"s"),
            QStringLiteral("[Begin Action 1]"), QStringLiteral("Clsn2[0] = -1, 2, 3, 4"), QStringLiteral("0,0, 0,0, 5, HV, AS10D20, 1, 2, 3"),
            QStringLiteral("[Command]"), QStringLiteral("command = ~30$D, >/F+a"), QStringLiteral("[BG x]"), QStringLiteral("type = parallax"),
            QStringLiteral("\u00ff\t\u0001[=(]),;"),
        };
        QTextDocument document;
        QMugenSyntaxProcessor processor(&document, &m_properties);
        for (int line = 0; line < lines.size(); ++line) {
            const QString full = lines.at(line);
            for (int cut = 0; cut <= full.size(); ++cut) {
                QStringList text = lines.mid(0, line);
                text.append(full.left(cut));
                const QVector<QSynMsgList> found = processor.checkText(text.join(QLatin1Char('\n')));
                for (const QSynMsg& msg : found.last()) {
                    QVERIFY2(msg.column >= 0 && msg.length >= 0 && msg.column + msg.length <= qMax(cut, 1) + 1,
                             qPrintable(full.left(cut) + QStringLiteral(": ") + msg.text));
                }
            }
        }
    }

    // The list beside the program tells authors the class of each finding:
    // it must hold exactly the checker's kinds, in the class the checker gives.
    void messageListMatchesTheChecker()
    {
        QFile list(sourcePath(QStringLiteral("data/syntax_messages.tsv")));
        QVERIFY(list.open(QIODevice::ReadOnly | QIODevice::Text));
        QStringList listed;
        for (const QString& line : QString::fromUtf8(list.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
            if (!line.startsWith(QLatin1Char('#')))
                listed.append(line);
        }
        int count = 0;
        const QSynMessageInfo* infos = synMessageInfos(&count);
        QStringList table;
        for (int i = 0; i < count; ++i) {
            QCOMPARE(int(infos[i].kind), i);
            table.append(synMessageClassName(infos[i].type) + QLatin1Char('\t') + QLatin1String(infos[i].text));
        }
        QCOMPARE(listed, table);
        // Each kind reaches an author in the class the table gives it.
        QVERIFY(check(stateBlock(QStringLiteral("z = 1"))).value(0).startsWith(QStringLiteral("5:W:")));
        QVERIFY(check(stateBlock(QStringLiteral("x = tiem"))).value(0).startsWith(QStringLiteral("5:E:")));
    }

    // The team's files of tests/syntax/cases, one per kind of line the engine
    // accepts although a stricter reading would not: each beside its
    // ".expected" list (";" comments, "@version", then "line:class:text").
    void teamCases_data()
    {
        QTest::addColumn<QString>("file");
        const QDir cases(sourcePath(QStringLiteral("tests/syntax/cases")));
        const QStringList files = cases.entryList({QStringLiteral("*.cns"), QStringLiteral("*.def")}, QDir::Files,
                                                  QDir::Name);
        QVERIFY(files.size() >= 7);
        for (const QString& file : files)
            QTest::newRow(qPrintable(file)) << cases.filePath(file);
    }

    void teamCases()
    {
        QFETCH(QString, file);
        QMugenSyntaxProperties vocabulary;
        QVERIFY(vocabulary.fromFile(sourcePath(QStringLiteral("data/syntax_mugen.xml"))));
        QFile expectedFile(file.chopped(4) + QStringLiteral(".expected"));
        QVERIFY2(expectedFile.open(QIODevice::ReadOnly | QIODevice::Text), qPrintable(expectedFile.fileName()));
        unsigned int version = engineVersion::v1_1;
        QTextCodec* codec = QTextCodec::codecForName("UTF-8");
        QStringList expected;
        for (const QString& line : QString::fromUtf8(expectedFile.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
            if (line.startsWith(QLatin1String("@version ")))
                version = getVersion(line.mid(9));
            else if (line.startsWith(QLatin1String("@codec ")))
                codec = QTextCodec::codecForName(line.mid(7).toLatin1());
            else if (!line.startsWith(QLatin1Char(';')))
                expected.append(line);
        }
        QFile input(file);
        QVERIFY(input.open(QIODevice::ReadOnly));
        QTextDocument document;
        QMugenSyntaxProcessor processor(&document, &vocabulary);
        processor.setVersion(version);
        QVERIFY(codec);
        QCOMPARE(describe(processor.checkText(decodeEngineText(input.readAll(), codec)), 1), expected);
    }

    // A required parameter typed into the middle of a block clears the
    // finding on the block's last line: the line's state carries it, and the
    // highlighter goes on down the block while states change.
    void requiredParameterFollowsEdits()
    {
        QMugenSyntaxProperties vocabulary;
        QVERIFY(vocabulary.fromFile(sourcePath(QStringLiteral("data/syntax_mugen.xml"))));
        QTextDocument document(QStringLiteral("[Statedef 1]\n[State 1, a]\ntype = ChangeState\ntrigger1 = 1\nctrl = 1\n"));
        QMugenSyntaxProcessor processor(&document, &vocabulary);
        processor.setVersion(engineVersion::v1_1);
        QCOMPARE(processor.errorCount(), 1);
        const QSignalBlocker quiet(&document); // the edit is re-checked from its own line below
        QTextCursor(document.findBlockByNumber(3)).insertText(QStringLiteral("value = 0\n"));
        processor.rehighlightBlock(document.findBlockByNumber(3));
        QCOMPARE(processor.errorCount(), 0);
        QTextCursor cursor(document.findBlockByNumber(3));
        cursor.select(QTextCursor::LineUnderCursor);
        cursor.removeSelectedText();
        processor.rehighlightBlock(document.findBlockByNumber(3));
        QCOMPARE(processor.errorCount(), 1);
    }

    // Typed as in the editor, each edit reported: a line added below a
    // state's last line takes over what the state misses, and gives it back
    // when it goes or becomes a comment.
    void lastLineOfStateFollowsTyping()
    {
        QMugenSyntaxProperties vocabulary;
        QVERIFY(vocabulary.fromFile(sourcePath(QStringLiteral("data/syntax_mugen.xml"))));
        QTextDocument document(QStringLiteral("[Statedef 1]\n[State 1, a]\ntype = ChangeState\ntrigger1 = 1\n\n"
                                              "[State 1, b]\ntype = Null\ntrigger1 = 1\n"));
        document.documentLayout(); // a document reports its edits only once it has a layout
        QMugenSyntaxProcessor processor(&document, &vocabulary);
        processor.setVersion(engineVersion::v1_1);
        const auto messagesOf = [&document](int line) {
            const auto* data = QSyntaxProcessor::blockData(document.findBlockByNumber(line).userData());
            return data ? int(data->messages.size()) : 0;
        };
        QCOMPARE(messagesOf(3), 1); // no value

        QTextCursor cursor(document.findBlockByNumber(3));
        cursor.movePosition(QTextCursor::EndOfBlock);
        cursor.insertText(QStringLiteral("\n"));
        for (const QChar c : QStringLiteral("value = 0"))
            cursor.insertText(QString(c));
        QTRY_COMPARE(messagesOf(3), 0);
        QCOMPARE(messagesOf(4), 0);
        QCOMPARE(processor.errorCount(), 0);

        // Commented out, the value no longer counts: the trigger is last again.
        cursor.movePosition(QTextCursor::StartOfBlock);
        cursor.insertText(QStringLiteral(";"));
        QTRY_COMPARE(messagesOf(3), 1);
        cursor.deletePreviousChar();
        QTRY_COMPARE(messagesOf(3), 0);

        // Removed with its line, likewise.
        cursor.select(QTextCursor::BlockUnderCursor);
        cursor.removeSelectedText();
        QTRY_COMPARE(messagesOf(3), 1);
        QCOMPARE(processor.errorCount(), 1);
    }

    // The engine's own character and common states check clean at their own
    // version with the shipped vocabulary: no error, no warning, no deprecation.
    void engineFilesCheckClean_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<unsigned int>("version");
        // Both releases' kfm.def declare mugenversion 1.0; common1.cns goes with its release.
        for (const char* release : {"fanyer__mugen", "Tunlan__mugen-1.1b1"}) {
            const unsigned int version = QByteArray(release).contains("1.1") ? engineVersion::v1_1 : engineVersion::v1_0;
            for (const char* name : {"chars/kfm/kfm.def", "chars/kfm/kfm.cns", "chars/kfm/kfm.cmd", "chars/kfm/kfm.air"})
                QTest::newRow(qPrintable(QStringLiteral("%1/%2").arg(QLatin1String(release), QLatin1String(name))))
                    << QStringLiteral("%1/%2").arg(QLatin1String(release), QLatin1String(name)) << engineVersion::v1_0;
            QTest::newRow(qPrintable(QStringLiteral("%1/data/common1.cns").arg(QLatin1String(release))))
                << QStringLiteral("%1/data/common1.cns").arg(QLatin1String(release)) << version;
        }
    }

    void engineFilesCheckClean()
    {
        PF_REQUIRE_REALDATA();
        QFETCH(QString, file);
        QFETCH(unsigned int, version);
        QMugenSyntaxProperties vocabulary;
        QVERIFY(vocabulary.fromFile(sourcePath(QStringLiteral("data/syntax_mugen.xml"))));
        QFile input(realDataDir() + QLatin1Char('/') + file);
        QVERIFY(input.open(QIODevice::ReadOnly));
        QTextDocument document;
        QMugenSyntaxProcessor processor(&document, &vocabulary);
        processor.setVersion(version);
        const QStringList found = describe(processor.checkText(QString::fromUtf8(input.readAll())));
        QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
    }
};

QTEST_MAIN(TestSyntax)
#include "tst_syntax.moc"
