// The sprite and animation workspace in a window: the host widgets, the
// switch between them while running, the View actions and their settings,
// mouse input through the real widget, playback; with PF_SHOT_DIR set it
// also saves pictures of the view for a person to look at.
#include "realdata.h"
#include "screenshots.h"

#include "managers/qconfigmanager.h"
#include "model/qanimations.h"
#include "model/qproject.h"
#include "model/qsprites.h"
#include "render/gui/qanimspriteworkspace.h"
#include "render/gui/qoglrenderwidget.h"
#include "render/gui/qrenderwidget.h"
#include "render/qsprrender.h"
#include "text/qcodecs.h"

#include <QAction>
#include <QDir>
#include <QSignalSpy>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

namespace {

/// A window holding the workspace alone, on the defaults with visible colours.
struct WorkspaceWindow
{
    QConfigManager config;
    QWidget window;
    std::unique_ptr<QAnimSpriteWorkspace> workspace;

    WorkspaceWindow()
    {
        config.loadDefaults();
        config[QStringLiteral("back_start")] = QStringLiteral("#d8dce6");
        config[QStringLiteral("back_end")] = QStringLiteral("#7d8aa6");
        config[QStringLiteral("clsn1")] = QStringLiteral("#ff0000");
        config[QStringLiteral("clsn1def")] = QStringLiteral("#ff00ff");
        config[QStringLiteral("clsn2")] = QStringLiteral("#0000ff");
        config[QStringLiteral("clsn2def")] = QStringLiteral("#000080");
        auto* layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        workspace = std::make_unique<QAnimSpriteWorkspace>(&config, &window);
        layout->addWidget(workspace->widget());
    }
    bool show()
    {
        window.resize(640, 480);
        window.show();
        return QTest::qWaitForWindowExposed(&window);
    }
};

} // namespace

class TestWorkspace : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void hostSwitchKeepsTheView();
    void actionsDriveTheViewAndAreSaved();
    void mouseReachesTheViewThroughTheWidget();
    void playsAndShowsKfm();

private:
    QString kfm() const;
};

void TestWorkspace::initTestCase()
{
    initCodecs();
    QProject::init();
}

QString TestWorkspace::kfm() const
{
    for (const QString& def : realDataFiles({ QStringLiteral("def") }))
        if (def.endsWith(QLatin1String("/fanyer__mugen/chars/kfm/kfm.def")))
            return def;
    return QString();
}

void TestWorkspace::hostSwitchKeepsTheView()
{
    WorkspaceWindow shown;
    QConfigManager& config = shown.config;
    QAnimSpriteWorkspace& workspace = *shown.workspace;
    QVERIFY(qobject_cast<QRenderWidget*>(workspace.view()));
    QCOMPARE(workspace.statusText(), QStringLiteral("Native mode"));
    QSprRender* renderer = workspace.renderer();
    QCOMPARE(renderer->crossPos(), QPoint(150, 250));
    renderer->setZoom(5);
    renderer->setCrossPos(310, 420);

    QSignalSpy status(&workspace, &QAnimSpriteWorkspace::statusChanged);
    config[QStringLiteral("use_opengl")] = true;
    workspace.reconfig();
    QVERIFY(qobject_cast<QOGLRenderWidget*>(workspace.view()));
    QCOMPARE(workspace.statusText(), QStringLiteral("OpenGL mode"));
    QCOMPARE(workspace.renderer(), renderer);
    QCOMPARE(renderer->crossPos(), QPoint(310, 420));
    QCOMPARE(int(renderer->zoomIndex()), 5);
    QCOMPARE(renderer->host(), dynamic_cast<QRenderHost*>(workspace.view()));
    config[QStringLiteral("use_opengl")] = false;
    workspace.reconfig();
    QVERIFY(qobject_cast<QRenderWidget*>(workspace.view()));
    QCOMPARE(status.count(), 2);
    QCOMPARE(renderer->crossPos(), QPoint(310, 420));
}

