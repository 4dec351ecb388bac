#pragma once

#include <QList>
#include <QRegularExpression>
#include <QString>

class QTextDocument;

/**
 * One search of the author's: the text, read as a regular expression or
 * literally, with letter case and whole words as asked. Finds every match of
 * a document and replaces them as one undo step of that document, so a
 * replace across files is undone file by file, or all at once by undoing
 * each document it touched.
 */
class QTextSearch
{
public:
    struct Match
    {
        int line = 0;
        int column = 0;
        int length = 0;
        QString lineText;
    };

    QTextSearch(const QString& text, bool regularExpression, bool caseSensitive, bool wholeWords);

    /// False for an empty text or an invalid expression; errorString() says why.
    bool isValid() const;
    QString errorString() const;
    const QRegularExpression& expression() const { return m_expression; }

    /// Every match, line by line (matches never span lines).
    QList<Match> findAll(const QTextDocument* document) const;
    /// Replaces every match in one undo step; "\\1" and the like refer to groups of an expression.
    int replaceAll(QTextDocument* document, const QString& replacement) const;

private:
    QRegularExpression m_expression;
    bool m_regularExpression;
};
