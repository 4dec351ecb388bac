// A save that fails or is cancelled leaves the author's file as it was.
#include "tst_sff.h"

#include "qrecordingprompt.h"
#include "sffcompare.h"

#include "model/qsprites.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// A model big enough that its file takes many writes.
std::unique_ptr<QSprites> bigModel()
{
    auto sprites = newSprites();
    for (int i = 0; i < 40; ++i) {
        QImage image(64, 64, QImage::Format_RGB32);
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < 64; ++x)
                image.setPixel(x, y, qRgb((x * 37 + i * 11) & 255, (y * 53 + x * i) & 255, (x ^ y ^ i) & 255));
        QSprite* sprite = sprites->add();
        sprite->setItem(1, i);
        sprite->setImage(image);
    }
    return sprites;
}

/**
 * Saves in a child process whose files may not grow past `limit` bytes, as
 * on a full disk; the exit status of the child, 0 when the save succeeded.
 */
int saveUnderSizeLimit(QSprites* sprites, const QString& path, rlim_t limit)
{
    const pid_t child = fork();
    if (child == 0) {
        // Past the limit a write fails with EFBIG instead of killing the process.
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit size { limit, limit };
        setrlimit(RLIMIT_FSIZE, &size);
        _exit(sprites->toFile(path, 0, true) ? 0 : 3);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 100;
}

} // namespace

void TestSff::cancelledSaveKeepsOldFile()
{
    QRecordingPrompt prompt;
    QTemporaryDir dir;
    auto sprites = bigModel();
    const QString path = dir.filePath(QStringLiteral("cancel.sff"));
    int calls = 0;
    QObject::connect(sprites.get(), &QSprites::progress, [&calls](uint, uint, bool& allow) {
        if (++calls == 10)
            allow = false;
    });
    QVERIFY(!sprites->toFile(path));
    QVERIFY(!QFile::exists(path));
    QVERIFY(QDir(dir.path()).entryList(QDir::Files).isEmpty());

    const QByteArray old("the author's previous file");
    QVERIFY(writeFile(path, old));
    calls = 0;
    QVERIFY(!sprites->toFile(path));
    QCOMPARE(readFile(path), old);
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList(QStringLiteral("cancel.sff")));
}

void TestSff::failedWriteKeepsOldFile()
{
    QRecordingPrompt prompt;
    QTemporaryDir dir;
    auto sprites = bigModel();
    const QString path = dir.filePath(QStringLiteral("full.sff"));
    // The whole file, for a limit of about half of it.
    QVERIFY(sprites->toFile(dir.filePath(QStringLiteral("whole.sff")), 0, true));
    const rlim_t half = rlim_t(QFileInfo(dir.filePath(QStringLiteral("whole.sff"))).size() / 2);
    QVERIFY(QFile::remove(dir.filePath(QStringLiteral("whole.sff"))));
    QVERIFY(half > 4096);

    QCOMPARE(saveUnderSizeLimit(sprites.get(), path, half), 3);
    QVERIFY(!QFile::exists(path));
    QVERIFY(QDir(dir.path()).entryList(QDir::Files).isEmpty());

    QByteArray old(int(half) + 1000, 'x');
    QVERIFY(writeFile(path, old));
    QCOMPARE(saveUnderSizeLimit(sprites.get(), path, half), 3);
    QCOMPARE(readFile(path), old);
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList(QStringLiteral("full.sff")));

    // The same save without the limit goes through.
    QCOMPARE(saveUnderSizeLimit(sprites.get(), path, RLIM_INFINITY), 0);
    QVERIFY(loadSprites(path));
}
