#include "tst_animations.h"

#include "animkit.h"
#include "qrecordingprompt.h"

#include "model/qanimationframe.h"
#include "model/qcollisionbox.h"
#include "model/qcollisionboxes.h"
#include "model/qinterframeelement.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTextBlock>
#include <QTextDocument>
#include <QtTest>

using animkit::Air;

namespace {

const QString twoActions = QStringLiteral("; Stand\n" // 0
                                          "[Begin Action 20]\n" // 1
                                          "Clsn2: 1\n" // 2
                                          " Clsn2[0] = -1,-2, 3,4\n" // 3
                                          "20,0, 0,0, 5\n" // 4
                                          "20,1, 0,0, 5\n" // 5
                                          "\n" // 6
                                          "[Begin Action 0]\n" // 7
                                          "0,0, 0,0, -1\n"); // 8

QList<int> numbers(const QAnimations& model)
{
    QList<int> list;
    for (const QAnimation* action : model.animations())
        list.append(action->number());
    return list;
}

/// Runs `edit`, a number of model operations, and checks the model against a
/// fresh one; then that each operation was one undo step, undoing them all.
template <class Edit> void undoSteps(Air& air, const char* what, int operations, Edit edit)
{
    QTextDocument* document = air.editor->document();
    const QString before = air.text();
    edit();
    QVERIFY2(animkit::describe(*air.model) == animkit::describeFresh(air.text()), what);
    const QString after = air.text();
    for (int i = 0; i < operations; ++i)
        document->undo();
    QVERIFY2(air.text() == before, what);
    QVERIFY2(!document->isUndoAvailable(), what);
    QVERIFY2(animkit::describe(*air.model) == animkit::describeFresh(before), what);
    while (document->isRedoAvailable())
        document->redo();
    QVERIFY2(air.text() == after, what);
    while (document->isUndoAvailable())
        document->undo();
}

} // namespace

