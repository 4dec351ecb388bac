#pragma once

#include "model/qcommandsorg.h"
#include "syntax/qsyntaxtexteditor.h"

class QCommand;

/**
 * The CMD file of a character. The text is the truth: the model is the
 * document, and the list of its `[Command]` groups (in text order) follows
 * every edit, made here, in a view or by undo. The edits of this class are
 * text edits of whole groups, so the author's undo takes them back like
 * typing.
 *
 * Call init() once per process, before initCommonElements() and after
 * QDefinitions::init(), whose `name` key the commands share.
 */
class QCommands : public QSyntaxTextEditor
{
    Q_OBJECT
public:
    explicit QCommands(QProject* project, QObject* parent = nullptr);

    /// Registers the `[Command]` group and the `command` key, once per process.
    static void init();

    int count() const { return int(m_commands.size()); }
    QCommand* at(int index) const { return m_commands.value(index); }
    int indexOf(const QCommand* command) const { return m_commands.indexOf(const_cast<QCommand*>(command)); }
    QCommandsOrg* organizer() { return &m_org; }

    /// Appends an empty `[Command]` group; returns it.
    QCommand* add();
    /// Inserts an empty group before the command at `position` (appends past the end).
    QCommand* insert(unsigned int position);
    /// Deletes the command's lines, its naming comment with them.
    void remove(unsigned int position);
    /// Moves the command's lines before the command at `to`, or behind the
    /// last one when `to` is the last index or beyond.
    void move(unsigned int from, unsigned int to);
    /// Copies the command's lines behind it.
    void duplicate(unsigned int position);
    /// The first index from `from` whose name equals `name` exactly; -1 if none.
    int find(unsigned int from, const QString& name) const;
    /// Sorts the commands longest key sequence first, keeping the order of equal lengths.
    void autoOrganize();

protected:
    void updateInternal(QList<QTextElementChange>& changes) override;
    QString discardMsg() const override;

private:
    /// The command's lines, ending in a line feed.
    QString textOf(const QCommand* command) const;
    /// Inserts whole lines at a position that starts a line or ends the document.
    void insertLines(int position, const QString& text);
    int documentEnd() const;

    QList<QCommand*> m_commands;
    QCommandsOrg m_org;
};
