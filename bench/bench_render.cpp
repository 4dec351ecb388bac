// One paint of the sprite view, a kfm frame with its boxes at 2x in a
// 1280x800 view with rulers and crosshairs, beside a plain QPainter::drawImage
// of the same sprite scaled the same way into an image of the same size.
#include "kfmview.h"

#include "model/qsprite.h"
#include "render/qimagerenderhost.h"

#include <QGuiApplication>
#include <QPainter>

int main(int argc, char** argv)
{
    bench::useOffscreenPlatform();
    QGuiApplication application(argc, argv);
    bench::KfmView kfm;
    if (!kfm.open(200))
        return 0;
    QSprRender& view = kfm.view;
    QImageRenderHost& host = *kfm.host;
    // The punch's third frame: Clsn1 and Clsn2 boxes, one selected with its sizers.
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