void TestAnimations::actionsEditedThroughTheText()
{
    Air air(twoActions);
    QAnimations& model = *air.model;
    QCOMPARE(numbers(model), (QList<int> { 20, 0 }));
    QCOMPARE(model.at(0)->nameText(), QStringLiteral("Stand"));
    QCOMPARE(model.at(0)->text(), twoActions.section(QLatin1Char('\n'), 0, 5));

    undoSteps(air, "add", 1, [&] {
        QAnimation* added = model.add(5);
        QCOMPARE(added, model.at(2));
        QCOMPARE(added->number(), 5);
        QVERIFY(air.text().endsWith(QLatin1String("0,0, 0,0, -1\n\n[Begin Action 5]\n")));
    });
    undoSteps(air, "insert", 2, [&] {
        QCOMPARE(model.insert(0, 7)->number(), 7);
        QCOMPARE(numbers(model), (QList<int> { 7, 20, 0 }));
        QVERIFY(air.text().startsWith(QLatin1String("[Begin Action 7]\n; Stand\n[Begin Action 20]\n")));
        QCOMPARE(model.at(1)->nameText(), QStringLiteral("Stand"));
        QAnimation* appended = model.insert(9, 8); // past the end it appends
        QCOMPARE(appended, model.at(3));
    });
    undoSteps(air, "remove", 1, [&] {
        model.remove(0);
        QCOMPARE(numbers(model), (QList<int> { 0 }));
        QCOMPARE(air.text(), QStringLiteral("[Begin Action 0]\n0,0, 0,0, -1\n"));
        model.remove(5); // out of range: nothing
    });
    undoSteps(air, "move down", 1, [&] {
        model.move(0, 1);
        QCOMPARE(numbers(model), (QList<int> { 0, 20 }));
        QCOMPARE(model.at(1)->nameText(), QStringLiteral("Stand"));
        QCOMPARE(model.at(1)->frameCount(), 2);
        QCOMPARE(model.at(1)->frame(0)->collisionBoxes(cbtClsn2)->count(), 1);
    });
    undoSteps(air, "move up", 1, [&] {
        model.move(1, 0);
        QCOMPARE(numbers(model), (QList<int> { 0, 20 }));
        QCOMPARE(model.at(0)->frame(0)->time(), -1);
    });
    undoSteps(air, "duplicate keeping the number", 1, [&] {
        QAnimation* copy = model.duplicate(0, -1);
        QCOMPARE(copy, model.at(1));
        QCOMPARE(numbers(model), (QList<int> { 20, 20, 0 }));
        QCOMPARE(model.find(0, 20), 0); // the first of the two
        QCOMPARE(model.find(1, 20), 1);
        QCOMPARE(copy->nameText(), QStringLiteral("Stand"));
        QCOMPARE(
            copy->frame(0)->collisionBoxes(cbtClsn2)->at(0)->rect(), QRect(QPoint(-1, -2), QPoint(3, 4)));
    });
    undoSteps(air, "duplicate with a number", 1, [&] {
        QAnimation* copy = model.duplicate(1, 30);
        QCOMPARE(copy, model.at(2));
        QCOMPARE(numbers(model), (QList<int> { 20, 0, 30 }));
        QCOMPARE(model.at(2)->frame(0)->time(), -1);
        QCOMPARE(model.duplicate(9, 1), nullptr);
    });
    undoSteps(air, "auto-organize", 4, [&] {
        model.add(10);
        model.duplicate(0, 0);
        model.add(-5);
        QCOMPARE(numbers(model), (QList<int> { 20, 0, 0, 10, -5 }));
        model.autoOrganize();
        QCOMPARE(numbers(model), (QList<int> { -5, 0, 0, 10, 20 }));
        QCOMPARE(model.at(1)->frameCount(), 2); // equal numbers keep their order: the copy came first
        QCOMPARE(model.at(2)->frameCount(), 1);
    });
    undoSteps(air, "number and text", 2, [&] {
        model.at(1)->setNumber(42);
        QCOMPARE(air.line(7), QStringLiteral("[Begin Action 42]"));
        model.at(0)->setText(QStringLiteral("  [Begin Action 1]\n1,1, 0,0, 1\n\n\n"));
        QCOMPARE(numbers(model), (QList<int> { 1, 42 }));
        QCOMPARE(model.at(0)->text(), QStringLiteral("[Begin Action 1]\n1,1, 0,0, 1"));
    });

    QCOMPARE(model.find(0, QStringLiteral("Stand")), 0);
    QCOMPARE(model.find(0, QStringLiteral("0")), 1);
    QCOMPARE(model.find(0, QStringLiteral("stand")), -1);
    QCOMPARE(model.find(2, 0), -1);

    // Copy and paste go through the clipboard.
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    QVERIFY(!model.paste(0));
    model.copy(0);
    QCOMPARE(clipboard->text(), model.at(0)->text());
    undoSteps(air, "paste", 1, [&] {
        QVERIFY(model.paste(1));
        QCOMPARE(numbers(model), (QList<int> { 20, 20, 0 }));
        QCOMPARE(model.at(1)->nameText(), QStringLiteral("Stand"));
        QCOMPARE(model.at(1)->frameCount(), 2);
    });
    Air empty;
    QVERIFY(empty.model->paste(3));
    QCOMPARE(numbers(*empty.model), (QList<int> { 20 }));
    QCOMPARE(empty.model->at(0)->frame(0)->collisionBoxes(cbtClsn2)->count(), 1);
}

