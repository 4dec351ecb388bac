// The throw creator of the states editor: the dialog's fields go to the
// throw script, and its text into the state file and the CMD.
#include "qstateseditor.h"

#include "interface/dialogs/throwdlg.h"
#include "interface/workspaces/qtextview.h"
#include "interface/workspaces/qtextworkspace.h"
#include "model/qcommands.h"
#include "model/qproject.h"
#include "script/qluaheaders.h"
#include "script/qscript.h"
#include "syntax/qmugensyntaxhierarchy.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QFileInfo>
#include <QMainWindow>
#include <QMessageBox>
#include <QRegularExpression>
#include <QSet>
#include <QStatusBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

// What the throw script wrote.
struct ThrowText
{
    QString states;
    QString command; ///< empty when the CMD has the command already
    QString entry;
};

ThrowText runThrowScript(QScript& script, const QVariantMap& options)
{
    script.fromFile(QStringLiteral("common/Throw"));
    lua_State* state = script.state();
    luabind::object table = luabind::newtable(state);
    for (auto it = options.begin(); it != options.end(); ++it) {
        const std::string key = it.key().toStdString();
        if (it->typeId() == QMetaType::Int)
            table[key] = it->toInt();
        else if (it->typeId() == QMetaType::Double)
            table[key] = it->toDouble();
        else
            table[key] = it->toString().toStdString();
    }
    ThrowText text;
    script.resetCount();
    text.states = lua::str(luabind::call_function<std::string>(state, "makeThrow", table));
    // A throw script of the author's own may write the states only.
    if (luabind::type(luabind::globals(state)["makeThrowCommand"]) == LUA_TFUNCTION) {
        const luabind::object cmd = luabind::call_function<luabind::object>(state, "makeThrowCommand", table);
        if (luabind::type(cmd) == LUA_TTABLE) {
            if (auto command = luabind::object_cast_nothrow<std::string>(cmd["command"]))
                text.command = lua::str(*command);
            if (auto entry = luabind::object_cast_nothrow<std::string>(cmd["entry"]))
                text.entry = lua::str(*entry);
        }
    }
    return text;
}

/// Whether `block` is the header of a group named `name` ("statedef -1"), or
/// with `prefix` of a name that starts so.
bool isGroup(const QTextBlock& block, const QString& name, bool prefix = false)
{
    const QString group = QMugenSyntaxHierarchy::groupName(block.text()).simplified();
    return prefix ? group.startsWith(name, Qt::CaseInsensitive) : group.compare(name, Qt::CaseInsensitive) == 0;
}

bool isHeader(const QTextBlock& block)
{
    return !QMugenSyntaxHierarchy::groupName(block.text()).isNull();
}

bool isBlank(const QTextBlock& block)
{
    return block.text().trimmed().isEmpty();
}

/// Inserts `text` as lines of their own before `before` (at the end for an
/// invalid block), a blank line between it and its neighbours, as one undo
/// step; the line where it starts.
int insertLines(QTextDocument* document, const QTextBlock& before, QString text)
{
    text = text.trimmed() + QLatin1Char('\n');
    QTextCursor cursor(document);
    int line = 0;
    if (before.isValid()) {
        cursor.setPosition(before.position());
        line = before.blockNumber();
        if (before.previous().isValid() && !isBlank(before.previous())) {
            text.prepend(QLatin1Char('\n'));
            ++line;
        }
        if (!isBlank(before))
            text += QLatin1Char('\n');
    } else {
        cursor.movePosition(QTextCursor::End);
        const QTextBlock last = document->lastBlock();
        line = last.blockNumber();
        const QString ahead = !isBlank(last) ? QStringLiteral("\n\n")
                              : last.previous().isValid() && !isBlank(last.previous()) ? QStringLiteral("\n")
                                                                                        : QString();
        text.prepend(ahead);
        line += int(ahead.size());
    }
    cursor.beginEditBlock();
    cursor.insertText(text);
    cursor.endEditBlock();
    return line;
}

/// The line of the CMD after the last key line of its last [Command] group
/// (the engine reads the commands before [Statedef -1]); without one, its
/// first [Statedef]; invalid for the end.
QTextBlock commandPlace(QTextDocument* cmd)
{
    QTextBlock after;
    bool inCommand = false;
    for (QTextBlock block = cmd->begin(); block.isValid(); block = block.next()) {
        if (isHeader(block)) {
            if (isGroup(block, QStringLiteral("statedef"), true))
                return after.isValid() ? after : block;
            inCommand = isGroup(block, QStringLiteral("command"));
        }
        if (inCommand && !isBlank(block) && !block.text().trimmed().startsWith(QLatin1Char(';')))
            after = block.next();
    }
    return after;
}

