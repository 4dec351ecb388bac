// One paint of the sprite view, a kfm frame with its boxes at 2x in a
// 1280x800 view with rulers and crosshairs, beside a plain QPainter::drawImage
// of the same sprite scaled the same way into an image of the same size.
#include "benchutil.h"

#include "model/qanimations.h"
#include "model/qproject.h"
#include "model/qsprite.h"
#include "model/qsprites.h"
#include "render/qimagerenderhost.h"
#include "render/qsprrender.h"
#include "text/qcodecs.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPainter>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const QString kfm = bench::realData() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.def");
    if (!QFileInfo::exists(kfm)) {
        std::printf("kfm not found under %s: nothing measured\n", qPrintable(bench::realData()));
        return 0;
    }
    initCodecs();
    QProject::init();
    QProject project;
    project.open(kfm, 0, false, false);

    QSprRender view;
    view.setBackground(QColor(40, 60, 90), QColor(200, 120, 60), 1, -213, -208, QString());
    view.setCLSNColor(Qt::red, Qt::magenta, Qt::blue, Qt::darkBlue, 100);
    view.setZoomMode(ZoomOnAxis);
    view.setSprites(project.sprites());
    view.setAnimations(project.animations());
    view.setRenderMode(RenderAnimation);
    view.setCrossVisibility(true, true);
    view.setCrossPos(640, 600);
    view.setZoom(3); // 2x in the large table
    QImageRenderHost host(&view, QSize(1280, 800));
    // The punch: a frame with Clsn1 and Clsn2 boxes.
    view.setIndex(unsigned(project.animations()->find(0, 200)));
    view.setFrame(2);
    if (!view.clsns().isEmpty())
        view.selectCLSN(0);

    QSprite* sprite = view.sprite();
    QImage image = sprite->image(sipDisplay);
    const QRect target = view.spriteRect();
    QImage plainTarget(1280, 800, QImage::Format_ARGB32_Premultiplied);
    plainTarget.fill(Qt::black);
    const int paints = 200;
    const double plain = bench::bestMs(5, [&] {
        for (int i = 0; i < paints; ++i) {
            QPainter painter(&plainTarget);
            painter.drawImage(target, image);
        }
    }) / paints;
    const double full = bench::bestMs(5, [&] {
        for (int i = 0; i < paints; ++i)
            host.paint();
    }) / paints;
    std::printf("kfm action 200 frame 2, %d boxes, sprite %dx%d at 2x in a 1280x800 view\n", int(view.clsns().size()),
                image.width(), image.height());
    bench::report("QPainter::drawImage of the sprite (baseline)", plain, plain);
    bench::report("QSprRender::render(), whole view", full, plain,
                  full < 5.5 ? "(under 5.5 ms, a third of a 60 Hz frame)" : "(OVER 5.5 ms)");
    return 0;
}
