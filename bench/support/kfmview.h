#pragma once

#include "benchutil.h"

#include "model/qanimations.h"
#include "model/qproject.h"
#include "render/qimagerenderhost.h"
#include "render/qsprrender.h"
#include "text/qcodecs.h"

#include <QFileInfo>

#include <memory>

/**
 * The sprite view's benchmarks draw the engine's kfm, as an author sees it:
 * its animations at 2x in a 1280x800 view with the screen-size background.
 */
namespace bench {

/// Paints without a screen unless the caller chose a platform.
inline void useOffscreenPlatform()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

/// Opens kfm into `project`; false, after saying so, without the real files.
inline bool openKfm(QProject& project)
{
    const QString kfm = realData() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.def");
    if (!QFileInfo::exists(kfm)) {
        std::printf("kfm not found under %s: nothing measured\n", qPrintable(realData()));
        return false;
    }
    initCodecs();
    QProject::init();
    return project.open(kfm, 0, false, false);
}

/// The view on `project`'s animations, showing `action` at 2x with its axis low in a 1280x800 view.
inline void showAction(QSprRender& view, QProject& project, int action)
{
    view.setBackground(QColor(40, 60, 90), QColor(200, 120, 60), 1, -213, -208, QString());
    view.setCLSNColor(Qt::red, Qt::magenta, Qt::blue, Qt::darkBlue, 100);
    view.setZoomMode(ZoomOnAxis);
    view.setSprites(project.sprites());
    view.setAnimations(project.animations());
    view.setRenderMode(RenderAnimation);
    view.setCrossVisibility(true, true);
    view.setCrossPos(640, 600);
    view.setZoom(3); // 2x in the large table
    view.setIndex(unsigned(project.animations()->find(0, action)));
}

/// kfm's project and the view painted into a 1280x800 image.
struct KfmView
{
    QProject project;
    QSprRender view;
    std::unique_ptr<QImageRenderHost> host;

    /// Shows `action`; false, after saying so, without the real files.
    bool open(int action)
    {
        if (!openKfm(project))
            return false;
        showAction(view, project, action);
        host = std::make_unique<QImageRenderHost>(&view, QSize(1280, 800));
        return true;
    }
};

} // namespace bench
