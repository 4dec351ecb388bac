#include "renderkit.h"

#include "model/qsprite.h"
#include "model/qsprites.h"
#include "render/qrenderer.h"
#include "render/qsprrender.h"

const QColor flatBackground(17, 34, 51);

QSprites* makeStripSprites(int width, int axisX, const QVector<QRgb>& table)
{
    auto* sprites = new QSprites(nullptr, ctMemory, false, -1);
    QImage image(width, 1, QImage::Format_Indexed8);
    image.setColorTable(table);
    for (int x = 0; x < width; ++x)
        image.setPixel(x, 0, uint(x % table.size()));
    QSprites::ChangeLock lock(sprites);
    QSprite* sprite = sprites->add();
    sprite->setImage(image);
    sprite->setPalette(sprites->addPalette(table, spsNew, 1, 1));
    sprite->setOffset(QPoint(axisX, 0));
    return sprites;
}

void plainView(QSprRender& view, QSprites* sprites)
{
    view.setBackground(flatBackground, flatBackground, 0, 0, 0, QString());
    view.setVisibility(true, true, true, true, false);
    view.setCrossVisibility(false, false);
    view.setZoomMode(ZoomOnAxis);
    view.setZoomTable(1);
    view.setZoom(2);
    view.setSprites(sprites);
}

QRgb sourceOver(QRgb source, QRgb background)
{
    const int a = qAlpha(source);
    auto mix = [a](int s, int d) { return (s * a + d * (255 - a) + 127) / 255; };
    return qRgb(mix(qRed(source), qRed(background)), mix(qGreen(source), qGreen(background)),
                mix(qBlue(source), qBlue(background)));
}

bool near(QRgb a, QRgb b, int tolerance)
{
    return qAbs(qRed(a) - qRed(b)) <= tolerance && qAbs(qGreen(a) - qGreen(b)) <= tolerance
        && qAbs(qBlue(a) - qBlue(b)) <= tolerance;
}

#include <QMouseEvent>
#include <QWheelEvent>

void mousePress(QRenderer& view, const QPoint& at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    QMouseEvent event(QEvent::MouseButtonPress, at, at, button, button, modifiers);
    view.mousePressed(&event);
}

void mouseMove(QRenderer& view, const QPoint& at, Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers)
{
    QMouseEvent event(QEvent::MouseMove, at, at, Qt::NoButton, buttons, modifiers);
    view.mouseMoved(&event);
}

void mouseRelease(QRenderer& view, const QPoint& at, Qt::MouseButton button)
{
    QMouseEvent event(QEvent::MouseButtonRelease, at, at, button, Qt::NoButton, Qt::NoModifier);
    view.mouseReleased(&event);
}

void mouseDrag(QRenderer& view, const QPoint& from, const QPoint& to, int steps, Qt::KeyboardModifiers modifiers)
{
    mousePress(view, from, Qt::LeftButton, modifiers);
    for (int i = 1; i <= steps; ++i)
        mouseMove(view, from + (to - from) * i / steps, Qt::LeftButton, modifiers);
    mouseRelease(view, to);
}

void wheel(QRenderer& view, const QPoint& at, int notches)
{
    QWheelEvent event(at, at, QPoint(), QPoint(0, notches * 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    view.mouseWheel(&event);
}

#include "realdata.h"

#include <QDir>
#include <QFileInfo>

QStringList kfmProjects()
{
    QStringList found;
    for (const QString& def : realDataFiles({ QStringLiteral("def") })) {
        const QFileInfo info(def);
        const QString name = info.completeBaseName();
        if (!info.path().endsWith(QLatin1String("/chars/") + name)
            || (name != QLatin1String("kfm") && name != QLatin1String("kfm720")))
            continue;
        const QDir dir = info.dir();
        if (dir.exists(name + QLatin1String(".air")) && dir.exists(name + QLatin1String(".sff")))
            found << def;
    }
    return found;
}