void TestAnimations::framesEditedThroughTheText()
{
    Air air(twoActions);
    QAnimations& model = *air.model;
    QAnimation* stand = model.at(0);

    undoSteps(air, "add frame", 3, [&] {
        QAnimationFrame* frame = stand->addFrame();
        QCOMPARE(frame, stand->frame(2));
        QCOMPARE(air.line(6), QAnimationFrame::emptyFrame);
        QCOMPARE(frame->spriteGroup(), -1);
        QCOMPARE(frame->time(), 10);
        // An action without frames takes it behind its header.
        QAnimation* empty = model.add(3);
        QCOMPARE(empty->addFrame()->line(), empty->line() + 1);
    });
    undoSteps(air, "insert frame", 2, [&] {
        QAnimationFrame* frame = stand->insertFrame(0);
        QCOMPARE(stand->frame(0), frame);
        QCOMPARE(frame->line(), 2); // above the first frame's boxes, which stay with it
        QCOMPARE(stand->frame(1)->collisionBoxes(cbtClsn2)->line(), 3);
        QCOMPARE(frame->collisionBoxes(cbtClsn2), nullptr);
        QAnimationFrame* appended = stand->insertFrame(7);
        QCOMPARE(appended, stand->frame(3));
    });
    undoSteps(air, "frame values", 6, [&] {
        QAnimationFrame* frame = stand->frame(1);
        frame->setScaleX(2);
        QCOMPARE(air.line(5), QStringLiteral("20,1, 0,0, 5, , , 2"));
        frame->setScaleY(0.5);
        frame->setAngle(10);
        QCOMPARE(air.line(5), QStringLiteral("20,1, 0,0, 5, , , 2, 0.5, 10"));
        frame->setScaleFactor(QPointF(1, 1));
        frame->setAngle(0);
        frame->setOffset(QPoint(-3, 7));
        QCOMPARE(air.line(5), QStringLiteral("20,1, -3,7, 5"));
    });
    undoSteps(air, "inter-frame lines", 3, [&] {
        QAnimationFrame* frame = stand->frame(0);
        frame->setInterElem(ifeBlend, true);
        frame->setInterElem(ifeBlend, true); // already there: nothing
        frame->setInterElem(ifeLoopStart, true);
        QCOMPARE(air.line(4), QStringLiteral("Interpolate Blend"));
        QCOMPARE(air.line(5), QStringLiteral("LoopStart"));
        QCOMPARE(frame->line(), 6); // below the declarations, directly above the frame
        QCOMPARE(frame->interFrameElements().size(), 2);
        frame->setInterElem(ifeBlend, false);
        QVERIFY(!frame->checkInterElem(ifeBlend));
        QVERIFY(frame->checkInterElem(ifeLoopStart));
    });

    // What copying a frame's boxes takes, and pasting them on another frame.
    QAnimationFrame* first = stand->frame(0);
    QCOMPARE(
        first->selectBoxes().selectedText(), QStringLiteral("Clsn2: 1\u2029 Clsn2[0] = -1,-2, 3,4\u2029"));
    QCOMPARE(stand->frame(1)->selectBoxes().selectedText(), QString());
    const QString pasted
        = QStringLiteral("Clsn1: 2\n  Clsn1[0] = 1, 2, 3, 4\n Clsn1[1] = 5, 6\n\nClsn2Default: 1\n"
                         "  Clsn2[0] = -9, -9, 9, 9 ; comment\n");
    undoSteps(air, "insert boxes", 1, [&] {
        QAnimationFrame* second = stand->frame(1);
        second->insertBoxes(pasted);
        QCOMPARE(second->collisionBoxes(cbtClsn1)->count(), 2);
        QCOMPARE(second->collisionBoxes(cbtClsn1)->at(1)->rect(), QRect(QPoint(-1, -1), QPoint(5, 6)));
        QCOMPARE(second->collisionBoxes(cbtClsn2Default)->at(0)->rect(), QRect(QPoint(-9, -9), QPoint(9, 9)));
        QCOMPARE(second->selectBoxes().selectedText().count(QChar(QChar::ParagraphSeparator)), 5);
    });
}

void TestAnimations::boxesEditedThroughTheText()
{
    Air air(twoActions);
    QAnimationFrame* frame = air.model->at(0)->frame(0);
    undoSteps(air, "insert into a declaration", 1, [&] {
        QCollisionBox* box = frame->collisionBoxes(cbtClsn2)->insert(QRect(QPoint(3, 3), QPoint(1, 1)));
        QVERIFY(box);
        QCOMPARE(box->index(), 1);
        QCOMPARE(air.line(2), QStringLiteral("Clsn2: 2"));
        QCOMPARE(air.line(4), QStringLiteral("  Clsn2[1] = 1, 1, 3, 3"));
    });
    undoSteps(air, "box on a frame without boxes", 1, [&] {
        QAnimationFrame* second = air.model->at(0)->frame(1);
        QCollisionBox* box = second->insertBox(cbtClsn1, QRect(0, 0, 10, 20));
        QCOMPARE(box->parent()->parent(), second);
        QCOMPARE(air.line(5), QStringLiteral("Clsn1: 1"));
        QCOMPARE(air.line(6), QStringLiteral("  Clsn1[0] = 0, 0, 9, 19"));
    });
    undoSteps(air, "typing a box line", 1, [&] {
        // An author types a box line by hand between the declaration and the frame.
        QTextCursor cursor(air.editor->document());
        cursor.setPosition(air.editor->document()->findBlockByNumber(4).position());
        cursor.insertText(QStringLiteral("clsn2[9]=0,0,1,1\n"));
        QCOMPARE(air.line(2), QStringLiteral("Clsn2: 2"));
        QCOMPARE(air.line(4), QStringLiteral("  Clsn2[1] = 0, 0, 1, 1"));
    });
}

