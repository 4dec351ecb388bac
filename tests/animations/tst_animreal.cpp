#include "tst_animations.h"

#include "animkit.h"
#include "clirunner.h"
#include "randomedits.h"
#include "realdata.h"

#include "model/qanimationframe.h"
#include "model/qcollisionbox.h"
#include "model/qcollisionboxes.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextDocument>
#include <QtTest>

using animkit::Air;

namespace {

void writeBytes(const QString& fileName, const QByteArray& data)
{
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(data);
}

/// The first line where two descriptions part, for a readable failure.
QString firstDifference(const QStringList& model, const QStringList& fresh)
{
    int at = 0;
    while (at < model.size() && at < fresh.size() && model.at(at) == fresh.at(at))
        ++at;
    return QStringLiteral("entry %1: the model has \"%2\", a fresh read \"%3\"")
        .arg(at)
        .arg(model.value(at), fresh.value(at));
}

/// Lines of an AIR file typed or pasted by an author.
const QStringList airLines = {
    QStringLiteral("[Begin Action 77]\n"),
    QStringLiteral("Clsn2: 2\n"),
    QStringLiteral("Clsn1Default: 1\n"),
    QStringLiteral(" Clsn2[0] = -5, -5, 5, 5\n"),
    QStringLiteral("clsn1[3]=1,2,3,4\n"),
    QStringLiteral("LoopStart\n"),
    QStringLiteral("Interpolate Scale\n"),
    QStringLiteral("1,2, 3,4, 5, H, A\n"),
    QStringLiteral("0,0, 0,0, -1\n"),
    QStringLiteral("; Name\n"),
    QStringLiteral("[Other]\n"),
    QStringLiteral("\n"),
};

/// One random edit made through the model; returns its name.
QString modelEdit(QAnimations& model, RandomEdits& random)
{
    const int actions = model.count();
    const auto pick = [&](int size) { return size > 0 ? random.bounded(size) : 0; };
    QAnimation* action = model.at(pick(actions));
    QAnimationFrame* frame = action ? action->frame(pick(action->frameCount())) : nullptr;
    const QCollisionBoxType type = QCollisionBoxType(random.bounded(collisionBoxTypeCount));
    switch (random.bounded(16)) {
    case 0:
        model.add(random.bounded(3000));
        return QStringLiteral("add");
    case 1:
        model.insert(unsigned(pick(actions + 2)), random.bounded(3000));
        return QStringLiteral("insert");
    case 2:
        model.remove(unsigned(pick(actions)));
        return QStringLiteral("remove");
    case 3:
        model.move(unsigned(pick(actions)), unsigned(pick(actions)));
        return QStringLiteral("move");
    case 4:
        model.duplicate(unsigned(pick(actions)), random.bounded(2) ? -1 : random.bounded(3000));
        return QStringLiteral("duplicate");
    case 5:
        if (action)
            action->setNumber(random.bounded(3000));
        return QStringLiteral("set number");
    case 6:
        if (action)
            random.bounded(2) ? action->addFrame()
                              : action->insertFrame(unsigned(pick(action->frameCount() + 1)));
        return QStringLiteral("add frame");
    case 7:
        if (frame)
            frame->setProperties(QSubItem(random.bounded(50), random.bounded(5)),
                QPoint(random.bounded(9), 0), random.bounded(12) - 1, unsigned(random.bounded(4)),
                QAnimationFrameBlend(random.bounded(3)), QBlendTarget { 256, qint16(random.bounded(300)) },
                QPointF(random.bounded(3), 1), random.bounded(2) * 45);
        return QStringLiteral("frame values");
    case 8:
        if (frame)
            frame->insertBox(
                type, QRect(random.bounded(20) - 10, -random.bounded(80), 1 + random.bounded(20), 10));
        return QStringLiteral("insert box");
    case 9:
        if (frame && frame->collisionBoxes(type) && frame->collisionBoxes(type)->count() > 0) {
            QCollisionBox* box = frame->collisionBoxes(type)->at(pick(frame->collisionBoxes(type)->count()));
            if (random.bounded(2))
                box->setRect(box->rect().translated(1, -1), random.bounded(2));
            else
                box->remove(true);
        }
        return QStringLiteral("box");
    case 10:
        if (frame)
            frame->setInterElem(
                QInterFrameElementType(random.bounded(interFrameElementTypeCount)), random.bounded(2));
        return QStringLiteral("inter-frame line");
    case 11:
        if (frame)
            frame->remove(true);
        return QStringLiteral("remove frame");
    case 12:
        if (action && actions > 1)
            action->setText(model.at(pick(actions))->text());
        return QStringLiteral("set text");
    case 13:
        if (frame && action->frameCount() > 1)
            frame->insertBoxes(
                action->frame(0)->selectBoxes().selectedText().replace(QChar::ParagraphSeparator, u'\n'));
        return QStringLiteral("insert boxes");
    case 14:
        if (random.bounded(8) == 0)
            model.autoOrganize();
        return QStringLiteral("organize");
    default:
        if (frame && frame->collisionBoxes(type))
            frame->collisionBoxes(type)->clear();
        return QStringLiteral("clear boxes");
    }
}

} // namespace

