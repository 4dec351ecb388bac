// Collision boxes edited with the mouse on a view without a window: every
// step lands in the AIR text with the right counts and indices, and undo
// gives the bytes back.
#include "tst_render.h"

#include "renderkit.h"

#include "model/qanimation.h"
#include "model/qanimationframe.h"
#include "model/qanimations.h"
#include "model/qcollisionbox.h"
#include "model/qproject.h"
#include "render/qimagerenderhost.h"
#include "render/qsprrender.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QTextDocument>
#include <QtTest>

namespace {

const char* const airText = "[Begin Action 0]\n"
                            "Clsn2Default: 1\n"
                            "  Clsn2[0] = -10, -60, 10, 0\n"
                            "0,0, 0,0, 5\n"
                            "0,1, 0,0, 5\n"
                            "\n"
                            "[Begin Action 1]\n"
                            "0,0, 0,0, 5\n";

/// A project whose AIR is `airText`, and the view on its action 0, frame 1,
/// with the axis at 200, 200 and zoom 2x.
struct BoxBench
{
    QProject project;
    QSprRender view;
    QImageRenderHost host { &view, QSize(400, 400) };

    BoxBench()
    {
        document()->setPlainText(QString::fromLatin1(airText));
        plainView(view, project.sprites());
        view.setAnimations(project.animations());
        view.setRenderMode(RenderAnimation);
        view.setCrossPos(200, 200);
        view.setZoom(3);
        show(0, 1);
    }
    QTextDocument* document() const { return project.animationText()->document(); }
    QString text() const { return document()->toPlainText(); }
    void show(int action, int frame)
    {
        view.setIndex(unsigned(action));
        view.setFrame(unsigned(frame));
    }
    QPoint centreOf(int record) const { return view.clsns().at(record).rect.center(); }
};

} // namespace

