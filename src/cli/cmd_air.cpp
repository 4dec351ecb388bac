// pugilforge-cli air FILE [--action N]: the animations of an AIR file as the
// program reads them, in the order of the file, for reviews and diffs: each
// action with its frames, and each frame's boxes by type.
#include "qclicommand.h"
#include "qcliinput.h"

#include "model/qanimationframe.h"
#include "model/qanimations.h"
#include "model/qcollisionbox.h"
#include "model/qcollisionboxes.h"
#include "model/qinterframeelement.h"
#include "model/qproject.h"
#include "syntax/qsyntaxtexteditor.h"
#include "util/qengineversion.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace {

const char* const boxKeys[collisionBoxTypeCount] = { "clsn1", "clsn2", "clsn1default", "clsn2default" };
const char* const interKeys[interFrameElementTypeCount]
    = { "loopstart", "blend", "offset", "scale", "angle" };

QString flipText(unsigned int flip)
{
    static const char* const flips[] = { "-", "V", "H", "HV" };
    return QLatin1String(flips[flip & 3]);
}

QString blendText(const QAnimationFrame* frame)
{
    switch (frame->blend()) {
    case afbAdditive:
        return QStringLiteral("add(%1,%2)")
            .arg(frame->blendTarget().source)
            .arg(frame->blendTarget().destination);
    case afbSubtractive:
        return QStringLiteral("sub");
    default:
        return QStringLiteral("none");
    }
}

QString number(double value)
{
    return QString::number(value, 'g', 6);
}

QStringList interpolations(const QAnimationFrame* frame)
{
    QStringList list;
    for (const QInterFrameElement* line : frame->interFrameElements()) {
        if (line->interType() != ifeLoopStart)
            list.append(QLatin1String(interKeys[line->interType()]));
    }
    return list;
}

QJsonObject frameJson(const QAnimationFrame* frame)
{
    QJsonObject boxes;
    for (int type = 0; type < collisionBoxTypeCount; ++type) {
        const QCollisionBoxes* declared = frame->collisionBoxes(QCollisionBoxType(type));
        if (!declared)
            continue;
        QJsonArray list;
        for (const QCollisionBox* box : declared->boxes())
            list.append(QJsonArray { box->left(), box->top(), box->right(), box->bottom() });
        boxes.insert(QLatin1String(boxKeys[type]), list);
    }
    QJsonObject blend { { QStringLiteral("mode"), int(frame->blend()) } };
    if (frame->blend() == afbAdditive) {
        blend.insert(QStringLiteral("source"), frame->blendTarget().source);
        blend.insert(QStringLiteral("destination"), frame->blendTarget().destination);
    }
    return QJsonObject { { QStringLiteral("line"), frame->line() + 1 },
        { QStringLiteral("group"), frame->spriteGroup() }, { QStringLiteral("index"), frame->spriteIndex() },
        { QStringLiteral("x"), frame->offsetX() }, { QStringLiteral("y"), frame->offsetY() },
        { QStringLiteral("time"), frame->time() }, { QStringLiteral("flip"), int(frame->flipFlags()) },
        { QStringLiteral("blend"), blend }, { QStringLiteral("scaleX"), frame->scaleX() },
        { QStringLiteral("scaleY"), frame->scaleY() }, { QStringLiteral("angle"), frame->angle() },
        { QStringLiteral("interpolate"), QJsonArray::fromStringList(interpolations(frame)) },
        { QStringLiteral("boxes"), boxes } };
}

QJsonObject actionJson(const QAnimation* action)
{
    QJsonArray frames;
    for (const QAnimationFrame* frame : action->frames())
        frames.append(frameJson(frame));
    return QJsonObject { { QStringLiteral("number"), action->number() },
        { QStringLiteral("name"), action->nameText() }, { QStringLiteral("line"), action->line() + 1 },
        { QStringLiteral("frameCount"), action->frameCount() },
        { QStringLiteral("loopStart"), action->loopStart() }, { QStringLiteral("frames"), frames } };
}

