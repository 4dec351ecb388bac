#include "qtextsearch.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

QTextSearch::QTextSearch(const QString& text, bool regularExpression, bool caseSensitive, bool wholeWords)
    : m_regularExpression(regularExpression)
{
    QString pattern = regularExpression ? text : QRegularExpression::escape(text);
    if (wholeWords)
        pattern = QStringLiteral("\\b(?:") + pattern + QStringLiteral(")\\b");
    if (!text.isEmpty())
        m_expression.setPattern(pattern);
    m_expression.setPatternOptions(caseSensitive ? QRegularExpression::NoPatternOption
                                                 : QRegularExpression::CaseInsensitiveOption);
}

bool QTextSearch::isValid() const
{
    return !m_expression.pattern().isEmpty() && m_expression.isValid();
}

QString QTextSearch::errorString() const
{
    return m_expression.pattern().isEmpty() ? QString() : m_expression.errorString();
}

QList<QTextSearch::Match> QTextSearch::findAll(const QTextDocument* document) const
{
    QList<Match> matches;
    if (!isValid())
        return matches;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        const QString text = block.text();
        QRegularExpressionMatchIterator it = m_expression.globalMatch(text);
        while (it.hasNext()) {
            const QRegularExpressionMatch match = it.next();
            if (match.capturedLength() > 0)
                matches.append(Match{block.blockNumber(), int(match.capturedStart()), int(match.capturedLength()), text});
        }
    }
    return matches;
}

int QTextSearch::replaceAll(QTextDocument* document, const QString& replacement) const
{
    const QList<Match> matches = findAll(document);
    if (matches.isEmpty())
        return 0;
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    // From the end, so that the earlier matches keep their positions.
    for (auto it = matches.crbegin(); it != matches.crend(); ++it) {
        const QTextBlock block = document->findBlockByNumber(it->line);
        QString with = replacement;
        if (m_regularExpression) {
            const QRegularExpressionMatch match = m_expression.match(it->lineText, it->column);
            for (int group = match.lastCapturedIndex(); group >= 0; --group)
                with.replace(QLatin1Char('\\') + QString::number(group), match.captured(group));
        }
        cursor.setPosition(block.position() + it->column);
        cursor.setPosition(block.position() + it->column + it->length, QTextCursor::KeepAnchor);
        cursor.insertText(with);
    }
    cursor.endEditBlock();
    return int(matches.size());
}
