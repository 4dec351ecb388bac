#pragma once

#include <QHash>
#include <QStringList>

class QTextCursor;

/**
 * The words the vocabulary allows at a cursor of an engine text file: the
 * controllers after "type =" in a [State] section, the controller's own
 * parameters (and the common ones) at the start of a line there, the
 * [Statedef] keys, and triggers with redirections after "=" of a trigger or
 * an expression. Only what the engine version of the document's checker
 * knows is offered; a document without a checker gets nothing.
 *
 * Triggers are stored lowered in the vocabulary; names given to
 * setSpelling() are offered as the engine's documents write them.
 */
class QTextCompletions
{
public:
    /// The candidates at the cursor, sorted; `prefix` gets the part of the word already typed.
    QStringList candidates(const QTextCursor& cursor, QString* prefix) const;
    /// How many letters of a word stand before the cursor.
    static int typedLength(const QTextCursor& cursor);
    /// Whether a list belongs right after what stands before the cursor ("type = ").
    bool wantsListAfter(const QTextCursor& cursor) const;

    /// The spelling to offer for each lowered name.
    static void setSpelling(const QHash<QString, QString>& spelling);

private:
    static QString spelled(const QString& lowered);
};
