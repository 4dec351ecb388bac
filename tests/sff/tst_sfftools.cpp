// Old fonts turned into sprite files, and the sff command of the command-line tool.
#include "tst_sff.h"

#include "clirunner.h"
#include "qrecordingprompt.h"
#include "realdata.h"
#include "sffcompare.h"

#include "formats/qoldfont.h"
#include "model/qfontsprites.h"
#include "model/qsprites.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QTemporaryDir>
#include <QtTest>

#include <cstring>

void TestSff::oldFontBecomesSprites_data()
{
    QTest::addColumn<QString>("path");
    for (const QString& path : realDataFiles({ QStringLiteral("fnt") }))
        QTest::newRow(qPrintable(QFileInfo(path).fileName())) << path;
}

void TestSff::oldFontBecomesSprites()
{
    PF_REQUIRE_REALDATA();
    QFETCH(QString, path);
    QRecordingPrompt prompt;
    QOldFont font;
    QVERIFY(font.read(readFile(path)));
    auto sprites = newSprites();
    QString text;
    QVERIFY(loadFont(path, text, sprites.get()));
    const QString name = QFileInfo(path).completeBaseName();
    QVERIFY(text.startsWith(QStringLiteral("[FNT v2]\nfntversion = 2,00\nname = \"%1\"\n").arg(name)));
    QVERIFY(text.endsWith(QStringLiteral("file = %1.sff\n").arg(name)));
    QCOMPARE(sprites->getVersion(), sffVersion200);
    QCOMPARE(sprites->count(), int(font.map().size()));
    QCOMPARE(sprites->paletteCount(), font.banks());
    int position = 0;
    for (auto it = font.map().cbegin(); it != font.map().cend(); ++it, ++position) {
        const QSprite* sprite = sprites->at(position);
        QCOMPARE(sprite->itemIndex(), qint32(static_cast<signed char>(it.key())));
        QCOMPARE(sprite->palette(), sprites->paletteAt(0));
        const QImage glyph = font.glyph(it.key());
        const QImage image = sprite->image(sipNone);
        QCOMPARE(image.size(), glyph.size());
        for (int y = 0; y < glyph.height(); ++y)
            QVERIFY(std::memcmp(image.constScanLine(y), glyph.constScanLine(y), size_t(glyph.width())) == 0);
    }
    // The converted font is a sprite file like any other.
    QTemporaryDir dir;
    const QString target = dir.filePath(name + QStringLiteral(".sff"));
    QVERIFY(sprites->toFile(target));
    auto saved = loadSprites(target);
    QVERIFY(saved);
    QCOMPARE(spriteDifferences(*sprites, *saved, true), QStringList());
    // Alpha bytes of 2.0.0.0 palettes mean nothing and are not kept.
    QCOMPARE(paletteDifferences(*sprites, *saved, false), QStringList());
    QVERIFY(!loadFont(target, text, sprites.get()));
}

void TestSff::commandLine()
{
    PF_REQUIRE_REALDATA();
    QTemporaryDir dir;
    const QString kfm = realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.sff");

    CliResult info = runCli({ QStringLiteral("--json"), QStringLiteral("sff"), QStringLiteral("info"), kfm });
    QCOMPARE(info.exitCode, 0);
    const QJsonObject json = QJsonDocument::fromJson(info.out).object();
    QCOMPARE(json.value(QStringLiteral("version")).toString(), QStringLiteral("2.0.0.0"));
    const QJsonArray list = json.value(QStringLiteral("sprites")).toArray();
    QCOMPARE(list.size(), 281);
    QCOMPARE(json.value(QStringLiteral("spriteCount")).toInt(), 281);
    QCOMPARE(json.value(QStringLiteral("paletteCount")).toInt(), 7);
    int links = 0;
    for (const QJsonValue& sprite : list)
        links += sprite.toObject().value(QStringLiteral("link")).toInt() >= 0 ? 1 : 0;
    QVERIFY(links >= 41);

    info = runCli({ QStringLiteral("sff"), QStringLiteral("info"), kfm });
    QCOMPARE(info.exitCode, 0);
    QVERIFY(info.out.startsWith(QByteArray(kfm.toUtf8() + ": SFF 2.0.0.0, 281 sprites, 7 palettes\n")));

    const QString v1 = dir.filePath(QStringLiteral("kfm1.sff"));
    QCOMPARE(runCli({ QStringLiteral("sff"), QStringLiteral("convert"), kfm, v1, QStringLiteral("--version"),
                      QStringLiteral("1.0.1.0") })
                 .exitCode,
             0);
    auto converted = loadSprites(v1);
    QVERIFY(converted);
    QCOMPARE(converted->getVersion(), sffVersion101);
    QCOMPARE(spriteDifferences(*loadSprites(kfm), *converted, false), QStringList());

    const QString exported = dir.filePath(QStringLiteral("out/kfm.pfe"));
    QVERIFY(QDir().mkpath(dir.filePath(QStringLiteral("out"))));
    QCOMPARE(runCli({ QStringLiteral("sff"), QStringLiteral("export"), kfm, exported }).exitCode, 0);
    const QString imported = dir.filePath(QStringLiteral("imported.sff"));
    QCOMPARE(runCli({ QStringLiteral("sff"), QStringLiteral("import"), exported, imported }).exitCode, 0);
    QCOMPARE(spriteDifferences(*loadSprites(kfm), *loadSprites(imported), true), QStringList());

    // Faults: one line and a non-zero exit; wrong arguments show the usage.
    const QString missing = dir.filePath(QStringLiteral("missing.sff"));
    CliResult fault = runCli({ QStringLiteral("sff"), QStringLiteral("info"), missing });
    QCOMPARE(fault.exitCode, 1);
    QCOMPARE(fault.faultLines(), 1);
    QVERIFY(writeFile(missing, "not a sprite file"));
    fault = runCli({ QStringLiteral("sff"), QStringLiteral("convert"), missing, v1, QStringLiteral("--version"),
                     QStringLiteral("2.0.0.0") });
    QCOMPARE(fault.exitCode, 1);
    QCOMPARE(fault.faultLines(), 1);
    // A file cut short says which sprite and where, and is refused.
    const QByteArray whole = readFile(kfm);
    const QString cut = dir.filePath(QStringLiteral("cut.sff"));
    QVERIFY(writeFile(cut, whole.left(whole.size() - 1000)));
    fault = runCli({ QStringLiteral("sff"), QStringLiteral("info"), cut });
    QCOMPARE(fault.exitCode, 1);
    QCOMPARE(fault.faultLines(), 1);
    const QString expected = QStringLiteral("of 281: data runs past the end of the file at byte %1")
                                 .arg(QLocale(QLocale::English).toString(whole.size() - 1000));
    QVERIFY2(QString::fromUtf8(fault.err).contains(expected), fault.err.constData());
    QVERIFY(writeFile(cut, whole.left(700)));
    fault = runCli({ QStringLiteral("sff"), QStringLiteral("info"), cut });
    QVERIFY2(fault.err.contains("the sprite table of 281 records at byte"), fault.err.constData());
    QCOMPARE(runCli({ QStringLiteral("sff"), QStringLiteral("convert"), kfm, v1, QStringLiteral("--version"),
                      QStringLiteral("3.0") })
                 .exitCode,
             2);
}
