#include "tst_animations.h"

#include "animkit.h"

#include "model/qanimationframe.h"
#include "model/qcollisionbox.h"
#include "model/qcollisionboxes.h"
#include "model/qinterframeelement.h"
#include "model/qproject.h"
#include "text/qcodecs.h"

#include <QtTest>

using animkit::Air;

namespace {

/// An action around one line, the line being line 1.
QString inAction(const QString& line)
{
    return QStringLiteral("[Begin Action 7]\n") + line + QLatin1Char('\n');
}

} // namespace

void TestAnimations::initTestCase()
{
    initCodecs();
    QProject::init();
}

void TestAnimations::frameFieldsRead_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>(
        "fields"); // group,index x,y time flip blend/source/destination scaleX,scaleY angle

    QTest::newRow("five numbers") << "1,2, 3,4, 5"
                                  << "1,2 3,4 5 0 0/256/256 1,1 0";
    QTest::newRow("forever") << "-1,0, 0,0, -1"
                             << "-1,0 0,0 -1 0 0/256/256 1,1 0";
    QTest::newRow("group kept in 16 bits") << "70000,65535, 0,0, 1"
                                           << "4464,-1 0,0 1 0 0/256/256 1,1 0";
    QTest::newRow("blend, no flip") << "1,2, 3,4, 5, , A"
                                    << "1,2 3,4 5 0 1/256/256 1,1 0";
    QTest::newRow("flip and weights") << "1,2, 3,4, 5, H, AS128D64"
                                      << "1,2 3,4 5 2 1/128/64 1,1 0";
    QTest::newRow("flip both ways, any case") << "1,2, 3,4, 5, vH"
                                              << "1,2 3,4 5 3 0/256/256 1,1 0";
    QTest::newRow("flip field without v or h") << "1,2, 3,4, 5, A"
                                               << "1,2 3,4 5 0 0/256/256 1,1 0";
    QTest::newRow("A1 halves the destination") << "0,0, 0,0, 1, , A1"
                                               << "0,0 0,0 1 0 1/256/128 1,1 0";
    QTest::newRow("any two letters after a") << "0,0, 0,0, 1, , ax"
                                             << "0,0 0,0 1 0 1/256/128 1,1 0";
    QTest::newRow("a word of a") << "0,0, 0,0, 1, , add"
                                 << "0,0 0,0 1 0 1/256/256 1,1 0";
    QTest::newRow("weights in lower case") << "0,0, 0,0, 1, , as5d250"
                                           << "0,0 0,0 1 0 1/5/250 1,1 0";
    QTest::newRow("subtract") << "0,0, 0,0, 1, H, s"
                              << "0,0 0,0 1 2 2/256/256 1,1 0";
    QTest::newRow("another word blends nothing") << "0,0, 0,0, 1, , Sub"
                                                 << "0,0 0,0 1 0 0/256/256 1,1 0";
    QTest::newRow("scale alone") << "0,0, 0,0, 1, , , 2"
                                 << "0,0 0,0 1 0 0/256/256 2,1 0";
    QTest::newRow("all fields") << "0,0, 0,0, 1, V, S, 0.5, 1.5, 90"
                                << "0,0 0,0 1 1 2/256/256 0.5,1.5 90";
    QTest::newRow("empty scale fields") << "0,0, 0,0, 1, , , , , -45"
                                        << "0,0 0,0 1 0 0/256/256 1,1 -45";
    QTest::newRow("a word for a number is skipped") << "0,0, 0,0, 1, , , x, 3"
                                                    << "0,0 0,0 1 0 0/256/256 1,3 0";
    QTest::newRow("comment behind") << "5,6, -7,8, 9 ; a comment"
                                    << "5,6 -7,8 9 0 0/256/256 1,1 0";
}

void TestAnimations::frameFieldsRead()
{
    QFETCH(QString, line);
    QFETCH(QString, fields);
    Air air(inAction(line));
    const QAnimationFrame* frame = air.frameAt(1);
    QVERIFY(frame);
    QCOMPARE(animkit::frameFields(frame), fields);
    QCOMPARE(frame->parent(), air.model->at(0));

    // Writing the same values back changes nothing, not even the spacing.
    QAnimationFrame* same = air.frameAt(1);
    same->setProperties(same->sprite(), same->offset(), same->time(), same->flipFlags(), same->blend(),
        same->blendTarget(), same->scaleFactor(), same->angle());
    QCOMPARE(air.line(1), line);
    QVERIFY(!air.editor->document()->isUndoAvailable());
}

