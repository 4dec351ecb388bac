// Start-up of the real executable: who becomes the master, what a messenger
// hands over, and when a normal window starts instead. Each test runs with
// its own temporary folder, which holds both the hand-over file and the key
// file of the single-instance segment, so nothing here meets a real session.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSharedMemory>
#include <QTemporaryDir>
#include <QtTest>

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

/// Starts the program; true when it is still running (a window) after the
/// splash second and some, false when it ended by itself.
bool startsWindow(QProcess& process, const QStringList& arguments)
{
    process.start(program(), arguments);
    if (!process.waitForStarted(10000))
        return false;
    return !process.waitForFinished(3500);
}

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
        // A killed master leaves its segment behind; attaching and detaching
        // as the last user removes it.
        QSharedMemory leftover(instanceKey);
        if (leftover.attach())
            leftover.detach();
        qputenv("TMPDIR", m_savedTmp);
    }

    void messengerHandsFileOverAndExits()
    {
        QSharedMemory masterKey(instanceKey);
        QVERIFY2(masterKey.create(1), qPrintable(masterKey.errorString()));
        writeAll(handOverFile(), "queued/before.def\n");

        const QString first = existingFile(QStringLiteral("kfm fighter.def"));
        const QString second = existingFile(QStringLiteral("ström.def"));
        for (const QString& file : {first, second}) {
            QProcess messenger;
            messenger.start(program(), {file});
            QVERIFY(messenger.waitForFinished(10000));
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
        QSharedMemory masterKey(instanceKey);
        QVERIFY(masterKey.create(1));
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

    void masterEmptiesHandOverAndQueuesItsOwnFile()
    {
        writeAll(handOverFile(), "left/by/an/earlier/run.def\n");
        const QString file = existingFile(QStringLiteral("own.def"));
        QProcess masterProcess;
        const bool window = startsWindow(masterProcess, {file});
        const QByteArray handedOver = readAll(handOverFile());
        stop(masterProcess);
        QVERIFY(window);
        QCOMPARE(handedOver, file.toLocal8Bit() + '\n');
    }
};

QTEST_GUILESS_MAIN(TestStartup)
#include "tst_startup.moc"
