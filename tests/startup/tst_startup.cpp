// Start-up of the real executable: who becomes the master, what a messenger
// hands over, and when a normal window starts instead. Each test runs with
// its own temporary folder, which holds both the hand-over file and the
// socket the master listens on, so nothing here meets a real session.
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

namespace {

const QString instanceKey = QStringLiteral("Pugilforge3");

QString program()
{
    return qEnvironmentVariable("PF_BIN_DIR") + QStringLiteral("/pugilforge");
}

QByteArray readAll(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeAll(const QString& fileName, const QByteArray& content)
{
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

/// Waits for the process to end while this process's events run, so a
/// stand-in master here can answer; false when it still runs after `ms`.
bool finishesWithin(QProcess& process, int ms)
{
    QElapsedTimer timer;
    timer.start();
    while (process.state() != QProcess::NotRunning && timer.elapsed() < ms) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        process.waitForFinished(20);
    }
    return process.state() == QProcess::NotRunning;
}

/// Starts the program; true when it is still running (a window) after the
/// splash second and some, false when it ended by itself.
bool startsWindow(QProcess& process, const QStringList& arguments)
{
    process.start(program(), arguments);
    if (!process.waitForStarted(10000))
        return false;
    return !finishesWithin(process, 3500);
}

/// A master as the program's own: it answers every start that asks, unless `answers` is false.
class StandInMaster : public QLocalServer
{
public:
    explicit StandInMaster(bool answers)
    {
        if (answers) {
            connect(this, &QLocalServer::newConnection, this, [this]() {
                while (QLocalSocket* socket = nextPendingConnection())
                    socket->write("1", 1);
            });
        }
        QVERIFY2(listen(instanceKey), qPrintable(errorString()));
    }
};

void stop(QProcess& process)
{
    process.kill();
    process.waitForFinished(5000);
}

} // namespace

class TestStartup : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_tmp;
    QByteArray m_savedTmp;

    QString handOverFile() const { return m_tmp.filePath(QStringLiteral("open.pf3")); }

    /// A file that exists, with a name a shell would have to quote.
    QString existingFile(const QString& name)
    {
        const QString path = m_tmp.filePath(name);
        writeAll(path, "[Info]\n");
        return path;
    }

private slots:
    void init()
    {
        // The program and this test must agree on the temporary folder: it
        // holds the hand-over file and names the single-instance segment.
        m_savedTmp = qgetenv("TMPDIR");
        qputenv("TMPDIR", m_tmp.path().toLocal8Bit());
        QCOMPARE(QDir::tempPath(), QDir(m_tmp.path()).absolutePath());
        QFile::remove(handOverFile());
    }

    void cleanup()
    {
        // A killed master leaves its socket file behind.
        QLocalServer::removeServer(instanceKey);
        qputenv("TMPDIR", m_savedTmp);
    }

    void messengerHandsFileOverAndExits()
    {
        StandInMaster masterKey(true);
        writeAll(handOverFile(), "queued/before.def\n");

        const QString first = existingFile(QStringLiteral("kfm fighter.def"));
        const QString second = existingFile(QStringLiteral("ström.def"));
        for (const QString& file : {first, second}) {
            QProcess messenger;
            messenger.start(program(), {file});
            QVERIFY(finishesWithin(messenger, 10000));
            QCOMPARE(messenger.exitStatus(), QProcess::NormalExit);
            QCOMPARE(messenger.exitCode(), 0);
        }
        QCOMPARE(readAll(handOverFile()),
                 QByteArray("queued/before.def\n") + first.toLocal8Bit() + '\n' + second.toLocal8Bit() + '\n');
    }