void TestAnimations::frameLinesWritten_data()
{
    QTest::addColumn<int>("flip");
    QTest::addColumn<int>("blend");
    QTest::addColumn<int>("source");
    QTest::addColumn<int>("destination");
    QTest::addColumn<double>("scaleX");
    QTest::addColumn<double>("scaleY");
    QTest::addColumn<double>("angle");
    QTest::addColumn<QString>("line");

    QTest::newRow("plain") << 0 << 0 << 256 << 256 << 1.0 << 1.0 << 0.0 << "1,2, 3,4, 5";
    QTest::newRow("flips") << 3 << 0 << 256 << 256 << 1.0 << 1.0 << 0.0 << "1,2, 3,4, 5, HV";
    QTest::newRow("vertical") << 1 << 0 << 256 << 256 << 1.0 << 1.0 << 0.0 << "1,2, 3,4, 5, V";
    QTest::newRow("add") << 0 << 1 << 256 << 256 << 1.0 << 1.0 << 0.0 << "1,2, 3,4, 5, , A";
    QTest::newRow("add half") << 2 << 1 << 256 << 128 << 1.0 << 1.0 << 0.0 << "1,2, 3,4, 5, H, A1";
    QTest::newRow("add weights") << 0 << 1 << 100 << 20 << 1.0 << 1.0 << 0.0 << "1,2, 3,4, 5, , AS100D20";
    QTest::newRow("subtract") << 0 << 2 << 256 << 256 << 1.0 << 1.0 << 0.0 << "1,2, 3,4, 5, , S";
    QTest::newRow("scale only") << 0 << 0 << 256 << 256 << 2.0 << 1.0 << 0.0 << "1,2, 3,4, 5, , , 2";
    QTest::newRow("scale y") << 0 << 0 << 256 << 256 << 1.0 << 0.25 << 0.0 << "1,2, 3,4, 5, , , , 0.25";
    QTest::newRow("angle") << 1 << 2 << 256 << 256 << 1.0 << 1.0 << 33.5 << "1,2, 3,4, 5, V, S, , , 33.5";
    QTest::newRow("scale near one") << 0 << 0 << 256 << 256 << 1.0 + 1e-13 << 1.0 << 0.0 << "1,2, 3,4, 5";
}

void TestAnimations::frameLinesWritten()
{
    QFETCH(int, flip);
    QFETCH(int, blend);
    QFETCH(int, source);
    QFETCH(int, destination);
    QFETCH(double, scaleX);
    QFETCH(double, scaleY);
    QFETCH(double, angle);
    QFETCH(QString, line);

    Air air(inAction(QStringLiteral("0,0, 0,0, 1, H, S, 3, 3, 3")));
    QAnimationFrame* frame = air.frameAt(1);
    frame->setProperties(QSubItem(1, 2), QPoint(3, 4), 5, unsigned(flip), QAnimationFrameBlend(blend),
        QBlendTarget { qint16(source), qint16(destination) }, QPointF(scaleX, scaleY), angle);
    QCOMPARE(air.line(1), line);
    // The written line reads back as the same frame.
    QCOMPARE(animkit::describe(*air.model), animkit::describeFresh(air.text()));

    // The short form keeps scale and angle.
    frame->setProperties(QSubItem(9, 9), QPoint(3, 4), 5, unsigned(flip), QAnimationFrameBlend(blend),
        QBlendTarget { qint16(source), qint16(destination) });
    QCOMPARE(frame->scaleX(), scaleX);
    QCOMPARE(frame->angle(), angle);
    QVERIFY(air.line(1).startsWith(QLatin1String("9,9, 3,4, 5")));
}

