#include "tst_formats.h"

#include "formats/qgifimage.h"

#include <QBuffer>
#include <QImageReader>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

namespace {

QImage indexedFrame(int width, int height, const std::function<int(int, int)>& value)
{
    QImage image(width, height, QImage::Format_Indexed8);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.scanLine(y)[x] = uchar(value(x, y));
    return image;
}

QGIFColorMap rampMap(int seed)
{
    QRGBA palette[256];
    for (int i = 0; i < 256; ++i)
        palette[i] = QRGBA(uchar(i), uchar(i * 7 + seed), uchar(255 - i), uchar(i));
    QGIFColorMap map;
    map.fromPalette(palette);
    return map;
}

/// What a reader must show for a frame: its colours, index 0 transparent.
QRgb expected(const QGIFFrame& frame, const QGIFColorMap& global, int x, int y)
{
    const int index = frame.image.constScanLine(y)[x];
    if (index == 0)
        return 0;
    const QRGB c = (frame.colorMap.isEmpty() ? global : frame.colorMap).at(index);
    return qRgb(c.r, c.g, c.b);
}

} // namespace

void TestFormats::gifFramesReadBack()
{
    const int width = 257;
    const int height = 181;
    QGIFImage gif(width, height);
    gif.setGlobalColorMap(rampMap(0));
    auto* random = QRandomGenerator::global();

    QGIFFrame noise;
    noise.image = indexedFrame(width, height, [&](int, int) { return 1 + random->bounded(255); });
    noise.image.scanLine(3)[5] = 0;
    noise.delay = 10;
    noise.loop = true;
    QGIFFrame runs;
    runs.image = indexedFrame(width, height, [](int x, int y) { return 1 + (x / 50 + y / 40) % 3; });
    runs.delay = 25;
    QGIFFrame local;
    local.image = indexedFrame(width, height, [](int x, int y) { return 1 + (x * 3 + y) % 255; });
    local.colorMap = rampMap(90);
    local.delay = 7;
    QGIFFrame flat;
    flat.image = indexedFrame(width, height, [](int, int) { return 200; });
    flat.delay = 100;
    const QList<QGIFFrame> frames { noise, runs, local, flat };
    for (const QGIFFrame& frame : frames)
        gif.addFrame(frame);

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("anim.gif"));
    QVERIFY(gif.save(path));

    QImageReader reader(path, "gif");
    QVERIFY2(reader.canRead(), qPrintable(reader.errorString()));
    QCOMPARE(reader.imageCount(), frames.size());
    QCOMPARE(reader.size(), QSize(width, height));
    for (const QGIFFrame& frame : frames) {
        const QImage read = reader.read().convertToFormat(QImage::Format_ARGB32);
        QVERIFY2(!read.isNull(), qPrintable(reader.errorString()));
        QCOMPARE(reader.nextImageDelay(), frame.delay * 10);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const QRgb want = expected(frame, gif.globalColorMap(), x, y);
                const QRgb got = read.pixel(x, y);
                if (qAlpha(want) == 0 ? qAlpha(got) != 0 : got != want)
                    QFAIL(qPrintable(QStringLiteral("frame with delay %1: pixel %2,%3 is %4, not %5")
                                         .arg(frame.delay)
                                         .arg(x)
                                         .arg(y)
                                         .arg(got, 8, 16)
                                         .arg(want, 8, 16)));
            }
    }

    // A second, independent reader, where installed.
    const QString identify = QStandardPaths::findExecutable(QStringLiteral("identify"));
    if (identify.isEmpty())
        QSKIP("ImageMagick's identify is not installed; Qt's reader agreed");
    QProcess process;
    process.start(identify, { QStringLiteral("-format"), QStringLiteral("%w %h %T\\n"), path });
    QVERIFY(process.waitForFinished(60000));
    QCOMPARE(process.exitCode(), 0);
    const QStringList lines
        = QString::fromLatin1(process.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines,
        QStringList({ QStringLiteral("257 181 10"), QStringLiteral("257 181 25"), QStringLiteral("257 181 7"),
            QStringLiteral("257 181 100") }));
}

void TestFormats::gifHeaderBytes()
{
    QGIFImage plain(2, 1);
    QGIFFrame frame;
    frame.image = indexedFrame(2, 1, [](int x, int) { return x; });
    frame.colorMap = rampMap(1);
    frame.left = 3;
    frame.top = 4;
    frame.delay = 0x0102;
    plain.addFrame(frame);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QVERIFY(plain.save(&buffer));

    QCOMPARE(bytes.left(13), QByteArray("GIF89a\x02\x00\x01\x00\x77\x00\x00", 13));
    QCOMPARE(bytes.mid(13, 8), QByteArray("\x21\xF9\x04\x09\x02\x01\x00\x00", 8));
    QCOMPARE(bytes.mid(21, 10), QByteArray("\x2C\x03\x00\x04\x00\x02\x00\x01\x00\x87", 10));
    QCOMPARE(bytes.at(31 + 768), char(8));
    QVERIFY(bytes.endsWith(QByteArray("\x00\x3B", 2)));

    // The loop extension goes ahead of the frame that asks for it; the global
    // map is always 256 entries, padded with black.
    QGIFImage looped(2, 1);
    QGIFColorMap small;
    small.append(QRGB(1, 2, 3));
    looped.setGlobalColorMap(small);
    frame.colorMap.clear();
    frame.loop = true;
    looped.addFrame(frame);
    QByteArray second;
    QBuffer out(&second);
    out.open(QIODevice::WriteOnly);
    QVERIFY(looped.save(&out));
    QCOMPARE(quint8(second.at(10)), quint8(0xF7));
    QCOMPARE(second.mid(13, 3), QByteArray("\x01\x02\x03", 3));
    QCOMPARE(second.mid(16, 765), QByteArray(765, '\0'));
    QCOMPARE(second.mid(781, 19), QByteArray("\x21\xFF\x0BNETSCAPE2.0\x03\x01\x00\x00\x00", 19));

    QImageReader reader(&out, "gif");
    out.close();
    out.open(QIODevice::ReadOnly);
    QCOMPARE(reader.read().size(), QSize(2, 1));
    QCOMPARE(reader.loopCount(), -1);

    QGIFImage refused(2, 2);
    frame.image = QImage(2, 2, QImage::Format_RGB32);
    refused.addFrame(frame);
    QVERIFY(!refused.save(&out));
}
