// The view against the decoder: every sprite of the engine's own characters,
// drawn at 1:1, is its decoded picture through its palette, at its axis.
#include "tst_render.h"

#include "clirunner.h"
#include "realdata.h"
#include "renderkit.h"

#include "model/qsprite.h"
#include "model/qsprites.h"
#include "render/qimagerenderhost.h"
#include "render/qsprrender.h"

#include <QDir>
#include <QTemporaryDir>

namespace {

constexpr int margin = 3;

/// The first fault of the drawn view against the sprite's own picture, or
/// an empty string.
QString compareSprite(QSprites* sprites, int position)
{
    const QSprite* sprite = sprites->at(position);
    const QImage decoded = sprite->image(sipDisplay).convertToFormat(QImage::Format_ARGB32);
    if (decoded.isNull())
        return QString();
    QSprRender view;
    plainView(view, sprites);
    view.setRenderMode(RenderSprite);
    // The axis is placed so that the sprite starts at margin, margin.
    view.setCrossPos(margin + sprite->offsetX(), margin + sprite->offsetY());
    view.setIndex(unsigned(position));
    QImageRenderHost host(&view, decoded.size() + QSize(2 * margin, 2 * margin));
    const QImage drawn = host.paint().convertToFormat(QImage::Format_ARGB32);
    const QRgb back = flatBackground.rgb();
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
            const QPoint inside(x - margin, y - margin);
            const QRgb source = decoded.rect().contains(inside) ? decoded.pixel(inside) : qRgba(0, 0, 0, 0);
            const int alpha = qAlpha(source);
            const QRgb expected = alpha == 255 ? source : alpha == 0 ? back : sourceOver(source, back);
            if (!near(drawn.pixel(x, y), expected, alpha == 255 || alpha == 0 ? 0 : 2))
                return QStringLiteral("sprite %1,%2 (#%3): pixel %4,%5 is %6, expected %7")
                    .arg(sprite->itemGroup())
                    .arg(sprite->itemIndex())
                    .arg(position)
                    .arg(x - margin)
                    .arg(y - margin)
                    .arg(drawn.pixel(x, y), 8, 16)
                    .arg(expected, 8, 16);
        }
    }
    return QString();
}

} // namespace

void TestRender::realSpritesAtZoomOneAreTheDecodedSprites_data()
{
    QTest::addColumn<QString>("file");
    for (const QString& file : realDataFiles({ QStringLiteral("sff") })) {
        const QString name = QFileInfo(file).fileName().toLower();
        if ((name == QLatin1String("kfm.sff") || name == QLatin1String("kfm720.sff")) && file.contains(QLatin1String("/chars/")))
            QTest::newRow(qPrintable(QDir(realDataDir()).relativeFilePath(file))) << file;
    }
}

void TestRender::realSpritesAtZoomOneAreTheDecodedSprites()
{
    PF_REQUIRE_REALDATA();
    QFETCH(QString, file);
    QSprites sprites(nullptr, ctMemory, false, -1);
    QVERIFY2(sprites.fromFile(file), qPrintable(file));
    QVERIFY(sprites.count() > 100);
    int drawn = 0;
    for (int i = 0; i < sprites.count(); ++i) {
        const QString fault = compareSprite(&sprites, i);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
        drawn += sprites.at(i)->imageData() ? 1 : 0;
    }
    qInfo("%s: %d sprites drawn as decoded", qPrintable(QFileInfo(file).fileName()), drawn);
}

void TestRender::cliRendersSpritesAndActions()
{
    PF_REQUIRE_REALDATA();
    const QStringList projects = kfmProjects();
    if (projects.isEmpty())
        QSKIP("kfm not among the real files");
    const QString kfm = projects.first();
    QTemporaryDir dir;
    const QString out = dir.filePath(QStringLiteral("stand.png"));

    CliResult result = runCli({ QStringLiteral("render"), kfm, QStringLiteral("--sprite"), QStringLiteral("0,0"), out,
                                QStringLiteral("--zoom"), QStringLiteral("2"), QStringLiteral("--json") });
    QCOMPARE(result.exitCode, 0);
    const QImage picture(out);
    QSprites sprites(nullptr, ctMemory, false, -1);
    QVERIFY(sprites.fromFile(QFileInfo(kfm).dir().filePath(QFileInfo(kfm).completeBaseName() + QStringLiteral(".sff"))));
    const QSprite* stand = sprites.at(sprites.find(0, 0, 0));
    // The picture is the sprite at twice its size with a margin of 8 on each side.
    QCOMPARE(picture.size(), QSize(stand->imageInfo().width * 2 + 16, stand->imageInfo().height * 2 + 16));
    QCOMPARE(result.json().value(QStringLiteral("axisX")).toInt(), 8 + stand->offsetX() * 2);
    QCOMPARE(qAlpha(picture.pixel(0, 0)), 0);

    result = runCli({ QStringLiteral("render"), kfm, QStringLiteral("--sprite"), QStringLiteral("77,77"), out });
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.err.contains("no sprite 77,77"));
    result = runCli({ QStringLiteral("render"), kfm, QStringLiteral("--sprite"), QStringLiteral("0,0"), out,
                      QStringLiteral("--zoom"), QStringLiteral("1.7") });
    QCOMPARE(result.exitCode, 1);
    result = runCli({ QStringLiteral("render"), kfm, out });
    QCOMPARE(result.exitCode, 2);
    result = runCli({ QStringLiteral("render"), kfm, QStringLiteral("--sprite"), QStringLiteral("0,0"),
                      QStringLiteral("--action"), QStringLiteral("0"), out });
    QCOMPARE(result.exitCode, 2);

    // An action at a tick, with and without its boxes: the boxes widen the
    // picture or at least colour it with the Clsn2 default's dark blue.
    const QString plain = dir.filePath(QStringLiteral("plain.png"));
    const QString boxed = dir.filePath(QStringLiteral("boxed.png"));
    QCOMPARE(runCli({ QStringLiteral("render"), kfm, QStringLiteral("--action"), QStringLiteral("0"),
                      QStringLiteral("--tick"), QStringLiteral("7"), plain }).exitCode, 0);
    QCOMPARE(runCli({ QStringLiteral("render"), kfm, QStringLiteral("--action"), QStringLiteral("0"),
                      QStringLiteral("--tick"), QStringLiteral("7"), boxed, QStringLiteral("--boxes") }).exitCode, 0);
    const QImage boxes(boxed);
    bool darkBlue = false;
    for (int y = 0; y < boxes.height() && !darkBlue; ++y)
        for (int x = 0; x < boxes.width() && !darkBlue; ++x)
            darkBlue = boxes.pixel(x, y) == QColor(Qt::darkBlue).rgb();
    QVERIFY(darkBlue);
    QVERIFY(QImage(plain).size().width() <= boxes.width());
    result = runCli({ QStringLiteral("render"), kfm, QStringLiteral("--action"), QStringLiteral("98765"), out });
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.err.contains("no action 98765"));
}
