#include "clirunner.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QtTest>

namespace {

QString sourceFile(const char* relative)
{
    return qEnvironmentVariable("PF_SOURCE_DIR") + QLatin1Char('/') + QLatin1String(relative);
}

} // namespace

class TestCli : public QObject
{
    Q_OBJECT

private slots:
    void versionAndUsage()
    {
        const CliResult version = runCli({QStringLiteral("--version")});
        QCOMPARE(version.exitCode, 0);
        QVERIFY(version.out.startsWith("pugilforge-cli "));

        const CliResult unknown = runCli({QStringLiteral("no-such-command")});
        QCOMPARE(unknown.exitCode, 2);
        QCOMPARE(unknown.err.count('\n'), 1);

        const CliResult missingArgument = runCli({QStringLiteral("config")});
        QCOMPARE(missingArgument.exitCode, 2);

        // The launcher answers --version after --json too, and an installed
        // copy started through a link still finds the commands beside it.
        QCOMPARE(runCli({QStringLiteral("--json"), QStringLiteral("--version")}).out, version.out);
        QTemporaryDir elsewhere;
        const QString link = elsewhere.filePath(QStringLiteral("pugilforge-cli"));
        QVERIFY(QFile::link(qEnvironmentVariable("PF_BIN_DIR") + QStringLiteral("/pugilforge-cli"), link));
        QProcess linked;
        linked.start(link, {QStringLiteral("--json"), QStringLiteral("no-such-command")});
        QVERIFY(linked.waitForFinished(30000));
        QCOMPARE(linked.exitCode(), 2);
        QVERIFY(linked.readAllStandardError().contains("unknown command 'no-such-command'"));
    }

    void configPrintsDefaultsAndWhatTheFileAdds()
    {
        const CliResult result = runCli({QStringLiteral("config"), sourceFile("data/config.xml"),
                                      QStringLiteral("--json")});
        QCOMPARE(result.exitCode, 0);
        QJsonParseError error;
        const QJsonObject root = QJsonDocument::fromJson(result.out, &error).object();
        QCOMPARE(error.error, QJsonParseError::NoError);
        const QJsonObject values = root.value(QStringLiteral("values")).toObject();
        QCOMPARE(values.size(), 63 + 3);
        QCOMPARE(values.value(QStringLiteral("background_x")).toString(), QStringLiteral("-213"));
        QCOMPARE(values.value(QStringLiteral("show_organizer")).toString(), QStringLiteral("true"));
        QVERIFY(root.value(QStringLiteral("engines")).toArray().isEmpty());

        const CliResult text = runCli({QStringLiteral("config"), sourceFile("data/config.xml")});
        QCOMPARE(text.exitCode, 0);
        QCOMPARE(text.out.count('\n'), 66);
        QVERIFY(text.out.contains("language = en-us\n"));
    }

    void bundledSampleChecksClean()
    {
        for (const char* file : {"samples/ember/ember.def", "samples/ember/ember.cns",
                                 "samples/ember/ember.cmd", "samples/ember/ember.air"}) {
            const CliResult result = runCli({QStringLiteral("check"), sourceFile(file)});
            QVERIFY2(result.exitCode == 0, result.out.constData());
            const QByteArray summary = QByteArray("0 error(s), 0 warning(s), 0 deprecation(s) for M.U.G.E.N. 1.1 (from ")
                + sourceFile("samples/ember/ember.def").toLocal8Bit() + ")\n";
            QVERIFY2(result.out.endsWith(summary), result.out.constData());
        }
    }

    void coreCommandsAnswerThroughTheLauncher()
    {
        // tokens runs in the program without Qt Gui; usage, output and
        // faults are the same as every other command's.
        const QString commands = sourceFile("samples/ember/ember.cmd");
        const CliResult text = runCli({QStringLiteral("tokens"), commands});
        QCOMPARE(text.exitCode, 0);
        QVERIFY2(text.out.startsWith("encoding: System ("), text.out.constData());
        QVERIFY(text.out.contains("\n2:\n"));
        const CliResult json = runCli({QStringLiteral("--json"), QStringLiteral("tokens"), commands});
        QCOMPARE(json.exitCode, 0);
        const QJsonObject root = QJsonDocument::fromJson(json.out).object();
        QCOMPARE(root.value(QStringLiteral("file")).toString(), commands);
        QCOMPARE(root.value(QStringLiteral("lines")).toArray().size(), text.out.count('\n') - 1);

        const CliResult usage = runCli({QStringLiteral("tokens")});
        QCOMPARE(usage.exitCode, 2);
        QCOMPARE(usage.err, QByteArray("usage: pugilforge-cli tokens FILE\n"));
        QTemporaryDir dir;
        const QString missing = dir.filePath(QStringLiteral("missing.cmd"));
        const CliResult absent = runCli({QStringLiteral("tokens"), missing});
        QCOMPARE(absent.exitCode, 1);
        QCOMPARE(absent.err.count('\n'), 1);
        QVERIFY(absent.err.startsWith(QByteArray("pugilforge-cli: " + missing.toLocal8Bit() + ": ")));

        // A detected encoding gets an index and its name before any table of every codec is listed.
        const QString japanese = dir.filePath(QStringLiteral("japanese.cmd"));
        QFile file(japanese);
        QVERIFY(file.open(QIODevice::WriteOnly));
        for (int i = 0; i < 4; ++i) {
            file.write(QTextCodec::codecForName("Shift_JIS")->fromUnicode(
                QStringLiteral("; 波動拳のコマンドです。前に素早く二回入力すると、ダッシュになります。\n"
                               "[Command]\nname = \"波動拳\"\ncommand = ~D, DF, F, x\n")));
        }
        file.close();
        const CliResult detected = runCli({QStringLiteral("tokens"), japanese});
        QCOMPARE(detected.exitCode, 0);
        QVERIFY2(detected.out.startsWith("encoding: Shift_JIS\n"), detected.out.left(40).constData());
    }

    void unreadableInputIsOneLineAndFails()
    {
        QTemporaryDir dir;
        const QString missing = dir.filePath(QStringLiteral("missing.xml"));
        const CliResult absent = runCli({QStringLiteral("config"), missing});
        QCOMPARE(absent.exitCode, 1);
        QCOMPARE(absent.err.count('\n'), 1);
        QVERIFY(absent.err.contains(missing.toLocal8Bit()));
        QVERIFY(absent.out.isEmpty());

        const QString broken = dir.filePath(QStringLiteral("broken.xml"));
        QFile file(broken);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<configuration><config name=\"a\"");
        file.close();
        const CliResult malformed = runCli({QStringLiteral("config"), broken, QStringLiteral("--json")});
        QCOMPARE(malformed.exitCode, 1);
        QCOMPARE(malformed.err.count('\n'), 1);
        QVERIFY(malformed.err.contains("XML Error"));
        QVERIFY(malformed.err.contains(broken.toLocal8Bit()));
        QVERIFY(malformed.out.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"
