#pragma once

#include <QList>
#include <QPair>
#include <QRandomGenerator>
#include <QString>
#include <QStringList>
#include <QTextCursor>

class QTextDocument;

/// One replacement of `removed` characters at `position` by `inserted`.
struct TextEdit
{
    int position = 0;
    int removed = 0;
    QString inserted;
    QString label;

    /// Applies the edit through a QTextCursor or a QElementTextCursor (whose
    /// edit calls hide those of QTextCursor, hence the template).
    template <class Cursor> void apply(Cursor& cursor) const
    {
        cursor.setPosition(position);
        cursor.setPosition(position + removed, QTextCursor::KeepAnchor);
        if (inserted.isEmpty())
            cursor.removeSelectedText();
        else
            cursor.insertText(inserted);
    }

    /// The single replacement that turns `from` into `to`.
    static TextEdit difference(const QString& from, const QString& to);
};

/**
 * Seeded random edits of the kinds an author makes: typing and deleting
 * characters, deleting whole lines and spans across lines, pasting lines of
 * a real file in the middle of a line or at its start, replacing lines, and
 * adding headers, comments and blank lines. The same seed gives the same
 * edits on the same text.
 */
class RandomEdits
{
public:
    RandomEdits(quint32 seed, const QStringList& sourceLines);

    TextEdit next(const QTextDocument& document);
    int bounded(int limit) { return int(m_random.bounded(limit)); }

    /// Rows of a data-driven test: the columns "file" (below the real data)
    /// and "edits", that number times PF_RANDOM_EDITS (1 when unset).
    static void addRows(const QList<QPair<const char*, int>>& files);

private:
    QString sourceLines(int count);
    int lineStart(const QTextDocument& document, int line) const;

    QRandomGenerator m_random;
    QStringList m_source;
};
