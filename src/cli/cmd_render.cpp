// pugilforge-cli render PROJECT.def (--sprite G,I | --action N [--tick T]) OUT.png [--zoom Z] [--boxes]
// [--palette N]: the sprite view's own drawing of a sprite, or of the frame an action shows at a tick, into a PNG.
#include "qclicommand.h"
#include "qcliinput.h"

#include "formats/qimagefiles.h"
#include "model/qanimation.h"
#include "model/qanimations.h"
#include "model/qproject.h"
#include "model/qsprite.h"
#include "model/qsprites.h"
#include "render/qanimationplayer.h"
#include "render/qimagerenderhost.h"
#include "render/qplaybackclock.h"
#include "render/qsprrender.h"
#include "render/qzoomtable.h"

#include <QFileInfo>
#include <QGuiApplication>

#include <functional>
#include <QJsonObject>

namespace {

const char* const usageText =
    "render PROJECT.def (--sprite G,I | --action N [--tick T]) OUT.png [--zoom Z] [--boxes] [--palette N]";

/// Transparent space around the drawing, so that edges stay visible.
constexpr int margin = 8;

struct RenderOptions
{
    QString project;
    QString output;
    QSubItem sprite;
    bool hasSprite = false;
    int action = 0;
    bool hasAction = false;
    int tick = 0;
    bool boxes = false;
    float zoom = 1.0f;
    int palette = -1;
};

bool parseSubItem(const QString& text, QSubItem& item)
{
    const QStringList parts = text.split(QLatin1Char(','));
    bool groupOk = false, indexOk = false;
    if (parts.size() == 2) {
        item.group = parts[0].trimmed().toInt(&groupOk);
        item.index = parts[1].trimmed().toInt(&indexOk);
    }
    return groupOk && indexOk;
}

bool parseOptions(const QStringList& arguments, RenderOptions& options)
{
    QStringList positional;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        const bool hasValue = i + 1 < arguments.size();
        bool ok = true;
        if (argument == QLatin1String("--sprite") && hasValue) {
            ok = options.hasSprite = parseSubItem(arguments[++i], options.sprite);
        } else if (argument == QLatin1String("--action") && hasValue) {
            options.action = arguments[++i].toInt(&ok);
            options.hasAction = ok;
        } else if (argument == QLatin1String("--tick") && hasValue) {
            options.tick = arguments[++i].toInt(&ok);
            ok = ok && options.tick >= 0;
        } else if (argument == QLatin1String("--boxes")) {
            options.boxes = true;
        } else if (argument == QLatin1String("--zoom") && hasValue) {
            options.zoom = arguments[++i].toFloat(&ok);
        } else if (argument == QLatin1String("--palette") && hasValue) {
            options.palette = arguments[++i].toInt(&ok);
            ok = ok && options.palette >= 0;
        } else if (argument.startsWith(QLatin1String("--"))) {
            return false;
        } else {
            positional.append(argument);
        }
        if (!ok)
            return false;
    }
    if (positional.size() != 2 || options.hasSprite == options.hasAction)
        return false;
    options.project = positional[0];
    options.output = positional[1];
    return true;
}

/// The zoom table row and index of a factor; false when no table has it.
bool zoomStep(float factor, quint8& row, quint8& index)
{
    for (int r = QZoomTable::rows - 1; r >= 0; --r) {
        for (int i = 0; i < QZoomTable::steps; ++i) {
            if (qFuzzyCompare(QZoomTable::factor(r, i), factor)) {
                row = quint8(r);
                index = quint8(i);
                return true;
            }
        }
    }
    return false;
}

/// The view set for a picture of the sprite alone, with or without its
/// collision boxes: no background, rulers or crosshairs.
void setUpView(QSprRender& view, QSprites* sprites, quint8 row, quint8 index, bool boxes)
{
    view.pause(true);
    view.setBackground(Qt::transparent, Qt::transparent, 0, 0, 0, QString());
    view.setVisibility(boxes, boxes, boxes, boxes, false);
    view.setCrossVisibility(false, false);
    view.setZoomMode(ZoomOnAxis);
    view.setZoomTable(row);
    view.setZoom(index);
    view.setSprites(sprites);
    view.setCrossPos(0, 0);
}

