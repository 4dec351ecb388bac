#include "qluahighlighter.h"

namespace {

QTextCharFormat colour(const QColor& foreground, bool bold = false)
{
    QTextCharFormat format;
    format.setForeground(foreground);
    if (bold)
        format.setFontWeight(QFont::Bold);
    return format;
}

} // namespace

QLuaHighlighter::QLuaHighlighter(QTextDocument* document)
    : QSyntaxHighlighter(document)
{
    m_rules.append({QRegularExpression(QStringLiteral(
                        "\\b(and|break|do|else|elseif|end|false|for|function|goto|if|in|local|nil|not|or|repeat|"
                        "return|then|true|until|while)\\b")),
                    colour(QColor(0, 0, 160), true)});
    m_rules.append({QRegularExpression(QStringLiteral("\\b\\d+(\\.\\d+)?\\b")), colour(QColor(160, 80, 0))});
    m_rules.append({QRegularExpression(QStringLiteral("\"(\\\\.|[^\"])*\"|'(\\\\.|[^'])*'")), colour(QColor(0, 120, 0))});
    m_comment = colour(QColor(120, 120, 120));
    m_comment.setFontItalic(true);
}

void QLuaHighlighter::highlightBlock(const QString& text)
{
    for (const Rule& rule : std::as_const(m_rules)) {
        auto matches = rule.pattern.globalMatch(text);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            setFormat(int(match.capturedStart()), int(match.capturedLength()), rule.format);
        }
    }
    // A comment runs to the end of the line ("--" inside a string aside).
    const int comment = int(text.indexOf(QStringLiteral("--")));
    if (comment >= 0 && format(comment) != m_rules.at(2).format)
        setFormat(comment, int(text.size()) - comment, m_comment);
}