void TestRender::boxesAreEditedWithTheMouse()
{
    QProject::init();
    BoxBench bench;
    QStringList history { bench.text() };
    // Frame 1 has no Clsn2 of its own: the default of frame 0 shows.
    QCOMPARE(bench.view.clsns().size(), 1);
    QCOMPARE(bench.view.clsns().at(0).type, cbtClsn2Default);
    QCOMPARE(bench.view.clsns().at(0).rect, QRect(QPoint(180, 80), QPoint(221, 201)));

    // Create: a drag of 20 screen pixels at 2x from the point 10, -10.
    bench.view.clsnCreationMode(true, cbtClsn2);
    mouseDrag(bench.view, QPoint(221, 181), QPoint(241, 201));
    QVERIFY(bench.text().contains(QLatin1String("Clsn2: 1\n  Clsn2[0] = 10, -10, 20, 0\n0,1, 0,0, 5")));
    history << bench.text();
    // A click without a drag makes nothing; the right button ends the mode.
    QSignalSpy exits(&bench.view, &QSprRender::clsnModeExit);
    mouseDrag(bench.view, QPoint(300, 300), QPoint(300, 300), 1);
    QCOMPARE(bench.text(), history.last());
    mousePress(bench.view, QPoint(300, 300), Qt::RightButton);
    mouseRelease(bench.view, QPoint(300, 300), Qt::RightButton);
    QCOMPARE(exits.count(), 1);
    QVERIFY(!bench.view.isCreatingCLSN());
    // The frame's own box hides the default one.
    QCOMPARE(bench.view.clsns().size(), 1);
    QCOMPARE(bench.view.clsns().at(0).type, cbtClsn2);

    // Move: 8 right and 4 up on screen is 4, -2 in the file.
    mouseDrag(bench.view, bench.centreOf(0), bench.centreOf(0) + QPoint(8, -4));
    QVERIFY2(bench.text().contains(QLatin1String("  Clsn2[0] = 14, -12, 24, -2\n")), qPrintable(bench.text()));
    history << bench.text();

    // Resize by each sizer, 4 screen pixels (2 in the file) outward and back in.
    const char* const grown[8] = { "12, -14, 24, -2", "14, -14, 24, -2", "14, -14, 26, -2", "14, -12, 26, -2",
                                   "12, -12, 24, -2", "12, -12, 24, 0",  "14, -12, 24, 0",  "14, -12, 26, 0" };
    const QPoint outward[8] = { { -4, -4 }, { 0, -4 }, { 4, -4 }, { 4, 0 }, { -4, 0 }, { -4, 4 }, { 0, 4 }, { 4, 4 } };
    for (int i = 0; i < 8; ++i) {
        bench.view.selectCLSN(0);
        const QPoint sizer = bench.view.sizers()[i];
        QCOMPARE(bench.view.hitTest(sizer), QRenderElement(ElementSizerTL + i));
        mouseDrag(bench.view, sizer, sizer + outward[i]);
        QVERIFY2(bench.text().contains(QStringLiteral("  Clsn2[0] = %1\n").arg(QLatin1String(grown[i]))),
                 qPrintable(QStringLiteral("sizer %1:\n%2").arg(i).arg(bench.text())));
        history << bench.text();
        bench.view.selectCLSN(0);
        const QPoint back = bench.view.sizers()[i];
        mouseDrag(bench.view, back, back - outward[i]);
        QVERIFY2(bench.text().contains(QLatin1String("  Clsn2[0] = 14, -12, 24, -2\n")),
                 qPrintable(QStringLiteral("sizer %1 back:\n%2").arg(i).arg(bench.text())));
        history << bench.text();
    }

    // Type change: the Clsn2 box becomes a Clsn1 box, declared in its place in the order.
    bench.view.selectCLSN(0);
    bench.view.changeCLSNType(false);
    QVERIFY2(bench.text().contains(QLatin1String("Clsn1: 1\n  Clsn1[0] = 14, -12, 24, -2\n")), qPrintable(bench.text()));
    QVERIFY(!bench.text().contains(QLatin1String("Clsn2[0] = 14")));
    history << bench.text();

    // Copy to action 1's frame; text of a whole action is refused.
    int clsn1 = -1;
    for (int i = 0; i < bench.view.clsns().size(); ++i)
        if (bench.view.clsns().at(i).type == cbtClsn1)
            clsn1 = i;
    QVERIFY(clsn1 >= 0);
    bench.view.selectCLSN(clsn1);
    QVERIFY(bench.view.copyCLSNs());
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("Clsn1: 1\n  Clsn1[0] = 14, -12, 24, -2\n"));
    bench.show(1, 0);
    QVERIFY(bench.view.pasteCLSNs());
    QVERIFY2(bench.text().endsWith(QLatin1String("[Begin Action 1]\nClsn1: 1\n  Clsn1[0] = 14, -12, 24, -2\n0,0, 0,0, 5\n")),
             qPrintable(bench.text()));
    history << bench.text();
    QGuiApplication::clipboard()->setText(QStringLiteral("[Begin Action 5]\nClsn1: 1\n  Clsn1[0] = 1, 2, 3, 4\n"));
    QVERIFY(!bench.view.pasteCLSNs());

    // Delete with the key.
    bench.show(0, 1);
    bench.view.selectCLSN(clsn1);
    QKeyEvent del(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    bench.view.keyPressed(&del);
    QVERIFY2(!bench.text().contains(QLatin1String("14, -12, 24, -2\n0,1")), qPrintable(bench.text()));
    // The declaration goes with its last box: an empty one would hide the defaults from the frame.
    QVERIFY2(!bench.text().contains(QLatin1String("Clsn1: 0")), qPrintable(bench.text()));
    history << bench.text();

    // Each step above is one undo step of the text.
    for (int i = int(history.size()) - 2; i >= 0; --i) {
        bench.document()->undo();
        QCOMPARE(bench.text(), history.at(i));
    }
    QCOMPARE(bench.text(), QString::fromLatin1(airText));
    // The view follows the undone text.
    QCOMPARE(bench.view.clsns().size(), 1);
    QCOMPARE(bench.view.clsns().at(0).type, cbtClsn2Default);
}

void TestRender::overlappingBoxesCycleAndDefaultsEdit()
{
    QProject::init();
    BoxBench bench;
    // Moving the inherited default box edits the default declared above frame 0.
    mouseDrag(bench.view, QPoint(200, 150), QPoint(204, 150));
    QVERIFY2(bench.text().contains(QLatin1String("Clsn2Default: 1\n  Clsn2[0] = -8, -60, 12, 0\n0,0")),
             qPrintable(bench.text()));

    // Two boxes over one point: each click focuses the next. The new Clsn1 box
    // is listed first and has the focus, so the first click goes on to the default.
    bench.view.clsnCreationMode(true, cbtClsn1);
    mouseDrag(bench.view, QPoint(190, 140), QPoint(230, 180));
    bench.view.clsnCreationMode(false, cbtClsn1);
    QCOMPARE(bench.view.clsns().size(), 2);
    const QPoint both(205, 160);
    QList<int> selected;
    for (int click = 0; click < 3; ++click) {
        mouseDrag(bench.view, both, both, 1);
        for (int i = 0; i < bench.view.clsns().size(); ++i)
            if (bench.view.clsns().at(i).selected)
                selected << i;
    }
    QCOMPARE(selected, QList<int>({ 1, 0, 1 }));

    // Arrow keys move the selection in the file at once.
    const QString before = bench.text();
    QKeyEvent right(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
    bench.view.keyPressed(&right);
    QVERIFY(bench.text() != before);
    QVERIFY2(bench.text().contains(QLatin1String("Clsn2[0] = -7, -60, 13, 0")), qPrintable(bench.text()));
}
