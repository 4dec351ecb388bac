#include "animkit.h"

#include "model/qanimationframe.h"
#include "model/qcollisionbox.h"
#include "model/qcollisionboxes.h"
#include "model/qinterframeelement.h"
#include "util/qengineversion.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>

namespace animkit {

Air::Air()
    : editor(std::make_unique<QSyntaxTextEditor>(nullptr, pftAnimations, true, engineVersion::v1_1, false))
    , model(std::make_unique<QAnimations>(nullptr, editor.get()))
{
}

Air::Air(const QString& text)
    : Air()
{
    load(text);
}

Air::~Air()
{
    model.reset();
}

void Air::load(const QString& text)
{
    const bool renumber = model->renumber();
    model->setRenumber(false);
    editor->document()->setPlainText(text);
    model->setRenumber(renumber);
}

QString Air::text() const
{
    return editor->document()->toPlainText();
}

QString Air::line(int number) const
{
    return editor->document()->findBlockByNumber(number).text();
}

QAnimationFrame* Air::frameAt(int line) const
{
    QTextElement* element = editor->elementAt(line);
    return element && element->groupType() == animationElement::frame ? static_cast<QAnimationFrame*>(element)
                                                                      : nullptr;
}

QString frameFields(const QAnimationFrame* frame)
{
    return QStringLiteral("%1,%2 %3,%4 %5 %6 %7/%8/%9 %10,%11 %12")
        .arg(frame->spriteGroup())
        .arg(frame->spriteIndex())
        .arg(frame->offsetX())
        .arg(frame->offsetY())
        .arg(frame->time())
        .arg(frame->flipFlags())
        .arg(int(frame->blend()))
        .arg(frame->blendTarget().source)
        .arg(frame->blendTarget().destination)
        .arg(frame->scaleX())
        .arg(frame->scaleY())
        .arg(frame->angle());
}

namespace {

    int lineOf(const QTextElement* element)
    {
        return element ? element->line() : -1;
    }

    QString describeElement(const QTextElement* element)
    {
        const int line = element->line();
        switch (element->groupType()) {
        case animationElement::action: {
            const auto* action = static_cast<const QAnimation*>(element);
            QStringList frames;
            for (const QAnimationFrame* frame : action->frames())
                frames.append(QString::number(frame->line()));
            return QStringLiteral("%1 action %2 \"%3\" frames %4")
                .arg(line)
                .arg(action->number())
                .arg(action->nameText(), frames.join(u','));
        }
        case animationElement::frame: {
            const auto* frame = static_cast<const QAnimationFrame*>(element);
            QStringList boxes;
            for (int type = 0; type < collisionBoxTypeCount; ++type)
                boxes.append(QString::number(lineOf(frame->collisionBoxes(QCollisionBoxType(type)))));
            QStringList inter;
            for (const QInterFrameElement* line : frame->interFrameElements())
                inter.append(QString::number(line->line()));
            return QStringLiteral("%1 frame in %2: %3 boxes %4 inter %5")
                .arg(line)
                .arg(lineOf(frame->parent()))
                .arg(frameFields(frame), boxes.join(u','), inter.join(u','));
        }
        case animationElement::declaration: {
            const auto* boxes = static_cast<const QCollisionBoxes*>(element);
            QStringList list;
            for (const QCollisionBox* box : boxes->boxes())
                list.append(QString::number(box->line()));
            return QStringLiteral("%1 clsn type %2 of %3 declares %4 holds %5")
                .arg(line)
                .arg(int(boxes->clsnType()))
                .arg(lineOf(boxes->parent()))
                .arg(boxes->declaredCount())
                .arg(list.join(u','));
        }
        case animationElement::box: {
            const auto* box = static_cast<const QCollisionBox*>(element);
            return QStringLiteral("%1 box of %2 at %3: %4,%5,%6,%7")
                .arg(line)
                .arg(lineOf(box->parent()))
                .arg(box->index())
                .arg(box->left())
                .arg(box->top())
                .arg(box->right())
                .arg(box->bottom());
        }
        case animationElement::interFrame: {
            const auto* inter = static_cast<const QInterFrameElement*>(element);
            return QStringLiteral("%1 inter %2 of %3")
                .arg(line)
                .arg(int(inter->interType()))
                .arg(lineOf(inter->parent()));
        }
        default:
            return QStringLiteral("%1 element %2").arg(line).arg(element->groupType(), 0, 16);
        }
    }

    /// A line without its comment, for the plain count.
    QString code(const QString& line)
    {
        const qsizetype comment = line.indexOf(u';');
        return comment < 0 ? line : line.left(comment);
    }

} // namespace

QStringList describe(const QAnimations& model)
{
    QStringList lines;
    for (int row = 0; row < model.rowCount(); ++row)
        lines.append(QStringLiteral("row %1: %2 at %3")
                         .arg(row)
                         .arg(model.data(model.QAbstractListModel::index(row)).toString())
                         .arg(model.at(row)->line()));
    for (QTextElement* element = model.textEditor()->head(); element; element = element->chainNext()) {
        if (!element->isValid())
            lines.append(QStringLiteral("dead element in the chain"));
        else
            lines.append(describeElement(element));
    }
    return lines;
}

QStringList describeFresh(const QString& text)
{
    Air fresh(text);
    return describe(*fresh.model);
}

PlainCount plainCount(const QString& text)
{
    static const QRegularExpression action(QStringLiteral("^\\s*\\[\\s*begin\\s+action\\s+-?\\d+\\s*\\]"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression header(QStringLiteral("^\\s*\\["));
    static const QRegularExpression frame(
        QStringLiteral("^\\s*-?\\d+\\s*,\\s*-?\\d+\\s*,\\s*-?\\d+\\s*,\\s*-?\\d+\\s*,\\s*-?\\d+"));
    static const QRegularExpression box(
        QStringLiteral("^\\s*clsn[12](default)?\\s*\\[\\s*-?\\d+\\s*\\]\\s*=\\s*-?\\d+\\s*,\\s*-?\\d+\\s*,"
                       "\\s*-?\\d+\\s*,\\s*-?\\d+\\s*$"),
        QRegularExpression::CaseInsensitiveOption);
    PlainCount count;
    bool inAction = false;
    for (const QString& raw : text.split(u'\n')) {
        const QString line = code(raw);
        if (header.match(line).hasMatch()) {
            inAction = action.match(line).hasMatch();
            count.actions += inAction ? 1 : 0;
        } else if (inAction && frame.match(line).hasMatch()) {
            ++count.frames;
        } else if (inAction && box.match(line).hasMatch()) {
            ++count.boxes;
        }
    }
    return count;
}

PlainCount modelCount(const QAnimations& model)
{
    PlainCount count;
    count.actions = model.count();
    for (const QAnimation* action : model.animations()) {
        count.frames += action->frameCount();
        for (const QAnimationFrame* frame : action->frames()) {
            for (int type = 0; type < collisionBoxTypeCount; ++type) {
                if (const QCollisionBoxes* boxes = frame->collisionBoxes(QCollisionBoxType(type)))
                    count.boxes += boxes->count();
            }
        }
    }
    return count;
}

QByteArray readBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString readText(const QString& path)
{
    QString text = QString::fromUtf8(readBytes(path));
    if (text.startsWith(QChar(QChar::ByteOrderMark)))
        text.remove(0, 1);
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

} // namespace animkit
