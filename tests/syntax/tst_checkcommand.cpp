#include "clirunner.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QTemporaryDir>
#include <QtTest>

// `pugilforge-cli check` on files laid out as an author has them: the
// version it checks for, the files a DEF names, and input that is no text.

namespace {

void write(const QString& fileName, const QByteArray& data)
{
    QDir().mkpath(QFileInfo(fileName).absolutePath());
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(data);
}

const QByteArray states = "[Statedef 0]\ntype = S\n\n[State 0, a]\ntype = Null\ntrigger1 = ScreenWidth > 0\n";

} // namespace

class TestCheckCommand : public QObject
{
    Q_OBJECT

private slots:
    void binaryFileIsNoText()
    {
        QTemporaryDir dir;
        const QString name = dir.filePath(QStringLiteral("kfm.cns"));
        write(name, QByteArray("SFF\0\0\1\0\2", 8) + QByteArray(64, '\0'));
        const CliResult result = runCli({QStringLiteral("check"), name});
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.err.count('\n'), 1);
        QVERIFY(result.err.contains(QByteArray(name.toLocal8Bit() + ": not a text file of the engine")));
        QVERIFY(result.out.isEmpty());
    }

    // The engine's common states of 1.0 use triggers of 1.0: alone they
    // must not be read as the Beta's.
    void stateFileAloneIsCheckedFor11()
    {
        QTemporaryDir dir;
        const QString name = dir.filePath(QStringLiteral("common1.cns"));
        write(name, states);
        const CliResult result = runCli({QStringLiteral("check"), name, QStringLiteral("--json")});
        QCOMPARE(result.exitCode, 0);
        const QJsonObject root = result.json();
        QCOMPARE(root.value(QStringLiteral("engine")).toString(), QStringLiteral("1.1"));
        QCOMPARE(root.value(QStringLiteral("errors")).toInt(), 0);
        QVERIFY(root.value(QStringLiteral("note")).toString().contains(QStringLiteral("no DEF beside it")));

        const CliResult text = runCli({QStringLiteral("check"), name});
        QVERIFY(text.out.startsWith(QByteArray(name.toLocal8Bit() + ": note: ")));

        // A DEF beside it without a version is of the Beta, and says so.
        write(dir.filePath(QStringLiteral("old.def")), "[Files]\nst = common1.cns\n");
        const CliResult beta = runCli({QStringLiteral("check"), name, QStringLiteral("--json")});
        QCOMPARE(beta.exitCode, 3);
        QCOMPARE(beta.json().value(QStringLiteral("engine")).toString(), QStringLiteral("Beta"));
        QVERIFY(beta.json().value(QStringLiteral("note")).toString().isEmpty());
    }

    void missingFilesOfTheDefAreErrors()
    {
        QTemporaryDir dir;
        const QString def = dir.filePath(QStringLiteral("chars/ember/ember.def"));
        write(def, "[Info]\nname = \"Ember\"\nmugenversion = 1.1\n\n[Files]\ncmd = ember.cmd\nst = ember.cns\n"
                   "stcommon = common1.cns\nanim = gone.air\nsound = ember.snd\npal1 = ember.act\n");
        write(dir.filePath(QStringLiteral("chars/ember/ember.cns")), states);
        write(dir.filePath(QStringLiteral("chars/ember/EMBER.CMD")), "[Command]\nname = \"x\"\ncommand = x\n");
        write(dir.filePath(QStringLiteral("chars/ember/ember.act")), QByteArray(768, '\0'));
        // The engine takes common states from its own data folder.
        write(dir.filePath(QStringLiteral("data/mugen.cfg")), "[Options]\n");
        write(dir.filePath(QStringLiteral("data/common1.cns")), states);
        const CliResult result = runCli({QStringLiteral("check"), def, QStringLiteral("--json")});
        QCOMPARE(result.exitCode, 3);
        QStringList found;
        for (const QJsonValue& message : result.json().value(QStringLiteral("messages")).toArray()) {
            const QJsonObject m = message.toObject();
            found << QStringLiteral("%1:%2:%3").arg(m.value(QStringLiteral("line")).toInt())
                         .arg(m.value(QStringLiteral("kind")).toString(), m.value(QStringLiteral("text")).toString());
        }
        found.sort();
        QCOMPARE(found, (QStringList{
                            QStringLiteral("10:error:'ember.snd' named by the DEF does not exist"),
                            QStringLiteral("6:warning:'ember.cmd' is on disk as 'EMBER.CMD': only a system that "
                                           "ignores letter case finds it"),
                            QStringLiteral("9:error:'gone.air' named by the DEF does not exist"),
                        }));

        // The project's own list of faults says the same.
        QProject::init();
        QProject project;
        QVERIFY(project.open(def, 0, false, false));
        QDefinitions* definitions = project.definitions();
        QCOMPARE(definitions->missingFiles(), (QStringList{QStringLiteral("gone.air"), QStringLiteral("ember.snd")}));
        definitions->checkErrors();
        const QMessages* messages = definitions->messages();
        QCOMPARE(messages->count(mtError), 2);
        QCOMPARE(messages->at(messages->count() - 1).line, 9);

        // Outside the engine's folders its common states can't be looked for.
        QTemporaryDir apart;
        const QString alone = apart.filePath(QStringLiteral("alone.def"));
        write(alone, "[Info]\nmugenversion = 1.1\n[Files]\nst = ember.cns\nstcommon = common1.cns\n");
        write(apart.filePath(QStringLiteral("ember.cns")), states);
        QCOMPARE(runCli({QStringLiteral("check"), alone}).exitCode, 0);
        // Inside them a common file that is nowhere is missing.
        QFile::remove(dir.filePath(QStringLiteral("data/common1.cns")));
        QVERIFY(runCli({QStringLiteral("check"), def}).out.contains("'common1.cns' named by the DEF does not exist"));

        // A TrueType font comes from the system's fonts, not from beside the DEF.
        const QString font = dir.filePath(QStringLiteral("font/info.def"));
        write(font, "[FNT v2]\n[Def]\ntype = truetype\nfile = arial.ttf\n");
        const CliResult fontResult = runCli({QStringLiteral("check"), font});
        QVERIFY2(fontResult.exitCode == 0, fontResult.out.constData());
        // Only a character declares its engine: a font is checked for the newest.
        QVERIFY(fontResult.out.contains("note: the DEF declares no engine version: checked for M.U.G.E.N. 1.1"));
    }
};

QTEST_GUILESS_MAIN(TestCheckCommand)
#include "tst_checkcommand.moc"