/// What the view draws, on screen: the sprite and, when shown, the boxes;
/// a point at the axis when there is neither.
QRect drawingBounds(const QSprRender& view, bool boxes)
{
    QRect bounds = view.paintedBounds();
    if (boxes)
        for (const QRenderCLSN& record : view.clsns())
            bounds |= record.rect;
    return bounds.isEmpty() ? QRect(view.crossPos(), QSize(1, 1)) : bounds;
}

int runRender(const QCliRun& run)
{
    RenderOptions options;
    if (!parseOptions(run.arguments(), options))
        return run.usage(QLatin1String(usageText));
    quint8 row = 1, index = 2;
    if (!zoomStep(options.zoom, row, index))
        return run.fail(QStringLiteral("--zoom"), QStringLiteral("%1 is not a step of the zoom tables").arg(options.zoom));
    if (!QFileInfo(options.project).isFile())
        return run.fail(options.project, QStringLiteral("no such file"));
    const QString refusal = notADefinition(options.project);
    if (!refusal.isEmpty())
        return run.fail(options.project, refusal);

    QProject::init();
    QProject project;
    if (!project.open(options.project, 0, false, false))
        return run.fail(options.project, QStringLiteral("can't read the file"));
    QSprites* sprites = project.sprites();
    if (options.palette >= sprites->paletteCount())
        return run.fail(options.project, QStringLiteral("no palette %1").arg(options.palette));

    QSprRender view;
    setUpView(view, sprites, row, index, options.boxes);
    QSystemPlaybackClock clock;
    QAnimationPlayer player(&view, &clock);
    std::function<void()> show;
    if (options.hasSprite) {
        const int position = sprites->find(0, options.sprite.group, options.sprite.index);
        if (position < 0)
            return run.fail(options.project,
                            QStringLiteral("no sprite %1,%2").arg(options.sprite.group).arg(options.sprite.index));
        view.setRenderMode(RenderSprite);
        show = [&] { view.setIndex(unsigned(position)); };
    } else {
        QAnimations* animations = project.animations();
        const int position = animations->find(0, options.action);
        if (position < 0 || animations->at(position)->frameCount() == 0)
            return run.fail(options.project, QStringLiteral("no action %1 with frames").arg(options.action));
        view.setAnimations(animations);
        view.setRenderMode(RenderAnimation);
        // The frame and working copy after T ticks of playback from the first frame.
        show = [&] {
            view.setIndex(unsigned(position));
            view.setFrame(0);
            player.begin(animations->at(position), 0);
            for (int t = 0; t < options.tick; ++t)
                player.tick();
        };
    }
    show();
    // Place the axis so the whole drawing lies inside the picture.
    const QRect bounds = drawingBounds(view, options.boxes);
    view.setCrossPos(margin - bounds.left(), margin - bounds.top());
    show();
    if (options.palette >= 0)
        view.setPalette(options.palette);
    view.pause(false);
    QImageRenderHost host(&view, bounds.size() + QSize(2 * margin, 2 * margin));
    const QImage& picture = host.paint();
    if (!saveImage(options.output, picture))
        return run.fail(options.output, QStringLiteral("cannot be written"));

    if (run.json()) {
        run.printJson(QJsonObject { { QStringLiteral("file"), options.output },
                                    { QStringLiteral("width"), picture.width() },
                                    { QStringLiteral("height"), picture.height() },
                                    { QStringLiteral("axisX"), view.crossPos().x() },
                                    { QStringLiteral("axisY"), view.crossPos().y() } });
        return 0;
    }
    run.print(QStringLiteral("%1: %2x%3, axis at %4,%5")
                  .arg(options.output)
                  .arg(picture.width())
                  .arg(picture.height())
                  .arg(view.crossPos().x())
                  .arg(view.crossPos().y()));
    return 0;
}

/// The sprite view numbers its boxes in text, and fonts need a QGuiApplication;
/// its platform is the offscreen one, since nothing is shown.
std::unique_ptr<QCoreApplication> guiApplication(int& argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(argc, argv);
}

const QCliCommand command("render", usageText,
    "draw a sprite, or the frame an action shows at a tick, as the sprite view does, into a PNG", runRender,
    guiApplication);

} // namespace
