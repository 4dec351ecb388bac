// Reference pictures: frames of kfm drawn by the view, compared with the
// pictures in golden/. Run with PF_UPDATE_GOLDEN=1 to write them anew after
// a deliberate change of the drawing, and look at them before committing.
#include "tst_render.h"

#include "realdata.h"
#include "renderkit.h"

#include "model/qanimations.h"
#include "model/qproject.h"
#include "model/qsprites.h"
#include "render/qimagerenderhost.h"
#include "render/qsprrender.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QDir>
#include <QFile>
#include <QTextDocument>
#include <QtTest>

namespace {

QString goldenDir()
{
    return qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/tests/render/golden");
}

/// How many pixels of `drawn` differ from `reference` by more than 1 in a
/// channel, the ruler bands (whose numbers depend on the font) left aside.
int differingPixels(const QImage& drawn, const QImage& reference)
{
    int count = 0;
    for (int y = 30; y < drawn.height(); ++y)
        for (int x = 30; x < drawn.width(); ++x)
            if (!near(drawn.pixel(x, y), reference.pixel(x, y), 1))
                ++count;
    return count;
}

} // namespace

void TestRender::goldenFramesOfKfm_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<int>("frame");
    QTest::addColumn<bool>("extras");
    QTest::newRow("flipped") << 1 << 0 << false;
    QTest::newRow("additive") << 2 << 0 << false;
    QTest::newRow("subtractive") << 3 << 0 << false;
    QTest::newRow("scaled") << 4 << 0 << false;
    QTest::newRow("rotated") << 5 << 0 << false;
    QTest::newRow("default-boxes") << 6 << 0 << false;
    QTest::newRow("own-boxes-selected") << 6 << 1 << true;
    QTest::newRow("onion-rulers") << 7 << 0 << true;
}

void TestRender::goldenFramesOfKfm()
{
    QFETCH(int, action);
    QFETCH(int, frame);
    QFETCH(bool, extras);
    PF_REQUIRE_REALDATA();
    const QStringList projects = kfmProjects();
    QString kfm;
    for (const QString& project : projects)
        if (project.endsWith(QLatin1String("/kfm.def")))
            kfm = project;
    if (kfm.isEmpty())
        QSKIP("kfm not among the real files");
    QProject::init();
    QProject project;
    QVERIFY(project.open(kfm, 0, false, false));
    QFile air(goldenDir() + QStringLiteral("/frames.air"));
    QVERIFY(air.open(QIODevice::ReadOnly));
    project.animationText()->document()->setPlainText(QString::fromUtf8(air.readAll()));

    QSprRender view;
    view.setBackground(QColor(40, 60, 90), QColor(200, 120, 60), 1, -120, -200, QString());
    view.setVisibility(true, true, true, true, extras);
    view.setCrossVisibility(true, true);
    view.setZoomMode(ZoomOnAxis);
    view.setSprites(project.sprites());
    view.setAnimations(project.animations());
    view.setRenderMode(RenderAnimation);
    view.setCrossPos(130, 215);
    QImageRenderHost host(&view, QSize(260, 240));
    if (extras) {
        view.setOnionSkin(true, EffectMonochrome, 50);
        view.setOnionIndex(unsigned(project.sprites()->find(0, 200, 2)));
    }
    view.setIndex(unsigned(project.animations()->find(0, action)));
    view.setFrame(unsigned(frame));
    if (extras && !view.clsns().isEmpty())
        view.selectCLSN(0);
    const QImage drawn = host.paint().convertToFormat(QImage::Format_RGB32);

    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const QString path = goldenDir() + QLatin1Char('/') + name + QStringLiteral(".png");
    if (qEnvironmentVariableIsSet("PF_UPDATE_GOLDEN")) {
        QVERIFY(drawn.save(path));
        QSKIP("reference written");
    }
    const QImage reference = QImage(path).convertToFormat(QImage::Format_RGB32);
    QVERIFY2(!reference.isNull(), qPrintable(path));
    QCOMPARE(drawn.size(), reference.size());
    const int differing = differingPixels(drawn, reference);
    if (differing > 0)
        drawn.save(QDir::temp().filePath(name + QStringLiteral("-drawn.png")));
    QVERIFY2(differing == 0, qPrintable(QStringLiteral("%1 pixels differ; the drawing is in %2")
                                            .arg(differing)
                                            .arg(QDir::temp().filePath(name + QStringLiteral("-drawn.png")))));
}
