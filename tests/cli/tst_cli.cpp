#include "clirunner.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QtTest>

namespace {

bool writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

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

    void wrongInputIsRefusedInOneLine()
    {
        // Each command given what it does not take: one line on standard error naming the file
        // and the fault, nothing on standard output, exit 1; never an empty model of its kind.
        QTemporaryDir dir;
        QImage picture(4, 2, QImage::Format_RGB32);
        picture.fill(Qt::green);
        QByteArray png;
        QBuffer buffer(&png);
        QVERIFY(buffer.open(QIODevice::WriteOnly) && picture.save(&buffer, "PNG"));
        QByteArray binary(2000, '\0');
        for (qsizetype i = 0; i < binary.size(); ++i)
            binary[i] = char(i * 7 % 251);
        const QList<QPair<const char*, QByteArray>> contents = {
            { "empty", QByteArray() }, { "seven", QByteArray("abcdefg") }, { "picture", png }, { "binary", binary } };
        const QString engine = dir.filePath(QStringLiteral("mugen.exe"));
        QVERIFY(writeBytes(engine, "stand-in"));
        const QString output = dir.filePath(QStringLiteral("out.png"));
        struct Use
        {
            QStringList before;
            const char* suffix;
            QStringList after;
            QList<const char*> takes; ///< contents the command rightly reads
        };
        const QList<Use> uses = {
            { { QStringLiteral("air") }, "air", {}, {} },
            { { QStringLiteral("cmd") }, "cmd", {}, {} },
            { { QStringLiteral("check") }, "cns", {}, {} },
            { { QStringLiteral("check") }, "def", {}, {} },
            { { QStringLiteral("info") }, "def", {}, {} },
            { { QStringLiteral("info") }, "fnt", {}, {} },
            { { QStringLiteral("render") }, "def", { QStringLiteral("--sprite"), QStringLiteral("0,0"), output }, {} },
            { { QStringLiteral("run") }, "def", { QStringLiteral("--engine"), engine, QStringLiteral("--dry-run") }, {} },
            { { QStringLiteral("palette") }, "act", {}, {} },
            { { QStringLiteral("sff"), QStringLiteral("info") }, "sff", {}, {} },
            { { QStringLiteral("snd"), QStringLiteral("info") }, "snd", {}, {} },
            { { QStringLiteral("image") }, "pcx", {}, { "picture" } },
            { { QStringLiteral("tokens") }, "cns", {}, { "empty", "seven" } },
        };
        for (const Use& use : uses) {
            for (const auto& [name, bytes] : contents) {
                const QString file = dir.filePath(QStringLiteral("%1.%2").arg(QLatin1String(name), QLatin1String(use.suffix)));
                QVERIFY(writeBytes(file, bytes));
                const CliResult result = runCli(use.before + QStringList{ file } + use.after);
                const QString what = (use.before + QStringList{ file }).join(QLatin1Char(' '));
                if (use.takes.contains(name)) {
                    QVERIFY2(result.exitCode == 0, qPrintable(what));
                    continue;
                }
                QVERIFY2(result.exitCode == 1, qPrintable(what + QStringLiteral(" exits %1").arg(result.exitCode)));
                QVERIFY2(result.err.count('\n') == 1 && result.faultLines() == 1, qPrintable(what + QStringLiteral(": ") + QString::fromUtf8(result.err)));
                QVERIFY2(result.err.contains(file.toUtf8()), qPrintable(what));
                QVERIFY2(result.out.isEmpty(), qPrintable(what));
            }
        }

        // A folder of sounds to build from where one is no WAV.
        const QString sounds = dir.filePath(QStringLiteral("sounds"));
        QVERIFY(QDir().mkpath(sounds));
        QVERIFY(writeBytes(sounds + QStringLiteral("/1-0.wav"), png));
        const CliResult built = runCli({ QStringLiteral("snd"), QStringLiteral("build"), dir.filePath(QStringLiteral("out.snd")), sounds });
        QCOMPARE(built.exitCode, 1);
        QVERIFY2(built.err.contains("1-0.wav: not a WAV file"), built.err.constData());
        QVERIFY(!QFile::exists(dir.filePath(QStringLiteral("out.snd"))));
    }
};

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"
