#pragma once

#include <QList>
#include <QString>

class QTextDocument;

/**
 * The outline of an engine text file: its groups (the "[...]" lines) in
 * document order, each with its name and line. It answers which groups a
 * file has and reads single values out of them; the DEF decides the kind of
 * project from it.
 *
 * It is rebuilt as a whole by update(), which the document's owner runs on a
 * timer rather than on every key, so between an edit and the next update it
 * describes the text as it was. Names compare ignoring letter case, as the
 * engine reads them.
 */
class QMugenSyntaxHierarchy
{
public:
    struct Group
    {
        QString name; ///< the text between the brackets, trimmed
        int line = 0;
    };

    /// One entry of the outline an author navigates by.
    struct Item
    {
        QString label;
        int line = 0;
        int level = 0; ///< 1 for a [State] under its [Statedef], else 0
    };

    /// `document` must outlive the outline.
    explicit QMugenSyntaxHierarchy(const QTextDocument* document);

    void update();
    const QList<Group>& groups() const { return m_groups; }
    /// The position of the first group called `name`, or -1.
    int findGroup(const QString& name) const;
    /**
     * The value of `key` in the first group called `section`, as the line
     * gives it: the text behind "=", up to a comment, trimmed (quotes kept).
     * A null string when the group or the key is not there.
     */
    QString findValue(const QString& section, const QString& key) const;

    /**
     * The groups as an author reads them: a [Statedef] or [Begin Action]
     * with its name comment (on its line or the line above), each [State]
     * under its [Statedef] with its controller type, a [Command] by its
     * name, every other group by its own name.
     */
    QList<Item> outline() const;

    /// The name of the group a line opens, or a null string when it opens none.
    static QString groupName(const QString& line);

private:
    /// The value of `key` in the group at that position, or null.
    QString valueIn(int group, const QString& key) const;

    const QTextDocument* m_document;
    QList<Group> m_groups;
};