void TestAnimations::realFilesLoadAndSaveUnchanged()
{
    PF_REQUIRE_REALDATA();
    const QStringList files = realDataFiles({ QStringLiteral("air") });
    QVERIFY(files.size() >= 5);
    QTemporaryDir dir;
    int lineFeedFiles = 0;
    for (const QString& fileName : files) {
        Air air;
        air.editor->setKeepLineEnds(true);
        QVERIFY2(air.model->fromFile(fileName, 0, false), qPrintable(fileName));
        const QString copy = dir.filePath(QStringLiteral("copy.air"));
        QVERIFY2(air.model->toFile(copy, false, false), qPrintable(fileName));
        QVERIFY2(animkit::readBytes(copy) == animkit::readBytes(fileName), qPrintable(fileName));
        lineFeedFiles += air.editor->hasLineFeedEnds() ? 1 : 0;

        const animkit::PlainCount plain = animkit::plainCount(animkit::readText(fileName));
        const animkit::PlainCount model = animkit::modelCount(*air.model);
        const QString where = QFileInfo(fileName).fileName();
        QVERIFY2(plain.actions > 0, qPrintable(where));
        QCOMPARE(model.actions, plain.actions);
        QCOMPARE(model.frames, plain.frames);
        QCOMPARE(model.boxes, plain.boxes);
    }
    QVERIFY(lineFeedFiles > 0);
    QVERIFY(lineFeedFiles < files.size());
}

void TestAnimations::randomEditsMatchFreshModel_data()
{
    RandomEdits::addRows({
        { "fanyer__mugen/data/fightfx.air", 1000 },
        { "ikemen-engine__Ikemen_GO-Elecbyte-Screenpack/data/gofx/gofx.air", 800 },
        { "ikemen-engine__Ikemen_GO-Elecbyte-Screenpack/stages/attachedchar/interactivestage.air", 600 },
        { "fanyer__mugen/chars/kfm/kfm.air", 120 },
    });
}

void TestAnimations::randomEditsMatchFreshModel()
{
    PF_REQUIRE_REALDATA();
    QFETCH(QString, file);
    QFETCH(int, edits);
    const QString path = realDataDir() + QLatin1Char('/') + file;
    const QByteArray originalBytes = animkit::readBytes(path);
    QVERIFY2(!originalBytes.isEmpty(), qPrintable(file));
    Air air;
    air.editor->setKeepLineEnds(true);
    QVERIFY(air.model->fromFile(path, 0, false));
    const QString original = air.text();
    const quint32 seed = qHash(file) ^ 0xa11;
    RandomEdits random(seed, original.split(QLatin1Char('\n')));
    QTextDocument* document = air.editor->document();

    for (int i = 0; i < edits; ++i) {
        QString label;
        const int roll = random.bounded(20);
        if (roll == 0 && document->isUndoAvailable()) {
            document->undo();
            label = QStringLiteral("undo");
        } else if (roll == 1 && document->isRedoAvailable()) {
            document->redo();
            label = QStringLiteral("redo");
        } else if (roll < 10) {
            label = modelEdit(*air.model, random);
        } else if (roll < 12) {
            QTextCursor cursor(document);
            cursor.setPosition(
                document->findBlockByNumber(random.bounded(document->blockCount())).position());
            const QString line = airLines.at(random.bounded(int(airLines.size())));
            cursor.insertText(line);
            label = QStringLiteral("type ") + line.trimmed();
        } else {
            const TextEdit edit = random.next(*document);
            QTextCursor cursor(document);
            edit.apply(cursor);
            label = edit.label;
        }
        const QStringList model = animkit::describe(*air.model);
        const QStringList fresh = animkit::describeFresh(air.text());
        if (model != fresh)
            QFAIL(qPrintable(QStringLiteral("%1, seed %2, step %3 (%4): %5")
                                 .arg(file)
                                 .arg(seed)
                                 .arg(i)
                                 .arg(label, firstDifference(model, fresh))));
    }

    // Every step undone, the file is what it was, to the byte.
    while (document->isUndoAvailable())
        document->undo();
    QCOMPARE(air.text(), original);
    QCOMPARE(animkit::describe(*air.model), animkit::describeFresh(original));
    QTemporaryDir dir;
    QVERIFY(air.model->toFile(dir.filePath(QStringLiteral("back.air")), false, false));
    QVERIFY(animkit::readBytes(dir.filePath(QStringLiteral("back.air"))) == originalBytes);
}