void TestAnimations::dragIsOneUndoStep()
{
    Air air(twoActions);
    QAnimationFrame* frame = air.model->at(0)->frame(0);
    QCollisionBox* box = frame->collisionBoxes(cbtClsn2)->at(0);
    frame->setOffset(QPoint(1, 1));
    const QString before = air.text();
    box->setRect(QRect(0, 0, 5, 5));
    for (int step = 1; step < 20; ++step)
        box->setRect(QRect(step, step, 5, 5), true);
    frame->setOffset(QPoint(2, 2));
    frame->setOffset(QPoint(3, 3), true);
    QCOMPARE(air.line(3), QStringLiteral("  Clsn2[0] = 19, 19, 23, 23"));
    QCOMPARE(air.line(4), QStringLiteral("20,0, 3,3, 5"));
    air.editor->document()->undo(); // the offset drag
    QCOMPARE(air.line(4), QStringLiteral("20,0, 1,1, 5"));
    QCOMPARE(box->rect(), QRect(19, 19, 5, 5));
    air.editor->document()->undo(); // the box drag
    QCOMPARE(air.text(), before);
    QCOMPARE(air.model->at(0)->frame(0)->collisionBoxes(cbtClsn2)->at(0)->rect(),
        QRect(QPoint(-1, -2), QPoint(3, 4)));
}

void TestAnimations::listModelFollowsTheText()
{
    Air air(twoActions);
    QAnimations& model = *air.model;
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy changedRows(&model, &QAbstractItemModel::dataChanged);
    QSignalSpy changed(&model, &QAnimations::changed);
    QCOMPARE(model.data(model.QAbstractListModel::index(0)).toString(), QStringLiteral("20 - Stand"));
    QCOMPARE(model.data(model.QAbstractListModel::index(1)).toString(), QStringLiteral("0"));

    // Typing a header in the middle of an action splits it.
    QTextCursor cursor(air.editor->document());
    cursor.setPosition(air.editor->document()->findBlockByNumber(5).position());
    cursor.insertText(QStringLiteral("[Begin Action 21]\n"));
    QCOMPARE(inserted.size(), 1);
    QCOMPARE(inserted.first().at(1).toInt(), 1);
    QCOMPARE(numbers(model), (QList<int> { 20, 21, 0 }));
    QCOMPARE(model.at(0)->frameCount(), 1);
    QCOMPARE(model.at(1)->frameCount(), 1);
    QCOMPARE(changed.size(), 1);
    QVERIFY(changed.first().first().toBool());

    // A name written through the header, a number typed over.
    model.at(1)->setNameText(QStringLiteral("Walk"));
    QCOMPARE(model.data(model.QAbstractListModel::index(1)).toString(), QStringLiteral("21 - Walk"));
    QVERIFY(!changedRows.isEmpty());
    changedRows.clear();
    cursor.setPosition(air.editor->document()->findBlockByNumber(6).position() + 16);
    cursor.insertText(QStringLiteral("5"));
    QCOMPARE(numbers(model), (QList<int> { 20, 215, 0 }));
    QCOMPARE(changedRows.size(), 1);

    // Breaking the header joins its frames to the action above.
    cursor.setPosition(air.editor->document()->findBlockByNumber(6).position());
    cursor.deleteChar();
    QCOMPARE(removed.size(), 1);
    QCOMPARE(model.at(0)->frameCount(), 2);
    QCOMPARE(animkit::describe(model), animkit::describeFresh(air.text()));

    // Unlinking leaves the text alone and the list empty; linking reads it again.
    model.linkTxt(false);
    QCOMPARE(model.count(), 0);
    model.linkTxt(true);
    QCOMPARE(model.count(), 2);
    QCOMPARE(animkit::describe(model), animkit::describeFresh(air.text()));
    Air other(QStringLiteral("[Begin Action 1]\n"));
    model.setTextEditor(other.editor.get());
    QCOMPARE(numbers(model), (QList<int> { 1 }));
    model.setTextEditor(air.editor.get());
    QCOMPARE(model.count(), 2);
}