void TestAnimations::boxesAndDeclarations()
{
    // A count that is wrong in the file stays as it is on loading.
    const QString text = QStringLiteral("[Begin Action 0]\n"
                                        "Clsn2: 5\n"
                                        " Clsn2[0] = 10, 20, -10, 0\n"
                                        "  clsn2[7]=1,2,3,4\n"
                                        " Clsn2[1] = -5, -5, 5, -9\n"
                                        "0,0, 0,0, 5\n");
    Air air(text);
    QCOMPARE(air.text(), text);
    QAnimationFrame* frame = air.frameAt(5);
    QCollisionBoxes* boxes = frame->collisionBoxes(cbtClsn2);
    QVERIFY(boxes);
    QCOMPARE(boxes->declaredCount(), 5);
    QCOMPARE(boxes->count(), 3);
    // Left above right and bottom above top are put right in the model; the text waits for a rewrite.
    QCOMPARE(boxes->at(0)->rect(), QRect(QPoint(-10, 0), QPoint(10, 20)));
    QCOMPARE(boxes->at(2)->rect(), QRect(QPoint(-5, -9), QPoint(5, -5)));
    QCOMPARE(boxes->at(1)->index(), 1);
    QCOMPARE(frame->activeBoxes(true), boxes);
    QCOMPARE(frame->activeBoxes(false), nullptr);
    air.model->checkErrors();
    QCOMPARE(air.model->messages()->count(), 1); // 5 declared, 3 follow

    // A fourth box: the count and every index follow.
    QVERIFY(frame->insertBox(cbtClsn2, QRect(QPoint(1, 1), QPoint(2, 2))));
    QCOMPARE(air.text(),
        QStringLiteral("[Begin Action 0]\n"
                       "Clsn2: 4\n"
                       " Clsn2[0] = 10, 20, -10, 0\n"
                       "  Clsn2[1] = 1, 2, 3, 4\n"
                       "  Clsn2[2] = -5, -9, 5, -5\n"
                       "  Clsn2[3] = 1, 1, 2, 2\n"
                       "0,0, 0,0, 5\n"));
    air.model->checkErrors();
    QCOMPARE(air.model->messages()->count(), 0);

    // Declarations keep the order Clsn1Default, Clsn2Default, Clsn1, Clsn2.
    frame->insertBox(cbtClsn1, QRect(0, 0, 2, 2));
    frame->insertBox(cbtClsn2Default, QRect(0, 0, 3, 3));
    frame->insertBox(cbtClsn1Default, QRect(0, 0, 4, 4));
    QStringList declarations;
    for (int line = 0; line < air.editor->document()->blockCount(); ++line) {
        if (const QTextElement* element = air.editor->elementAt(line);
            element && element->groupType() == animationElement::declaration)
            declarations.append(air.line(line));
    }
    QCOMPARE(declarations,
        (QStringList { QStringLiteral("Clsn1Default: 1"), QStringLiteral("Clsn2Default: 1"),
            QStringLiteral("Clsn1: 1"), QStringLiteral("Clsn2: 4") }));
    QCOMPARE(frame->collisionBoxes(cbtClsn1Default)->at(0)->rect(), QRect(0, 0, 4, 4));
    QCOMPARE(frame->activeBoxes(false), frame->collisionBoxes(cbtClsn1));

    // A default box is written with the plain word, as the engine reads it.
    QVERIFY(air.text().contains(QLatin1String("Clsn1Default: 1\n  Clsn1[0] = 0, 0, 3, 3\n")));

    // A box drags, removes and clears through its lines; the count follows.
    QCollisionBox* first = frame->collisionBoxes(cbtClsn2)->at(0);
    first->setRect(QRect(QPoint(5, 6), QPoint(7, 8)));
    QVERIFY(air.text().contains(QLatin1String("Clsn2: 4\n  Clsn2[0] = 5, 6, 7, 8\n")));
    first->remove(true);
    QVERIFY(air.text().contains(
        QLatin1String("Clsn2: 3\n  Clsn2[0] = 1, 2, 3, 4\n  Clsn2[1] = -5, -9, 5, -5\n")));
    frame->collisionBoxes(cbtClsn2)->clear();
    QVERIFY(!air.text().contains(QLatin1String("Clsn2: ")));
    QCOMPARE(frame->collisionBoxes(cbtClsn2), nullptr);
    QCOMPARE(frame->activeBoxes(true), frame->collisionBoxes(cbtClsn2Default));
    QCOMPARE(animkit::describe(*air.model), animkit::describeFresh(air.text()));
}

