#include "qcommands.h"

#include "model/cmdreg.h"
#include "model/qcommand.h"
#include "text/paramreg.h"
#include "text/qcommonelements.h"
#include "util/qengineversion.h"

#include <QTextDocument>

namespace {

const QString commandHeader = QStringLiteral("[Command]\n");

} // namespace

QCommands::QCommands(QProject* project, QObject* parent)
    : QSyntaxTextEditor(project, pftCommands, true, engineVersion::v1_1, true, parent)
    , m_org(this)
{
    enableElement(true, QNameComment::commentGroupType, 0);
    enableElement(true, QCommand::commandGroupType, 0);
    // The other groups of the file ([Remap], [Statedef -1], [State -1, ...])
    // must be headers too, or the last command would reach to the file's end.
    enableElement(true, QUnknownGroup::unknownGroupType, 0);
    enableElement(true, ParamRegBase::paramType, QStringParam::paramSubType);
    enableElement(true, ParamRegBase::paramType, QCommandParam::paramSubType);
    // A CMD saved unchanged stays byte for byte what it was, line ends included.
    setKeepLineEnds(true);
}

void QCommands::init()
{
    static bool registered = false;
    if (registered)
        return;
    registered = true;
    QTextElementReg::registerElement(new CmdReg);
    QTextElementReg::registerElement(
        new ParamReg<QCommandParam>(QStringLiteral("command"), QCommand::idCommand, &cmdPAlloc));
}

int QCommands::documentEnd() const
{
    return document()->characterCount() - 1;
}

QString QCommands::textOf(const QCommand* command) const
{
    // The selected text as it stands (no-break spaces kept), lines ended by line feeds.
    QString text = command->select().selectedText();
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    if (!text.endsWith(QLatin1Char('\n')))
        text += QLatin1Char('\n');
    return text;
}

void QCommands::insertLines(int position, const QString& text)
{
    QElementTextCursor& edit = cursor();
    // At the end of a document whose last line has text, the lines start on a line of their own.
    const bool joinsLastLine = position >= documentEnd() && !document()->lastBlock().text().isEmpty();
    edit.setPosition(qMin(position, documentEnd()));
    edit.insertText(joinsLastLine ? QLatin1Char('\n') + text : text);
}

QCommand* QCommands::add()
{
    // Behind the last command rather than at the very end, where the
    // character's states of the CMD may stand.
    const QCommand* last = at(count() - 1);
    insertLines(last ? last->select().selectionEnd() : documentEnd(), commandHeader);
    return at(count() - 1);
}

QCommand* QCommands::insert(unsigned int position)
{
    const QCommand* before = at(int(position));
    if (!before)
        return add();
    insertLines(before->startPosition(), commandHeader);
    return at(int(position));
}

void QCommands::remove(unsigned int position)
{
    const QCommand* command = at(int(position));
    if (!command)
        return;
    QElementTextCursor& edit = cursor();
    const QTextCursor lines = command->select();
    edit.setPosition(lines.selectionStart());
    edit.setPosition(lines.selectionEnd(), QTextCursor::KeepAnchor);
    edit.removeSelectedText();
}

void QCommands::duplicate(unsigned int position)
{
    const QCommand* command = at(int(position));
    if (!command)
        return;
    const QCommand* next = at(int(position) + 1);
    const int target = next ? next->startPosition() : command->select().selectionEnd();
    insertLines(target, textOf(command));
}

void QCommands::move(unsigned int from, unsigned int to)
{
    const int last = count() - 1;
    if (int(from) > last || int(to) > last || from == to)
        return;
    const QCommand* command = at(int(from));
    const QString text = textOf(command);
    const QTextCursor lines = command->select();
    const int start = lines.selectionStart();
    const int length = lines.selectionEnd() - start;
    // Where the lines go, measured before they are taken out: before the
    // command that will follow, or behind the last command.
    const int target = int(to) < last ? at(int(to > from ? to + 1 : to))->startPosition()
                                      : at(last)->select().selectionEnd();
    beginChange();
    QElementTextCursor& edit = cursor();
    edit.setPosition(start);
    edit.setPosition(start + length, QTextCursor::KeepAnchor);
    edit.removeSelectedText();
    insertLines(target > start ? target - length : target, text);
    endChange();
}

int QCommands::find(unsigned int from, const QString& name) const
{
    for (int i = int(from); i < count(); ++i) {
        if (m_commands.at(i)->name(false) == name)
            return i;
    }
    return -1;
}

void QCommands::autoOrganize()
{
    beginChange();
    for (int i = 1; i < count(); ++i) {
        const int length = m_commands.at(i)->length();
        for (int j = 0; j < i; ++j) {
            if (length > m_commands.at(j)->length()) {
                move(unsigned(i), unsigned(j));
                break;
            }
        }
    }
    endChange();
}

void QCommands::updateInternal(QList<QTextElementChange>& changes)
{
    QSyntaxTextEditor::updateInternal(changes);
    for (const QTextElementChange& change : std::as_const(changes)) {
        QTextElement* element = change.element;
        if (element->groupType() == QCommand::commandGroupType) {
            auto* command = static_cast<QCommand*>(element);
            if (change.kind == QTextElementChange::Removed) {
                const int row = m_commands.indexOf(command);
                if (row < 0)
                    continue;
                m_org.beginRemoveRows(QModelIndex(), row, row);
                m_commands.removeAt(row);
                m_org.endRemoveRows();
            } else if (change.kind == QTextElementChange::Added && !m_commands.contains(command)) {
                // Its row is that of the next command in the text the list already has.
                int row = -1;
                for (QTextElement* next = command->nextOfKind(QCommand::commandGroupType, 0); next && row < 0;
                     next = next->nextOfKind(QCommand::commandGroupType, 0))
                    row = m_commands.indexOf(static_cast<QCommand*>(next));
                if (row < 0)
                    row = count();
                m_org.beginInsertRows(QModelIndex(), row, row);
                m_commands.insert(row, command);
                m_org.endInsertRows();
            }
        } else if (change.kind == QTextElementChange::Updated
            && element->groupType() == QGroupParam::paramGroupType
            && element->subType() == QStringParam::paramSubType) {
            auto* param = static_cast<QGroupParam*>(element);
            QParamGroup* group = param->group();
            if (group && group->groupType() == QCommand::commandGroupType
                && param->key() == QLatin1String("name"))
                m_org.cmdChanged(static_cast<QCommand*>(group));
        }
    }
}

QString QCommands::discardMsg() const
{
    return tr("Do you really want to discard the changes made in the commands?");
}