void TestWorkspace::actionsDriveTheViewAndAreSaved()
{
    WorkspaceWindow shown;
    const QConfigManager& config = shown.config;
    {
        QAnimSpriteWorkspace& workspace = *shown.workspace;
        QCOMPARE(workspace.actions().size(), 10);
        QVERIFY(!workspace.action(QStringLiteral("view_center_axis"))->isCheckable());
        QVERIFY(!workspace.action(QStringLiteral("view_guide_lines"))->isChecked());
        workspace.action(QStringLiteral("view_attack_clsn"))->setChecked(false);
        workspace.action(QStringLiteral("view_rulers"))->setChecked(false);
        QVERIFY(shown.show());
        workspace.action(QStringLiteral("view_center_axis"))->trigger();
        QCOMPARE(workspace.renderer()->crossPos(),
                 QPoint(workspace.view()->width() / 2, workspace.view()->height() / 2));
        // Rulers off: the top band shows the background, not the white strip.
        const QImage picture = workspace.view()->grab().toImage();
        QVERIFY(picture.pixelColor(100, 15) != QColor(Qt::white));
        workspace.renderer()->setZoom(4);
        shown.workspace.reset(); // the settings are written back at the end
    }
    QCOMPARE(config.value(QStringLiteral("show_clsn1")).toBool(), false);
    QCOMPARE(config.value(QStringLiteral("show_rulers")).toBool(), false);
    QCOMPARE(config.value(QStringLiteral("show_clsn2")).toBool(), true);
    QCOMPARE(config.value(QStringLiteral("zoom_level")).toInt(), 4);
}

void TestWorkspace::mouseReachesTheViewThroughTheWidget()
{
    WorkspaceWindow shown;
    QAnimSpriteWorkspace& workspace = *shown.workspace;
    QVERIFY(shown.show());
    const QPoint before = workspace.renderer()->crossPos();
    QTest::mousePress(workspace.view(), Qt::LeftButton, Qt::NoModifier, QPoint(400, 300));
    QMouseEvent move(QEvent::MouseMove, QPointF(420, 290), workspace.view()->mapToGlobal(QPointF(420, 290)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(workspace.view(), &move);
    QTest::mouseRelease(workspace.view(), Qt::LeftButton, Qt::NoModifier, QPoint(420, 290));
    QCOMPARE(workspace.renderer()->crossPos(), before + QPoint(20, -10));
    QCOMPARE(workspace.view()->cursor().shape(), Qt::OpenHandCursor);
}

void TestWorkspace::playsAndShowsKfm()
{
    PF_REQUIRE_REALDATA();
    const QString def = kfm();
    if (def.isEmpty())
        QSKIP("kfm not among the real files");
    WorkspaceWindow shown;
    QAnimSpriteWorkspace& workspace = *shown.workspace;
    QProject project;
    QVERIFY(project.open(def, 0, false, false));
    workspace.setProject(&project);
    QVERIFY(shown.show());
    QSprRender* view = workspace.renderer();

    // A sprite with rulers and crosshairs, zoomed in.
    view->pause(true);
    view->setRenderMode(RenderSprite);
    view->setIndex(unsigned(project.sprites()->find(0, 0, 0)));
    view->setZoom(3);
    view->setCrossPos(320, 300);
    view->pause(false);
    view->updatePos();
    QVERIFY(screenshots::save(workspace.view()->grab(), QStringLiteral("sprite-rulers.png")));

    // A frame of the punch with its boxes, one of them selected.
    view->pause(true);
    view->setRenderMode(RenderAnimation);
    view->setCrossVisibility(true, true);
    view->setIndex(unsigned(project.animations()->find(0, 200)));
    view->setFrame(2);
    view->setZoom(3);
    view->setCrossPos(300, 420);
    view->updateBounds();
    QVERIFY(view->clsns().size() >= 2);
    view->selectCLSN(0);
    view->pause(false);
    view->updatePos();
    QVERIFY(screenshots::save(shown.window.grab(), QStringLiteral("frame-boxes.png")));

    // Playback in the window until a stop from the event loop.
    view->setFrame(0);
    QSignalSpy frames(&workspace, &QAnimSpriteWorkspace::frameChanged);
    QSignalSpy fps(&workspace, &QAnimSpriteWorkspace::fpsChanged);
    QTimer::singleShot(400, &workspace, &QAnimSpriteWorkspace::stop);
    workspace.play();
    QVERIFY(!workspace.isPlaying());
    QVERIFY(frames.count() >= 2);
    QVERIFY(fps.count() >= 20);
}

QTEST_MAIN(TestWorkspace)
#include "tst_workspace.moc"