void TestAnimations::badInputLoadsWhatItCan()
{
    QTemporaryDir dir;
    const QString good
        = QStringLiteral("[Begin Action 0]\nClsn2: 1\n Clsn2[0] = 0,0,1,1\n0,0, 0,0, 5\n0,1, 0,0, 5\n");
    QByteArray binary;
    for (int i = 0; i < 4096; ++i)
        binary.append(char((i * 7919) % 256));
    const struct
    {
        const char* name;
        QByteArray bytes;
        int actions;
        int frames;
    } cases[] = {
        { "truncated in a frame", good.toLatin1().left(good.size() - 5), 1, 1 },
        { "truncated in a box", good.toLatin1().left(30), 1, 0 },
        { "binary", binary, 0, 0 },
        { "binary behind text", good.toLatin1() + binary, 1, 2 },
        { "nul characters", QByteArray("[Begin Action 1]\n0,0,\0 0,0, 1\n1,1, 1,1, 1\n", 41), 1, 1 },
        { "empty", QByteArray(), 0, 0 },
    };
    for (const auto& input : cases) {
        const QString fileName = dir.filePath(QStringLiteral("bad.air"));
        writeBytes(fileName, input.bytes);
        Air air;
        QVERIFY2(air.model->fromFile(fileName, 0, false), input.name);
        QVERIFY2(air.model->count() == input.actions, input.name);
        const animkit::PlainCount count = animkit::modelCount(*air.model);
        QVERIFY2(count.frames >= input.frames, input.name);
        air.model->checkErrors();
        QCOMPARE(animkit::describe(*air.model), animkit::describeFresh(air.text()));
    }
    // The truncated box's declaration says 1 and holds none: the file's messages say so.
    writeBytes(dir.filePath(QStringLiteral("cut.air")), "[Begin Action 0]\nClsn2: 1\n0,0, 0,0, 5\n");
    Air air;
    QVERIFY(air.model->fromFile(dir.filePath(QStringLiteral("cut.air")), 0, false));
    air.model->checkErrors();
    QCOMPARE(air.model->messages()->count(), 1);
    QCOMPARE(air.model->messages()->at(0).line, 1);
    QVERIFY(!air.model->fromFile(dir.filePath(QStringLiteral("missing.air")), 0, false));
    QCOMPARE(air.model->count(), 0);
}