void TestAnimations::linesBelongToTheRightFrame()
{
    Air air(QStringLiteral("[Begin Action 1]\n" // 0
                           "Clsn2Default: 1\n" // 1
                           " Clsn2[0] = 0,0,1,1\n" // 2
                           "LoopStart\n" // 3
                           "loopstart\n" // 4: a second one has no frame
                           "Interpolate Offset\n" // 5
                           "0,0, 0,0, 1\n" // 6
                           "Clsn2: 1\n" // 7: replaced by the nearer one
                           " Clsn2[0] = 0,0,2,2\n" // 8
                           "Clsn2: 1\n" // 9
                           " Clsn2[0] = 0,0,3,3\n" // 10
                           "Interpolate Angle\n" // 11
                           "0,0, 0,0, 2\n" // 12
                           "0,0, 0,0, 3\n" // 13
                           "Interpolate Scale\n" // 14: below the last frame
                           "[Other]\n" // 15: another group ends the action
                           "0,0, 0,0, 4\n")); // 16
    QAnimation* action = air.model->at(0);
    QCOMPARE(air.model->count(), 1);
    QCOMPARE(action->frameCount(), 3);
    QAnimationFrame* first = air.frameAt(6);
    QAnimationFrame* second = air.frameAt(12);
    QCOMPARE(first->interFrameElements().size(), 2);
    QVERIFY(first->checkInterElem(ifeLoopStart));
    QVERIFY(first->checkInterElem(ifeOffset));
    QCOMPARE(static_cast<QInterFrameElement*>(air.editor->elementAt(4))->parent(), nullptr);
    QCOMPARE(action->loopStart(), 0);
    QCOMPARE(second->collisionBoxes(cbtClsn2)->line(), 9);
    QCOMPARE(static_cast<QCollisionBoxes*>(air.editor->elementAt(7))->parent(), nullptr);
    QCOMPARE(second->activeBoxes(false), nullptr);
    QCOMPARE(air.frameAt(13)->activeBoxes(true), first->collisionBoxes(cbtClsn2Default));
    QCOMPARE(static_cast<QInterFrameElement*>(air.editor->elementAt(14))->parent(), nullptr);
    QCOMPARE(air.frameAt(16)->parent(), nullptr);
    QCOMPARE(action->totalTime(), 6);

    // Moving the loop start: the action and the old frame follow.
    first->setInterElem(ifeLoopStart, false); // the first of the two goes, the second takes its place
    QVERIFY(first->checkInterElem(ifeLoopStart));
    first->setInterElem(ifeLoopStart, false);
    QVERIFY(!first->checkInterElem(ifeLoopStart));
    air.frameAt(second->line())->setInterElem(ifeLoopStart, true);
    QCOMPARE(action->loopStart(), 1);
    QVERIFY(air.line(second->line() - 1) == QLatin1String("LoopStart"));
    QCOMPARE(animkit::describe(*air.model), animkit::describeFresh(air.text()));
    QCOMPARE(interFrameElementName(ifeScale), QStringLiteral("Interpolate Scale"));
    QCOMPARE(interFrameElementName(5), QString());
}

void TestAnimations::frameDeletionHandsOnItsBoxes()
{
    const QString text = QStringLiteral("[Begin Action 3]\n"
                                        "Clsn2: 1\n"
                                        " Clsn2[0] = 0,0,1,1\n"
                                        "Interpolate Blend\n"
                                        "0,0, 0,0, 1\n" // 4: deleted
                                        "0,0, 0,0, 2\n" // 5: has nothing of its own
                                        "Clsn2: 1\n"
                                        " Clsn2[0] = 0,0,5,5\n"
                                        "0,0, 0,0, 3\n"); // 8: has its own
    {
        Air air(text);
        QTextCursor cursor(air.editor->document());
        cursor.setPosition(air.editor->document()->findBlockByNumber(4).position());
        cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
        QAnimationFrame* heir = air.frameAt(4);
        QCOMPARE(heir->time(), 2);
        QCOMPARE(heir->collisionBoxes(cbtClsn2)->line(), 1);
        QVERIFY(heir->checkInterElem(ifeBlend));
        QCOMPARE(air.model->at(0)->frameCount(), 2);
        QCOMPARE(animkit::describe(*air.model), animkit::describeFresh(air.text()));
    }
    {
        // The heir has boxes of its own: the orphaned block stays with nobody.
        Air air(text);
        air.frameAt(4)->remove(true);
        air.frameAt(4)->remove(true);
        QAnimationFrame* last = air.frameAt(4 + 2);
        QVERIFY(last);
        QCOMPARE(last->collisionBoxes(cbtClsn2)->line(), 4);
        QCOMPARE(static_cast<QCollisionBoxes*>(air.editor->elementAt(1))->parent(), nullptr);
        QCOMPARE(animkit::describe(*air.model), animkit::describeFresh(air.text()));
        // Undo gives the frames their boxes back.
        air.editor->document()->undo();
        air.editor->document()->undo();
        QCOMPARE(air.text(), text);
        QCOMPARE(air.frameAt(4)->collisionBoxes(cbtClsn2)->line(), 1);
    }
}