/// Where the state -1 entry goes: above the first entry of [Statedef -1]
/// that tests a command of a single button (with the comment lines right
/// above it), so a press of that button near the opponent throws; else at
/// the end of the section (invalid for the end of the file). Without the
/// section, `sectionMissing` is set and the place is the end.
QTextBlock entryPlace(QTextDocument* cmd, bool& sectionMissing)
{
    static const QRegularExpression pair(QStringLiteral("^\\s*(name|command)\\s*=\\s*\"?([^\";]*)"), QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression button(QStringLiteral("^[abcxyzs]$"), QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression uses(QStringLiteral("command\\s*=\\s*\"([^\"]+)\""), QRegularExpression::CaseInsensitiveOption);
    // The commands of one button.
    QSet<QString> single;
    QString name;
    for (QTextBlock block = cmd->begin(); block.isValid(); block = block.next()) {
        if (isHeader(block))
            name.clear();
        const QRegularExpressionMatch match = pair.match(block.text());
        if (!match.hasMatch())
            continue;
        if (match.captured(1).compare(QLatin1String("name"), Qt::CaseInsensitive) == 0)
            name = match.captured(2).trimmed().toLower();
        else if (!name.isEmpty() && button.match(match.captured(2).trimmed()).hasMatch())
            single.insert(name);
    }
    sectionMissing = true;
    for (QTextBlock block = cmd->begin(); block.isValid(); block = block.next()) {
        if (!isHeader(block))
            continue;
        if (isGroup(block, QStringLiteral("statedef"), true)) {
            if (!sectionMissing)
                return block; // the section ends here
            sectionMissing = !isGroup(block, QStringLiteral("statedef -1"));
            continue;
        }
        if (sectionMissing)
            continue;
        // An entry of [Statedef -1]: does it use a one-button command?
        for (QTextBlock line = block.next(); line.isValid() && !isHeader(line); line = line.next()) {
            const QRegularExpressionMatch used = uses.match(line.text().section(QLatin1Char(';'), 0, 0));
            if (used.hasMatch() && single.contains(used.captured(1).toLower())) {
                QTextBlock above = block;
                while (above.previous().isValid() && above.previous().text().trimmed().startsWith(QLatin1Char(';')))
                    above = above.previous();
                return above;
            }
        }
    }
    return QTextBlock();
}

} // namespace

void QStatesEditor::throwCreator()
{
    QWidget* window = textWorkspace()->view()->window();
    if (!project() || project()->statesCount() == 0) {
        QMessageBox::information(window, tr("New throw"), tr("The project has no state file for the throw: add one first."));
        return;
    }
    const int target = projectFileAt(currentDocument()) ? currentDocument() : 0;
    ThrowDlg dialog(window, project());
    if (dialog.exec() == QDialog::Accepted)
        insertThrow(dialog.options(), target);
}

bool QStatesEditor::insertThrow(const QVariantMap& options, int index)
{
    QWidget* window = textWorkspace()->view()->window();
    QSyntaxTextEditor* states = project() ? project()->states(index) : nullptr;
    if (!states)
        return false;
    ThrowText text;
    {
        QScript script;
        try {
            text = runThrowScript(script, options);
        } catch (const std::exception& error) {
            QMessageBox::critical(window, tr("Throw script error"), script.describe(error));
            return false;
        }
    }
    const int line = insertLines(states->document(), QTextBlock(), text.states);
    QStringList parts;
    parts << tr("Throw states at line %1 of %2").arg(line + 1).arg(documentTitle(index));

    QTextDocument* cmd = project()->commands()->document();
    const QString cmdFile = QFileInfo(project()->commands()->fileName()).fileName();
    const QString cmdName = cmdFile.isEmpty() ? tr("the CMD") : cmdFile;
    if (!text.command.isEmpty() || !text.entry.isEmpty()) {
        // The command and the entry as one step of the CMD.
        QTextCursor step(cmd);
        step.beginEditBlock();
        if (!text.command.isEmpty())
            parts << tr("its command at line %1 of %2").arg(insertLines(cmd, commandPlace(cmd), text.command) + 1).arg(cmdName);
        if (!text.entry.isEmpty()) {
            bool sectionMissing = false;
            const QTextBlock place = entryPlace(cmd, sectionMissing);
            if (sectionMissing)
                text.entry.prepend(QStringLiteral("[Statedef -1]\n\n"));
            parts << tr("its state -1 entry at line %1").arg(insertLines(cmd, place, text.entry) + 1);
        }
        step.endEditBlock();
    }
    m_throwReport = parts.join(QStringLiteral(", ")) + QLatin1Char('.');
    if (auto* main = qobject_cast<QMainWindow*>(window))
        main->statusBar()->showMessage(m_throwReport, 15000);
    // Shows the new states, their first line at the top.
    showDocument(index);
    navigateTo(index, 0, line);
    return true;
}
