#include "tst_formats.h"

#include "clirunner.h"
#include "formats/qimagefiles.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

namespace {

bool writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

void TestFormats::cliPalette()
{
    QTemporaryDir dir;
    const QString jasc = dir.filePath(QStringLiteral("in.pal"));
    QFile file(jasc);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("JASC-PAL\r\n0100\r\n2\r\n1 2 3\r\n250 128 0\r\n");
    file.close();

    const QString act = dir.filePath(QStringLiteral("out.act"));
    const CliResult converted = runCli({ QStringLiteral("palette"), jasc, act, QStringLiteral("--json") });
    QCOMPARE(converted.exitCode, 0);
    const QJsonObject json = QJsonDocument::fromJson(converted.out).object();
    QCOMPARE(json.value(QStringLiteral("format")).toString(), QStringLiteral("JASC"));
    QCOMPARE(json.value(QStringLiteral("colors")).toArray().at(0).toString(), QStringLiteral("#01020300"));
    QCOMPARE(json.value(QStringLiteral("colors")).toArray().at(1).toString(), QStringLiteral("#fa8000ff"));
    QCOMPARE(json.value(QStringLiteral("used")).toInt(), 1);
    QFile written(act);
    QVERIFY(written.open(QIODevice::ReadOnly));
    const QByteArray bytes = written.readAll();
    QCOMPARE(bytes.size(), 768);
    QCOMPARE(bytes.right(6), QByteArray("\xFA\x80\x00\x01\x02\x03", 6));

    const CliResult shown = runCli({ QStringLiteral("palette"), act });
    QCOMPARE(shown.exitCode, 0);
    QVERIFY(shown.out.startsWith(QByteArray(act.toUtf8() + ": ACT palette")));
    QCOMPARE(shown.out.count('\n'), 17);

    const CliResult missing = runCli({ QStringLiteral("palette"), dir.filePath(QStringLiteral("none.act")) });
    QCOMPARE(missing.exitCode, 1);
    QCOMPARE(missing.faultLines(), 1);
    QCOMPARE(runCli({ QStringLiteral("palette") }).exitCode, 2);

    // Seven bytes are no palette: one line naming the fault, not a table of zeros.
    const QString shortAct = dir.filePath(QStringLiteral("short.act"));
    QVERIFY(writeBytes(shortAct, "1234567"));
    const CliResult tooShort = runCli({ QStringLiteral("palette"), shortAct });
    QCOMPARE(tooShort.exitCode, 1);
    QCOMPARE(tooShort.faultLines(), 1);
    QVERIFY(tooShort.err.contains("768 bytes"));
    QVERIFY(tooShort.out.isEmpty());

    const QString rgb = dir.filePath(QStringLiteral("rgb.png"));
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QVERIFY(image.save(rgb));
    const CliResult refused = runCli({ QStringLiteral("palette"), rgb });
    QCOMPARE(refused.exitCode, 1);
    QVERIFY(refused.err.contains("not an indexed image"));
}

void TestFormats::cliImage()
{
    QTemporaryDir dir;
    QImage image(5, 3, QImage::Format_Indexed8);
    QVector<QRgb> table;
    for (int i = 0; i < 256; ++i)
        table.append(qRgb(i, i, 0));
    image.setColorTable(table);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 5; ++x)
            image.scanLine(y)[x] = uchar(x * 40 + y);
    const QString pcx = dir.filePath(QStringLiteral("in.pcx"));
    QVERIFY(saveImage(pcx, image));

    const QString png = dir.filePath(QStringLiteral("out.png"));
    const CliResult toPng = runCli({ QStringLiteral("image"), pcx, png });
    QCOMPARE(toPng.exitCode, 0);
    QVERIFY(toPng.out.contains("5x3, 8-bit, 256 colours"));
    const QImage fromPng = QImage(png);
    QCOMPARE(fromPng.convertToFormat(QImage::Format_RGB32), image.convertToFormat(QImage::Format_RGB32));

    const QString back = dir.filePath(QStringLiteral("back.pcx"));
    const CliResult toPcx = runCli({ QStringLiteral("image"), png, back, QStringLiteral("--json") });
    QCOMPARE(toPcx.exitCode, 0);
    const QJsonObject json = QJsonDocument::fromJson(toPcx.out).object();
    QCOMPARE(json.value(QStringLiteral("width")).toInt(), 5);
    QCOMPARE(json.value(QStringLiteral("depth")).toInt(), 8);
    const QImage again = loadImage(back);
    QCOMPARE(again.convertToFormat(QImage::Format_RGB32), image.convertToFormat(QImage::Format_RGB32));

    // A true-colour PNG becomes a 3-plane PCX.
    const QString colour = dir.filePath(QStringLiteral("colour.png"));
    QImage rgb(4, 2, QImage::Format_RGB888);
    rgb.fill(QColor(10, 20, 30));
    QVERIFY(rgb.save(colour));
    const QString colourPcx = dir.filePath(QStringLiteral("colour.pcx"));
    QCOMPARE(runCli({ QStringLiteral("image"), colour, colourPcx }).exitCode, 0);
    const QImage colourBack = loadImage(colourPcx);
    QCOMPARE(colourBack.format(), QImage::Format_RGB32);
    QCOMPARE(colourBack.pixel(3, 1), qRgb(10, 20, 30));

    const QString junk = dir.filePath(QStringLiteral("junk.pcx"));
    QVERIFY(writeBytes(junk, "not an image"));
    const CliResult unreadable = runCli({ QStringLiteral("image"), junk });
    QCOMPARE(unreadable.exitCode, 1);
    QCOMPARE(unreadable.faultLines(), 1);
    const CliResult unwritable
        = runCli({ QStringLiteral("image"), pcx, dir.filePath(QStringLiteral("no/dir/x.pcx")) });
    QCOMPARE(unwritable.exitCode, 1);

    // A damaged PNG, whatever its name, is one line naming what is wrong, and libpng says nothing.
    QFile whole(png);
    QVERIFY(whole.open(QIODevice::ReadOnly));
    const QByteArray pngBytes = whole.readAll();
    QByteArray badCrc = pngBytes;
    badCrc[pngBytes.size() - 13] = char(badCrc.at(pngBytes.size() - 13) ^ 1);
    const QList<QPair<QByteArray, QByteArray>> damaged = {
        { pngBytes.chopped(11), "the picture ends at byte" },
        { badCrc, "chunk IDAT at byte" },
        { pngBytes.left(8), "before its IEND chunk" },
    };
    for (const auto& [bytes, fault] : damaged) {
        const QString path = dir.filePath(QStringLiteral("damaged.pcx"));
        QVERIFY(writeBytes(path, bytes));
        const CliResult refused = runCli({ QStringLiteral("image"), path });
        QCOMPARE(refused.exitCode, 1);
        QCOMPARE(refused.err.count('\n'), 1);
        QVERIFY2(refused.err.contains(fault), refused.err.constData());
    }
}