void TestAnimations::oneFrameEditTouchesOneLine()
{
    QString text;
    int actions = 0;
    while (text.count(QLatin1Char('\n')) < 10000) {
        text += QStringLiteral(
            "; Action %1\n[Begin Action %1]\nClsn2Default: 2\n  Clsn2[0] = -10,-80, 10,0\n"
            "  Clsn2[1] = -5,-90, 5,-80\n%1,0, 0,0, 4\nClsn1: 1\n  Clsn1[0] = 0,-60, 40,-50\n"
            "%1,1, 0,0, 4\nLoopStart\n%1,2, 0,0, 4, H\n\n")
                    .arg(actions++);
    }
    Air air(text);
    QTextDocument* document = air.editor->document();
    QVERIFY(document->blockCount() >= 10000);
    QCOMPARE(air.model->count(), actions);

    QStringList before;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next())
        before.append(block.text());
    QList<QList<int>> reports;
    QObject::connect(
        document, &QTextDocument::contentsChange, [&reports](int position, int removed, int added) {
            reports.append({ position, removed, added });
        });

    QAnimationFrame* frame = air.model->at(actions / 2)->frame(1);
    const int line = frame->line();
    frame->setProperties(
        frame->sprite(), frame->offset(), 7, frame->flipFlags(), frame->blend(), frame->blendTarget());
    QCOMPARE(document->blockCount(), before.size());
    QList<int> changedLines;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        if (block.text() != before.at(block.blockNumber()))
            changedLines.append(block.blockNumber());
    }
    QCOMPARE(changedLines, QList<int> { line });
    QCOMPARE(air.line(line), QStringLiteral("%1,1, 0,0, 7").arg(actions / 2));
    QCOMPARE(reports.size(), 1);
    const QTextBlock block = document->findBlockByNumber(line);
    QVERIFY(reports.first().at(0) >= block.position());
    QVERIFY(reports.first().at(0) + reports.first().at(2) <= block.position() + block.length());
    document->undo();
    QCOMPARE(document->toPlainText(), text);
    QVERIFY(!document->isUndoAvailable());
}

void TestAnimations::fileRulesAndQuestions()
{
    QRecordingPrompt prompt;
    Air air;
    QVERIFY(air.model->isEmpty());
    QVERIFY(!air.model->canSave(0));
    QCOMPARE(prompt.entries().size(), 1);
    QCOMPARE(prompt.entries().first().kind, QStringLiteral("warning"));
    QCOMPARE(prompt.entries().first().title, QStringLiteral("Save AIR"));
    QCOMPARE(prompt.entries().first().text,
        QStringLiteral("You can't save an empty AIR because M.U.G.E.N. will not open it."));
    QVERIFY(air.model->canDiscard()); // nothing modified: nobody is asked
    QCOMPARE(prompt.count(QStringLiteral("question")), 0);

    air.model->add(0);
    QVERIFY(air.model->canSave(0));
    QVERIFY(air.model->isModified());
    prompt.script({ QPrompt::No, QPrompt::Yes });
    QVERIFY(!air.model->canDiscard());
    QVERIFY(air.model->canDiscard());
    QCOMPARE(prompt.count(QStringLiteral("question")), 2);
    QCOMPARE(prompt.entries().last().title, QStringLiteral("Discard changes"));
    QCOMPARE(prompt.entries().last().text,
        QStringLiteral("Do you really want to discard the changes made in the animations?"));

    int x = 3;
    int y = 4;
    QAnimationFrame::invertAxis(x, y, 10, 20, 2);
    QCOMPARE(QPoint(x, y), QPoint(6, 4));
    QAnimationFrame::invertAxis(x, y, 10, 20, 3);
    QCOMPARE(QPoint(x, y), QPoint(3, 15));
}
