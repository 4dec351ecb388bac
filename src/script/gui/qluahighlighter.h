#pragma once

#include <QRegularExpression>
#include <QSyntaxHighlighter>
#include <QTextCharFormat>

/// Colours Lua in the script editor: keywords, strings, numbers, comments.
class QLuaHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT
public:
    explicit QLuaHighlighter(QTextDocument* document);

protected:
    void highlightBlock(const QString& text) override;

private:
    struct Rule
    {
        QRegularExpression pattern;
        QTextCharFormat format;
    };
    QList<Rule> m_rules;
    QTextCharFormat m_comment;
};
