// The sprites editor on a large character: 1,882 sprites made from kfm's
// (kfm pasted over and over, saved as one SFF). Measured from the file
// loaded to the sprite list shown and painted (the aim is under 300 ms),
// then the thumbnail grid shown and scrolled, with the pictures it decoded.
// Baseline: reading the same SFF into memory, in the same run.
#include "benchutil.h"
#include "kfmview.h"

#include "interface/editors/qspriteseditor.h"
#include "interface/editors/qthumbnailcache.h"
#include "interface/workspaces/qviewworkspace.h"
#include "model/qsprites.h"
#include "render/gui/qanimspriteworkspace.h"

#include <QApplication>
#include <QListView>
#include <QMimeData>
#include <QScrollBar>
#include <QTableView>
#include <QTemporaryDir>

#include <memory>

namespace {

constexpr int spriteCount = 1882;

/// Writes an SFF of `spriteCount` sprites, kfm's over and over; empty without kfm.
QString makeLargeFile(const QString& folder)
{
    QProject kfm;
    if (!bench::openKfm(kfm))
        return QString();
    QList<int> all;
    for (int i = 0; i < kfm.sprites()->count(); ++i)
        all.append(i);
    std::unique_ptr<QMimeData> copied(kfm.sprites()->copy(all));
    QProject large;
    QSprites* sprites = large.sprites();
    while (sprites->count() < spriteCount)
        sprites->paste(copied.get(), sprites->count());
    while (sprites->count() > spriteCount)
        sprites->remove(unsigned(sprites->count() - 1));
    const QString path = folder + QStringLiteral("/large.sff");
    return sprites->toFile(path, QSprites::defaultVersion, true) ? path : QString();
}

} // namespace

int main(int argc, char** argv)
{
    bench::useOffscreenPlatform();
    QApplication application(argc, argv);
    QTemporaryDir folder;
    const QString path = makeLargeFile(folder.path());
    if (path.isEmpty())
        return 0;

    double loadMs = 1e300;
    double listMs = 1e300;
    double gridMs = 1e300;
    int shownDecodes = 0;
    int scrollDecodes = 0;
    int cells = 0;
    for (int run = 0; run < 3; ++run) {
        QElapsedTimer timer;
        timer.start();
        QProject project;
        if (!project.sprites()->fromFile(path)) {
            std::printf("%s could not be read back\n", qPrintable(path));
            return 1;
        }
        loadMs = qMin(loadMs, double(timer.nsecsElapsed()) / 1e6);

        QViewWorkspace workspace;
        QAnimSpriteWorkspace view(nullptr);
        QSpritesEditor editor(&workspace, &view);
        workspace.widget()->resize(1280, 760);
        workspace.widget()->show();
        timer.restart();
        editor.setProject(&project);
        editor.activate(true);
        editor.table()->repaint();
        QCoreApplication::processEvents();
        listMs = qMin(listMs, double(timer.nsecsElapsed()) / 1e6);

        timer.restart();
        editor.showThumbnails(true);
        editor.grid()->viewport()->repaint();
        gridMs = qMin(gridMs, double(timer.nsecsElapsed()) / 1e6);
        shownDecodes = editor.thumbnailCache()->decodes();
        QScrollBar* bar = editor.grid()->verticalScrollBar();
        bar->setValue(bar->value() + bar->pageStep());
        editor.grid()->viewport()->repaint();
        scrollDecodes = editor.thumbnailCache()->decodes() - shownDecodes;
        const QSize grid = editor.grid()->gridSize();
        const QSize port = editor.grid()->viewport()->size();
        cells = (port.width() / grid.width()) * (port.height() / grid.height() + 1);
        editor.setProject(nullptr);
    }

    std::printf(
        "%d sprites made from kfm's; the grid shows about %d cells at 1280x760\n", spriteCount, cells);
    bench::report("reading the SFF (baseline)", loadMs, loadMs);
    bench::report("sprite list shown after loading", listMs, loadMs,
        listMs < 300 ? "(under the 300 ms aim)" : "(OVER the 300 ms aim)");
    bench::report("thumbnail grid shown", gridMs, loadMs);
    std::printf("thumbnails decoded: %d to show the grid, %d for one page down, of %d sprites\n",
        shownDecodes, scrollDecodes, spriteCount);
    return 0;
}