void printAction(const QCliRun& run, const QAnimation* action)
{
    const QString name = action->nameText();
    run.print(QStringLiteral("action %1%2  line %3  frames %4  loopstart %5")
                  .arg(action->number())
                  .arg(name.isEmpty() ? QString() : QStringLiteral(" \"%1\"").arg(name))
                  .arg(action->line() + 1)
                  .arg(action->frameCount())
                  .arg(action->loopStart()));
    for (int i = 0; i < action->frameCount(); ++i) {
        const QAnimationFrame* frame = action->frame(i);
        const QStringList interpolate = interpolations(frame);
        run.print(
            QStringLiteral("  frame %1  line %2  sprite %3,%4  offset %5,%6  time %7  flip %8  blend %9"
                           "  scale %10,%11  angle %12%13")
                .arg(i)
                .arg(frame->line() + 1)
                .arg(frame->spriteGroup())
                .arg(frame->spriteIndex())
                .arg(frame->offsetX())
                .arg(frame->offsetY())
                .arg(frame->time())
                .arg(flipText(frame->flipFlags()), blendText(frame), number(frame->scaleX()),
                    number(frame->scaleY()), number(frame->angle()),
                    interpolate.isEmpty() ? QString()
                                          : QStringLiteral("  interpolate %1").arg(interpolate.join(u','))));
        for (int type = 0; type < collisionBoxTypeCount; ++type) {
            const QCollisionBoxes* declared = frame->collisionBoxes(QCollisionBoxType(type));
            if (!declared)
                continue;
            QStringList boxes;
            for (const QCollisionBox* box : declared->boxes())
                boxes.append(QStringLiteral("%1,%2,%3,%4")
                                 .arg(box->left())
                                 .arg(box->top())
                                 .arg(box->right())
                                 .arg(box->bottom()));
            run.print(QStringLiteral("    %1 %2: %3")
                          .arg(QLatin1String(boxKeys[type]))
                          .arg(boxes.size())
                          .arg(boxes.join(QLatin1String("  "))));
        }
    }
}

int runAir(const QCliRun& run)
{
    static const QString usage = QStringLiteral("air FILE [--action N]");
    QStringList arguments = run.arguments();
    bool oneAction = false;
    int wanted = 0;
    if (const qsizetype at = arguments.indexOf(QStringLiteral("--action")); at >= 0) {
        bool isNumber = false;
        wanted = arguments.value(at + 1).toInt(&isNumber);
        if (!isNumber)
            return run.usage(usage);
        arguments.remove(at, 2);
        oneAction = true;
    }
    if (arguments.size() != 1)
        return run.usage(usage);
    const QString fileName = arguments.first();
    if (!QFileInfo(fileName).isFile())
        return run.fail(fileName, QStringLiteral("no such file"));
    const QString refusal = notEngineText(fileName, QStringLiteral("not an AIR file"));
    if (!refusal.isEmpty())
        return run.fail(fileName, refusal);

    QProject::init();
    QSyntaxTextEditor text(nullptr, pftAnimations, true, engineVersion::v1_1, false);
    QAnimations animations(nullptr, &text);
    if (!animations.fromFile(fileName, 0, false))
        return run.fail(fileName, QStringLiteral("can't read the file"));
    animations.checkErrors();

    QList<const QAnimation*> shown;
    int frames = 0;
    int boxes = 0;
    for (const QAnimation* action : animations.animations()) {
        if (oneAction && action->number() != wanted)
            continue;
        shown.append(action);
        frames += action->frameCount();
        for (const QAnimationFrame* frame : action->frames()) {
            for (int type = 0; type < collisionBoxTypeCount; ++type) {
                if (const QCollisionBoxes* declared = frame->collisionBoxes(QCollisionBoxType(type)))
                    boxes += declared->count();
            }
        }
    }
    if (oneAction && shown.isEmpty())
        return run.fail(fileName, QStringLiteral("no action %1").arg(wanted));

    const QMessages* messages = animations.messages();
    if (run.json()) {
        QJsonArray actions;
        for (const QAnimation* action : shown)
            actions.append(actionJson(action));
        QJsonArray warnings;
        for (int i = 0; i < messages->count(); ++i)
            warnings.append(QJsonObject { { QStringLiteral("line"), messages->at(i).line + 1 },
                { QStringLiteral("text"), messages->at(i).text } });
        run.printJson(QJsonObject { { QStringLiteral("file"), fileName },
            { QStringLiteral("actionCount"), int(shown.size()) }, { QStringLiteral("frameCount"), frames },
            { QStringLiteral("boxCount"), boxes }, { QStringLiteral("actions"), actions },
            { QStringLiteral("warnings"), warnings } });
        return 0;
    }
    run.print(QStringLiteral("%1: %2 actions, %3 frames, %4 boxes")
                  .arg(fileName)
                  .arg(shown.size())
                  .arg(frames)
                  .arg(boxes));
    for (const QAnimation* action : shown)
        printAction(run, action);
    for (int i = 0; i < messages->count(); ++i)
        run.print(
            QStringLiteral("warning: line %1: %2").arg(messages->at(i).line + 1).arg(messages->at(i).text));
    return 0;
}

const QCliCommand command("air", "air FILE [--action N]",
    "print the actions of an AIR file in file order: frames with sprite, offset, time, flip, "
    "blend, scale, angle, interpolations, and boxes by type",
    runAir);

} // namespace