    void otherArgumentsStartANormalWindow_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("two arguments") << QStringList{QStringLiteral("a.def"), QStringLiteral("b.def")};
        QTest::newRow("missing file") << QStringList{QStringLiteral("/no/such/file.def")};
        QTest::newRow("no argument") << QStringList();
    }

    void otherArgumentsStartANormalWindow()
    {
        QFETCH(QStringList, arguments);
        StandInMaster masterKey(true);
        writeAll(handOverFile(), "kept\n");
        // Two arguments are ignored even when one is an existing file.
        if (arguments.size() == 2)
            arguments[0] = existingFile(QStringLiteral("a.def"));

        QProcess second;
        const bool window = startsWindow(second, arguments);
        stop(second);
        QVERIFY(window);
        // Not the master: it neither consumes nor empties the hand-over file.
        QCOMPARE(readAll(handOverFile()), QByteArray("kept\n"));
    }

    void masterEmptiesHandOverAndOpensItsOwnFile()
    {
        // An earlier run's line is dropped; the master's own line goes through
        // the hand-over file and is consumed when the window opens it.
        writeAll(handOverFile(), "left/by/an/earlier/run.def\n");
        const QString file = existingFile(QStringLiteral("own.def"));
        QProcess masterProcess;
        const bool window = startsWindow(masterProcess, {file});
        const QByteArray handedOver = readAll(handOverFile());
        stop(masterProcess);
        QVERIFY(window);
        QCOMPARE(handedOver, QByteArray());
    }

    void killedMasterIsReplaced()
    {
        const QString sample = qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/samples/ember/ember.def");
        QProcess first;
        QVERIFY(startsWindow(first, {}));
        ::kill(pid_t(first.processId()), SIGKILL);
        QVERIFY(first.waitForFinished(5000));
        QVERIFY(QFile::exists(m_tmp.filePath(instanceKey))); // the dead master's socket stays behind

        // Started as a file manager would: the sample opens in a window of its own.
        QProcess second;
        const bool window = startsWindow(second, {sample});
        const QByteArray consumed = readAll(handOverFile());

        // It is the new master: a later start is answered, hands over and ends.
        const QString later = existingFile(QStringLiteral("later.def"));
        QProcess messenger;
        messenger.start(program(), {later});
        const bool handedOver = finishesWithin(messenger, 5000) && messenger.exitCode() == 0;
        stop(second);
        QVERIFY(window);
        QCOMPARE(consumed, QByteArray());
        QVERIFY(handedOver);
    }

    void installGivesDesktopEntryAndFileTypes()
    {
        // As a packager would: cmake --install into a staging folder.
        QTemporaryDir prefix;
        QProcess install;
        const QString build = QDir(qEnvironmentVariable("PF_BIN_DIR")).absoluteFilePath(QStringLiteral(".."));
        install.start(QStringLiteral("cmake"), {QStringLiteral("--install"), build, QStringLiteral("--prefix"), prefix.path()});
        QVERIFY(install.waitForFinished(60000));
        QVERIFY2(install.exitCode() == 0, install.readAllStandardError().constData());
        const QDir root(prefix.path());
        for (const char* file : {"bin/pugilforge", "bin/pugilforge-cli", "share/applications/pugilforge.desktop",
                                 "share/mime/packages/pugilforge.xml", "share/icons/hicolor/scalable/apps/pugilforge.svg",
                                 "lib/pugilforge/syntax_mugen.xml", "lib/pugilforge/presets/Classic.xml",
                                 "lib/pugilforge/iconsets/Classic/adwaita/document-open-symbolic.svg",
                                 "lib/pugilforge/languages/de-de/pugilforge.qm"})
            QVERIFY2(QFileInfo::exists(root.filePath(QLatin1String(file))), file);
        QVERIFY(QFileInfo(root.filePath(QStringLiteral("bin/pugilforge"))).isSymLink());

        const QByteArray desktop = readAll(root.filePath(QStringLiteral("share/applications/pugilforge.desktop")));
        QVERIFY(desktop.contains("Exec=pugilforge %f"));
        const QByteArray mime = readAll(root.filePath(QStringLiteral("share/mime/packages/pugilforge.xml")));
        for (const char* type : {"def", "sff", "air", "snd"}) {
            const QByteArray name = QByteArray("application/x-mugen-") + type;
            QVERIFY2(desktop.contains(name), type);
            QVERIFY2(mime.contains(QByteArray("type=\"" + name + '"')), type);
            QVERIFY2(mime.contains(QByteArray(QByteArray("pattern=\"*.") + type + '"')), type);
        }
    }

    void silentMasterLeavesTheWindowToTheNewStart()
    {
        StandInMaster silent(false);
        writeAll(handOverFile(), "kept\n");
        QProcess start;
        const bool window = startsWindow(start, {existingFile(QStringLiteral("mine.def"))});
        stop(start);
        QVERIFY(window);
        QCOMPARE(readAll(handOverFile()), QByteArray("kept\n"));
    }
};

QTEST_GUILESS_MAIN(TestStartup)
#include "tst_startup.moc"