void TestAnimations::projectOpensAndSavesItsAir()
{
    QTemporaryDir dir;
    const QByteArray air
        = "; Stand\n[Begin Action 0]\nClsn2Default: 1\n Clsn2[0] = -10,-80, 10,0\n0,0, 0,0, 10\n";
    writeBytes(dir.filePath(QStringLiteral("hero.def")),
        "[Info]\r\nname = \"Hero\"\r\n\r\n[Files]\r\nanim = Hero.AIR\r\n");
    writeBytes(dir.filePath(QStringLiteral("hero.air")), air);

    QProject project;
    QVERIFY(project.open(dir.filePath(QStringLiteral("hero.def")), 0, false, false));
    QAnimations* animations = project.animations();
    QCOMPARE(animations->count(), 1);
    QCOMPARE(animations->at(0)->nameText(), QStringLiteral("Stand"));
    QVERIFY(!project.isEmpty());
    QVERIFY(!animations->isModified());

    // Saved unchanged, the file keeps its bytes; an edit is saved to the same name.
    QVERIFY(project.save());
    QCOMPARE(animkit::readBytes(dir.filePath(QStringLiteral("hero.air"))), air);
    animations->at(0)->frame(0)->setAngle(90);
    QVERIFY(project.save());
    QCOMPARE(animkit::readBytes(dir.filePath(QStringLiteral("hero.air"))),
        QByteArray("; Stand\n[Begin Action 0]\nClsn2Default: 1\n Clsn2[0] = -10,-80, 10,0\n0,0, 0,0, 10, , , "
                   ", , 90\n"));
    QVERIFY(!animations->isModified());

    // Save as asks for the AIR's new name; an empty AIR is never written.
    QStringList asked;
    QObject::connect(&project, &QProject::saveFileName, [&](QProjectFileType type, const QString&) {
        asked.append(QString::number(int(type)));
        return type == pftAnimations ? dir.filePath(QStringLiteral("copy.air")) : QString();
    });
    QVERIFY(project.saveAs(pftAnimations, false, 0));
    QVERIFY(QFileInfo::exists(dir.filePath(QStringLiteral("copy.air"))));
    QCOMPARE(asked, QStringList { QStringLiteral("2") });
    animations->remove(0);
    QVERIFY(!project.saveAs(pftAnimations, false, 0));
    QCOMPARE(asked.size(), 1);
}

void TestAnimations::cliPrintsActions()
{
    QTemporaryDir dir;
    const QString fileName = dir.filePath(QStringLiteral("two.air"));
    writeBytes(fileName,
        "; Stand\n[Begin Action 0]\nClsn2Default: 1\n Clsn2[0] = -10,-80, 10,0\nLoopStart\n"
        "Interpolate Angle\n0,0, 1,2, 10, H, AS10D20, 2, , 45\n\n[Begin Action 5]\n5,0, 0,0, -1\n");
    const CliResult text = runCli({ QStringLiteral("air"), fileName });
    QCOMPARE(text.exitCode, 0);
    QCOMPARE(QString::fromUtf8(text.out),
        fileName
            + QStringLiteral(": 2 actions, 2 frames, 1 boxes\n"
                             "action 0 \"Stand\"  line 2  frames 1  loopstart 0\n"
                             "  frame 0  line 7  sprite 0,0  offset 1,2  time 10  flip H  blend add(10,20)"
                             "  scale 2,1  angle 45  interpolate angle\n"
                             "    clsn2default 1: -10,-80,10,0\n"
                             "action 5  line 9  frames 1  loopstart 0\n"
                             "  frame 0  line 10  sprite 5,0  offset 0,0  time -1  flip -  blend none"
                             "  scale 1,1  angle 0\n"));

    const CliResult json = runCli({ QStringLiteral("--json"), QStringLiteral("air"), fileName,
        QStringLiteral("--action"), QStringLiteral("0") });
    QCOMPARE(json.exitCode, 0);
    const QJsonArray actions = json.json().value(QStringLiteral("actions")).toArray();
    QCOMPARE(actions.size(), 1);
    const QJsonObject frame
        = actions.at(0).toObject().value(QStringLiteral("frames")).toArray().at(0).toObject();
    QCOMPARE(frame.value(QStringLiteral("flip")).toInt(), 2);
    QCOMPARE(frame.value(QStringLiteral("blend")).toObject().value(QStringLiteral("source")).toInt(), 10);
    QCOMPARE(frame.value(QStringLiteral("boxes"))
                 .toObject()
                 .value(QStringLiteral("clsn2default"))
                 .toArray()
                 .size(),
        1);
    QCOMPARE(json.json().value(QStringLiteral("boxCount")).toInt(), 1);

    const CliResult missing
        = runCli({ QStringLiteral("air"), fileName, QStringLiteral("--action"), QStringLiteral("3") });
    QCOMPARE(missing.exitCode, 1);
    QCOMPARE(missing.faultLines(), 1);
    QCOMPARE(runCli({ QStringLiteral("air"), dir.filePath(QStringLiteral("none.air")) }).exitCode, 1);
    QCOMPARE(runCli({ QStringLiteral("air") }).exitCode, 2);
    QCOMPARE(runCli({ QStringLiteral("air"), fileName, QStringLiteral("--action") }).exitCode, 2);
}

QTEST_MAIN(TestAnimations)
